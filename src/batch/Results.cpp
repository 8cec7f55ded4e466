#include "batch/Results.h"

#include <algorithm>
#include <filesystem>

#include "batch/BatchError.h"
#include "files/SplitPath.h"

namespace dorvane {

std::string ResultName(const std::string& file) {
  const PathParts parts = SplitPath(file);
  const bool in_series =
      !parts.Ext.empty() &&
      std::all_of(parts.Ext.begin(), parts.Ext.end(), [](char c) { return c >= '0' && c <= '9'; });
  return in_series ? parts.Name + "_" + parts.Ext : parts.Name;
}

std::string ResultPath(const std::string& folder, const std::string& file,
                       const std::string& ending) {
  return (std::filesystem::path(folder) / ResultName(file)).lexically_normal().string() + ending;
}

void MakeFolder(const std::string& folder) {
  std::error_code failed;
  std::filesystem::create_directories(folder, failed);
  if (failed || !std::filesystem::is_directory(folder)) {
    throw UsageError("--out " + folder + ": no such folder, and it can't be made");
  }
}

}  // namespace dorvane
