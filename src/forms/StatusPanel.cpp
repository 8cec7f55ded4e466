#include "forms/StatusPanel.h"

#include <filesystem>

#include "files/FormatTable.h"
#include "files/SplitPath.h"
#include "forms/StatusHints.h"
#include "program/Commands.h"
#include "program/OpenSave.h"

namespace dorvane {
namespace {

constexpr const char* kHowToStop = "Escape stops the operation";

std::string FileName(std::string_view path) {
  return std::filesystem::path(path).filename().string();
}

}  // namespace

StatusPanel::StatusPanel(PanelWork& work)
    : work_(work),
      lblFile(work.controls, "lblFile"),
      lblHint(work.controls, "lblHint"),
      lblPeaks(work.controls, "lblPeaks") {}

void StatusPanel::Begin() {
  message_.clear();
  unread_.clear();
  tried_ = 0;
  lblHint.SetCaption("");
}

void StatusPanel::BeginLong() {
  lblHint.SetCaption(kHowToStop);
}

// A message's hint stays.
void StatusPanel::End(bool stopped) {
  if (stopped) lblHint.SetCaption("Stopped; nothing has changed");
  if (lblHint.Caption() == kHowToStop) lblHint.SetCaption("");
  std::string summary = NotReadText(unread_);
  if (tried_ == kMostFilesAtOnce && work_.program.last_selection.size() > kMostFilesAtOnce) {
    summary += (summary.empty() ? "" : ". ") + std::string("Only the first ten files were read");
  }
  if (summary.empty()) return;
  const std::string why = lblHint.Caption();
  lblHint.SetCaption(why.empty() ? summary : summary + ". " + why);
}

void StatusPanel::FileNotRead(std::string_view path) {
  ++tried_;
  unread_.emplace_back(path);
}

void StatusPanel::Tell(std::string_view message) {
  message_ = message;
  if (message == kReadMeText) return lblHint.SetCaption(handbook_);
  lblHint.SetCaption(HintFor(message, work_.program.workspace));
}

void StatusPanel::FileWritten(std::string_view path) {
  lblHint.SetCaption("Saved " + FileName(path));
}

void StatusPanel::FileNotWritten(std::string_view path) {
  const std::string name = FileName(path);
  if (!CanWrite(SplitPath(std::string(path)).Ext)) {
    lblHint.SetCaption("Not saved, there is no writer for " + name);
  } else {
    const std::string why = HintFor(message_, work_.program.workspace, FileUse::Write);
    lblHint.SetCaption("Not saved: " + name + (why.empty() ? "" : ". " + why));
  }
}

void StatusPanel::Refresh() {
  const Workspace& workspace = work_.program.workspace;
  const GraphSlot& slot = workspace.Slots[work_.program.view.GraphNo];
  const std::string name = workspace.Spectra[slot.DataNo].MsuName.Text();
  const std::string title = name.empty() ? slot.Title : name;
  lblFile.SetCaption(slot.State == kRowEmpty ? "" : title);
  lblPeaks.SetCaption(PeakSummary(work_.program));
}

}  // namespace dorvane
