// An energy calibration by clicks and keys, from two reference spectra to the next start.
#include <gmock/gmock.h>

#include <QListWidget>
#include <algorithm>
#include <cmath>

#include "WindowTest.h"
#include "batch/ElementLines.h"
#include "batch/SourceLines.h"
#include "files/FileNPD.h"
#include "processing/Units.h"
#include "program/Simulation.h"
#include "qt/binding/GridView.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

// A line of which the position is taken: its energy comes from the element table (the average of
// both K-alpha lines or K-alpha 1) or, the line of a source, is typed.
struct KnownLine {
  double energy_kev;
  const char* name;
  int num = 0;   // element; 0: typed
  int kind = 0;  // button of the element's line
};
const std::vector<KnownLine> kElementLines{
    {17.4432, "Mo KAve", 42, 0}, {22.1031, "Ag KAve", 47, 0}, {74.9693, "Pb Ka1", 82, 1}};
const std::vector<KnownLine> kSourceLines{
    {59.5409, "Am-241"}, {88.0336, "Cd-109"}, {122.06065, "Co-57"}};

// keV of channel number n: A + B n + C n^2.
EgcCoef Truth(double c) {
  EgcCoef egc;
  egc[0] = 0.3;
  egc[1] = 0.065;
  egc[2] = c;
  return egc;
}
const EgcCoef kStraight = Truth(0);
const EgcCoef kCurved = Truth(1e-7);

class CalibrationRun : public WindowTest {
 protected:
  void SetUp() override {
    PutSpectra(kStraight);
    WindowTest::SetUp();
  }
  // Radioactive sources and elements that are excited, each with X-rays of others beside them.
  void PutSpectra(const EgcCoef& egc) {
    truth = egc;
    Put("elements", {Element("Cu", 0.8), Element("Mo", 1), Element("Ag", 0.9), Element("Pb", 0.8),
                     Source("Am-241", 0.3)});
    Put("sources", {Source("Am-241", 1), Source("Cd-109", 0.6), Source("Co-57", 0.8),
                    Element("Ag", 0.5), Element("Pb", 0.4)});
  }
  static std::vector<FluorescenceLine> Source(const char* name, double share) {
    return SourceLinesOf(name, share);
  }
  static std::vector<FluorescenceLine> Element(const char* symbol, double share) {
    SystemFileLayer files;
    const ByteVector table = ReadFile(files, DORVANE_SOURCE_DIR "/data/element_lines.csv");
    return KLinesOf(AsText(table), symbol, share);
  }
  void Put(const std::string& name, const std::vector<std::vector<FluorescenceLine>>& lines) {
    SimulationRequest request;
    request.name = name;
    request.egc = truth;
    request.strongest_counts = 100000;
    for (const auto& each : lines) {
      request.fluorescence.insert(request.fluorescence.end(), each.begin(), each.end());
    }
    SimulatedSpectrum spectrum = Simulate(request);
    spectrum.record.Prop.EGC = {};  // the file does not tell
    folder.Put(name + ".npd", std::string(AsText(NpdImage(spectrum.block, spectrum.record))));
  }
  double IndexOf(const KnownLine& line) const { return EnergyToCh(line.energy_kev, truth) - 1; }

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
    const double index = IndexOf(line);
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
  void TypeCell(int row, int column, const QString& text) {
    auto* view = WindowOf(Dialog()).As<GridView>(Dialog().vaSpread1);
    WindowOf(Dialog()).activateWindow();  // no window manager does it after a click
    ASSERT_TRUE(QTest::qWaitForWindowActive(&WindowOf(Dialog())));
    view->setFocus();
    view->setCurrentIndex(view->model()->index(row - 1, column - 1));
    QTest::keyClick(view, Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), text);
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
    const BoxAnswerer boxes;
    Trigger("mnuCons");
    OpenBoth();
    Trigger("mnuAreaCursor");
    ClickRow(Dialog().sprdFileName, 1);
    Press(Dialog().cmdSmothBk);
    MarkArea(100, 140);  // makes the first window the active one
    Trigger("mnuGraphBackRemoved");
    for (const KnownLine& line : kElementLines) FitAndTake(line);
    ClickRow(Dialog().sprdFileName, 2);
    for (const KnownLine& line : kSourceLines) FitAndTake(line);
    Press(Dialog().cmdEnergyInp);
    int row = 1;
    for (const KnownLine& line : kElementLines) TakeEnergy(row++, line);
    for (const KnownLine& line : kSourceLines) {
      TypeCell(row, 2, QString::number(line.energy_kev, 'g', 8));
      TypeCell(row++, 3, line.name);
    }
    EXPECT_EQ(boxes.Texts(), QStringList());
  }
  void Select(CalibForm form) {
    const char* const buttons[] = {"optCnst_0", "optCnst_1"};
    QTest::mouseClick(
        WindowOf(Dialog()).findChild<QAbstractButton*>(buttons[static_cast<int>(form)]),
        Qt::LeftButton);
  }
  // "Calculate" gives the truth, within three standard errors.
  void ExpectCalculated(CalibForm form, const EgcCoef& expected) {
    Select(form);
    Press(Dialog().cmdCalEng);
    const CalibFit fit = Fit(form);
    ASSERT_EQ(fit.residuals_ev.size(), 6u);
    for (int j = 0; j < 3; ++j) {
      EXPECT_NEAR(Dialog().ImConst[j].Value(), expected[j], 3 * fit.errors[j]) << j;
    }
    EXPECT_LT(fit.errors[1], form == CalibForm::Line ? 1e-5 : 4e-5);
  }
  void Update() {
    const BoxAnswerer boxes;
    Press(Dialog().cmdCalbOK);
    QCoreApplication::processEvents();
    ASSERT_EQ(boxes.Texts().size(), 1);
    EXPECT_TRUE(boxes.Texts().front().startsWith("Parameter saved as "));
  }
  // Leaves the dialog and the program, and starts it again.
  void Restart() {
    Press(Dialog().cmdCalbCan);
    EXPECT_EQ(Store().GrpCount, 0);
    EXPECT_TRUE(Find<QAction>("tlbrEnergy_Calib")->isEnabled());
    Trigger("mnuExit");
    session.reset();
    Start();
  }
  // The stored calibration is there, and the dialog opens with it.
  void ExpectStored(const CalibFit& fit, CalibForm form) {
    EXPECT_EQ(Store().DefaultProp.EGC, fit.coefficients);
    Trigger("mnuCons");
    EXPECT_EQ(Dialog().optCnst.Index(), static_cast<int>(form));
    for (int j = 0; j < 3; ++j) EXPECT_EQ(Dialog().ImConst[j].Value(), fit.coefficients[j]) << j;
  }

  EgcCoef truth;  // of the spectra
};

