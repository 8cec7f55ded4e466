#include "qt/views/Views.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <cmath>
#include <set>

#include "forms/FakeElementStore.h"
#include "forms/frmAtom.h"
#include "forms/frmDialogMessage.h"
#include "forms/frmInput.h"
#include "forms/frmInputFitParameter.h"
#include "forms/frmLog.h"
#include "forms/frmManualFit.h"
#include "forms/frmRoiReport.h"
#include "forms/frmSelGraph.h"
#include "processing/RoiOpe.h"
#include "program/Cursor.h"
#include "program/ProgramFixture.h"
#include "qt/binding/BindingFixture.h"
#include "support/MemorySettings.h"

namespace dorvane {
namespace {

testing::Environment* const kApplication =
    testing::AddGlobalTestEnvironment(new BindingApplication);

class Views : public ProgramTest {
 protected:
  template <class AForm>
  FormWindow& Open(AForm& form) {
    windows.Add(form, [&form](FormWindow& window) { LayOut(form, window); });
    form.Show();
    FormWindow& window = *windows.WindowOf(form);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    return window;
  }
  // Row and column from 1.
  void ClickCell(FormWindow& window, const Grid& grid, int row, int column) {
    auto* table = window.As<QAbstractItemView>(grid);
    const QModelIndex index = table->model()->index(row - 1, column - 1);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, table->visualRect(index).center());
  }

  // Types over what stands in the box.
  static void TypeOver(QWidget* box, const char* text) {
    box->setFocus();
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(box, text);
  }

  QtFormHost host;
  frmDialogMessage message{host};
  frmInput input{host};
  frmLog log_form{host};
  frmRoiReport regions{program, host};
  frmSelGraph graphs{program, host};
  frmManualFit manual_fit{program, host};
  frmInputFitParameter fit_input{program, host};
  FakeElementStore store;
  LineMarks line_marks{program};
  MemorySettings settings;
  frmAtom atom{program, host, store, settings, line_marks};
  FormViews windows{host};
};

TEST_F(Views, EveryControlHasItsWidget) {
  ExpectEveryControlHasItsWidget(message, Open(message));
  ExpectEveryControlHasItsWidget(input, Open(input));
  ExpectEveryControlHasItsWidget(log_form, Open(log_form));
  ExpectEveryControlHasItsWidget(regions, Open(regions));
  ExpectEveryControlHasItsWidget(graphs, Open(graphs));
  ExpectEveryControlHasItsWidget(manual_fit, Open(manual_fit));
  ExpectEveryControlHasItsWidget(fit_input, Open(fit_input));
  ExpectEveryControlHasItsWidget(atom, Open(atom));
  ExpectEveryControlHasItsWidget(atom.element, Open(atom.element));
}

TEST_F(Views, InputIsTypedAndEndsWithEnterEachTime) {
  Open(graphs);
  windows.Add(input, [this](FormWindow& window) { LayOut(input, window); });
  for (const char* text : {"MgO", "NaCl"}) {
    QTimer::singleShot(50, [this, text] {
      QWidget* box = windows.WindowOf(input)->Of(input.txtInput);
      EXPECT_TRUE(box->hasFocus());
      QTest::keyClicks(box, text);
      QTest::keyClick(box, Qt::Key_Return);
    });
    input.ShowModal();
    EXPECT_EQ(input.StrValue(), text);
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return windows.WindowOf(graphs)->isActiveWindow(); }, 1000));
  }
}

TEST_F(Views, InputIsEmptyAfterEscape) {
  FormWindow& window = Open(input);
  QTest::keyClicks(window.Of(input.txtInput), "MgO");
  QTest::keyClick(window.Of(input.txtInput), Qt::Key_Escape);
  EXPECT_FALSE(input.Visible());
  EXPECT_EQ(input.StrValue(), "");
}

TEST_F(Views, MessageWithOneButtonEndsWithEnterOrEscape) {
  message.Message("チャンネル数オーバー");
  FormWindow& window = Open(message);
  QTest::keyClick(window.Of(message.cmdYes), Qt::Key_Escape);
  EXPECT_FALSE(message.Visible());
  message.Show();
  QTest::keyClick(window.Of(message.itxtMessage), Qt::Key_Return);
  EXPECT_FALSE(message.Visible());
}

