#include "batch/BatchPorts.h"

#include <unistd.h>

#include <cstdio>

namespace dorvane {
namespace {

constexpr std::size_t kBarWidth = 30;

}  // namespace

ProgressBar::ProgressBar(std::size_t total, bool wanted)
    : total_(total), on_(wanted && total > 1 && isatty(STDERR_FILENO) == 1) {}

void ProgressBar::Show(std::size_t done) {
  if (!on_) return;
  const std::size_t filled = kBarWidth * done / total_;
  const std::string bar = std::string(filled, '#') + std::string(kBarWidth - filled, '.');
  std::fprintf(stderr, "\r[%s] %zu of %zu files", bar.c_str(), done, total_);
  std::fflush(stderr);
  shown_ = true;
}

void ProgressBar::Clear() {
  if (!shown_) return;
  std::fputs("\r\033[K", stderr);
  std::fflush(stderr);
  shown_ = false;
}

}  // namespace dorvane
