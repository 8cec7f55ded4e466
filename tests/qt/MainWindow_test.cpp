// The main form in its window: start, menus and tool bars, boxes, keys, themes.
#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QMimeData>
#include <QRadioButton>
#include <QSet>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>

#include "WindowTest.h"
#include "forms/MenuTable.h"
#include "qt/ThemeIcon.h"
#include "qt/binding/BindingFixture.h"
#include "qt/views/MainIcons.h"
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

std::unique_ptr<QMimeData> FilesOf(const std::vector<std::string>& paths) {
  auto data = std::make_unique<QMimeData>();
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

TEST_F(MainWindowTest, EveryControlOfEveryFormHasItsWidget) {
  for (Form* form : std::initializer_list<Form*>{
           &session->main, &session->graph_select, &session->roi_report, &session->log,
           &session->keys, &session->manual_fit, &session->fit_input, &session->atom,
           &session->arithmetic, &session->lattice, &session->peak_report,
           &session->result_directory, &session->load, &session->calibration,
           &session->calibration_curve, &session->print, &session->preview, &session->picture,
           &session->property}) {
    ExpectEveryControlHasItsWidget(*form, *session->form_views.WindowOf(*form));
  }
}

TEST_F(MainWindowTest, StartsWithoutAGraph) {
  EXPECT_EQ(Store().GrpCount, 0);
  EXPECT_EQ(Window().windowTitle(), "Dorvane (Data Analyze) --- ");
  EXPECT_FALSE(Find<QCheckBox>("chkGrp_0")->isVisible());
  EXPECT_FALSE(Find<QRadioButton>("optEGC_1")->isEnabled());
}

TEST_F(MainWindowTest, FirstStartMissesItsFileAndTellsWhy) {
  EXPECT_EQ(start_boxes, QStringList("Para File Read (Open Error)"));
  EXPECT_TRUE(StatusHint().startsWith("First start"));
}

TEST_F(MainWindowTest, OpenedSpectrumIsInTheUpperWindow) {
  OpenCorundum();
  EXPECT_EQ(Store().Slots[0].WinNo, 0);
  EXPECT_EQ(Window().windowTitle(), "Dorvane (Data Analyze) --- corundum_ambient.npd");
  EXPECT_TRUE(Find<QCheckBox>("chkGrp_0")->isChecked());
  EXPECT_TRUE(Find<QRadioButton>("optEGC_1")->isChecked());
}

TEST_F(MainWindowTest, DroppedFilesReplaceWhatIsOpen) {
  OpenCorundum();
  Drop(*Find<QWidget>("picGraph_0"), *FilesOf({kMgo}));
  EXPECT_EQ(Store().GrpCount, 1);
  EXPECT_EQ(Store().Slots[0].Title, "mgo_under_load.npd");
}

TEST_F(MainWindowTest, DropWithoutFilesIsNotTaken) {
  OpenCorundum();
  QMimeData data;
  data.setText("corundum");
  Drop(Window(), data);
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
  Type("imnSpanCh", "500");
  Open(kMgo);
  EXPECT_EQ(View().SpanCh, 500);
}

TEST_F(MainWindowTest, CheckBoxHidesACurve) {
  OpenCorundum();
  Click("chkGrp_0");
  EXPECT_EQ(Store().Slots[0].Disp, kFalse);
  EXPECT_EQ(session->program.spect.CurveOf(0, 0).Shown, kFalse);
}

TEST_F(MainWindowTest, CheckBoxOfTheLowerWindowMovesACurveThere) {
  OpenCorundum();
  Trigger("mnuSmooth");
  Click("chkGrp_10");
  EXPECT_EQ(Store().Slots[0].WinNo, 1);
  EXPECT_EQ(Store().Slots[1].WinNo, 0);
  EXPECT_FALSE(Find<QCheckBox>("chkGrp_0")->isChecked());
  EXPECT_EQ(View().CurWin, 1);
}

TEST_F(MainWindowTest, ClickOnATitleMakesItsGraphTheCurrentOne) {
  OpenCorundum();
  Trigger("mnuSmooth");
  ASSERT_EQ(View().GraphNo, 0);
  QTest::mouseClick(Find<QCheckBox>("chkGrp_1")->parentWidget(), Qt::LeftButton, {}, {100, 12});
  EXPECT_EQ(View().GraphNo, 1);
  EXPECT_TRUE(Find<QAction>("mnuCloseGraph")->text().contains("(corundum_ambient.npd)"));
}

TEST_F(MainWindowTest, RowThatBecomesTheCurrentOneComesIntoSight) {
  session->main.Drop(std::vector<std::string>(10, kCorundum));
  Window().resize(1000, 600);
  QTest::qWait(20);
  auto* row = Find<QCheckBox>("chkGrp_0")->parentWidget();
  session->main.selector.SelectRow(9);
  QTest::qWait(20);
  ASSERT_TRUE(row->visibleRegion().isEmpty());
  session->main.selector.SelectRow(0);
  QTest::qWait(20);
  EXPECT_EQ(row->visibleRegion().boundingRect().height(), row->height());
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

TEST_F(MainWindowTest, UnitOfTheMenuShowsInTheSelector) {
  Trigger("mnuUnit_3");
  EXPECT_EQ(View().DispUnit, 3);
  EXPECT_EQ(Find<QComboBox>("cboUnitX")->currentIndex(), 3);
}

TEST_F(MainWindowTest, ReadOutsFollowATypedChannel) {
  OpenCorundum();
  Type("inumCursorCh", "499");
  EXPECT_EQ(View().CursorCh, 499);
  // 0.0226609 + 0.0647732 * 500 + 3.87721E-8 * 500 * 500, by the coefficients of the file.
  EXPECT_EQ(Find<QLineEdit>("inumCursorDisp_0")->text(), "32.419");
  EXPECT_EQ(Find<QLineEdit>("inumCursorCnt_0")->text().toInt(),
            Store().Channels[View().DataNo].Counts[499]);
}

TEST_F(MainWindowTest, TypedValueGivesTheFocusBackToTheGraph) {
  OpenCorundum();
  Type("inumCursorCh", "499");
  EXPECT_EQ(QApplication::focusWidget(), Find<QWidget>("picGraph_0"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
  EXPECT_EQ(View().CursorCh, 500);
}

TEST_F(MainWindowTest, EscapeTakesBackWhatIsTyped) {
  OpenCorundum();
  const std::int32_t height = View().HeightY;
  for (const char* box : {"itxtScaleY", "imnSpanCh", "inumCursorCh", "txt2Theta_0"}) {
    auto* edit = Find<QLineEdit>(box);
    const QString before = edit->text();
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, "77");
    QTest::keyClick(edit, Qt::Key_Escape);
    QCoreApplication::processEvents();
    EXPECT_EQ(edit->text(), before) << box;
    EXPECT_EQ(QApplication::focusWidget(), Find<QWidget>("picGraph_0")) << box;
  }
  EXPECT_EQ(View().HeightY, height);
  EXPECT_EQ(View().SpanCh, 2048);
  EXPECT_EQ(View().CursorCh, 0);
  EXPECT_EQ(Store().DefaultProp.TwoTheta, 0);
}

TEST_F(MainWindowTest, CalibrationOfTheFileIsShownAndCanBeLeft) {
  OpenCorundum();
  EXPECT_EQ(Find<QLabel>("lblEGC_1")->text(), "0.022661Ch^2+0.064773Ch+0.000000");
  EXPECT_EQ(Find<QLineEdit>("txt2Theta_1")->text(), "6.51160");
  Click("optEGC_0");
  EXPECT_EQ(Store().UseFileEgc, 0);
  EXPECT_EQ(Find<QLineEdit>("inumCursorDisp_0")->text(), "0.000");
}

TEST_F(MainWindowTest, LogScaleOfStripAndMenuAgree) {
  Click("ckbLogScale");
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

TEST_F(MainWindowTest, EveryEntryAndEveryButtonHasAnActionButTheClosingOfAWindow) {
  for (const MenuRow& row : MenuTable()) {
    if (IsMenu(row)) continue;
    const bool closes_window = row.name.starts_with("mnuCloseWin");
    EXPECT_EQ(session->main.commands.Bound(CommandOf(row)), !closes_window) << row.name;
  }
  const ToolBarsPanel& bars = session->main.tool_bars;
  for (const ToolBar* bar : {&bars.tlbrFile, &bars.tlbrEnergy, &bars.tlbrCalc, &bars.tlbrOperation,
                             &bars.tlbrRoiPeak, &bars.tlbrRoi, &bars.tlbrDisplay, &bars.tlbrNax}) {
    for (const ToolButton& button : bar->Buttons()) {
      EXPECT_TRUE(session->main.commands.Bound(button.key)) << button.key;
    }
  }
}

TEST_F(MainWindowTest, EveryButtonHasAnIconAndATip) {
  for (const QToolBar* bar : Window().findChildren<QToolBar*>()) {
    for (const QAction* action : bar->actions()) {
      const QString key = action->objectName().section('_', 1);
      EXPECT_FALSE(ThemeIcon(IconNameOf(key.toStdString())).isNull()) << key.toStdString();
      EXPECT_FALSE(action->toolTip().isEmpty()) << key.toStdString();
    }
  }
}

TEST_F(MainWindowTest, NoTwoActionsShareAKey) {
  QSet<QString> keys;
  for (const QAction* action : Window().findChildren<QAction*>()) {
    const QString key = action->shortcut().toString();
    if (key.isEmpty()) continue;
    EXPECT_FALSE(keys.contains(key)) << key.toStdString();
    keys << key;
  }
}

TEST_F(MainWindowTest, EveryTipOfAnActionNamesItsKey) {
  for (const QAction* action : Window().findChildren<QAction*>()) {
    if (action->shortcut().isEmpty() || !action->isEnabled()) continue;
    EXPECT_TRUE(action->toolTip().contains(action->shortcut().toString()))
        << action->objectName().toStdString() << action->toolTip().toStdString();
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

TEST_F(MainWindowTest, UnreadFilesAreNamedInTheStatusLine) {
  folder.Put("notes.txt", "no spectrum");
  session->main.Drop({kCorundum, folder.Path("notes.txt")});
  EXPECT_EQ(
      StatusHint(),
      "Not read: notes.txt. Spectra end in .npd, .cnf, .rpt, .chn, .xbm, .xba, .raw or a number");
}

TEST_F(MainWindowTest, FaultBecomesABoxAndTheProgramGoesOn) {
  const BoxAnswerer boxes;
  session->main.commands.Bind("mnuKeys", [] { throw Fault(FaultCode::DivisionByZero); });
  Trigger("mnuKeys");
  EXPECT_EQ(boxes.Texts(), QStringList(FaultText(FaultCode::DivisionByZero)));
  OpenCorundum();
  EXPECT_EQ(Store().GrpCount, 1);
}

TEST_F(MainWindowTest, HelpShowsItsText) {
  const BoxAnswerer boxes;
  Trigger("mnuHelp");
  EXPECT_EQ(boxes.Texts(), QStringList("Please read 'ReadMe.txt'"));
  EXPECT_EQ(StatusHint(), DORVANE_BINARY_DIR "/bin/ReadMe.txt");
  EXPECT_TRUE(QFile::exists(StatusHint()));
}

TEST_F(MainWindowTest, WindowsBesideTheMainWindowOpenFromTheMenu) {
  OpenCorundum();
  for (const char* name : {"mnuSelGraph", "mnuRoiReport", "mnuLogText", "mnuKeys"}) Trigger(name);
  for (Form* form : std::initializer_list<Form*>{&session->graph_select, &session->roi_report,
                                                 &session->log, &session->keys}) {
    EXPECT_TRUE(session->form_views.WindowOf(*form)->isVisible()) << form->Name();
  }
  EXPECT_EQ(session->graph_select.sprGraphSel.Text(1, 4), "corundum_ambient.npd");
}

TEST_F(MainWindowTest, ExpansionOpensAClosedLowerWindow) {
  session->main.style.fraWinHeight.DoubleClick();
  QTest::qWait(20);
  ASSERT_TRUE(Find<QWidget>("picGraph_1")->visibleRegion().isEmpty());
  Trigger("mnuExpandOn");
  QTest::qWait(20);
  EXPECT_GT(Find<QWidget>("picGraph_1")->visibleRegion().boundingRect().height(), 60);
  EXPECT_EQ(session->program.spect.AliasView(), 1);
}

TEST_F(MainWindowTest, JapaneseTextsShowInListAndHeadLine) {
  OpenCorundum();
  Store().Spectra[0].SampName.Set("酸化アルミニウム");
  Store().Slots[0].Title = "コランダム.npd";
  Add_cboGraphSel(session->program.List());
  EXPECT_TRUE(Find<QLabel>("lblTitle_0")->text().contains("酸化アルミニウム"));
  EXPECT_TRUE(Find<QCheckBox>("chkGrp_0")->parentWidget()->toolTip().startsWith("コランダム.npd"));
  EXPECT_EQ(Find<QComboBox>("cboGrphSel_0")->currentText(), "1 コランダム.npd");
}

TEST_F(MainWindowTest, PictureOfTheGraphIsNotUniform) {
  OpenCorundum();
  EXPECT_GT(ColorsIn(Find<QWidget>("picGraph_0")->grab().toImage()), 5);
}

TEST_F(MainWindowTest, FitsASmallScreen) {
  Window().resize(1000, 700);
  QTest::qWait(20);
  EXPECT_EQ(Window().size(), QSize(1000, 700));
  OpenCorundum();
  EXPECT_EQ(Window().size(), QSize(1000, 700));
}

struct KeyStep {
  Qt::Key key;
  Qt::KeyboardModifiers modifiers;
  int channel;  // after it, from 100
};
class CursorKeys : public WindowTest, public testing::WithParamInterface<KeyStep> {};

TEST_P(CursorKeys, MoveTheCursorWhereverTheFocusIs) {
  OpenCorundum();
  for (const char* focus : {"picGraph_0", "chkWinStyle", "ckbLogScale", "cmdWider", "picGraph_1"}) {
    Type("inumCursorCh", "100");
    auto* widget = Find<QWidget>(focus);
    widget->setFocus();
    QTest::keyClick(widget, GetParam().key, GetParam().modifiers);
    EXPECT_EQ(View().CursorCh, GetParam().channel) << focus;
  }
}
INSTANTIATE_TEST_SUITE_P(Keys, CursorKeys,
                         testing::Values(KeyStep{Qt::Key_Left, Qt::NoModifier, 99},
                                         KeyStep{Qt::Key_Right, Qt::NoModifier, 101},
                                         KeyStep{Qt::Key_Left, Qt::ShiftModifier, 80},
                                         KeyStep{Qt::Key_Right, Qt::ShiftModifier, 120},
                                         KeyStep{Qt::Key_Right, Qt::KeypadModifier, 101}));

TEST_F(MainWindowTest, AltAndArrowsJumpToPeaks) {
  OpenCorundum();
  Trigger("mnuPeakAllIns");
  Type("inumCursorCh", "600");
  QTest::keyClick(Find<QWidget>("picGraph_0"), Qt::Key_Right, Qt::AltModifier);
  EXPECT_NEAR(View().CursorCh, 661, 3);  // the strongest line of the spectrum
  QTest::keyClick(Find<QWidget>("picGraph_0"), Qt::Key_Left, Qt::AltModifier);
  EXPECT_LT(View().CursorCh, 600);
}

TEST_F(MainWindowTest, TabGoesThroughEveryControlInTheOrderOfTheWindow) {
  OpenCorundum();
  Find<QWidget>("picGraph_0")->setFocus();
  QStringList names;
  do {
    names << QApplication::focusWidget()->objectName();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  } while (QApplication::focusWidget() != Find<QWidget>("picGraph_0") && names.size() < 60);
  EXPECT_EQ(names.join(' ').toStdString(),
            "picGraph_0 cboGrphSel_0 chkGrp_0 chkFilePile_0 qt_splithandle_fraGraph_1 picGraph_1 "
            "cboGrphSel_1 chkGrp_10 chkFilePile_1 hsbStartX inumCursorCh updCursorX chkArea "
            "chkCsrType itxtScaleY hsbWidthY imnSpanCh cmdWider cmdNarrower inumScaleX cboUnitX "
            "ckbLogScale ckbVtAuto ckbNorScale ckbExpand chkWinStyle cmdAutoFit optEGC_1 "
            "txt2Theta_0");
}

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
  QTest::keyClick(graph, Qt::Key_Comma, Qt::KeypadModifier);
  EXPECT_EQ(View().LogScale, kFalse);
}

TEST_F(MainWindowTest, FocusedBoxKeepsItsKeys) {
  OpenCorundum();
  auto* span = Find<QLineEdit>("imnSpanCh");
  span->setFocus();
  span->setCursorPosition(4);
  QTest::keyClick(span, Qt::Key_Left);
  EXPECT_EQ(span->cursorPosition(), 3);
  EXPECT_EQ(View().CursorCh, 0);
  QTest::keyClick(span, Qt::Key_Plus, Qt::KeypadModifier);
  EXPECT_EQ(View().SpanCh, 2048);
}

TEST_F(MainWindowTest, FocusedListKeepsItsArrows) {
  OpenCorundum();
  auto* units = Find<QComboBox>("cboUnitX");
  units->setFocus();
  QTest::keyClick(units, Qt::Key_Down);
  EXPECT_EQ(View().DispUnit, 1);
  QTest::keyClick(units, Qt::Key_Plus, Qt::KeypadModifier);
  EXPECT_EQ(View().SpanCh, 1024);
}

TEST(DarkDesktop, GivesADarkGroundAndBrightCurvesAtTheFirstStart) {
  const QPalette before = QApplication::palette();
  QPalette dark = before;
  dark.setColor(QPalette::Window, QColor(40, 40, 44));
  QApplication::setPalette(dark);
  {
    const TemporaryFolder folder;
    MemorySettings settings;
    Session session({folder.Path(""), folder.Path("home/"), ""}, settings);
    const BoxAnswerer boxes;
    session.Start();
    EXPECT_TRUE(HasDarkGround(session.program.workspace.ColorTbl));
    auto* graph = session.form_views.WindowOf(session.main)->findChild<QWidget*>("picGraph_0");
    EXPECT_LT(QColor(graph->grab().toImage().pixel(3, 3)).lightness(), 60);
    session.main.style.chkWinStyle.SetChecked(true);
  }
  QApplication::setPalette(before);
}

TEST_F(MainWindowTest, DamagedGeometryIsTheFirstOne) {
  const QSize first = Window().size();
  session.reset();
  settings.SetTexts("Window", {"no geometry"});
  settings.SetTexts("WindowShare", {"wide"});
  Start();
  EXPECT_EQ(Window().size(), first);
  EXPECT_NEAR(session->main.style.fraWinHeight.Share(), 0.65, 0.001);
}

TEST_F(MainWindowTest, GeometryOfALargerScreenFitsThisOne) {
  const QSize screen = Window().screen()->availableSize();
  Window().setGeometry(screen.width() * 2, 40, 1400, 700);
  Trigger("mnuExit");
  session.reset();
  Start();
  EXPECT_TRUE(Window().screen()->availableGeometry().intersects(Window().geometry()));
}

TEST_F(MainWindowTest, EndHidesTheWindowsBesideTheMainWindow) {
  for (const char* name : {"mnuSelGraph", "mnuRoiReport", "mnuLogText", "mnuKeys"}) Trigger(name);
  bool ended = false;
  QObject::connect(session.get(), &Session::Ended, session.get(), [&ended] { ended = true; });
  Window().close();
  EXPECT_TRUE(ended);
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    EXPECT_FALSE(window->isVisible()) << window->objectName().toStdString();
  }
}

TEST_F(MainWindowTest, SessionGoesWhileItsWindowsAreShown) {
  for (const char* name : {"mnuSelGraph", "mnuRoiReport", "mnuLogText", "mnuKeys"}) Trigger(name);
  OpenCorundum();
  session.reset();
  EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

TEST_F(MainWindowTest, TwoSessionsDoNotKnowOfEachOther) {
  const TemporaryFolder other_folder;
  Session other({other_folder.Path(""), other_folder.Path("home/"), ""}, settings);
  other.main.Drop({kCorundum});
  EXPECT_EQ(other.program.workspace.GrpCount, 1);
  EXPECT_EQ(Store().GrpCount, 0);
}

}  // namespace
}  // namespace dorvane
