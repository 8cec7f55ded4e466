#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QMimeData>
#include <QRadioButton>
#include <QSet>
#include <QTableWidget>
#include <QToolBar>
#include <QUrl>

#include "WindowTest.h"
#include "support/TemporaryFolder.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

void Drop(QWidget& target, const QMimeData& data) {
  QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&target, &enter);
  if (!enter.isAccepted()) return;
  QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&target, &drop);
}

QMimeData* FilesOf(const std::vector<std::string>& paths) {
  auto* data = new QMimeData;
  QList<QUrl> urls;
  for (const std::string& path : paths) urls << QUrl::fromLocalFile(QString::fromStdString(path));
  data->setUrls(urls);
  return data;
}

int ColorsIn(const QImage& image) {
  QSet<QRgb> colors;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) colors << image.pixel(x, y);
  }
  return static_cast<int>(colors.size());
}

using MainWindowTest = WindowTest;

TEST_F(MainWindowTest, StartsWithoutAGraph) {
  EXPECT_EQ(Store().GrpCount, 0);
  EXPECT_EQ(window.windowTitle(), "Dorvane (Data Analyze)");
  EXPECT_FALSE(Find<QCheckBox>("chkGrp_0")->isVisible());
  EXPECT_FALSE(Find<QRadioButton>("optEGC_1")->isEnabled());
}

TEST_F(MainWindowTest, OpenedSpectrumIsInTheUpperWindow) {
  OpenCorundum();
  EXPECT_EQ(Store().Slots[0].WinNo, 0);
  EXPECT_EQ(window.windowTitle(), "Dorvane (Data Analyze) --- corundum_ambient.npd");
  EXPECT_TRUE(Find<QCheckBox>("chkGrp_0")->isChecked());
  EXPECT_TRUE(Find<QRadioButton>("optEGC_1")->isChecked());
}

TEST_F(MainWindowTest, DroppedFilesReplaceWhatIsOpen) {
  OpenCorundum();
  const std::unique_ptr<QMimeData> data(FilesOf({kMgo}));
  Drop(window, *data);
  EXPECT_EQ(Store().GrpCount, 1);
  EXPECT_EQ(Store().Slots[0].Title, "mgo_under_load.npd");
}

TEST_F(MainWindowTest, DropWithoutFilesIsNotTaken) {
  OpenCorundum();
  QMimeData data;
  data.setText("corundum");
  Drop(window, data);
  EXPECT_EQ(Store().Slots[0].Title, "corundum_ambient.npd");
}

TEST_F(MainWindowTest, OpenedSpectrumFillsTheWidth) {
  OpenCorundum();
  // The file says "Data length, 2048".
  EXPECT_EQ(View().SpanCh, 2048);
  EXPECT_EQ(View().StartCh, 0);
}

TEST_F(MainWindowTest, ChosenRangeStaysForTheNextSpectrum) {
  OpenCorundum();
  Find<QSpinBox>("imnSpanCh")->setValue(500);
  window.OpenFiles({kMgo});
  EXPECT_EQ(View().SpanCh, 500);
}

TEST_F(MainWindowTest, UnreadFileIsNamedInTheStatusLine) {
  const TemporaryFolder folder;
  folder.Put("notes.txt", "no spectrum");
  window.OpenFiles({kCorundum, folder.Path("notes.txt")});
  EXPECT_EQ(Store().Slots[0].State, kRowSaved);
  EXPECT_EQ(StatusHint(), "Not read: notes.txt. Spectra end in .npd, .xbm, .xba or in a number");
}

TEST_F(MainWindowTest, CheckBoxHidesACurve) {
  OpenCorundum();
  Find<QCheckBox>("chkGrp_0")->click();
  EXPECT_EQ(Store().Slots[0].Disp, kFalse);
  EXPECT_EQ(window.TheSession().program.spect.CurveOf(0, 0).Shown, kFalse);
}

