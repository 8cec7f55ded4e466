// The main window: joins menus, tool bars, the two graph windows, the read-out strip and the status
// line.
#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QScrollBar>
#include <array>
#include <memory>

#include "qt/Actions.h"
#include "qt/GraphSplitter.h"
#include "qt/GraphWindow.h"
#include "qt/ReadoutStrip.h"
#include "qt/Session.h"
#include "qt/StatusHints.h"

namespace dorvane {

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  MainWindow();
  ~MainWindow() override;

  Session& TheSession() { return *session_; }
  // Opens files that are already chosen, in place of what is open.
  void OpenFiles(const std::vector<std::string>& paths);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void UseDesktopColors();
  void BuildCentre();
  void BuildStatusLine();
  void Connect();
  void ConnectActions();
  void Open();
  void Save();
  // The whole range stays whole with other spectra.
  void OpenBy(const std::function<void(Program&)>& open);
  void TellWhatWasNotRead(const std::vector<std::string>& paths);
  void ShowWholeSpectrum();
  void Hint(const QString& text);
  void HintAtTheEnd(bool cancelled);
  void RefreshScrollBar();
  void RefreshStatus();
  void RefreshPointer();

  std::unique_ptr<Session> session_;
  Actions* actions_ = nullptr;
  std::array<GraphWindow*, kWindows> windows_{};
  GraphSplitter* splitter_ = nullptr;
  QScrollBar* hsbStartX_ = nullptr;
  ReadoutStrip* strip_ = nullptr;
  ElidedLabel* file_label_ = nullptr;
  ElidedLabel* hint_label_ = nullptr;
  QLabel* peak_label_ = nullptr;
  FileUse file_use_ = FileUse::Read;
  bool pointer_is_set_ = false;
  bool lower_placed_ = false;
};

}  // namespace dorvane
