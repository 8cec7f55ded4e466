// A file layer that fails, or that dies with its program, at its n-th call.
#pragma once

#include "support/Fault.h"
#include "support/FileLayer.h"

namespace dorvane {

// Thrown where the program is killed; not a Fault, so that no operation can catch it.
struct Killed {};

// Passes its calls on, up to the n-th. That one throws Fault(FileFailed) alone (FailingOnce) or
// with all that follow (FailingOn), or it throws Killed (Killing), after which nothing reaches the
// disk. A Write that is hit puts half of its bytes first.
class FailingFileLayer : public FileLayer {
 public:
  enum class Mode { FailingOnce, FailingOn, Killing };

  // Calls are numbered from 1; 0 lets all pass.
  FailingFileLayer(FileLayer& under, int hit_at, Mode mode = Mode::FailingOnce)
      : under_(under), hit_at_(hit_at), mode_(mode) {}

  int Calls() const { return calls_; }
  bool Hit() const { return hit_at_ > 0 && calls_ >= hit_at_; }
  // Whether a file had been created before the hit.
  bool Created() const { return created_; }

  std::optional<FileInfo> Info(const std::string& path) override {
    Count();
    return under_.Info(path);
  }
  std::string LinkTarget(const std::string& path) override {
    Count();
    return under_.LinkTarget(path);
  }
  int OpenForReading(const std::string& path) override {
    Count();
    return under_.OpenForReading(path);
  }
  int Create(const std::string& path, unsigned permissions) override {
    Count();
    created_ = true;
    return under_.Create(path, permissions);
  }
  std::size_t Read(int file, std::span<std::byte> out) override {
    Count();
    return under_.Read(file, out);
  }
  void Write(int file, std::span<const std::byte> bytes) override {
    if (calls_ + 1 == hit_at_) under_.Write(file, bytes.first(bytes.size() / 2));
    Count();
    under_.Write(file, bytes);
  }
  void Flush(int file) override {
    Count();
    under_.Flush(file);
  }
  // A file that fails to close, or whose program is killed, is closed all the same.
  void Close(int file) override {
    under_.Close(file);
    if (!dead_) Count();
  }
  void Rename(const std::string& from, const std::string& to) override {
    Count();
    under_.Rename(from, to);
  }
  void Remove(const std::string& path) override {
    if (dead_) return;
    Count();
    under_.Remove(path);
  }

 private:
  void Count() {
    if (dead_) throw Killed();
    ++calls_;
    const bool hit =
        hit_at_ > 0 && (mode_ == Mode::FailingOn ? calls_ >= hit_at_ : calls_ == hit_at_);
    if (!hit) return;
    if (mode_ != Mode::Killing) throw Fault(FaultCode::FileFailed);
    dead_ = true;
    throw Killed();
  }

  FileLayer& under_;
  int hit_at_;
  Mode mode_;
  int calls_ = 0;
  bool created_ = false;
  bool dead_ = false;
};

}  // namespace dorvane