TEST_F(Views, LogShowsItsLastLine) {
  FormWindow& window = Open(log_form);
  for (int line = 1; line <= 100; ++line) log_form.PutLog("line " + std::to_string(line));
  auto* text = window.As<QPlainTextEdit>(log_form.txtMessage);
  EXPECT_TRUE(text->toPlainText().endsWith("line 99\nline 100\n"));
  EXPECT_TRUE(text->viewport()->rect().contains(text->cursorRect().center()));
}

TEST_F(Views, GraphIsHiddenByItsCheckCell) {
  views.Add(graphs);
  Show({1, 2, 3});
  FormWindow& window = Open(graphs);
  ClickCell(window, graphs.sprGraphSel, 1, frmSelGraph::kDisp);
  EXPECT_EQ(Row(0).Disp, kFalse);
  ClickCell(window, graphs.sprGraphSel, 1, frmSelGraph::kDisp);
  EXPECT_NE(Row(0).Disp, kFalse);
}

TEST_F(Views, ClickedGraphBecomesTheCurrentOne) {
  views.Add(graphs);
  Show({1, 2, 3}, "a.npd");
  Show({1, 2, 3}, "b.npd");
  FormWindow& window = Open(graphs);
  ClickCell(window, graphs.sprGraphSel, 1, frmSelGraph::kFileName);
  EXPECT_EQ(view.GraphNo, 0);
  EXPECT_TRUE(graphs.sprGraphSel.Cell(1, frmSelGraph::kActiv).mark);
}

TEST_F(Views, PinKeepsTheWindowOnTop) {
  FormWindow& window = Open(graphs);
  QTest::mouseClick(window.Of(graphs.picPin), Qt::LeftButton);
  EXPECT_TRUE(graphs.chkFix.Checked());
  EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_TRUE(window.Of(graphs.picPinOn)->isVisible());
  EXPECT_FALSE(window.Of(graphs.picPinOff)->isVisible());
}

// Gaussian of height 1000 at channel 130 with a half width of 6.
std::vector<std::int32_t> SpectrumWithALine() {
  std::vector<std::int32_t> counts;
  for (int i = 0; i < 1024; ++i) {
    counts.push_back(20 + static_cast<int>(1000 * std::pow(2.0, -std::pow((i - 130) / 6.0, 2))));
  }
  return counts;
}

TEST_F(Views, RegionIsFittedFromTypedPeaks) {
  const auto data_no = Show(SpectrumWithALine());
  SetArea(program, 100, 160);
  CsrX_Change(program, 400);
  windows.Add(manual_fit, [this](FormWindow& window) { LayOut(manual_fit, window); });
  QTimer::singleShot(50, [this] {
    FormWindow& window = *windows.WindowOf(manual_fit);
    TypeOver(window.Of(manual_fit.txtPeakNum), "1");
    TypeOver(window.Of(manual_fit.txtCenterCh[0]), "128");
    TypeOver(window.Of(manual_fit.txtMaxCount[0]), "900");
    QTest::mouseClick(window.Of(manual_fit.cmdExecute), Qt::LeftButton);
  });
  manual_fit.Open(0);
  ASSERT_EQ(workspace.Peaks[data_no].Count, 1);
  EXPECT_NEAR(workspace.Peaks[data_no].Peaks[0].Center, 130, 0.5);
}

TEST_F(Views, CenterOutOfRangeHoldsTheFocus) {
  FormWindow& window = Open(manual_fit);
  QWidget* box = window.Of(manual_fit.txtCenterCh[0]);
  TypeOver(box, "9000");
  QTest::keyClick(box, Qt::Key_Tab);
  EXPECT_TRUE(box->hasFocus());
  QTest::mouseClick(window.Of(manual_fit.cmdExecute), Qt::LeftButton);
  EXPECT_TRUE(box->hasFocus());
  QTest::keyClick(box, Qt::Key_Return);
  EXPECT_TRUE(box->hasFocus());
  EXPECT_FALSE(manual_fit.OK());
  EXPECT_EQ(manual_fit.CenterCh(0), 0);
}

TEST_F(Views, TabWalksThePeaksRowByRow) {
  FormWindow& window = Open(manual_fit);
  window.Of(manual_fit.txtWidth[0])->setFocus();
  QTest::keyClick(window.Of(manual_fit.txtWidth[0]), Qt::Key_Tab);
  EXPECT_TRUE(window.Of(manual_fit.cmdGetValue[0])->hasFocus());
  QTest::keyClick(window.Of(manual_fit.cmdGetValue[0]), Qt::Key_Tab);
  EXPECT_TRUE(window.Of(manual_fit.txtCenterCh[1])->hasFocus());
}

