// The file system in awkward moods.
#pragma once

#include <algorithm>
#include <string>

#include "support/Fault.h"
#include "support/FileLayer.h"

namespace dorvane {

// No file may be written; what the system says of a super user's files is another thing.
class ReadOnlyFiles : public SystemFileLayer {
 public:
  std::optional<FileInfo> Info(const std::string& path) override {
    auto info = SystemFileLayer::Info(path);
    if (info) info->writable = false;
    return info;
  }
};

// No file may be made.
class ReadOnlyFolder : public SystemFileLayer {
 public:
  int Create(const std::string&, unsigned) override { throw Fault(FaultCode::PermissionDenied); }
};

// Has room for so many bytes.
class FullDisk : public SystemFileLayer {
 public:
  explicit FullDisk(std::size_t room) : room_(room) {}
  void Write(int file, std::span<const std::byte> bytes) override {
    const std::size_t fits = std::min(room_, bytes.size());
    room_ -= fits;
    SystemFileLayer::Write(file, bytes.first(fits));
    if (fits < bytes.size()) throw Fault(FaultCode::FileFailed);
  }

 private:
  std::size_t room_;
};

// Counts what is read.
class CountingFiles : public SystemFileLayer {
 public:
  std::size_t bytes_read = 0;
  std::size_t Read(int file, std::span<std::byte> out) override {
    const std::size_t got = SystemFileLayer::Read(file, out);
    bytes_read += got;
    return got;
  }
};

// Every file loses its end between the look at it and the reading: `kept` bytes are left.
class ShrinkingFiles : public SystemFileLayer {
 public:
  explicit ShrinkingFiles(std::size_t kept) : left_(kept) {}
  std::size_t Read(int file, std::span<std::byte> out) override {
    const std::size_t got = SystemFileLayer::Read(file, out.first(std::min(left_, out.size())));
    left_ -= got;
    return got;
  }

 private:
  std::size_t left_;
};

// Tells of more than there is.
class BoastingFiles : public SystemFileLayer {
 public:
  std::optional<FileInfo> Info(const std::string& path) override {
    auto info = SystemFileLayer::Info(path);
    if (info) info->size += 100'000;
    return info;
  }
};

}  // namespace dorvane
