// The port through which the program's own file dialog looks into folders and makes new ones.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dorvane {

// What a folder holds, each list by name without regard to case. Names that begin with a point are
// hidden ones and left out, as is what is neither folder nor regular file; links count as what they
// lead to.
struct FolderContent {
  std::string path;                  // absolute, with its closing separator
  std::vector<std::string> folders;  // names alone
  std::vector<std::string> files;
};

// Calls throw a Fault (FileNotFound, PermissionDenied, FileFailed) when they fail. Paths are UTF-8.
class Folders {
 public:
  virtual ~Folders() = default;
  // As "C:"; none on a system without drives.
  virtual std::vector<std::string> Drives() = 0;
  // An empty path is the current folder.
  virtual FolderContent List(const std::string& path) = 0;
  // The folder around it has to exist. Fails where something of that name exists.
  virtual void Make(const std::string& path) = 0;
};

// The folders of the operating system.
class SystemFolders : public Folders {
 public:
  std::vector<std::string> Drives() override { return {}; }
  FolderContent List(const std::string& path) override;
  void Make(const std::string& path) override;
};

// Whether a name is one of a mask's patterns, which stand with ";" between them: "?" is any one
// character, "*" any number of them, letters a to z in either case. "*.*" is every name, also one
// without a point, and so is an empty mask.
bool MatchesMask(std::string_view name, std::string_view mask);

}  // namespace dorvane
