#include "qt/MainWindow.h"

#include <QApplication>
#include <QDir>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QProgressBar>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QUrl>
#include <QVBoxLayout>
#include <filesystem>

#include "files/SplitPath.h"
#include "program/Commands.h"
#include "program/Cursor.h"
#include "program/OpenSave.h"
#include "program/View.h"
#include "program/WholeRange.h"
#include "qt/HelpBoxes.h"
#include "qt/Keys.h"
#include "qt/binding/Text.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

constexpr const char* kHowToStop = "Escape stops the operation";

std::vector<std::string> LocalFiles(const QMimeData& data) {
  std::vector<std::string> paths;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) paths.push_back(ToUtf8(url.toLocalFile()));
  }
  return paths;
}

}  // namespace

MainWindow::MainWindow() : session_(std::make_unique<Session>()) {
  setObjectName("frmDorvane");
  setAcceptDrops(true);
  session_->dialogs.SetParent(this);
  session_->dialogs.SetDirectory(QDir::currentPath());
  UseDesktopColors();
  actions_ = new Actions(*session_, *this);
  actions_->FillMenuBar();
  actions_->AddToolBars();
  setContextMenuPolicy(Qt::NoContextMenu);
  BuildCentre();
  BuildStatusLine();
  Connect();
  ConnectActions();
  setWindowTitle(ToQString(session_->program.view.Caption));
  RefreshScrollBar();
  resize(1280, 800);
  windows_[0]->Canvas().setFocus();
}

MainWindow::~MainWindow() {
  session_->dialogs.SetParent(nullptr);
  // Nothing of the window may hear of the program's end.
  session_->notices.disconnect();
  session_->disconnect();
}

void MainWindow::UseDesktopColors() {
  Program& program = session_->program;
  if (palette().color(QPalette::Window).lightness() >= 128) return;
  UseColors(program, DarkColors());
}

void MainWindow::BuildCentre() {
  auto* centre = new QWidget(this);
  auto* column = new QVBoxLayout(centre);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  splitter_ = new GraphSplitter(centre);
  for (int win_no = 0; win_no < kWindows; ++win_no) {
    auto* window = new GraphWindow(*session_, win_no, splitter_);
    windows_[static_cast<std::size_t>(win_no)] = window;
    splitter_->addWidget(window);
  }
  splitter_->setCollapsible(0, false);
  splitter_->setStretchFactor(0, 2);
  splitter_->setStretchFactor(1, 1);
  hsbStartX_ = new QScrollBar(Qt::Horizontal, centre);
  hsbStartX_->setObjectName("hsbStartX");
  hsbStartX_->setAccessibleName("First channel shown");
  strip_ = new ReadoutStrip(*session_, centre);
  column->addWidget(splitter_, 1);
  column->addWidget(hsbStartX_);
  column->addWidget(strip_);
  setCentralWidget(centre);
}

void MainWindow::BuildStatusLine() {
  file_label_ = new ElidedLabel("lblFile", this);
  hint_label_ = new ElidedLabel("lblHint", this);
  peak_label_ = new QLabel(this);
  peak_label_->setObjectName("lblPeaks");
  auto* bar = new QProgressBar(this);
  bar->setObjectName("prgOperation");
  bar->setFixedSize(160, 16);
  bar->hide();
  session_->progress.SetBar(bar);
  statusBar()->setSizeGripEnabled(false);
  statusBar()->setContentsMargins(8, 0, 8, 0);
  statusBar()->addWidget(file_label_);
  statusBar()->addWidget(hint_label_, 1);
  statusBar()->addPermanentWidget(bar);
  statusBar()->addPermanentWidget(peak_label_);
}

void MainWindow::Connect() {
  const Notices& notices = session_->notices;
  connect(&notices, &Notices::CaptionsChanged, this,
          [this] { setWindowTitle(ToQString(session_->program.view.Caption)); });
  connect(&notices, &Notices::SpanChanged, this, [this] { RefreshScrollBar(); });
  connect(&notices, &Notices::PointerShapeChanged, this, [this] { RefreshPointer(); });
  connect(&notices, &Notices::StyleChanged, this, [this] {
    if (session_->program.view.ExpandOn != kFalse) splitter_->OpenLower(true);
  });
  connect(hsbStartX_, &QScrollBar::valueChanged, this, [this](int start) {
    session_->Do([=](Program& program) { SetStartCh(program, start); });
  });
  connect(session_.get(), &Session::Begun, this, [this] { Hint(""); });
  connect(session_.get(), &Session::Done, this, [this] { RefreshStatus(); });
  connect(&session_->progress, &StatusProgress::Began, this, [this] { Hint(kHowToStop); });
  connect(&session_->progress, &StatusProgress::Ended, this, &MainWindow::HintAtTheEnd);
  session_->dialogs.OnMessage([this](std::string_view message) {
    Hint(ToQString(HintFor(message, session_->program.workspace, file_use_)));
  });
  connect(strip_, &ReadoutStrip::EntryDone, &windows_[0]->Canvas(),
          qOverload<>(&QWidget::setFocus));
  for (GraphWindow* window : windows_) {
    connect(window, &GraphWindow::WholeRangeWanted, this, [this] { ShowWholeSpectrum(); });
  }
}

