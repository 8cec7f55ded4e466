#include "qt/QtDialogs.h"

#include <gtest/gtest.h>

#include <QColorDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>

#include "WindowTest.h"
#include "program/OpenSave.h"

namespace dorvane {
namespace {

Question ClearAll() {
  Question question;
  question.text = "Clear All Data";
  return question;
}

FileRequest SeveralFiles() {
  FileRequest request;
  request.filter = kOpenFilter;
  request.several = true;
  return request;
}

TEST(NameFilters, TextsStandAndAllFilesComeLast) {
  const QStringList filters = NameFilters(kOpenFilter);
  ASSERT_EQ(filters.size(), 5);
  EXPECT_EQ(filters[0], "Nippon high Pressure Data File (*.npd) (*.npd *.NPD)");
  EXPECT_EQ(filters[1], "Gennie File (*.cnf;*.rpt) (*.cnf *.CNF *.rpt *.RPT)");
  EXPECT_EQ(filters.last(), "All files (*)");
}

TEST(WithExtension, ComesFromTheChosenFilter) {
  const QString filter = NameFilters(kSaveFilter)[2];
  EXPECT_EQ(WithExtension("/data/abc_FIT", filter), "/data/abc_FIT.xbm");
}

TEST(WithExtension, OfTheNameStays) {
  EXPECT_EQ(WithExtension("/data/abc.xta", NameFilters(kSaveFilter)[0]), "/data/abc.xta");
}

TEST(WithExtension, IsNoneForAllFiles) {
  EXPECT_EQ(WithExtension("/data/abc", "All files (*)"), "/data/abc");
}

TEST(YesNoBox, AnswersYesOnYesAlone) {
  QtDialogs dialogs;
  {
    const BoxAnswerer yes(QMessageBox::Yes);
    EXPECT_TRUE(dialogs.AskYesNo(ClearAll()));
  }
  const BoxAnswerer no(QMessageBox::No);
  EXPECT_FALSE(dialogs.AskYesNo(ClearAll()));
}

TEST(YesNoBox, QuestionIsToldBeforeItsAnswer) {
  QtDialogs dialogs;
  std::string told;
  dialogs.OnMessage([&](std::string_view text) { told = text; });
  const BoxAnswerer no(QMessageBox::No);
  dialogs.AskYesNo(ClearAll());
  EXPECT_EQ(told, "Clear All Data");
}

TEST(YesNoBox, NoIsTheDefaultAndTheAnswerOfEscape) {
  QtDialogs dialogs;
  QTimer::singleShot(20, [] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    EXPECT_TRUE(box->defaultButton() == box->button(QMessageBox::No));
    QTest::keyClick(box, Qt::Key_Escape);
  });
  EXPECT_FALSE(dialogs.AskYesNo(ClearAll()));
}

TEST(MessageBox, ShowsItsTextAsItStands) {
  const BoxAnswerer boxes;
  QtDialogs dialogs;
  dialogs.CaptionedMessage("グラフ表示", "<b>チャンネル数オーバー</b>");
  EXPECT_EQ(boxes.Captions(), QStringList("グラフ表示"));
  EXPECT_EQ(boxes.Texts(), QStringList("<b>チャンネル数オーバー</b>"));
}

TEST(OpenDialog, GivesNothingAfterCancel) {
  QtDialogs dialogs;
  QTimer::singleShot(50, [] { QApplication::activeModalWidget()->close(); });
  EXPECT_TRUE(dialogs.ChooseFilesToOpen(SeveralFiles()).empty());
}

TEST(OpenDialog, GivesWholePaths) {
  QtDialogs dialogs;
  dialogs.SetDirectory(QString::fromStdString(kSamples));
  QTimer::singleShot(100, [] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    dialog->findChild<QLineEdit*>("fileNameEdit")->setText("corundum_ambient.npd");
    QMetaObject::invokeMethod(dialog, "accept");
  });
  const auto paths = dialogs.ChooseFilesToOpen(SeveralFiles());
  EXPECT_EQ(paths, std::vector<std::string>{kCorundum});
}

TEST(ColorDialog, GivesNothingAfterCancel) {
  QtDialogs dialogs;
  QTimer::singleShot(50, [] { QApplication::activeModalWidget()->close(); });
  EXPECT_EQ(dialogs.ChooseColor(Rgb(10, 20, 30)), std::nullopt);
}

TEST(ColorDialog, StartsWithTheOldColourAndGivesTheChosenOne) {
  QtDialogs dialogs;
  QColor start;
  QTimer::singleShot(50, [&start] {
    auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
    start = dialog->currentColor();
    dialog->setCurrentColor(QColor(200, 100, 50));
    dialog->accept();
  });
  EXPECT_EQ(dialogs.ChooseColor(Rgb(10, 20, 30)), Rgb(200, 100, 50));
  EXPECT_EQ(start, QColor(10, 20, 30));
}

}  // namespace
}  // namespace dorvane