TEST_F(MainWindowTest, CheckBoxOfTheLowerWindowMovesACurveThere) {
  OpenCorundum();
  Trigger("mnuSmooth");
  Trigger("mnuLowerWindow");
  Find<QCheckBox>("chkGrp_10")->click();
  EXPECT_EQ(Store().Slots[0].WinNo, 1);
  EXPECT_EQ(Store().Slots[1].WinNo, 0);
  EXPECT_FALSE(Find<QCheckBox>("chkGrp_0")->isChecked());
}

TEST_F(MainWindowTest, MovedCurveIsTheCurrentOneOfItsWindow) {
  OpenCorundum();
  Trigger("mnuSmooth");
  Find<QCheckBox>("chkGrp_10")->click();
  EXPECT_EQ(View().CurWin, 1);
  EXPECT_EQ(View().SelectedRow[1], 0);
  EXPECT_EQ(View().SelectedRow[0], 1);
}

TEST_F(MainWindowTest, ClickOnATitleMakesItsGraphTheCurrentOne) {
  OpenCorundum();
  Trigger("mnuSmooth");
  ASSERT_EQ(View().GraphNo, 0);
  QTest::mouseClick(Find<QCheckBox>("chkGrp_1")->parentWidget(), Qt::LeftButton, {}, {100, 12});
  EXPECT_EQ(View().GraphNo, 1);
  EXPECT_EQ(Find<QAction>("mnuCloseGraph")->text(), "&Close Graph(corundum_ambient.npd)");
}

TEST_F(MainWindowTest, MenuEntriesSelectTheGraphOfTheirKind) {
  OpenCorundum();
  Trigger("mnuSmooth");
  Trigger("mnuGraphRaw");
  EXPECT_EQ(Store().Slots[View().GraphNo].Title, "corundum_ambient.npd");
  Trigger("mnuGraphSmt");
  EXPECT_EQ(Store().Slots[View().GraphNo].Title, "Smooth");
}

TEST_F(MainWindowTest, MainJobRunsFromTheMenu) {
  const BoxAnswerer boxes;
  OpenCorundum();
  for (const char* step : {"mnuSmooth", "mnuBackGround", "mnuGraphBackRemoved", "mnuFittingAll"}) {
    Trigger(step);
  }
  std::vector<std::string> titles;
  for (int row = 0; row < 5; ++row) titles.push_back(Store().Slots[row].Title);
  EXPECT_THAT(titles, testing::UnorderedElementsAre("Fit", "BackRemv", "BackGraund", "Smooth",
                                                    "corundum_ambient.npd"));
  EXPECT_TRUE(Find<QLabel>("lblPeaks")->text().endsWith(" fitted"));
}

TEST_F(MainWindowTest, UnitSelectorOffersAllSeven) {
  auto* units = Find<QComboBox>("cboUnitX");
  QStringList texts;
  for (int i = 0; i < units->count(); ++i) texts << units->itemText(i);
  EXPECT_EQ(texts, QStringList({"Ch", "Kev", "Ev", "d:\u212B", "\u212B", "Q\u212B", "2\u03B8"}));
}

TEST_F(MainWindowTest, UnitOfTheMenuShowsInTheSelector) {
  Trigger("mnuUnit_3");
  EXPECT_EQ(View().DispUnit, 3);
  EXPECT_EQ(Find<QComboBox>("cboUnitX")->currentIndex(), 3);
}

TEST_F(MainWindowTest, ReadOutsFollowATypedChannel) {
  OpenCorundum();
  Find<QSpinBox>("inumCursorCh")->setValue(499);
  EXPECT_EQ(View().CursorCh, 499);
  // 0.0226609 + 0.0647732 * 500 + 3.87721E-8 * 500 * 500, by the coefficients of the file.
  EXPECT_EQ(Find<QLabel>("inumCursorDisp_0")->text(), "32.419");
  EXPECT_EQ(Find<QLabel>("inumCursorCnt_0")->text().toInt(),
            Store().Channels[View().DataNo].Counts[499]);
}

