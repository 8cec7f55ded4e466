#include "qt/views/Views.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>

#include "forms/frmDialogMessage.h"
#include "forms/frmInput.h"
#include "forms/frmLog.h"
#include "forms/frmRoiReport.h"
#include "forms/frmSelGraph.h"
#include "processing/RoiOpe.h"
#include "program/ProgramFixture.h"
#include "qt/binding/BindingFixture.h"

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

  QtFormHost host;
  frmDialogMessage message{host};
  frmInput input{host};
  frmLog log_form{host};
  frmRoiReport regions{program, host};
  frmSelGraph graphs{program, host};
  FormViews windows{host};
};

TEST_F(Views, EveryControlHasItsWidget) {
  ExpectEveryControlHasItsWidget(message, Open(message));
  ExpectEveryControlHasItsWidget(input, Open(input));
  ExpectEveryControlHasItsWidget(log_form, Open(log_form));
  ExpectEveryControlHasItsWidget(regions, Open(regions));
  ExpectEveryControlHasItsWidget(graphs, Open(graphs));
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

}  // namespace
}  // namespace dorvane
