// The text of a source tree and the rules of the house that can be read from it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace house {

using Lines = std::vector<std::string>;
// Each file by its path below the root, as #include lines name it ("support/Fault.h").
using SourceTree = std::map<std::string, Lines>;
// One line for each place that breaks a rule.
using Findings = std::vector<std::string>;

// All .h and .cpp files below `root`.
inline SourceTree ReadSourceTree(const std::filesystem::path& root) {
  SourceTree tree;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
    const auto& path = entry.path();
    if (path.extension() != ".h" && path.extension() != ".cpp") continue;
    Lines& lines = tree[path.lexically_relative(root).generic_string()];
    std::ifstream stream(path);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
  }
  return tree;
}

inline bool IsHeader(std::string_view path) {
  return path.ends_with(".h");
}

inline std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "" : path.substr(0, slash);
}

// The files that the text includes by name in quotation marks.
inline std::vector<std::string> IncludesOf(const Lines& lines) {
  static constexpr std::string_view begin = "#include \"";
  std::vector<std::string> names;
  for (const auto& line : lines) {
    if (!line.starts_with(begin)) continue;
    names.push_back(line.substr(begin.size(), line.rfind('"') - begin.size()));
  }
  return names;
}

// The floor on which a folder stands, lowest 0; nothing for a folder that has no place in the
// house.
inline std::optional<int> FloorOf(const std::string& folder) {
  static const std::map<std::string, int> floors = {
      {"support", 0},    {"workspace", 1},  {"processing", 2}, {"files", 2},   {"fitting", 2},
      {"lattice", 2},    {"display", 2},    {"elements", 2},   {"program", 3}, {"forms", 4},
      {"qt/surface", 5}, {"qt/binding", 6}, {"qt/views", 7},   {"qt", 8},      {"batch", 8}};
  const auto found = floors.find(folder);
  return found == floors.end() ? std::nullopt : std::optional(found->second);
}

// Includes of a higher floor, and of one outside by the other.
inline Findings UpwardIncludes(const SourceTree& tree) {
  static constexpr int outsides = 8;
  Findings findings;
  for (const auto& [path, lines] : tree) {
    const auto floor = FloorOf(FolderOf(path));
    if (!floor) findings.push_back(path + " stands on no floor");
    for (const auto& name : IncludesOf(lines)) {
      const auto included = FloorOf(FolderOf(name));
      if (!included) {
        findings.push_back(path + " includes " + name + ", which stands on no floor");
      } else if (floor && (*included > *floor ||
                           (*included == outsides && FolderOf(name) != FolderOf(path)))) {
        findings.push_back(path + " includes " + name);
      }
    }
  }
  return findings;
}

using Graph = std::map<std::string, std::set<std::string>>;

inline Graph FileGraph(const SourceTree& tree) {
  Graph graph;
  for (const auto& [path, lines] : tree) {
    for (const auto& name : IncludesOf(lines)) graph[path].insert(name);
  }
  return graph;
}

// Which folder includes which other one.
inline Graph FolderGraph(const SourceTree& tree) {
  Graph graph;
  for (const auto& [path, names] : FileGraph(tree)) {
    for (const auto& name : names) {
      if (FolderOf(name) != FolderOf(path)) graph[FolderOf(path)].insert(FolderOf(name));
    }
  }
  return graph;
}

// Walks on from the last node of `way`; each way that comes back to one of its own nodes is a
// finding.
inline void WalkOn(const Graph& graph, std::vector<std::string>& way, std::set<std::string>& done,
                   Findings& findings) {
  const std::string node = way.back();
  if (const auto next = graph.find(node); next != graph.end()) {
    for (const auto& name : next->second) {
      if (const auto met = std::find(way.begin(), way.end(), name); met != way.end()) {
        std::string circle;
        for (auto step = met; step != way.end(); ++step) circle += *step + " -> ";
        findings.push_back(circle + name);
      } else if (!done.contains(name)) {
        way.push_back(name);
        WalkOn(graph, way, done, findings);
        way.pop_back();
      }
    }
  }
  done.insert(node);
}

inline Findings Circles(const Graph& graph) {
  Findings findings;
  std::set<std::string> done;
  for (const auto& [node, next] : graph) {
    if (done.contains(node)) continue;
    std::vector<std::string> way = {node};
    WalkOn(graph, way, done, findings);
  }
  return findings;
}

inline Findings ToolkitOutsideQt(const SourceTree& tree) {
  Findings findings;
  for (const auto& [path, lines] : tree) {
    if (path.starts_with("qt/")) continue;
    for (const auto& line : lines) {
      if (line.starts_with("#include <Q")) findings.push_back(path + ": " + line);
    }
  }
  return findings;
}

// Headers whose first line doesn't begin a comment that ends as a sentence does.
inline Findings HeadersWithoutSentence(const SourceTree& tree) {
  Findings findings;
  for (const auto& [path, lines] : tree) {
    if (!IsHeader(path)) continue;
    std::string_view last;
    for (const auto& line : lines) {
      if (!line.starts_with("// ")) break;
      last = line;
    }
    if (!last.ends_with('.')) findings.push_back(path);
  }
  return findings;
}

inline Findings LongFiles(const SourceTree& tree, std::size_t header_limit,
                          std::size_t source_limit) {
  Findings findings;
  for (const auto& [path, lines] : tree) {
    if (lines.size() > (IsHeader(path) ? header_limit : source_limit)) {
      findings.push_back(path + ": " + std::to_string(lines.size()) + " lines");
    }
  }
  return findings;
}

// Places where behaviour is said to be kept, but not why: the line must go on behind the mark.
inline Findings KeptWithoutReason(const SourceTree& tree) {
  static constexpr std::string_view mark = "KEPT:";
  Findings findings;
  for (const auto& [path, lines] : tree) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const std::size_t at = lines[i].find(mark);
      if (at == std::string::npos) continue;
      if (lines[i].find_first_not_of(" .", at + mark.size()) == std::string::npos) {
        findings.push_back(path + ":" + std::to_string(i + 1));
      }
    }
  }
  return findings;
}

}  // namespace house
