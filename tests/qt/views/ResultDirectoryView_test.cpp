// The dialog of the result directory as its user sees and works it.
#include <QLineEdit>
#include <QTimer>

#include "forms/frmResultDirectory.h"
#include "program/LatticeLogFile.h"
#include "program/ProgramFixture.h"
#include "qt/binding/BindingFixture.h"
#include "qt/views/Views.h"
#include "support/MemorySettings.h"

namespace dorvane {
namespace {

class ResultDirectoryViewTest : public ProgramTest {
 protected:
  ResultDirectoryViewTest() {
    windows.Add(form, [this](FormWindow& window) { LayOut(form, window); });
  }
  // Opens the dialog on the screen and works it until it is closed.
  void WorkOnScreen(const std::function<void(FormWindow&)>& work) {
    QTimer::singleShot(0, [&] {
      FormWindow& window = *windows.WindowOf(form);
      EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
      work(window);
      form.Hide();
    });
    form.Open();
  }

  QtFormHost screen;
  MemorySettings settings;
  frmResultDirectory form{program, screen, settings};
  FormViews windows{screen};
};

TEST_F(ResultDirectoryViewTest, EveryControlHasItsWidget) {
  WorkOnScreen([&](FormWindow& window) { ExpectEveryControlHasItsWidget(form, window); });
}

TEST_F(ResultDirectoryViewTest, DirectoryIsTypedOverAndEnterKeepsIt) {
  std::filesystem::create_directory(folder.Path("results"));
  WorkOnScreen([&](FormWindow& window) {
    auto* box = window.As<QLineEdit>(form.txtDirectory);
    EXPECT_TRUE(box->hasFocus());
    QTest::keyClicks(box, QString::fromStdString(folder.Path("results")));
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_FALSE(form.Visible());
  });
  EXPECT_EQ(ResultDirectory(settings, ""), folder.Path("results/"));
}

TEST_F(ResultDirectoryViewTest, EscapeKeepsNothing) {
  WorkOnScreen([&](FormWindow& window) {
    QTest::keyClicks(window.Of(form.txtDirectory), "/");
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(form.Visible());
  });
  EXPECT_EQ(ResultDirectory(settings, "program"), "program");
}

}  // namespace
}  // namespace dorvane