TEST_F(Views, PeakIsTypedWithTheFocusOnItsWidth) {
  const auto data_no = Show(SpectrumWithALine());
  CsrX_Change(program, 130);
  windows.Add(fit_input, [this](FormWindow& window) { LayOut(fit_input, window); });
  QTimer::singleShot(50, [this] {
    QWidget* width = windows.WindowOf(fit_input)->Of(fit_input.txtWidth);
    EXPECT_TRUE(width->hasFocus());
    QTest::keyClicks(width, "6");
    QTest::keyClick(width, Qt::Key_Return);
    EXPECT_TRUE(fit_input.Visible());
    QTest::keyClick(width, Qt::Key_Escape);
  });
  fit_input.Open();
  ASSERT_EQ(workspace.Peaks[data_no].Count, 1);
  EXPECT_EQ(workspace.Peaks[data_no].Peaks[0].Height, 1020);
}

TEST_F(Views, ArrowKeysWalkTheElementsAndSpacePressesThem) {
  Show(std::vector<std::int32_t>(1000, 5));
  FormWindow& window = Open(atom);
  const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
  window.Of(atom.tglAtom[25])->setFocus();
  press(Qt::Key_Right);
  EXPECT_TRUE(window.Of(atom.tglAtom[26])->hasFocus());
  press(Qt::Key_Space);
  EXPECT_TRUE(atom.tglAtom[26].Pressed());
  press(Qt::Key_Down);
  EXPECT_TRUE(window.Of(atom.tglAtom[44])->hasFocus());
  press(Qt::Key_Left);
  press(Qt::Key_Up);
  EXPECT_TRUE(window.Of(atom.tglAtom[25])->hasFocus());
}

TEST_F(Views, TheTabKeyTakesElementsAndLinesAsOneStopEach) {
  FormWindow& window = Open(atom);
  window.Of(atom.tglAtom[26])->setFocus();
  std::set<const QWidget*> stops;
  for (int i = 0; i < 20; ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    stops.insert(QApplication::focusWidget());
  }
  const std::set<const QWidget*> expected{window.Of(atom.tglAtom[26]), window.Of(atom.tglPkDisp[0]),
                                          window.Of(atom.optEdit),     window.Of(atom.optMark),
                                          window.Of(atom.cmdElement),  window.Of(atom.cmdCancel)};
  EXPECT_EQ(stops, expected);
}

TEST_F(Views, LanthanidesStandBelowTheTable) {
  FormWindow& window = Open(atom);
  const auto place = [&](int num) { return window.Of(atom.tglAtom[num])->geometry().center(); };
  EXPECT_EQ(place(57).x(), place(39).x());  // La below Y
  EXPECT_GT(place(57).y(), place(87).y());  // below Fr
  EXPECT_EQ(place(26).x(), place(44).x());  // Fe over Ru
  EXPECT_EQ(place(89).x(), place(57).x());  // Ac below La
}

TEST_F(Views, ASymbolIsTypedAndFoundWithEnter) {
  FormWindow& window = Open(atom.element);
  QTest::keyClicks(window.Of(atom.element.txtSymbFind), "pb");
  QTest::keyClick(window.Of(atom.element.txtSymbFind), Qt::Key_Return);
  EXPECT_EQ(window.As<QLineEdit>(atom.element.txtEnergy[1])->text(), "74.9693");
  QTest::keyClick(window.Of(atom.element.txtSymbFind), Qt::Key_Escape);
  EXPECT_FALSE(atom.element.Visible());
}

TEST_F(Views, RegionReportIsCopiedWithItsHeadingsAsTabSeparatedText) {
  std::vector<std::int32_t> counts(1000, 1);
  counts[150] = 60;
  const auto data_no = Show(counts);
  RoiAdd(list, 0, data_no, 100, 200, 0xFF);
  RoiAdd(list, 0, data_no, 300, 400, 0xFF);
  regions.RefreshRoiReport();
  FormWindow& window = Open(regions);
  auto* copy = window.findChild<QPushButton*>("cmdCopy");
  ASSERT_NE(copy, nullptr);
  QTest::mouseClick(copy, Qt::LeftButton);
  // 100 channels with 1 count and one with 60; 101 with 1.
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(),
            "Graph\tStart (Ch)\tEnd (Ch)\tAmplitude\tPeak (Ch)\tIntensity\n"
            "1\t101\t201\t160\t151\t60\n"
            "1\t301\t401\t101\t301\t1\n");
}

}  // namespace
}  // namespace dorvane
