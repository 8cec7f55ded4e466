#include "forms/frmResultDirectory.h"

#include <filesystem>
#include <optional>

#include "program/LatticeLogFile.h"
#include "support/Fault.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

std::string WithSlash(const std::string& directory) {
  return directory.ends_with('/') ? directory : directory + "/";
}

// A path that ends in a slash is found where it is a directory alone.
bool IsDirectory(FileLayer& files, const std::string& path) {
  try {
    return files.Info(WithSlash(path)).has_value();
  } catch (const Fault&) {
    return false;
  }
}

}  // namespace

frmResultDirectory::frmResultDirectory(const Program& program, FormHost& host,
                                       SettingsStore& settings)
    : Form(host, "frmResultDirectory", "Result Directory"), program_(program), settings_(settings) {
  cmdBrowse.Click.Connect([this] { cmdBrowse_Click(); });
  cmdOk.Click.Connect([this] { cmdOk_Click(); });
  cmdCan.Click.Connect([this] { Hide(); });
}

void frmResultDirectory::Open() {
  txtDirectory.SetText(ResultDirectory(settings_, program_.directory));
  ShowModal();
}

// Whole, as the program may be started elsewhere the next time.
std::string frmResultDirectory::Chosen() const {
  const std::string_view text = Trim(txtDirectory.Text());
  if (text.empty()) return program_.directory;
  return WithSlash(std::filesystem::absolute(text).string());
}

void frmResultDirectory::cmdBrowse_Click() {
  if (const auto path = program_.ports.dialogs.ChooseDirectory(Chosen())) {
    txtDirectory.SetText(*path);
  }
}

void frmResultDirectory::cmdOk_Click() {
  const std::string directory = Chosen();
  if (!IsDirectory(program_.ports.files, directory)) {
    program_.ports.dialogs.Message("No such directory: " + directory);
    return;
  }
  SetResultDirectory(settings_, directory == program_.directory ? "" : directory);
  Hide();
}

}  // namespace dorvane
