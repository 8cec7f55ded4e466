#include "qt/QtDialogs.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTreeView>
#include <algorithm>

#include "qt/binding/Text.h"

namespace dorvane {
namespace {

constexpr const char* kProgramName = "Dorvane";
constexpr QSize kFileDialogSize(800, 520);
constexpr const char* kAllFiles = "All files (*)";

// An arrow while a box waits for its answer, whatever the pointer was.
class ArrowPointer {
 public:
  ArrowPointer() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
  ~ArrowPointer() { QApplication::restoreOverrideCursor(); }
  ArrowPointer(const ArrowPointer&) = delete;
  ArrowPointer& operator=(const ArrowPointer&) = delete;
};

QMessageBox::Icon IconOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Exclamation:
      return QMessageBox::Warning;
    case BoxIcon::Question:
      return QMessageBox::Question;
    case BoxIcon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

// "All files" has the index behind the last filter.
void SelectFilter(QFileDialog& dialog, const FileRequest& request) {
  const QStringList filters = NameFilters(request.filter);
  dialog.setNameFilters(filters);
  const bool known = request.filter_index >= 1 && request.filter_index <= filters.size();
  dialog.selectNameFilter(filters[known ? request.filter_index - 1 : 0]);
}

// The dialog answers the whole filter or, where it hides the patterns, the text before them.
int FilterIndexOf(const QFileDialog& dialog) {
  const QString selected = dialog.selectedNameFilter();
  const QStringList filters = dialog.nameFilters();
  const auto found = std::find_if(filters.begin(), filters.end(), [&](const QString& filter) {
    return filter == selected || filter.left(filter.lastIndexOf(" (")) == selected;
  });
  return found == filters.end() ? 1 : static_cast<int>(found - filters.begin()) + 1;
}

// The list's own widths cut dates and sizes short. A dialog of the desktop has no such list.
void ShowWholeColumns(const QFileDialog& dialog) {
  const auto* list = dialog.findChild<QTreeView*>("treeView");
  if (list == nullptr) return;
  list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

}  // namespace

// Over the main window a box would open beneath a window that stays on top.
QWidget* QtDialogs::Parent() const {
  QWidget* active = QApplication::activeWindow();
  return active != nullptr ? active : parent_;
}

void QtDialogs::Show(const QString& caption, std::string_view text) {
  if (on_message_) on_message_(text);
  const ArrowPointer arrow;
  QMessageBox box(QMessageBox::NoIcon, caption, ToQString(text), QMessageBox::Ok, Parent());
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

void QtDialogs::Message(std::string_view text) {
  Show(kProgramName, text);
}

void QtDialogs::CaptionedMessage(std::string_view caption, std::string_view text) {
  Show(ToQString(caption), text);
}

bool QtDialogs::AskYesNo(const Question& question) {
  if (on_message_) on_message_(question.text);
  const ArrowPointer arrow;
  const QString caption = question.caption.empty() ? kProgramName : ToQString(question.caption);
  QMessageBox box(IconOf(question.icon), caption, ToQString(question.text),
                  QMessageBox::Yes | QMessageBox::No, Parent());
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(question.no_is_default ? QMessageBox::No : QMessageBox::Yes);
  box.setEscapeButton(QMessageBox::No);
  return box.exec() == QMessageBox::Yes;
}

std::optional<FilesChoice> QtDialogs::ChooseFilesToOpen(const FileRequest& request) {
  QFileDialog dialog(Parent(), "Open Spectra", directory_);
  dialog.setFileMode(request.several ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  SelectFilter(dialog, request);
  dialog.resize(kFileDialogSize);
  ShowWholeColumns(dialog);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  FilesChoice choice{{}, FilterIndexOf(dialog)};
  for (const QString& path : dialog.selectedFiles()) choice.paths.push_back(ToUtf8(path));
  directory_ = dialog.directory().absolutePath();
  return choice;
}

std::optional<FileChoice> QtDialogs::ChooseFileToSave(const FileRequest& request) {
  QFileDialog dialog(Parent(), request.caption.empty() ? "Save Graph" : ToQString(request.caption),
                     directory_);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, !request.overwrite_prompt);
  SelectFilter(dialog, request);
  if (request.overwrite_prompt) {  // it asks about the name with its extension
    const auto take_suffix = [&dialog] {
      const QString filter = dialog.nameFilters()[FilterIndexOf(dialog) - 1];
      dialog.setDefaultSuffix(QFileInfo(WithExtension("a", filter)).suffix());
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, take_suffix);
    take_suffix();
  }
  dialog.resize(kFileDialogSize);
  ShowWholeColumns(dialog);
  dialog.selectFile(ToQString(request.file_name));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  directory_ = dialog.directory().absolutePath();
  const int filter_index = FilterIndexOf(dialog);
  const std::string path = ToUtf8(
      WithExtension(dialog.selectedFiles().constFirst(), dialog.nameFilters()[filter_index - 1]));
  return FileChoice{path, filter_index};
}

std::optional<std::string> QtDialogs::ChooseDirectory(const std::string& start) {
  QFileDialog dialog(Parent(), "Choose Directory", ToQString(start));
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  dialog.resize(kFileDialogSize);
  ShowWholeColumns(dialog);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  return ToUtf8(dialog.selectedFiles().constFirst());
}

std::optional<Color> QtDialogs::ChooseColor(Color start) {
  const ArrowPointer arrow;
  const QColor chosen = QColorDialog::getColor(ToQColor(start), Parent(), "Color");
  if (!chosen.isValid()) return {};
  return Rgb(chosen.red(), chosen.green(), chosen.blue());
}

QStringList NameFilters(std::string_view filter) {
  QStringList out;
  const QStringList parts = ToQString(filter).split('|', Qt::SkipEmptyParts);
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QStringList patterns;
    for (const QString& pattern : parts[i + 1].split(';', Qt::SkipEmptyParts)) {
      patterns << pattern.toLower() << pattern.toUpper();
    }
    out << parts[i] + " (" + patterns.join(' ') + ")";
  }
  return out << kAllFiles;
}

QString WithExtension(const QString& path, const QString& name_filter) {
  if (!QFileInfo(path).suffix().isEmpty()) return path;
  static const QRegularExpression first_pattern(R"(\(\*\.(\w+)[^()]*\)$)");
  const auto match = first_pattern.match(name_filter);
  return match.hasMatch() ? path + "." + match.captured(1) : path;
}

}  // namespace dorvane
