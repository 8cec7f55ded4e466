// A folder of its own for each test, removed with all that is in it.
#pragma once

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "support/FileLayer.h"

namespace dorvane {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "dorvane_XXXXXX").string();
    path_ = mkdtemp(pattern.data());
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::string Path(const std::string& name) const { return path_ + "/" + name; }
  void Put(const std::string& name, std::string_view bytes) const {
    std::ofstream(Path(name), std::ios::binary) << bytes;
  }
  std::string Get(const std::string& name) const {
    SystemFileLayer files;
    return std::string(AsText(ReadFile(files, Path(name))));
  }
  bool Has(const std::string& name) const { return std::filesystem::exists(Path(name)); }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

 private:
  std::string path_;
};

}  // namespace dorvane
