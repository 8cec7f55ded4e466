#include "qt/QtDialogs.h"

#include <gtest/gtest.h>

#include <QColorDialog>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>

#include "WindowTest.h"
#include "program/OpenSave.h"
#include "support/TemporaryFolder.h"

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

TEST(MessageBox, StandsOverTheActiveWindow) {
  QWidget main;
  QWidget floating;
  QtDialogs dialogs;
  dialogs.SetParent(&main);
  main.show();
  floating.show();
  floating.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&floating));
  QTimer::singleShot(20, [&floating] {
    QWidget* box = QApplication::activeModalWidget();
    EXPECT_EQ(box->parentWidget(), &floating);
    box->close();
  });
  dialogs.Message("Clear All Data");
}

TEST(OpenDialog, GivesNothingAfterCancel) {
  QtDialogs dialogs;
  QTimer::singleShot(50, [] { QApplication::activeModalWidget()->close(); });
  EXPECT_FALSE(dialogs.ChooseFilesToOpen(SeveralFiles()).has_value());
}

TEST(OpenDialog, GivesWholePaths) {
  QtDialogs dialogs;
  dialogs.SetDirectory(QString::fromStdString(kSamples));
  QTimer::singleShot(100, [] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    dialog->findChild<QLineEdit*>("fileNameEdit")->setText("corundum_ambient.npd");
    QMetaObject::invokeMethod(dialog, "accept");
  });
  const auto choice = dialogs.ChooseFilesToOpen(SeveralFiles());
  ASSERT_TRUE(choice.has_value());
  EXPECT_EQ(choice->paths, std::vector<std::string>{kCorundum});
}

TEST(DirectoryDialog, StartsWhereItIsToldAndGivesTheChosenOne) {
  const TemporaryFolder folder;
  QDir(QString::fromStdString(folder.Path(""))).mkdir("results");
  QtDialogs dialogs;
  QTimer::singleShot(100, [&] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    EXPECT_EQ(dialog->directory(), QDir(QString::fromStdString(folder.Path(""))));
    dialog->findChild<QLineEdit*>("fileNameEdit")->setText("results");
    QMetaObject::invokeMethod(dialog, "accept");
  });
  EXPECT_EQ(dialogs.ChooseDirectory(folder.Path("")), folder.Path("results"));
}

TEST(DirectoryDialog, GivesNothingAfterCancel) {
  QtDialogs dialogs;
  QTimer::singleShot(50, [] { QApplication::activeModalWidget()->close(); });
  EXPECT_FALSE(dialogs.ChooseDirectory("").has_value());
}

class FileDialogFilterTest : public testing::Test {
 protected:
  // Notes the selected filter of the next file dialog, picks another one unless that is empty,
  // types a name and accepts.
  void Work(const QString& name, const QString& other = "") {
    QTimer::singleShot(100, [this, name, other] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      auto* filters = dialog->findChild<QComboBox*>("fileTypeCombo");
      selected = filters->currentText();
      if (!other.isEmpty()) {
        filters->setCurrentIndex(filters->findText(other));
        QMetaObject::invokeMethod(filters, "activated", Q_ARG(int, filters->currentIndex()));
        QMetaObject::invokeMethod(filters, "textActivated", Q_ARG(QString, other));
      }
      dialog->findChild<QLineEdit*>("fileNameEdit")->setText(name);
      QMetaObject::invokeMethod(dialog, "accept");
    });
  }
  std::optional<FilesChoice> Open(int filter_index) {
    dialogs.SetDirectory(QString::fromStdString(kSamples));
    FileRequest request = SeveralFiles();
    request.filter_index = filter_index;
    return dialogs.ChooseFilesToOpen(request);
  }
  std::optional<FileChoice> Save(int filter_index, bool overwrite_prompt = false) {
    dialogs.SetDirectory(QDir::tempPath());
    FileRequest request;
    request.filter = kSaveFilter;
    request.filter_index = filter_index;
    request.overwrite_prompt = overwrite_prompt;
    return dialogs.ChooseFileToSave(request);
  }

  QtDialogs dialogs;
  QString selected;
};

