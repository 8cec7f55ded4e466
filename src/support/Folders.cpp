#include "support/Folders.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "support/Fault.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

namespace fs = std::filesystem;

void ThrowIf(const std::error_code& error) {
  if (!error) return;
  if (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory) {
    throw Fault(FaultCode::FileNotFound);
  }
  if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
      error == std::errc::read_only_file_system) {
    throw Fault(FaultCode::PermissionDenied);
  }
  throw Fault(FaultCode::FileFailed);
}

fs::path Whole(const std::string& path) {
  std::error_code error;
  const fs::path whole = fs::absolute(path.empty() ? "." : path, error);
  ThrowIf(error);
  return (whole / "").lexically_normal();
}

void SortByName(std::vector<std::string>& names) {
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    const std::string low_a = LowerAscii(a), low_b = LowerAscii(b);
    return low_a != low_b ? low_a < low_b : a < b;
  });
}

// Without its first character, which in UTF-8 can have several bytes.
std::string_view BehindFirst(std::string_view text) {
  std::size_t length = 1;
  while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) {
    ++length;
  }
  return text.substr(length);
}

// Both in lower case.
bool MatchesPattern(std::string_view name, std::string_view pattern) {
  if (pattern == "*.*") return true;
  // Where the name goes on when what stands behind the last "*" has failed.
  std::string_view retry_name, retry_pattern;
  bool retry = false;
  while (!name.empty()) {
    if (!pattern.empty() && pattern.front() == '*') {
      pattern.remove_prefix(1);
      retry = true;
      retry_name = name;
      retry_pattern = pattern;
    } else if (!pattern.empty() && pattern.front() == '?') {
      pattern.remove_prefix(1);
      name = BehindFirst(name);
    } else if (!pattern.empty() && pattern.front() == name.front()) {
      pattern.remove_prefix(1);
      name.remove_prefix(1);
    } else if (retry) {
      retry_name = BehindFirst(retry_name);
      name = retry_name;
      pattern = retry_pattern;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*') == std::string_view::npos;
}

}  // namespace

FolderContent SystemFolders::List(const std::string& path) {
  const fs::path folder = Whole(path);
  FolderContent content{folder.string(), {}, {}};
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    std::string name = entry->path().filename().string();
    if (name.starts_with('.')) continue;
    std::error_code unseen;  // what can't be looked at is left out
    const fs::file_status status = entry->status(unseen);
    if (fs::is_directory(status))
      content.folders.push_back(std::move(name));
    else if (fs::is_regular_file(status))
      content.files.push_back(std::move(name));
  }
  ThrowIf(error);
  SortByName(content.folders);
  SortByName(content.files);
  return content;
}

void SystemFolders::Make(const std::string& path) {
  std::error_code error;
  const bool made = fs::create_directory(path, error);
  ThrowIf(error);
  if (!made) throw Fault(FaultCode::FileFailed);
}

bool MatchesMask(std::string_view name, std::string_view mask) {
  if (Trim(mask).empty()) return true;
  const std::string low_name = LowerAscii(name), low_mask = LowerAscii(mask);
  std::string_view rest = low_mask;
  for (;;) {
    const auto end = rest.find(';');
    const std::string_view pattern = Trim(rest.substr(0, end));
    if (MatchesPattern(low_name, pattern)) return true;
    if (end == std::string_view::npos) return false;
    rest.remove_prefix(end + 1);
  }
}

}  // namespace dorvane