TEST_F(MainWindowTest, CalibrationOfTheFileIsShownAndCanBeLeft) {
  OpenCorundum();
  EXPECT_EQ(Find<QLabel>("lblEGC_1")->toolTip(), "0.022661Ch^2+0.064773Ch+0.000000");
  EXPECT_EQ(Find<QLabel>("txt2Theta_1")->text(), "6.51160\u00B0");
  Find<QRadioButton>("optEGC_0")->click();
  EXPECT_EQ(Store().UseFileEgc, 0);
  EXPECT_EQ(Find<QLabel>("inumCursorDisp_0")->text(), "0.000");
}

TEST_F(MainWindowTest, LogScaleOfStripAndMenuAgree) {
  Find<QCheckBox>("ckbLogScale")->click();
  EXPECT_TRUE(Find<QAction>("mnuLogarithmic")->isChecked());
  Trigger("mnuLogarithmic");
  EXPECT_FALSE(Find<QCheckBox>("ckbLogScale")->isChecked());
}

TEST_F(MainWindowTest, OneOfTheDrawingModesIsMarked) {
  Trigger("mnuDot");
  EXPECT_TRUE(Find<QAction>("mnuDot")->isChecked());
  EXPECT_FALSE(Find<QAction>("mnuLine")->isChecked());
  EXPECT_FALSE(Find<QAction>("mnuPaint")->isChecked());
}

struct KeyStep {
  Qt::Key key;
  Qt::KeyboardModifiers modifiers;
  int channel;  // after it, from 100
};
class CursorKeys : public WindowTest, public testing::WithParamInterface<KeyStep> {};

TEST_P(CursorKeys, MoveTheCursor) {
  OpenCorundum();
  Find<QSpinBox>("inumCursorCh")->setValue(100);
  QTest::keyClick(Find<QWidget>("picGraph_0"), GetParam().key, GetParam().modifiers);
  EXPECT_EQ(View().CursorCh, GetParam().channel);
}
INSTANTIATE_TEST_SUITE_P(Keys, CursorKeys,
                         testing::Values(KeyStep{Qt::Key_Left, Qt::NoModifier, 99},
                                         KeyStep{Qt::Key_Right, Qt::NoModifier, 101},
                                         KeyStep{Qt::Key_Left, Qt::ShiftModifier, 80},
                                         KeyStep{Qt::Key_Right, Qt::ShiftModifier, 120},
                                         KeyStep{Qt::Key_Right, Qt::KeypadModifier, 101}));

TEST_F(MainWindowTest, UpAndDownChangeTheHeightOfTheScale) {
  OpenCorundum();
  const std::int32_t height = View().HeightY;
  QTest::keyClick(Find<QWidget>("picGraph_0"), Qt::Key_Up);
  EXPECT_GT(View().HeightY, height);
  QTest::keyClick(Find<QWidget>("picGraph_0"), Qt::Key_Down);
  EXPECT_EQ(View().HeightY, height);
}

TEST_F(MainWindowTest, KeyPadChangesSpanAndScale) {
  OpenCorundum();
  auto* graph = Find<QWidget>("picGraph_0");
  QTest::keyClick(graph, Qt::Key_Plus, Qt::KeypadModifier);
  EXPECT_EQ(View().SpanCh, 1024);
  QTest::keyClick(graph, Qt::Key_Minus, Qt::KeypadModifier);
  EXPECT_EQ(View().SpanCh, 2048);
  QTest::keyClick(graph, Qt::Key_Period, Qt::KeypadModifier);
  EXPECT_EQ(View().LogScale, kTrue);
}

TEST_F(MainWindowTest, FocusedFieldKeepsItsKeys) {
  OpenCorundum();
  auto* span = Find<QSpinBox>("imnSpanCh");
  span->setFocus();
  QTest::keyClick(span, Qt::Key_Left);
  EXPECT_EQ(View().CursorCh, 0);
  QTest::keyClick(span, Qt::Key_Down);
  EXPECT_EQ(View().SpanCh, 2047);
}

