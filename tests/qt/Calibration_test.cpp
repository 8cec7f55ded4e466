// An energy calibration by clicks and keys, from two reference spectra to the next start.
#include <gmock/gmock.h>

#include <QListWidget>
#include <algorithm>
#include <cmath>
#include <random>

#include "WindowTest.h"
#include "files/FileNPD.h"
#include "qt/binding/GridView.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

// The truth: energy in keV of channel number n.
constexpr double kA = 0.3;
constexpr double kB = 0.045;

// A line of the element table: the average of both K-alpha lines, K-alpha 1, 2 or K-beta 1.
struct KnownLine {
  int num;
  int kind;
  double energy_kev;
  double height;
};
const std::vector<KnownLine> kLight{
    {29, 0, 8.0411, 4000}, {42, 0, 17.4432, 6000}, {47, 0, 22.1031, 5000}};
const std::vector<KnownLine> kHeavy{
    {82, 2, 72.8045, 5000}, {82, 1, 74.9693, 7000}, {82, 3, 84.9381, 3000}};

double IndexOf(double energy_kev) {
  return (energy_kev - kA) / kB - 1;
}

// One draw of lines of 8 channels' full width on a falling background.
ChannelBlock Counts(const std::vector<KnownLine>& lines, unsigned seed) {
  std::mt19937 random(seed);
  ChannelBlock block;
  block.Count = 2048;
  for (int i = 0; i < block.Count; ++i) {
    double expected = 20 + 60 * std::exp(-i / 400.0);
    for (const KnownLine& line : lines) {
      const double u = (i - IndexOf(line.energy_kev)) / 4;
      expected += line.height * std::pow(2.0, -u * u);
    }
    block.Counts[i] = std::poisson_distribution<std::int32_t>(expected)(random);
  }
  return block;
}

class CalibrationRun : public WindowTest {
 protected:
  void SetUp() override {
    Put("light", kLight, 1);
    Put("heavy", kHeavy, 2);
    WindowTest::SetUp();
  }
  void Put(const std::string& name, const std::vector<KnownLine>& lines, unsigned seed) {
    SpectrumRec record;
    record.MsuName.Set(name);
    const ByteVector image = NpdImage(Counts(lines, seed), record);
    folder.Put(name + ".npd", std::string(AsText(image)));
  }

  frmDialogCalibC& Dialog() { return session->calibration; }
  FormWindow& WindowOf(Form& form) { return *session->form_views.WindowOf(form); }
  void Press(Form& form, const Control& control) {
    QWidget* widget = WindowOf(form).Of(control);
    ASSERT_TRUE(widget->isVisible() && widget->isEnabled()) << control.Name();
    QTest::mouseClick(widget, Qt::LeftButton);
  }
  void Press(const Control& control) { Press(Dialog(), control); }
  void ClickRow(const Grid& grid, int row) {
    auto* view = WindowOf(Dialog()).As<GridView>(grid);
    const QModelIndex cell = view->model()->index(row - 1, 0);
    view->scrollTo(cell);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(cell).center());
  }
  // Works a modal form as soon as the next press has opened it.
  void Meanwhile(Form& form, const std::function<void()>& work) {
    QTimer::singleShot(0, [this, &form, work] {
      EXPECT_TRUE(QTest::qWaitForWindowActive(&WindowOf(form)));
      work();
    });
  }

  void OpenBoth() {
    frmDialogLoad& load = session->load;
    Meanwhile(load, [&] {
      WindowOf(load).As<QListWidget>(load.filFiles)->selectAll();
      Press(load, load.cmdSet);
    });
    Press(Dialog().cmdFileOpen);
    ASSERT_EQ(Dialog().sprdFileName.MaxRows(), 2);
  }
  QPoint Over(double channel) {
    const auto* graph = Find<QWidget>("picGraph_0");
    const double x = session->program.spect.XOfChannel(0, channel) * graph->width();
    return {static_cast<int>(x), graph->height() / 2};
  }
  void MarkArea(double from, double to) {
    auto* graph = Find<QWidget>("picGraph_0");
    QTest::mousePress(graph, Qt::LeftButton, {}, Over(from));
    QTest::mouseMove(graph, Over(to));
    QTest::mouseRelease(graph, Qt::LeftButton, {}, Over(to));
  }
  // Marks a peak, fits it and takes its position into the active row.
  void FitAndTake(const KnownLine& line) {
    const double index = IndexOf(line.energy_kev);
    MarkArea(index - 18, index + 18);
    Type("inumCursorCh", QString::number(std::lround(index)));
    frmManualFit& fit = session->manual_fit;
    Meanwhile(fit, [&] {
      Press(fit, fit.cmdGetValue[0]);
      Press(fit, fit.cmdExecute);
    });
    Press(Dialog().cmdAuto[1]);
    Press(Dialog().cmdCsrSet);
  }
  void TakeEnergy(int row, const KnownLine& line) {
    ClickRow(Dialog().vaSpread1, row);
    frmAtom& atom = session->atom;
    if (!atom.tglAtom[line.num].Pressed()) Press(atom, atom.tglAtom[line.num]);
    Press(atom, atom.tglPkDisp[line.kind]);
  }
  CalibFit Fit(CalibForm form) {
    std::vector<CalibRow> rows;
    const Grid& grid = Dialog().vaSpread1;
    for (int r = 1; r <= grid.MaxRows(); ++r) {
      rows.push_back({grid.Text(r, 1), grid.Text(r, 2), grid.Text(r, 3), grid.Text(r, 4)});
    }
    return FitCalibration(PointsOf(rows), form);
  }
  // Both spectra fitted, six positions with their energies.
  void FillTable() {
    Trigger("mnuCons");
    OpenBoth();
    Trigger("mnuAreaCursor");
    ClickRow(Dialog().sprdFileName, 2);
    Press(Dialog().cmdSmothBk);
    MarkArea(100, 140);  // makes the first window the active one
    Trigger("mnuGraphBackRemoved");
    for (const KnownLine& line : kLight) FitAndTake(line);
    ClickRow(Dialog().sprdFileName, 1);
    for (const KnownLine& line : kHeavy) FitAndTake(line);
    Press(Dialog().cmdEnergyInp);
    int row = 1;
    for (const auto* lines : {&kLight, &kHeavy}) {
      for (const KnownLine& line : *lines) TakeEnergy(row++, line);
    }
  }
};

