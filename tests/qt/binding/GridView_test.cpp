#include "qt/binding/GridView.h"

#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>

#include "BindingTest.h"
#include "qt/binding/GridModel.h"

namespace dorvane {
namespace {

// Rows and columns of the grid, from 1.
class GridViewTest : public BindingTest {
 protected:
  void SetUp() override {
    BindingTest::SetUp();
    view = Window().As<GridView>(form.grdPeaks);
  }
  QModelIndex Index(int row, int column) { return view->model()->index(row - 1, column - 1); }
  QPoint Place(int row, int column) { return view->visualRect(Index(row, column)).center(); }
  void Click(int row, int column) {
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, Place(row, column));
  }
  void Record(Event<int, int>& event) {
    event.Connect([this](int row, int column) { heard.push_back({row, column}); });
  }
  using Places = std::vector<std::pair<int, int>>;
  GridView* view = nullptr;
  Places heard;
};

TEST_F(GridViewTest, CellsHeadingsAndRowTitlesFollow) {
  form.grdPeaks.SetText(2, 3, "77");
  form.grdPeaks.SetHeading(3, "Height");
  form.grdPeaks.SetRowTitle(2, "B");
  const auto* model = view->model();
  EXPECT_EQ(Index(2, 3).data(), "77");
  EXPECT_EQ(model->headerData(2, Qt::Horizontal), "Height");
  EXPECT_EQ(model->headerData(1, Qt::Vertical), "B");
}

TEST_F(GridViewTest, RowsComeAndGo) {
  form.grdPeaks.SetMaxRows(7);
  EXPECT_EQ(view->model()->rowCount(), 7);
  form.grdPeaks.SetMaxRows(0);
  EXPECT_EQ(view->model()->rowCount(), 0);
  EXPECT_FALSE(view->currentIndex().isValid());
}

TEST_F(GridViewTest, GridWithoutRowTitlesHasNoTitleColumn) {
  EXPECT_TRUE(view->verticalHeader()->isVisible());
  for (int row = 1; row <= 3; ++row) form.grdPeaks.SetRowTitle(row, "");
  EXPECT_FALSE(view->verticalHeader()->isVisible());
}

TEST_F(GridViewTest, NumbersStandAtTheRight) {
  form.grdPeaks.SetText(1, 3, "1.50");
  form.grdPeaks.SetText(2, 3, "n.a.");
  EXPECT_TRUE(Index(1, 3).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
  EXPECT_TRUE(Index(2, 3).data(Qt::TextAlignmentRole).toInt() & Qt::AlignLeft);
}

TEST_F(GridViewTest, NumbersOfATextColumnStandAtTheLeft) {
  view->SetTextColumn(4);
  EXPECT_TRUE(Index(1, 4).data(Qt::TextAlignmentRole).toInt() & Qt::AlignLeft);
}

TEST_F(GridViewTest, ClickTellsRowAndColumnFromOne) {
  Record(form.grdPeaks.Click);
  Click(2, 3);
  EXPECT_EQ(heard, (Places{{2, 3}}));
  EXPECT_EQ(form.grdPeaks.ActiveRow(), 2);
}

TEST_F(GridViewTest, DoubleClickIsAnEventOfItsOwn) {
  Record(form.grdPeaks.DblClick);
  Click(3, 2);
  QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, Place(3, 2));
  EXPECT_EQ(heard, (Places{{3, 2}}));
}

TEST_F(GridViewTest, ArrowKeysMoveTheActiveRowWithoutAClick) {
  Record(form.grdPeaks.Click);
  Click(1, 3);
  heard.clear();
  QTest::keyClick(view, Qt::Key_Down);
  EXPECT_EQ(form.grdPeaks.ActiveRow(), 2);
  EXPECT_TRUE(heard.empty());
}

TEST_F(GridViewTest, EnterClicksAndControlEnterDoubleClicks) {
  Click(2, 3);
  Record(form.grdPeaks.Click);
  QTest::keyClick(view, Qt::Key_Return);
  EXPECT_EQ(heard, (Places{{2, 3}}));
  Record(form.grdPeaks.DblClick);
  heard.clear();
  QTest::keyClick(view, Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(heard, (Places{{2, 3}}));
}

TEST_F(GridViewTest, ActiveRowOfCodeIsTheCurrentOne) {
  Record(form.grdPeaks.Click);
  form.grdPeaks.SetActiveRow(3);
  EXPECT_EQ(view->currentIndex().row(), 2);
  EXPECT_TRUE(heard.empty());
}

TEST_F(GridViewTest, ClickTurnsACheckCellOnce) {
  Record(form.grdPeaks.Checked);
  Click(2, 1);
  EXPECT_TRUE(form.grdPeaks.Cell(2, 1).checked);
  EXPECT_EQ(heard, (Places{{2, 1}}));
  EXPECT_EQ(Index(2, 1).data(Qt::CheckStateRole), Qt::Checked);
}

TEST_F(GridViewTest, DoubleClickTurnsACheckCellTwice) {
  Click(2, 1);
  QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, Place(2, 1));
  QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, Place(2, 1));
  EXPECT_FALSE(form.grdPeaks.Cell(2, 1).checked);
}

TEST_F(GridViewTest, SpaceTurnsACheckCell) {
  Click(3, 1);
  QTest::keyClick(view, Qt::Key_Space);
  EXPECT_FALSE(form.grdPeaks.Cell(3, 1).checked);
}

