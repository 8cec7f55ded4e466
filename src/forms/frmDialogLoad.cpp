#include "forms/frmDialogLoad.h"

#include <algorithm>

#include "support/Fault.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr const char* kNumbered = "000";
constexpr const char* kNumberedMask = "*.0??;*.1??;*.2??";
constexpr const char* kParent = "..";
constexpr const char* kInfoExtension = ".atr";
constexpr std::string_view kSeparators = "/\\";

// Where the file part of a path begins.
std::size_t FilePart(std::string_view path) {
  const auto separator = path.find_last_of(kSeparators);
  return separator == std::string_view::npos ? 0 : separator + 1;
}

std::string WithSeparator(const std::string& folder) {
  if (folder.empty() || FilePart(folder) == folder.size()) return folder;
  return folder + (folder.find('/') == std::string::npos ? "\\" : "/");
}

// The folder around a path, empty where it names none.
std::string Around(std::string path) {
  while (!path.empty() && FilePart(path) == path.size()) path.pop_back();
  return path.substr(0, FilePart(path));
}

bool IsWhole(std::string_view name) {
  return kSeparators.find(name.front()) != std::string_view::npos ||
         (name.size() >= 2 && name[1] == ':');
}

bool IsRoot(const std::string& folder) {
  return Around(folder).empty();
}

int IndexOf(const std::vector<std::string>& items, std::string_view text) {
  const auto found = std::find(items.begin(), items.end(), text);
  return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

// Cut at "," and ";", without blanks around.
std::vector<std::string> Split(std::string_view text) {
  std::vector<std::string> names;
  while (!text.empty()) {
    const auto end = std::min(text.find_first_of(",;"), text.size());
    const std::string_view name = Trim(text.substr(0, end));
    if (!name.empty()) names.emplace_back(name);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return names;
}

std::string Joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ";") + name;
  return text;
}

}  // namespace

frmDialogLoad::frmDialogLoad(Program& program, FormHost& host, Folders& folders)
    : Form(host, "frmDialogLoad", "Open File"),
      new_path(host),
      program_(program),
      folders_(folders) {
  new_path.SetCaption(cmdMkDir.Caption());
  new_path.CapName(cmdMkDir.Caption());
  drvDrive.SetItems(folders_.Drives());
  drvDrive.SetVisible(!drvDrive.Items().empty());
  cmdDetails.SetEnabled(false);
  drvDrive.Click.Connect([this] { drvDrive_Click(); });
  dirDirectory.DblClick.Connect([this] { dirDirectory_DblClick(); });
  filFiles.Click.Connect([this] { filFiles_Click(); });
  filFiles.DblClick.Connect([this] { cmdSet_Click(); });
  cmbExtName.Click.Connect([this] { cmbExtName_Click(); });
  txtSelFile.Change.Connect([this] { txtSelFile_Change(); });
  cmdMkDir.Click.Connect([this] { cmdMkDir_Click(); });
  cmdDetails.Click.Connect([this] { cmdDetails_Click(); });
  cmdSet.Click.Connect([this] { cmdSet_Click(); });
  cmdCancel.Click.Connect([this] { cmdCancel_Click(); });
}

void frmDialogLoad::Directory(const std::string& path) {
  std::string at = path;
  while (!Enter(at)) {
    if (at.empty()) return;
    at = Around(at);
  }
}

void frmDialogLoad::drive(const std::string& name) {
  const int index = IndexOf(drvDrive.Items(), name);
  if (index >= 0) drvDrive.SetIndex(index);
}

void frmDialogLoad::mask(std::string mask) {
  mask_ = std::move(mask);
  cmbExtName.SetIndex(IndexOf(cmbExtName.Items(), mask_));
  ShowFiles();
}

void frmDialogLoad::DefExt(const std::string& extension) {
  extension_ = extension.empty() || extension.front() == '.' ? extension : "." + extension;
}

void frmDialogLoad::SetExt(const std::vector<std::string>& extensions) {
  std::vector<std::string> masks;
  for (const std::string& extension : extensions) {
    masks.push_back(extension == kNumbered ? kNumberedMask : "*." + extension);
  }
  cmbExtName.SetItems(std::move(masks));
  cmbExtName.SetIndex(cmbExtName.Items().empty() ? -1 : 0);
  cmbExtName_Click();
}

void frmDialogLoad::MaxGrp(int count) {
  std::vector<std::string> lines;
  for (int number = 1; number <= count; ++number)
    lines.push_back(std::to_string(number) + " Graph");
  cboGSel.SetItems(std::move(lines));
}

bool frmDialogLoad::Open() {
  file_name_.clear();
  paths_.clear();
  select_file_no_ = 0;
  Directory(directory_);
  ShowModal();
  return !paths_.empty();
}

// Shows a folder; false, and nothing changes, where it can't be read.
bool frmDialogLoad::Enter(const std::string& path) {
  try {
    ShowFolder(folders_.List(path));
  } catch (const Fault&) {
    return false;
  }
  return true;
}

