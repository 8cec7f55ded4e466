#include "forms/RecentFiles.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace dorvane {
namespace {

// Empty for a path that has no absolute one.
std::string Absolute(std::string_view path) {
  const std::u8string utf8(path.begin(), path.end());
  std::error_code failure;
  const auto absolute = std::filesystem::absolute(std::filesystem::path(utf8), failure);
  if (failure) return "";
  const std::u8string normal = absolute.lexically_normal().u8string();
  return {normal.begin(), normal.end()};
}

std::vector<std::string> Cleaned(const std::vector<std::string>& texts) {
  std::vector<std::string> paths;
  for (const std::string& text : texts) {
    const std::string path = Absolute(text);
    if (path.empty() || std::find(paths.begin(), paths.end(), path) != paths.end()) continue;
    paths.push_back(path);
    if (paths.size() == kMostRecentFiles) break;
  }
  return paths;
}

}  // namespace

RecentFiles::RecentFiles(SettingsStore& store)
    : store_(store), paths_(Cleaned(store.Texts(kRecentFiles))) {}

void RecentFiles::Keep(std::vector<std::string> paths) {
  if (paths == paths_ && paths == store_.Texts(kRecentFiles)) return;
  paths_ = std::move(paths);
  store_.SetTexts(kRecentFiles, paths_);
  Changed.Fire();
}

void RecentFiles::Add(std::string_view path) {
  std::vector<std::string> texts = store_.Texts(kRecentFiles);
  texts.insert(texts.begin(), std::string(path));
  Keep(Cleaned(texts));
}

void RecentFiles::Remove(std::string_view path) {
  std::vector<std::string> paths = Cleaned(store_.Texts(kRecentFiles));
  std::erase(paths, Absolute(path));
  Keep(std::move(paths));
}

}  // namespace dorvane
