// An evening at the beamline by clicks and keys alone, from the first start to the second.
#include <QAbstractItemView>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QToolBar>
#include <QToolButton>

#include "WindowTest.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

class RunThrough : public WindowTest {
 protected:
  void SetUp() override {
    for (const std::string& path : {kCorundum, kMgo}) {
      QFile::copy(QString::fromStdString(path),
                  QString::fromStdString(folder.Path(path.substr(path.rfind('/') + 1))));
    }
    WindowTest::SetUp();
  }

  // Presses the button of a tool bar with the mouse.
  void PressButton(const char* bar, const char* action) {
    auto* button =
        qobject_cast<QToolButton*>(Find<QToolBar>(bar)->widgetForAction(Find<QAction>(action)));
    ASSERT_TRUE(button->isVisible());
    QTest::mouseClick(button, Qt::LeftButton);
  }
  // Types names into the file dialog as soon as the next command has opened it. One that stays open
  // is cancelled, so that the test fails and ends.
  void TypeNamesIntoDialog(const QString& names) {
    auto* timer = new QTimer(&Window());
    int polls = 0;
    QObject::connect(timer, &QTimer::timeout, [timer, names, polls]() mutable {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      if (++polls == 1 || dialog == nullptr) return;
      timer->deleteLater();
      auto* edit = dialog->findChild<QLineEdit*>("fileNameEdit");
      QTest::keyClicks(edit, names);
      QTest::keyClick(edit, Qt::Key_Return);
      if (dialog->isVisible()) dialog->reject();
    });
    timer->start(50);
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    Window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
    QTest::keyClick(Window().focusWidget(), key, modifiers);
  }
  QWidget* Graph(int win_no) {
    return Find<QWidget>(("picGraph_" + std::to_string(win_no)).c_str());
  }
  QPoint Over(double channel) {
    const double x = session->program.spect.XOfChannel(0, channel) * Graph(0)->width();
    return {static_cast<int>(x), Graph(0)->height() / 2};
  }
  // A spectrum that has lost a peak is unsaved.
  void MakeUnsaved() {
    OpenCorundum();
    Graph(0)->setFocus();
    Key(Qt::Key_F7);
    Key(Qt::Key_Right, Qt::AltModifier);
    Key(Qt::Key_Delete, Qt::ShiftModifier);
    ASSERT_EQ(Store().Slots[0].State, kRowUnsaved);
  }
  void OpenBoth() {
    TypeNamesIntoDialog("\"corundum_ambient.npd\" \"mgo_under_load.npd\"");
    PressButton("tlbrFile", "tlbrFile_LoadData");
  }
};

TEST_F(RunThrough, TwoFilesFromTheDialog) {
  OpenBoth();
  EXPECT_EQ(Store().GrpCount, 2);
  EXPECT_EQ(Window().windowTitle(), "Dorvane (Data Analyze) --- mgo_under_load.npd");
}

TEST_F(RunThrough, ExpandPileUpUnitAndScale) {
  OpenBoth();
  QTest::mouseClick(Find<QWidget>("ckbExpand"), Qt::LeftButton, {}, {8, 8});
  EXPECT_EQ(View().ExpandOn, kTrue);
  QTest::mouseClick(Find<QWidget>("ckbExpand"), Qt::LeftButton, {}, {8, 8});
  EXPECT_EQ(View().ExpandOn, kFalse);
  QTest::mouseClick(Find<QWidget>("chkWinStyle"), Qt::LeftButton, {}, {8, 8});
  EXPECT_EQ(View().PileUpOn, kTrue);
  auto* units = Find<QComboBox>("cboUnitX");
  units->setFocus();
  QTest::keyClicks(units, "K");  // to "Kev"
  EXPECT_EQ(View().DispUnit, 1);
  QTest::mouseClick(Find<QWidget>("ckbLogScale"), Qt::LeftButton, {}, {8, 8});
  EXPECT_EQ(View().LogScale, kTrue);
  Type("itxtScaleY", "4");  // decades
  EXPECT_EQ(View().LogScale, kTrue);
}

