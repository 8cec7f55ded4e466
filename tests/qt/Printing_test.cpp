// Printing, preview and pictures by clicks and keys, in the running program.
#include <QClipboard>
#include <QFileDialog>
#include <QImage>
#include <QMimeData>
#include <QRadioButton>

#include "WindowTest.h"
#include "program/View.h"
#include "program/WindowPage.h"
#include "qt/surface/Picture.h"

namespace dorvane {
namespace {

class PrintingTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    OpenCorundum();
  }
  template <class Widget = QWidget>
  Widget* Of(Form& form, const char* name) {
    auto* widget = session->form_views.WindowOf(form)->findChild<Widget*>(name);
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  void Press(Form& form, const char* name) { QTest::mouseClick(Of(form, name), Qt::LeftButton); }
  // Works the next modal form.
  void Then(Form& form, std::function<void()> work) {
    QTimer::singleShot(50, [this, &form, work = std::move(work)] {
      ASSERT_TRUE(QTest::qWaitForWindowActive(session->form_views.WindowOf(form)));
      work();
    });
  }
  // Types a path into the next file dialog and accepts it.
  void AnswerFileDialog(const std::string& path) {
    QTimer::singleShot(200, [path] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      dialog->findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(path));
      QMetaObject::invokeMethod(dialog, "accept");
    });
  }
  static bool HasInk(const QImage& image, const QRect& part) {
    for (int y = part.top(); y <= part.bottom(); ++y) {
      for (int x = part.left(); x <= part.right(); ++x) {
        if (qGray(image.pixel(x, y)) < 100) return true;
      }
    }
    return false;
  }
};

TEST_F(PrintingTest, PreviewShowsTheSheetAndEscapeClosesIt) {
  bool upright = false;
  Then(session->print, [&] {
    EXPECT_EQ(Of<QLineEdit>(session->print, "txtFileName")->text(), "corundum_ambient.npd");
    Of<QRadioButton>(session->print, "optOrientation_1")->click();
    Then(session->preview, [&] {
      const QImage sheet = Of(session->preview, "picPreView")->grab().toImage();
      const QRect middle = sheet.rect().adjusted(sheet.width() / 8, sheet.height() / 4,
                                                 -sheet.width() / 8, -sheet.height() / 4);
      EXPECT_TRUE(HasInk(sheet, middle));
      EXPECT_EQ(QColor(sheet.pixel(4, 4)), QColor(128, 128, 128));
      upright = true;
      QTest::keyClick(session->form_views.WindowOf(session->preview), Qt::Key_Escape);
    });
    Press(session->print, "cmdPreview");
  });
  Trigger("mnuPrint");
  EXPECT_TRUE(upright);
  EXPECT_FALSE(session->preview.Visible());
}

TEST_F(PrintingTest, DotSizeIsTypedAndKept) {
  Then(session->print, [&] {
    auto* box = Of<QLineEdit>(session->print, "ImnDrawWidth");
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, "3");
    Press(session->print, "cmdCan");
    EXPECT_FALSE(session->print.Visible());
  });
  QTest::keyClick(&Window(), Qt::Key_P, Qt::ControlModifier);
  EXPECT_EQ(Store().DotSize, 3);
}

// Ten curves of 8192 noisy channels.
TEST_F(PrintingTest, APageOfTenLongCurvesStaysBelow300Kilobytes) {
  Program& program = session->program;
  RemoveGraph(program.List(), 0);
  for (int row = 0; row < kRows; ++row) {
    const auto data_no = GetGraphSpace(program.List(), -1);
    ChannelBlock& block = Store().Channels[data_no];
    block.Count = kMaxChannels;
    for (int i = 0; i < kMaxChannels; ++i) block.Counts[i] = 200 * row + i * 7919 % 61;
    SetGraph(program.List(), 0, row, data_no, "a.npd");
  }
  SetSpanCh(program, kMaxChannels);
  const WindowSheet sheet = *CurrentSheet(program);
  const ByteVector pdf = RenderDocument({1123, 794, 1}, 57, [&](Page& page, int) {
    DrawWindowSheet(program, sheet, page);
    return false;
  });
  EXPECT_LT(pdf.size(), 300000u);
  EXPECT_GT(pdf.size(), 50000u);
}

TEST_F(PrintingTest, PictureIsSavedInTheSizeThatWasTyped) {
  Then(session->picture, [&] {
    auto* box = Of<QLineEdit>(session->picture, "imnWidth");
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, "127");
    AnswerFileDialog(folder.Path("figure.png"));
    Press(session->picture, "cmdSave");
  });
  Trigger("mnuSavePicture");
  QImage image;
  ASSERT_TRUE(image.load(QString::fromStdString(folder.Path("figure.png"))));
  // 127 mm at 300 dots an inch.
  EXPECT_EQ(image.width(), 1500);
  EXPECT_NEAR(image.dotsPerMeterX(), 300 / 0.0254, 2);
  EXPECT_TRUE(HasInk(image, image.rect()));
}

TEST_F(PrintingTest, PictureIsCopiedByItsKey) {
  QGuiApplication::clipboard()->clear();
  QTest::keyClick(&Window(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  ASSERT_TRUE(data->hasImage());
  // 160 mm at 300 dots an inch, from whole pixels of the page.
  EXPECT_NEAR(QGuiApplication::clipboard()->image().width(), 1890, 2);
  EXPECT_TRUE(data->hasFormat("image/svg+xml"));
}

}  // namespace
}  // namespace dorvane