TEST_F(CalibrationRun, AStraightLineFromTwoSpectraToTheNextStart) {
  FillTable();
  const Grid& table = Dialog().vaSpread1;
  EXPECT_EQ(table.Text(2, 2), "22.1031");
  EXPECT_EQ(table.Text(2, 3), "Ag KAve");
  EXPECT_EQ(table.Text(2, 4), "elements");
  EXPECT_EQ(table.Text(6, 2), "122.06065");
  EXPECT_EQ(table.Text(6, 4), "sources");

  // In the index x = n - 1 the straight line A + B n is A + B + B x.
  EgcCoef in_index = kStraight;
  in_index[0] = kStraight[0] + kStraight[1];
  ExpectCalculated(CalibForm::Parabola, in_index);
  ExpectCalculated(CalibForm::Line, kStraight);
  const CalibFit line = Fit(CalibForm::Line);
  Update();
  Restart();
  ExpectStored(line, CalibForm::Line);
}

TEST_F(CalibrationRun, AParabolaFromTwoSpectraToTheNextStart) {
  PutSpectra(kCurved);
  FillTable();
  // A + B (x + 1) + C (x + 1)^2 by powers of x.
  EgcCoef in_index = kCurved;
  in_index[0] = kCurved[0] + kCurved[1] + kCurved[2];
  in_index[1] = kCurved[1] + 2 * kCurved[2];
  ExpectCalculated(CalibForm::Parabola, in_index);
  const CalibFit parabola = Fit(CalibForm::Parabola);
  EXPECT_GT(parabola.coefficients[2], 3 * parabola.errors[2]);
  Meanwhile(session->calibration_curve, [this] {
    EXPECT_THAT(session->calibration_curve.txtMemo.Text(), testing::HasSubstr("*Ch^2"));
    Press(session->calibration_curve, session->calibration_curve.cmdOk);
  });
  Press(Dialog().cmdCurve);
  Update();
  Restart();
  ExpectStored(parabola, CalibForm::Parabola);
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