TEST_F(FileDialogFilterTest, TheEntryOfTheIndexIsSelectedAndAnswered) {
  Work("corundum_ambient.npd");
  const auto choice = Open(3);
  EXPECT_EQ(selected, "Express File (*.xbm)");
  ASSERT_TRUE(choice.has_value());
  EXPECT_EQ(choice->filter_index, 3);
}

TEST_F(FileDialogFilterTest, AllFilesIsTheEntryBehindTheFilters) {
  Work("corundum_ambient.npd", "All files");
  const auto choice = Open(1);
  ASSERT_TRUE(choice.has_value());
  EXPECT_EQ(choice->filter_index, 5);
  Work("corundum_ambient.npd");
  EXPECT_EQ(Open(5)->filter_index, 5);
  EXPECT_EQ(selected, "All files");
}

TEST_F(FileDialogFilterTest, AnIndexThatNoEntryHasSelectsTheFirst) {
  for (const int index : {-3, 0, 6}) {
    Work("corundum_ambient.npd");
    EXPECT_EQ(Open(index)->filter_index, 1);
    EXPECT_TRUE(selected.startsWith("Nippon high Pressure Data File")) << selected.toStdString();
  }
}

TEST_F(FileDialogFilterTest, TheChosenFilterOfASaveIsAnsweredAndGivesItsExtension) {
  Work("dorvane_no_such_file", "Excel File (*.csv)");
  const auto choice = Save(3);
  EXPECT_EQ(selected, "Express File (*.xbm)");
  ASSERT_TRUE(choice.has_value());
  EXPECT_EQ(choice->filter_index, 4);
  EXPECT_TRUE(choice->path.ends_with("/dorvane_no_such_file.csv")) << choice->path;
}

TEST_F(FileDialogFilterTest, WhereReplacingIsAskedTheChosenFilterGivesItsExtensionToo) {
  Work("dorvane_no_such_file", "Excel File (*.csv)");
  const auto choice = Save(3, true);
  ASSERT_TRUE(choice.has_value());
  EXPECT_TRUE(choice->path.ends_with("/dorvane_no_such_file.csv")) << choice->path;
}

class OverwritePromptTest : public testing::Test {
 protected:
  // Types a name without its extension and accepts; a question is answered, and the dialog then
  // closed if it is still open.
  std::optional<FileChoice> Save(bool overwrite_prompt, QMessageBox::StandardButton answer) {
    QTimer::singleShot(100, [&, answer] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      caption = dialog->windowTitle();
      dialog->findChild<QLineEdit*>("fileNameEdit")->setText("kept");
      QTimer::singleShot(100, [&, answer, dialog] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
          asked = true;
          box->button(answer)->click();
        }
        if (answer == QMessageBox::No) QTimer::singleShot(0, dialog, &QDialog::reject);
      });
      QMetaObject::invokeMethod(dialog, "accept");
    });
    dialogs.SetDirectory(QString::fromStdString(folder.Path("")));
    FileRequest request;
    request.filter = "Result File (*.csv)|*.csv";
    request.overwrite_prompt = overwrite_prompt;
    request.caption = "Save Result";
    return dialogs.ChooseFileToSave(request);
  }

  TemporaryFolder folder;
  QtDialogs dialogs;
  QString caption;
  bool asked = false;
};

TEST_F(OverwritePromptTest, AFileThatExistsIsAskedForByItsWholeName) {
  folder.Put("kept.csv", "old");
  const auto choice = Save(true, QMessageBox::Yes);
  EXPECT_TRUE(asked);
  EXPECT_EQ(caption, "Save Result");
  ASSERT_TRUE(choice.has_value());
  EXPECT_TRUE(choice->path.ends_with("/kept.csv")) << choice->path;
}

TEST_F(OverwritePromptTest, NoIsNoChoice) {
  folder.Put("kept.csv", "old");
  EXPECT_FALSE(Save(true, QMessageBox::No).has_value());
  EXPECT_TRUE(asked);
}

TEST_F(OverwritePromptTest, ANewFileIsNotAskedFor) {
  EXPECT_TRUE(Save(true, QMessageBox::Yes).has_value());
  EXPECT_FALSE(asked);
}

TEST_F(OverwritePromptTest, WithoutThePromptNothingIsAsked) {
  folder.Put("kept.csv", "old");
  EXPECT_TRUE(Save(false, QMessageBox::Yes).has_value());
  EXPECT_FALSE(asked);
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