void MainWindow::ConnectActions() {
  const auto on = [this](const char* name, auto handler) {
    connect(actions_->Of(name), &QAction::triggered, this, handler);
  };
  on("mnuLoad", [this] { Open(); });
  on("mnuSave", [this] { Save(); });
  on("mnuExit", [this] { close(); });
  on("chkArea", [this] { session_->Run("AreaCursor"); });
  on("mnuWhole", [this] { ShowWholeSpectrum(); });
  on("mnuLowerWindow", [this](bool open) { splitter_->OpenLower(open); });
  on("mnuSelGraph", [this] { session_->graph_select.GraphSel_Repl(1); });
  on("mnuRoiReport", [this] { session_->roi_report.Open(); });
  on("mnuLogText", [this] { session_->log.Show(); });
  on("mnuHelp", [this] { ShowHelp(*session_); });
  on("mnuKeys", [this] { ShowKeys(this, *actions_); });
  on("mnuVersion", [this] { ShowVersion(*session_); });
  connect(splitter_, &GraphSplitter::LowerToggled, actions_->Of("mnuLowerWindow"),
          &QAction::setChecked);
}

void MainWindow::OpenBy(const std::function<void(Program&)>& open) {
  session_->Do([&](Program& program) {
    const bool whole = ShowsWholeRange(program);
    open(program);
    if (whole) ShowOpenSpectra(program);
  });
}

void MainWindow::Open() {
  OpenBy([](Program& program) { RunCommand(program, "LoadData"); });
  TellWhatWasNotRead(session_->dialogs.LastOpened());
}

void MainWindow::OpenFiles(const std::vector<std::string>& paths) {
  OpenBy([&](Program& program) { LoadData(program, paths); });
  TellWhatWasNotRead(paths);
}

void MainWindow::TellWhatWasNotRead(const std::vector<std::string>& paths) {
  const QString summary = ToQString(OpenSummary(session_->program.workspace, paths));
  if (summary.isEmpty()) return;
  const QString why = hint_label_->WholeText();
  Hint(why.isEmpty() ? summary : summary + ". " + why);
}

void MainWindow::Save() {
  const int refusals = session_->dialogs.Refusals();
  file_use_ = FileUse::Write;
  session_->Run("SaveData");
  file_use_ = FileUse::Read;
  const std::string& path = session_->dialogs.LastSaved();
  if (session_->dialogs.Refusals() != refusals) {
    if (hint_label_->WholeText().isEmpty()) Hint("Not saved");
    return;
  }
  if (path.empty()) return;
  const bool written = CanWrite(SplitPath(path).Ext);
  Hint((written ? "Saved " : "Not saved, there is no writer for ") +
       ToQString(std::filesystem::path(path).filename().string()));
}

void MainWindow::ShowWholeSpectrum() {
  session_->Do(ShowOpenSpectra);
}

void MainWindow::Hint(const QString& text) {
  hint_label_->SetWholeText(text);
}

// A message's hint stays.
void MainWindow::HintAtTheEnd(bool cancelled) {
  if (cancelled) Hint("Stopped; nothing has changed");
  if (hint_label_->WholeText() == kHowToStop) Hint("");
}

void MainWindow::RefreshScrollBar() {
  const ViewState& view = session_->program.view;
  const int span = static_cast<int>(view.SpanCh);
  const QSignalBlocker quiet(hsbStartX_);
  hsbStartX_->setRange(0, std::max(session_->program.workspace.MaxCh - span, 0));
  hsbStartX_->setPageStep(span);
  hsbStartX_->setSingleStep(std::max(span / 20, 1));
  hsbStartX_->setValue(static_cast<int>(view.StartCh));
}

void MainWindow::RefreshStatus() {
  const Program& program = session_->program;
  const GraphSlot& slot = program.workspace.Slots[program.view.GraphNo];
  const std::string name = program.workspace.Spectra[slot.DataNo].MsuName.Text();
  file_label_->SetWholeText(slot.State == kRowEmpty ? ""
                                                    : ToQString(name.empty() ? slot.Title : name));
  peak_label_->setText(ToQString(PeakSummary(program)));
}

void MainWindow::RefreshPointer() {
  const bool hourglass = session_->program.view.Pointer == kPointerHourglass;
  if (hourglass == pointer_is_set_) return;
  pointer_is_set_ = hourglass;
  if (hourglass) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
  const KeyRow* row = FindKey(*event);
  if (row == nullptr) {
    QMainWindow::keyPressEvent(event);
    return;
  }
  session_->Do(row->run);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!LocalFiles(*event->mimeData()).empty()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  OpenFiles(LocalFiles(*event->mimeData()));
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(ConfirmUnsaved(session_->program.List()) == 0);
}

void MainWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  if (lower_placed_) return;
  lower_placed_ = true;
  splitter_->OpenLower(false);
}

}  // namespace dorvane