TEST_F(GridViewTest, TypingIntoAnEditableColumnEdits) {
  Record(form.grdPeaks.Edited);
  Click(2, 4);
  QTest::keyClick(view, Qt::Key_F2);
  auto* editor = view->viewport()->findChild<QLineEdit*>();
  ASSERT_NE(editor, nullptr);
  QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(editor, "200");
  const auto presses = Count(form.cmdOk.Click);
  QTest::keyClick(editor, Qt::Key_Return);
  QTest::qWait(1);
  EXPECT_EQ(form.grdPeaks.Text(2, 4), "200");
  EXPECT_EQ(heard, (Places{{2, 4}}));
  EXPECT_EQ(*presses, 0);
}

TEST_F(GridViewTest, OtherColumnsAreNotTypedInto) {
  EXPECT_FALSE(view->model()->flags(Index(2, 3)) & Qt::ItemIsEditable);
  EXPECT_FALSE(view->model()->flags(Index(2, 1)) & Qt::ItemIsEditable);
}

TEST_F(GridViewTest, GridThatIsOffTakesNothing) {
  Record(form.grdPeaks.Click);
  Record(form.grdPeaks.Checked);
  form.grdPeaks.SetEnabled(false);
  Click(2, 1);
  EXPECT_TRUE(heard.empty());
}

TEST_F(GridViewTest, CopiesTheSelectedRectangleWithItsHeadings) {
  Click(2, 3);
  QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::ShiftModifier, Place(3, 4));
  view->setFocus();
  QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(),
            "\tIntensity\thkl\n2\t1204.50\t111\n3\t98.25\t111\n");
}

TEST_F(GridViewTest, CopiesTheWholeTableWithChecksAsNumbers) {
  form.grdPeaks.SetMaxRows(2);
  form.grdPeaks.SetRowTitle(1, "");
  form.grdPeaks.SetRowTitle(2, "");
  form.grdPeaks.CheckCell(2, 1, true);
  view->CopyAll();
  EXPECT_EQ(QApplication::clipboard()->text(),
            "Use\tColour\tIntensity\thkl\n0\t\t98.25\t111\n1\t\t1204.50\t111\n");
}

TEST_F(GridViewTest, ColourCellIsPaintedInItsColour) {
  const QImage image = view->viewport()->grab().toImage();
  const QRect cell = view->visualRect(Index(1, 2));
  EXPECT_EQ(image.pixelColor(cell.left() + 6, cell.center().y()), QColor(0x00, 0x72, 0xB2));
}

class SortedGridTest : public GridViewTest {
 protected:
  // Column 3 of the three rows holds 9, 10 and no number.
  void SetUp() override {
    GridViewTest::SetUp();
    view->SetSortable();
    for (int row = 1; row <= 3; ++row) form.grdPeaks.SetRowTitle(row, std::to_string(row));
    form.grdPeaks.SetText(1, 3, "10");
    form.grdPeaks.SetText(2, 3, "9");
    form.grdPeaks.SetText(3, 3, "n.a.");
  }
  void Sort(Qt::SortOrder order) { view->sortByColumn(2, order); }
  std::vector<std::string> Titles() {
    std::vector<std::string> titles;
    for (int row = 0; row < view->model()->rowCount(); ++row) {
      titles.push_back(view->model()->headerData(row, Qt::Vertical).toString().toStdString());
    }
    return titles;
  }
  using Names = std::vector<std::string>;
};

TEST_F(SortedGridTest, RowsStandAsInTheGridAtFirst) {
  EXPECT_EQ(Titles(), (Names{"1", "2", "3"}));
}

TEST_F(SortedGridTest, NumbersSortByTheirValueBeforeTexts) {
  Sort(Qt::AscendingOrder);
  EXPECT_EQ(Titles(), (Names{"2", "1", "3"}));
  EXPECT_EQ(Index(1, 3).data(), "9");
  Sort(Qt::DescendingOrder);
  EXPECT_EQ(Titles(), (Names{"3", "1", "2"}));
}

TEST_F(SortedGridTest, WithoutASortColumnTheOrderIsThatOfTheGridAgain) {
  Sort(Qt::AscendingOrder);
  view->sortByColumn(-1, Qt::AscendingOrder);
  EXPECT_EQ(Titles(), (Names{"1", "2", "3"}));
}

TEST_F(SortedGridTest, ClickTellsTheRowOfTheGrid) {
  Sort(Qt::AscendingOrder);
  Record(form.grdPeaks.Click);
  Click(1, 3);
  EXPECT_EQ(heard, (Places{{2, 3}}));
  EXPECT_EQ(form.grdPeaks.ActiveRow(), 2);
}

TEST_F(SortedGridTest, NewTextsOfTheColumnSortAnew) {
  Sort(Qt::AscendingOrder);
  form.grdPeaks.SetText(3, 3, "1");
  EXPECT_EQ(Titles(), (Names{"3", "2", "1"}));
}

TEST_F(SortedGridTest, RowsThatComeAreSortedToo) {
  Sort(Qt::AscendingOrder);
  form.grdPeaks.SetMaxRows(4);
  form.grdPeaks.SetRowTitle(4, "4");
  form.grdPeaks.SetText(4, 3, "1");
  EXPECT_EQ(Titles(), (Names{"4", "2", "1", "3"}));
  form.grdPeaks.SetMaxRows(1);
  EXPECT_EQ(Titles(), (Names{"1"}));
}

TEST_F(SortedGridTest, CopiesInTheOrderThatIsSeen) {
  Sort(Qt::AscendingOrder);
  view->CopyAll();
  const QStringList lines = QApplication::clipboard()->text().split('\n');
  EXPECT_TRUE(lines[1].startsWith("2\t"));
  EXPECT_TRUE(lines[2].startsWith("1\t"));
}

TEST_F(GridViewTest, WidthsStayWhenCellsChange) {
  const int width = view->columnWidth(2);
  form.grdPeaks.SetText(1, 3, "123456789012345678901234567890");
  EXPECT_EQ(view->columnWidth(2), width);
}

}  // namespace
}  // namespace dorvane