TEST_F(RunThrough, AreaCursorAndRegions) {
  OpenBoth();
  Graph(0)->setFocus();
  Key(Qt::Key_R, Qt::ControlModifier);
  ASSERT_EQ(View().AreaOn, kTrue);
  QTest::mousePress(Graph(0), Qt::LeftButton, {}, Over(400));
  QTest::mouseMove(Graph(0), Over(500));
  QTest::mouseRelease(Graph(0), Qt::LeftButton, {}, Over(500));
  Key(Qt::Key_Insert, Qt::ControlModifier);
  EXPECT_EQ(Store().Regions.RoiCount, 1);
  Type("inumCursorCh", "1000");
  Key(Qt::Key_R, Qt::ControlModifier);
  Key(Qt::Key_BracketLeft, Qt::ControlModifier);
  Key(Qt::Key_Right, Qt::ShiftModifier);
  Key(Qt::Key_BracketRight, Qt::ControlModifier);
  Key(Qt::Key_Insert, Qt::ControlModifier);
  ASSERT_EQ(Store().Regions.RoiCount, 2);
  EXPECT_EQ(Store().Regions.Rois[1].Start, 1000);
  EXPECT_EQ(Store().Regions.Rois[1].End, 1020);
  Key(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_NEAR(View().CursorCh, 450, 60);
}

TEST_F(RunThrough, UnsavedGraphIsKeptOnNo) {
  MakeUnsaved();
  const BoxAnswerer no(QMessageBox::No);
  Key(Qt::Key_W, Qt::ControlModifier);
  EXPECT_EQ(no.Texts(), QStringList("File No Save.  Grp=1 (Do you Cansel?)"));
  EXPECT_EQ(Store().DataUse[0], kTrue);
  EXPECT_NE(Store().Channels[0].Counts[661], 0);
}

TEST_F(RunThrough, UnsavedGraphIsDroppedOnYes) {
  MakeUnsaved();
  const BoxAnswerer yes(QMessageBox::Yes);
  Key(Qt::Key_W, Qt::ControlModifier);
  EXPECT_EQ(yes.Texts().size(), 1);
  EXPECT_EQ(Store().GrpCount, 0);
  EXPECT_EQ(Store().DataUse[0], 0);
}

TEST_F(RunThrough, NoAtTheEndKeepsTheProgramRunning) {
  MakeUnsaved();
  const BoxAnswerer no(QMessageBox::No);
  Window().close();
  EXPECT_TRUE(Window().isVisible());
  EXPECT_EQ(Store().Slots[0].Title, "corundum_ambient.npd");
}

TEST_F(RunThrough, YesAtTheEndDropsTheDataAndEnds) {
  MakeUnsaved();
  const BoxAnswerer yes(QMessageBox::Yes);
  Window().close();
  EXPECT_FALSE(Window().isVisible());
  EXPECT_TRUE(QFile::exists(QString::fromStdString(session->program.directory + "syspara_a.xpr")));
}

TEST_F(RunThrough, SettingsGeometryAndRecentFilesComeBack) {
  OpenBoth();
  Window().resize(1100, 720);
  session->main.style.fraWinHeight.SetShare(0.8);
  Click("optEGC_0");
  Type("txt2Theta_0", "7.25");
  Graph(0)->setFocus();
  const BoxAnswerer yes(QMessageBox::Yes);
  Key(Qt::Key_Q, Qt::ControlModifier);
  EXPECT_FALSE(Window().isVisible());

  session.reset();
  Start();
  EXPECT_EQ(start_boxes, QStringList());
  EXPECT_EQ(Window().size(), QSize(1100, 720));
  EXPECT_DOUBLE_EQ(session->main.style.fraWinHeight.Share(), 0.8);
  EXPECT_EQ(Find<QLineEdit>("txt2Theta_0")->text().toDouble(), 7.25);
  Trigger("mnuRecent_1");
  EXPECT_EQ(Store().Slots[0].Title, "corundum_ambient.npd");
}

TEST_F(RunThrough, ColoursOfTheFirstRunStayOnADarkDesktop) {
  Key(Qt::Key_Q, Qt::ControlModifier);
  session.reset();
  const QPalette before = QApplication::palette();
  QPalette dark = before;
  dark.setColor(QPalette::Window, QColor(40, 40, 44));
  QApplication::setPalette(dark);
  Start();
  EXPECT_FALSE(HasDarkGround(Store().ColorTbl));
  QApplication::setPalette(before);
}

}  // namespace
}  // namespace dorvane