TEST_F(CalibrationRun, FromTwoSpectraToTheNextStart) {
  const BoxAnswerer boxes;
  FillTable();
  const Grid& table = Dialog().vaSpread1;
  EXPECT_EQ(table.Text(2, 2), "17.4432");
  EXPECT_EQ(table.Text(2, 3), "Mo KAve");
  EXPECT_EQ(table.Text(2, 4), "light");
  EXPECT_EQ(table.Text(6, 4), "heavy");
  EXPECT_EQ(boxes.Texts(), QStringList());

  Press(Dialog().cmdCalEng);
  const CalibFit line = Fit(CalibForm::Line);
  ASSERT_EQ(line.residuals_ev.size(), 6u);
  EXPECT_NEAR(Dialog().ImConst[0].Value(), kA, 3 * line.errors[0]);
  EXPECT_NEAR(Dialog().ImConst[1].Value(), kB, 3 * line.errors[1]);
  EXPECT_LT(line.errors[1], 1e-5);

  QTest::mouseClick(WindowOf(Dialog()).findChild<QAbstractButton*>("optCnst_1"), Qt::LeftButton);
  Press(Dialog().cmdCalEng);
  const CalibFit parabola = Fit(CalibForm::Parabola);
  EXPECT_NEAR(Dialog().ImConst[0].Value(), kA + kB, 3 * parabola.errors[0]);
  EXPECT_NEAR(Dialog().ImConst[1].Value(), kB, 3 * parabola.errors[1]);
  EXPECT_NEAR(Dialog().ImConst[2].Value(), 0, 3 * parabola.errors[2]);
  Meanwhile(session->calibration_curve, [this] {
    EXPECT_THAT(session->calibration_curve.txtMemo.Text(), testing::HasSubstr("*Ch^2"));
    Press(session->calibration_curve, session->calibration_curve.cmdOk);
  });
  Press(Dialog().cmdCurve);

  QTest::mouseClick(WindowOf(Dialog()).findChild<QAbstractButton*>("optCnst_0"), Qt::LeftButton);
  Press(Dialog().cmdCalbOK);
  QCoreApplication::processEvents();
  ASSERT_EQ(boxes.Texts().size(), 1);
  EXPECT_TRUE(boxes.Texts().front().startsWith("Parameter saved as "));
  Press(Dialog().cmdCalbCan);
  EXPECT_EQ(Store().GrpCount, 0);
  EXPECT_TRUE(Find<QAction>("tlbrEnergy_Calib")->isEnabled());
  Trigger("mnuExit");

  session.reset();
  Start();
  EXPECT_EQ(Store().DefaultProp.EGC[0], line.coefficients[0]);
  EXPECT_EQ(Store().DefaultProp.EGC[1], line.coefficients[1]);
  EXPECT_EQ(Store().DefaultProp.EGC[2], 0);
}

TEST_F(CalibrationRun, TheDialogFloatsAndTheMainWindowWorksOn) {
  Trigger("mnuCons");
  EXPECT_FALSE(Find<QAction>("tlbrFile_LoadData")->isEnabled());
  OpenBoth();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  Trigger("mnuSmooth");
  EXPECT_EQ(Store().Slots[0].Title, "Smooth");
  EXPECT_TRUE(Dialog().Visible());
}

TEST_F(CalibrationRun, ANumberTypedIntoTheTableCountsWithTheNextPress) {
  Trigger("mnuCons");
  auto* view = WindowOf(Dialog()).As<GridView>(Dialog().vaSpread1);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&WindowOf(Dialog())));
  ClickRow(Dialog().vaSpread1, 1);
  QTest::keyClick(view, Qt::Key_F2);
  QTest::keyClicks(QApplication::focusWidget(), "123.5");
  Press(Dialog().cmdDelTable);  // the cell is left, then its row goes
  EXPECT_EQ(Dialog().vaSpread1.Text(1, 1), "");
  ClickRow(Dialog().vaSpread1, 2);
  QTest::keyClick(view, Qt::Key_F2);
  QTest::keyClicks(QApplication::focusWidget(), "77");
  Press(Dialog().cmdCalEng);
  EXPECT_EQ(Dialog().vaSpread1.Text(2, 1), "77");
}

}  // namespace
}  // namespace dorvane