void frmDialogLoad::ShowFolder(FolderContent content) {
  content_ = std::move(content);
  directory_ = WithSeparator(content_.path);
  lblDirectory.SetCaption(directory_);
  std::vector<std::string> folders = content_.folders;
  if (!IsRoot(directory_)) folders.insert(folders.begin(), kParent);
  dirDirectory.SetIndex(-1);
  dirDirectory.SetItems(std::move(folders));
  ShowDrive();
  ShowFiles();
}

void frmDialogLoad::ShowFiles() {
  std::vector<std::string> files;
  for (const std::string& name : content_.files) {
    if (MatchesMask(name, mask_)) files.push_back(name);
  }
  filFiles.SetSelected({});
  filFiles.SetItems(std::move(files));
}

void frmDialogLoad::ShowDrive() {
  const auto& drives = drvDrive.Items();
  const auto found = std::find_if(drives.begin(), drives.end(), [this](const std::string& name) {
    return directory_.starts_with(name);
  });
  drvDrive.SetIndex(found == drives.end() ? -1 : static_cast<int>(found - drives.begin()));
}

void frmDialogLoad::drvDrive_Click() {
  if (drvDrive.Index() < 0 || directory_.starts_with(drvDrive.Text())) return;
  if (Enter(WithSeparator(drvDrive.Text()))) return;
  program_.ports.dialogs.Message("Can not use this drive!");
  ShowDrive();
}

void frmDialogLoad::dirDirectory_DblClick() {
  if (dirDirectory.Index() < 0) return;
  try {
    ShowFolder(folders_.List(directory_ + dirDirectory.Text()));
  } catch (const Fault& fault) {
    program_.ports.dialogs.Message(fault.what());
  }
}

void frmDialogLoad::filFiles_Click() {
  std::vector<std::string> names;
  for (const int index : filFiles.Selected()) {
    names.push_back(filFiles.Items()[static_cast<std::size_t>(index)]);
  }
  select_file_no_ = static_cast<int>(names.size());
  // A text that the user has typed stays until a file is selected.
  if (names.empty() && txtSelFile.Text() != selection_) return;
  selection_ = Joined(names);
  selected_ = std::move(names);
  txtSelFile.SetText(selection_);
}

void frmDialogLoad::cmbExtName_Click() {
  if (cmbExtName.Index() < 0) return;
  mask_ = cmbExtName.Text();
  ShowFiles();
}

void frmDialogLoad::txtSelFile_Change() {
  const std::string text = LowerAscii(Trim(txtSelFile.Text()));
  cmdDetails.SetEnabled(text.ends_with(kInfoExtension));
}

void frmDialogLoad::cmdMkDir_Click() {
  new_path.SetStrValue("");
  new_path.ShowModal();
  const std::string name(Trim(new_path.StrValue()));
  if (name.empty()) return;
  try {
    folders_.Make(IsWhole(name) ? name : directory_ + name);
  } catch (const Fault& fault) {
    program_.ports.dialogs.Message(fault.what());
    return;
  }
  Enter(directory_);
  dirDirectory.SetIndex(IndexOf(dirDirectory.Items(), name));
}

void frmDialogLoad::cmdDetails_Click() {
  const std::vector<std::string> names = Names();
  if (names.empty()) return;
  try {
    const auto info = program_.ports.files.Info(PathOf(names.back()));
    if (!info) throw Fault(FaultCode::FileNotFound);
    program_.ports.dialogs.Message(names.back() + ": " + std::to_string(info->size) + " bytes");
  } catch (const Fault& fault) {
    program_.ports.dialogs.Message(fault.what());
  }
}

// The names that the box stands for. Those selected in the list are whole, whatever they hold.
std::vector<std::string> frmDialogLoad::Names() const {
  const std::string& text = txtSelFile.Text();
  if (IsSelection()) return selected_;
  if (filFiles.Several()) return Split(text);
  const std::string_view name = Trim(text);
  return name.empty() ? std::vector<std::string>{} : std::vector{std::string(name)};
}

std::string frmDialogLoad::PathOf(const std::string& name) const {
  return IsWhole(name) ? name : directory_ + name;
}

void frmDialogLoad::cmdSet_Click() {
  std::vector<std::string> names = Names();
  if (names.empty()) {
    program_.ports.dialogs.Message("Please input file name");
    return;
  }
  if (names.size() == 1 && !IsSelection() && Enter(PathOf(names.front()))) {
    txtSelFile.SetText("");
    return;
  }
  paths_.clear();
  for (std::string& name : names) {
    if (name.find('.', FilePart(name)) == std::string::npos) name += extension_;
    paths_.push_back(PathOf(name));
  }
  names.front() = paths_.front();
  file_name_ = Joined(names);
  select_file_no_ = static_cast<int>(paths_.size());
  Hide();
}

void frmDialogLoad::cmdCancel_Click() {
  file_name_.clear();
  paths_.clear();
  select_file_no_ = 0;
  Hide();
}

}  // namespace dorvane
