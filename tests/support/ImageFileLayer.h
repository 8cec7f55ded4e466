// A file layer in memory: one image is the content of every file.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "support/FileLayer.h"

namespace dorvane {

// Reads of any path give the image, which must outlive it; all else is the system's.
class ImageFileLayer : public SystemFileLayer {
 public:
  explicit ImageFileLayer(std::string_view image) : image_(AsBytes(image)) {}

  std::optional<FileInfo> Info(const std::string& path) override {
    FileInfo info;
    info.real_path = path;
    info.size = image_.size();
    return info;
  }
  int OpenForReading(const std::string&) override {
    at_ = 0;
    return 1;
  }
  std::size_t Read(int, std::span<std::byte> out) override {
    const auto part = image_.subspan(at_, std::min(out.size(), image_.size() - at_));
    std::copy(part.begin(), part.end(), out.begin());
    at_ += part.size();
    return part.size();
  }
  void Close(int) override {}

 private:
  std::span<const std::byte> image_;
  std::size_t at_ = 0;
};

}  // namespace dorvane
