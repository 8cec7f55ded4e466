// The program's own file dialog as its user sees and works it.
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>

#include "forms/frmDialogLoad.h"
#include "program/ProgramFixture.h"
#include "qt/binding/BindingFixture.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

class DialogLoadViewTest : public ProgramTest {
 protected:
  DialogLoadViewTest() {
    for (const char* name : {"a.npd", "b.npd", "c.npd"}) folder.Put(name, "");
    std::filesystem::create_directory(folder.Path("runs"));
    folder.Put("runs/r.npd", "");
    form.Directory(folder.Path(""));
    form.MultiSelect(true);
    windows.Add(form, [this](FormWindow& window) { LayOut(form, window); });
    windows.Add(form.new_path, [this](FormWindow& window) { LayOut(form.new_path, window); });
  }
  bool WorkOnScreen(const std::function<void(FormWindow&)>& work) {
    QTimer::singleShot(0, [&] {
      FormWindow& window = *windows.WindowOf(form);
      EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
      work(window);
      form.Hide();
    });
    return form.Open();
  }
  static QPoint PlaceOf(QListWidget* list, int row) {
    return list->visualItemRect(list->item(row)).center();
  }

  QtFormHost screen;
  SystemFolders folders;
  frmDialogLoad form{program, screen, folders};
  FormViews windows{screen};
};

TEST_F(DialogLoadViewTest, EveryControlHasItsWidget) {
  WorkOnScreen([&](FormWindow& window) { ExpectEveryControlHasItsWidget(form, window); });
}

TEST_F(DialogLoadViewTest, ListOfDrivesIsNotSeenWithoutDrives) {
  WorkOnScreen([&](FormWindow& window) {
    EXPECT_FALSE(window.Of(form.drvDrive)->isVisible());
    EXPECT_TRUE(window.Of(form.lblDirectory)->isVisible());
  });
}

TEST_F(DialogLoadViewTest, SeveralFilesAreClickedAndTakenByOk) {
  EXPECT_TRUE(WorkOnScreen([&](FormWindow& window) {
    auto* shown = window.As<QListWidget>(form.filFiles);
    QTest::mouseClick(shown->viewport(), Qt::LeftButton, {}, PlaceOf(shown, 0));
    QTest::mouseClick(shown->viewport(), Qt::LeftButton, Qt::ControlModifier, PlaceOf(shown, 2));
    EXPECT_EQ(window.As<QLineEdit>(form.txtSelFile)->text(), "a.npd;c.npd");
    window.As<QPushButton>(form.cmdSet)->click();
  }));
  EXPECT_EQ(form.Paths(), (std::vector{folder.Path("a.npd"), folder.Path("c.npd")}));
}

TEST_F(DialogLoadViewTest, FilesAreChosenByKeysAlone) {
  EXPECT_TRUE(WorkOnScreen([&](FormWindow& window) {
    QWidget* shown = window.Of(form.filFiles);
    EXPECT_TRUE(shown->hasFocus());
    QTest::keyClick(shown, Qt::Key_Down);
    QTest::keyClick(shown, Qt::Key_Down);
    QTest::keyClick(shown, Qt::Key_Return);
    EXPECT_FALSE(form.Visible());
  }));
  EXPECT_EQ(form.Paths().size(), 1u);
}

TEST_F(DialogLoadViewTest, DoubleClickTakesAFile) {
  EXPECT_TRUE(WorkOnScreen([&](FormWindow& window) {
    auto* shown = window.As<QListWidget>(form.filFiles);
    QTest::mouseClick(shown->viewport(), Qt::LeftButton, {}, PlaceOf(shown, 1));
    QTest::mouseDClick(shown->viewport(), Qt::LeftButton, {}, PlaceOf(shown, 1));
  }));
  EXPECT_EQ(form.FileName(), folder.Path("b.npd"));
}

TEST_F(DialogLoadViewTest, FoldersAreEnteredByDoubleClickAndLeftByKeys) {
  WorkOnScreen([&](FormWindow& window) {
    auto* around = window.As<QListWidget>(form.dirDirectory);
    auto* shown = window.As<QListWidget>(form.filFiles);
    QTest::mouseClick(around->viewport(), Qt::LeftButton, {}, PlaceOf(around, 1));
    QTest::mouseDClick(around->viewport(), Qt::LeftButton, {}, PlaceOf(around, 1));
    EXPECT_EQ(form.Directory(), folder.Path("runs/"));
    EXPECT_EQ(shown->count(), 1);
    around->setFocus();
    QTest::keyClick(around, Qt::Key_Down);
    QTest::keyClick(around, Qt::Key_Return);
    EXPECT_EQ(form.Directory(), folder.Path(""));
    EXPECT_EQ(shown->count(), 3);
  });
}

TEST_F(DialogLoadViewTest, TypedPathIsTakenByEnter) {
  EXPECT_TRUE(WorkOnScreen([&](FormWindow& window) {
    QWidget* box = window.Of(form.txtSelFile);
    box->setFocus();
    QTest::keyClicks(box, QString::fromStdString(folder.Path("runs/r.npd")));
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_FALSE(form.Visible());
  }));
  EXPECT_EQ(form.FileName(), folder.Path("runs/r.npd"));
}

TEST_F(DialogLoadViewTest, EscapeTakesNothing) {
  EXPECT_FALSE(WorkOnScreen([&](FormWindow& window) {
    auto* shown = window.As<QListWidget>(form.filFiles);
    QTest::mouseClick(shown->viewport(), Qt::LeftButton, {}, PlaceOf(shown, 0));
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(form.Visible());
  }));
}

TEST_F(DialogLoadViewTest, NewPathIsTypedAndSeenInTheList) {
  WorkOnScreen([&](FormWindow& window) {
    QTimer::singleShot(50, [&] {
      QWidget* box = windows.WindowOf(form.new_path)->Of(form.new_path.txtInput);
      QTest::keyClicks(box, "fresh");
      QTest::keyClick(box, Qt::Key_Return);
    });
    window.As<QPushButton>(form.cmdMkDir)->click();
    EXPECT_TRUE(folder.Has("fresh"));
    EXPECT_EQ(window.As<QListWidget>(form.dirDirectory)->currentItem()->text(), "fresh");
  });
}

}  // namespace
}  // namespace dorvane
