// Paths and lists of file names taken apart.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dorvane {

// Drive + Dir + Name, and "." + Ext where there is an extension, make the path again.
struct PathParts {
  std::string Drive;  // "C:" or "\\server\share"; empty for plain paths
  std::string Dir;    // with its closing separator
  std::string Name;   // without extension
  std::string Ext;    // behind the last "." of the file part, without it

  friend bool operator==(const PathParts&, const PathParts&) = default;
};

// The separator is "/" where the path holds one, else the backslash. A drive is a letter with ":"
// at the head of the path, or server and share behind two backslashes; a ":" elsewhere is a
// character like any other.
PathParts SplitPath(std::string_view path);

// The names of a text cut at ",", ";" or a blank, in their order, empty ones left out.
std::vector<std::string> SplitFileList(std::string_view names);

}  // namespace dorvane
