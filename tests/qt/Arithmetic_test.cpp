// Graph arithmetic by clicks and keys, in the running program.
#include <QComboBox>
#include <QImage>

#include "WindowTest.h"

namespace dorvane {
namespace {

class ArithmeticTest : public WindowTest {
 protected:
  // Opens the dialog from the menu; `work` works it and closes it.
  void Work(const std::function<void()>& work) {
    QTimer::singleShot(50, [this, work] {
      ASSERT_TRUE(QTest::qWaitForWindowActive(&Dialog()));
      work();
      QTest::keyClick(Dialog().focusWidget(), Qt::Key_Escape);
      EXPECT_FALSE(Dialog().isVisible());
    });
    Trigger("mnuCalcSpect");
  }
  FormWindow& Dialog() { return *session->form_views.WindowOf(session->arithmetic); }
  template <class Widget = QWidget>
  Widget* Of(const char* name) {
    auto* widget = Dialog().findChild<Widget*>(name);
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  void ChooseItem(const char* name, const char* key) {
    Of<>(name)->setFocus();
    QTest::keyClicks(Of<>(name), key);
  }
  void TypeNumber(const char* name, const char* text) {
    Of<>(name)->setFocus();
    QTest::keyClick(Of<>(name), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(Of<>(name), text);
  }
  void Calc() { QTest::mouseClick(Of<>("cmdCalc"), Qt::LeftButton); }
  std::int32_t Count(int data_no, int channel) { return Store().Channels[data_no].Counts[channel]; }
};

// Three times the graph less the graph: twice its counts.
TEST_F(ArithmeticTest, TwoTermsAreCalculatedWithTheMouseAndTheKeys) {
  OpenCorundum();
  const std::int32_t before = Count(0, 661);
  ASSERT_GT(before, 100);
  Work([this] {
    ChooseItem("cmbOpe1", "*");
    TypeNumber("ImNumber1", "3");
    ChooseItem("cmbOpe2", "-");
    ChooseItem("cmbOpe3", "*");
    TypeNumber("ImNumber2", "1");
    Calc();
  });
  EXPECT_EQ(Count(0, 661), 2 * before);
  EXPECT_EQ(Store().Slots[0].State, kRowUnsaved);
}

TEST_F(ArithmeticTest, EnterCalculatesWhatHasJustBeenTyped) {
  OpenCorundum();
  const std::int32_t before = Count(0, 661);
  Work([this] {
    ChooseItem("cmbOpe2", "n");
    TypeNumber("ImNumber1", "10");
    QTest::keyClick(Of<>("ImNumber1"), Qt::Key_Return);
    EXPECT_TRUE(Dialog().isVisible());
  });
  EXPECT_EQ(Count(0, 661), before + 10);
}

TEST_F(ArithmeticTest, NoneGreysTheWholeSecondTerm) {
  OpenCorundum();
  Work([this] {
    ChooseItem("cmbOpe2", "n");
    for (const char* name : {"fra2nd", "cmbGraph_1", "cmbOpe3", "ImNumber2"}) {
      EXPECT_FALSE(Of<>(name)->isEnabled()) << name;
    }
    EXPECT_TRUE(Of<>("cmbGraph_0")->isEnabled());
    QTest::keyClick(Of<>("cmbOpe2"), Qt::Key_Home);
    for (const char* name : {"fra2nd", "cmbGraph_1", "cmbOpe3", "ImNumber2"}) {
      EXPECT_TRUE(Of<>(name)->isEnabled()) << name;
    }
  });
}

TEST_F(ArithmeticTest, AGraphHasItsTitleAsTip) {
  OpenCorundum();
  Work([this] {
    auto* graphs = Of<QComboBox>("cmbGraph_0");
    ASSERT_EQ(graphs->count(), 1);
    EXPECT_EQ(graphs->itemText(0), "G1");
    EXPECT_EQ(graphs->itemData(0, Qt::ToolTipRole), "corundum_ambient.npd");
    EXPECT_EQ(graphs->toolTip(), "corundum_ambient.npd");
  });
}

TEST_F(ArithmeticTest, TheResultIsSeenBehindTheDialog) {
  OpenCorundum();
  auto* graph = Find<QWidget>("picGraph_0");
  const QImage before = graph->grab().toImage();
  Work([this, graph, &before] {
    ChooseItem("cmbOpe1", "*");
    ChooseItem("cmbOpe2", "n");
    Calc();
    EXPECT_NE(graph->grab().toImage(), before);
  });
}

TEST_F(ArithmeticTest, AnOverflowIsShownInABoxAndStoresNothing) {
  OpenCorundum();
  const ChannelBlock before = Store().Channels[0];
  const BoxAnswerer boxes;
  Work([this] {
    ChooseItem("cmbOpe1", "*");
    ChooseItem("cmbOpe2", "n");
    TypeNumber("ImNumber1", "1e9");
    Calc();
  });
  EXPECT_EQ(boxes.Texts(), QStringList("Overflow"));
  EXPECT_EQ(Store().Channels[0], before);
}

TEST_F(ArithmeticTest, WithoutAGraphCalcCannotBePressed) {
  Work([this] {
    EXPECT_FALSE(Of<>("cmdCalc")->isEnabled());
    EXPECT_EQ(Of<QLabel>("lblHint")->text(), "Open a spectrum first.");
  });
}

// An unsaved result is asked for at the end.
TEST_F(ArithmeticTest, TheResultIsNotLostWithoutAQuestion) {
  OpenCorundum();
  Work([this] { Calc(); });
  const BoxAnswerer no(QMessageBox::No);
  Window().close();
  EXPECT_EQ(no.Texts(), QStringList("File No Save.  Grp=1 (Do you Cansel?)"));
  EXPECT_TRUE(Window().isVisible());
}

}  // namespace
}  // namespace dorvane
