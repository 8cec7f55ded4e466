// Boxes, file dialogs and colour dialog of the desktop.
#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>
#include <functional>

#include "support/Dialogs.h"

namespace dorvane {

class QtDialogs : public Dialogs {
 public:
  // Boxes stand over the active window of the program, or over this one while none is; it outlives
  // the dialogs' last use.
  void SetParent(QWidget* parent) { parent_ = parent; }
  // Told of every message and question before its box is shown.
  void OnMessage(std::function<void(std::string_view)> on_message) {
    on_message_ = std::move(on_message);
  }
  // The directory that file dialogs open in; that of the last choice from then on.
  void SetDirectory(const QString& directory) { directory_ = directory; }

  void Message(std::string_view text) override;
  void CaptionedMessage(std::string_view caption, std::string_view text) override;
  bool AskYesNo(const Question& question) override;
  // "All files" stands behind the filters of the request.
  std::optional<FilesChoice> ChooseFilesToOpen(const FileRequest& request) override;
  // A name without an extension takes that of the chosen filter.
  std::optional<FileChoice> ChooseFileToSave(const FileRequest& request) override;
  std::optional<std::string> ChooseDirectory(const std::string& start) override;
  std::optional<Color> ChooseColor(Color start) override;

 private:
  void Show(const QString& caption, std::string_view text);
  QWidget* Parent() const;

  QWidget* parent_ = nullptr;
  std::function<void(std::string_view)> on_message_;
  QString directory_;
};

// "Text|*.a;*.b|..." as the desktop's name filters, each pattern in both cases.
QStringList NameFilters(std::string_view filter);
// The path with the first extension of the chosen filter behind it where it has none of its own.
QString WithExtension(const QString& path, const QString& name_filter);

}  // namespace dorvane