TEST_F(MainWindowTest, CommandsThatComeLaterAreDisabledAndSaySo) {
  for (const char* name : {"mnuPrint", "mnuProperty", "mnuCons", "mnuSetCons", "mnuPeakReport"}) {
    EXPECT_FALSE(Find<QAction>(name)->isEnabled()) << name;
    EXPECT_EQ(Find<QAction>(name)->toolTip(), "Comes with a later version") << name;
  }
}

TEST_F(MainWindowTest, ToolBarsHoldOnlyWhatWorks) {
  for (const QToolBar* bar : window.findChildren<QToolBar*>()) {
    for (const QAction* action : bar->actions()) {
      EXPECT_TRUE(action->isEnabled()) << action->objectName().toStdString();
      EXPECT_FALSE(action->icon().isNull()) << action->objectName().toStdString();
      EXPECT_FALSE(action->toolTip().isEmpty()) << action->objectName().toStdString();
    }
  }
}

TEST_F(MainWindowTest, NoTwoActionsShareAKey) {
  QSet<QString> keys;
  for (const QAction* action : window.findChildren<QAction*>()) {
    const QString key = action->shortcut().toString();
    if (key.isEmpty()) continue;
    EXPECT_FALSE(keys.contains(key)) << key.toStdString();
    keys << key;
  }
}

TEST_F(MainWindowTest, MessageIsABoxAndTheStatusLineSaysWhatToDo) {
  const BoxAnswerer boxes;
  Trigger("mnuSmooth");
  EXPECT_EQ(boxes.Texts(), QStringList("ShiftGraph: Data Notting!"));
  EXPECT_EQ(StatusHint(), "Open a spectrum first: Ctrl+O");
}

TEST_F(MainWindowTest, HintGoesWithTheNextCommand) {
  const BoxAnswerer boxes;
  Trigger("mnuSmooth");
  Trigger("mnuLogarithmic");
  EXPECT_EQ(StatusHint(), "");
}

TEST_F(MainWindowTest, SaveWithoutAGraphSaysNoData) {
  const BoxAnswerer boxes;
  Trigger("mnuSave");
  EXPECT_EQ(boxes.Texts(), QStringList("No Data"));
}

TEST_F(MainWindowTest, StatusLineSaysWhyTheNumbersHaveRunOut) {
  const BoxAnswerer boxes;
  const TemporaryFolder folder;
  folder.Put("notes.txt", "no spectrum");
  window.OpenFiles(std::vector<std::string>(10, folder.Path("notes.txt")));
  // The next open frees the number of row 0 alone.
  window.OpenFiles({kCorundum, kMgo});
  EXPECT_EQ(boxes.Texts(), QStringList("GetGraphSpace: Notting Space!"));
  EXPECT_EQ(StatusHint(),
            "Not read: mgo_under_load.npd. 9 of the ten numbers are held by files that could not "
            "be read: start the program again to free them");
}

TEST_F(MainWindowTest, FaultBecomesABoxAndTheProgramGoesOn) {
  const BoxAnswerer boxes;
  window.TheSession().Do([](Program&) { throw Fault(FaultCode::DivisionByZero); });
  EXPECT_EQ(boxes.Texts(), QStringList(FaultText(FaultCode::DivisionByZero)));
  OpenCorundum();
  EXPECT_EQ(Store().GrpCount, 1);
}

TEST_F(MainWindowTest, NoToTheQuestionKeepsAllPeaks) {
  OpenCorundum();
  Trigger("mnuPeakAllIns");
  const int peaks = Store().Peaks[View().DataNo].Count;
  ASSERT_GT(peaks, 0);
  const BoxAnswerer boxes(QMessageBox::No);
  Trigger("mnuPeakDelete");
  EXPECT_EQ(boxes.Texts(), QStringList("It will deletes peaks in the range of the area cursor"));
  EXPECT_EQ(Store().Peaks[View().DataNo].Count, peaks);
}

TEST_F(MainWindowTest, NoAtTheEndKeepsTheProgramRunning) {
  OpenCorundum();
  Store().Slots[0].State = kRowUnsaved;
  const BoxAnswerer boxes(QMessageBox::No);
  Trigger("mnuExit");
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(boxes.Texts(), QStringList("File No Save.  Grp=1 (Do you Cansel?)"));
}

