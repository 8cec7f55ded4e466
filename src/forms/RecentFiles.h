// The files that were read or saved last, kept in the desktop's settings from one run to the next.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/Event.h"
#include "support/SettingsStore.h"

namespace dorvane {

// The name under which the paths are stored.
constexpr std::string_view kRecentFiles = "RecentFiles";
constexpr int kMostRecentFiles = 10;

// Absolute paths without "." and "..", newest first, each once, ten at most. Stored texts that do
// not fit this are left out. Several programs share one list: each change starts from what is
// stored by then.
class RecentFiles {
 public:
  // `store` outlives the list.
  explicit RecentFiles(SettingsStore& store);

  const std::vector<std::string>& Paths() const { return paths_; }
  // Puts a path at the head. A relative one counts from the current directory; an empty one is
  // ignored.
  void Add(std::string_view path);
  // A path that is not in the list changes nothing.
  void Remove(std::string_view path);

  Event<> Changed;

 private:
  void Keep(std::vector<std::string> paths);

  SettingsStore& store_;
  std::vector<std::string> paths_;
};

}  // namespace dorvane
