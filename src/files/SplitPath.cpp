#include "files/SplitPath.h"

#include <algorithm>

namespace dorvane {
namespace {

constexpr char kBackslash = '\\';

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::size_t DriveLength(std::string_view path, char separator) {
  if (path.size() >= 2 && IsLetter(path[0]) && path[1] == ':') return 2;
  if (separator != kBackslash || !path.starts_with("\\\\")) return 0;
  const auto server_end = path.find(kBackslash, 2);
  if (server_end == std::string_view::npos) return path.size();
  return std::min(path.find(kBackslash, server_end + 1), path.size());
}

}  // namespace

PathParts SplitPath(std::string_view path) {
  const char separator = path.find('/') != std::string_view::npos ? '/' : kBackslash;
  PathParts parts;
  const std::size_t drive_length = DriveLength(path, separator);
  parts.Drive = path.substr(0, drive_length);
  path.remove_prefix(drive_length);
  const std::size_t dir_length = path.rfind(separator) + 1;  // npos + 1 is 0
  parts.Dir = path.substr(0, dir_length);
  path.remove_prefix(dir_length);
  const auto point = path.rfind('.');
  parts.Name = path.substr(0, point);
  if (point != std::string_view::npos) parts.Ext = path.substr(point + 1);
  return parts;
}

std::vector<std::string> SplitFileList(std::string_view names) {
  std::vector<std::string> files;
  while (!names.empty()) {
    const std::size_t length = std::min(names.find_first_of(",; "), names.size());
    if (length > 0) files.emplace_back(names.substr(0, length));
    names.remove_prefix(std::min(length + 1, names.size()));
  }
  return files;
}

}  // namespace dorvane