TEST_F(MainWindowTest, ExitClosesTheWindow) {
  OpenCorundum();
  Trigger("mnuExit");
  EXPECT_FALSE(window.isVisible());
}

TEST_F(MainWindowTest, HelpAndVersionShowTheirTexts) {
  const BoxAnswerer boxes;
  Trigger("mnuHelp");
  Trigger("mnuVersion");
  EXPECT_EQ(boxes.Texts().first(), "Please read 'ReadMe.txt'");
  EXPECT_EQ(boxes.Captions().last(), "Dorvane Ver 1.2004.01.05");
}

TEST_F(MainWindowTest, ListOfKeysNamesEveryShortcut) {
  QStringList keys;
  QTimer::singleShot(20, &window, [&] {
    auto* dialog = QApplication::activeModalWidget();
    auto* table = dialog->findChild<QTableWidget*>();
    for (int row = 0; row < table->rowCount(); ++row) keys << table->item(row, 0)->text();
    dialog->close();
  });
  Trigger("mnuKeys");
  for (const char* key : {"Ctrl+O", "Ctrl+S", "Ctrl+Q", "Shift+Left", "Alt+Right", "Wheel"}) {
    EXPECT_TRUE(keys.contains(key)) << key;
  }
}

TEST_F(MainWindowTest, JapaneseTextsShowInListAndHeadLine) {
  OpenCorundum();
  Store().Spectra[0].SampName.Set("酸化アルミニウム");
  Store().Slots[0].Title = "コランダム.npd";
  window.TheSession().Do([](Program& program) { Add_cboGraphSel(program.List()); });
  EXPECT_TRUE(Find<QLabel>("lblTitle_0")->text().contains("酸化アルミニウム"));
  EXPECT_TRUE(Find<QCheckBox>("chkGrp_0")->parentWidget()->toolTip().startsWith("コランダム.npd"));
}

TEST_F(MainWindowTest, PictureOfTheWindowIsNotUniform) {
  OpenCorundum();
  const QImage picture = window.grab().toImage();
  EXPECT_EQ(picture.width(), window.width());
  const QImage graph = Find<QWidget>("picGraph_0")->grab().toImage();
  EXPECT_GT(ColorsIn(graph), 5);
}

TEST_F(MainWindowTest, LowerWindowOpensAndCloses) {
  EXPECT_EQ(Find<QWidget>("fraGraph_1")->visibleRegion().isEmpty(), true);
  Trigger("mnuLowerWindow");
  EXPECT_TRUE(Find<QAction>("mnuLowerWindow")->isChecked());
  EXPECT_GT(Find<QWidget>("picGraph_1")->height(), 60);
}

TEST_F(MainWindowTest, FitsASmallScreen) {
  window.resize(1000, 700);
  QTest::qWait(20);
  EXPECT_EQ(window.size(), QSize(1000, 700));
  OpenCorundum();
  EXPECT_EQ(window.size(), QSize(1000, 700));
}

TEST(DarkDesktop, GivesADarkGroundAndBrightCurves) {
  const QPalette before = QApplication::palette();
  QPalette dark = before;
  dark.setColor(QPalette::Window, QColor(40, 40, 44));
  QApplication::setPalette(dark);
  {
    MainWindow window;
    EXPECT_TRUE(HasDarkGround(window.TheSession().program.workspace.ColorTbl));
    window.resize(1280, 800);
    const QImage graph = window.findChild<QWidget*>("picGraph_0")->grab().toImage();
    EXPECT_LT(QColor(graph.pixel(3, 3)).lightness(), 60);
  }
  QApplication::setPalette(before);
}

TEST(MainWindowValues, TwoWindowsDoNotKnowOfEachOther) {
  MainWindow first;
  MainWindow second;
  first.OpenFiles({kCorundum});
  EXPECT_EQ(first.TheSession().program.workspace.GrpCount, 1);
  EXPECT_EQ(second.TheSession().program.workspace.GrpCount, 0);
}

}  // namespace
}  // namespace dorvane
