// The thin file layer: every byte that the program reads or writes on disk passes these few calls,
// so that tests can make any of them fail; and the two whole-file operations that all readers and
// writers use.
#pragma once

#include <optional>
#include <string>

#include "support/Bytes.h"

namespace dorvane {

// What a caller needs to know of an existing file.
struct FileInfo {
  std::string real_path;  // links followed
  unsigned permissions = 0;
  std::size_t size = 0;
  bool regular = true;
  bool writable = true;
};

// Every call throws a Fault (FileNotFound, PermissionDenied, FileFailed) when it fails. Paths are
// UTF-8.
class FileLayer {
 public:
  virtual ~FileLayer() = default;
  virtual std::optional<FileInfo> Info(const std::string& path) = 0;
  // Where a link that leads to no file points, through further links; `path` where it is no link.
  virtual std::string LinkTarget(const std::string& path) = 0;
  virtual int OpenForReading(const std::string& path) = 0;
  // Creates the file, or empties an existing one. Permissions 0 stand for the system's default.
  virtual int Create(const std::string& path, unsigned permissions) = 0;
  // Number of bytes read, 0 at the end of the file.
  virtual std::size_t Read(int file, std::span<std::byte> out) = 0;
  virtual void Write(int file, std::span<const std::byte> bytes) = 0;
  virtual void Flush(int file) = 0;
  virtual void Close(int file) = 0;
  virtual void Rename(const std::string& from, const std::string& to) = 0;
  virtual void Remove(const std::string& path) = 0;
};

// The file layer of the operating system.
class SystemFileLayer : public FileLayer {
 public:
  std::optional<FileInfo> Info(const std::string& path) override;
  std::string LinkTarget(const std::string& path) override;
  int OpenForReading(const std::string& path) override;
  int Create(const std::string& path, unsigned permissions) override;
  std::size_t Read(int file, std::span<std::byte> out) override;
  void Write(int file, std::span<const std::byte> bytes) override;
  void Flush(int file) override;
  void Close(int file) override;
  void Rename(const std::string& from, const std::string& to) override;
  void Remove(const std::string& path) override;
};

inline constexpr std::size_t kLargestFile = 64u << 20;

// The whole content. Throws Fault(FileFailed) for what is no regular file or larger than `limit`
// bytes.
ByteVector ReadFile(FileLayer& files, const std::string& path, std::size_t limit = kLargestFile);

// Replaces the content of a file in one step: a temporary beside the file is written, flushed and
// renamed, so that a failure or a crash at any moment leaves the old file or the new one whole.
// Permissions are kept and links followed, also to a file that is not there yet; a file that may
// not be written is refused. A temporary that a crash has left is taken over by the next
// replacement.
class FileReplacement {
 public:
  // Opens the temporary. Throws a Fault when that fails.
  FileReplacement(FileLayer& files, const std::string& path);
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;
  // Without a Commit the file stays as it was.
  ~FileReplacement();

  // Makes `bytes` the content of the file; called once. After a Fault the file is as it was.
  void Commit(std::span<const std::byte> bytes);

 private:
  void Discard();

  FileLayer& files_;
  std::string target_;
  std::string temporary_;
  int file_ = -1;
  bool pending_ = true;
};

// A FileReplacement opened and committed at once.
void ReplaceFile(FileLayer& files, const std::string& path, std::span<const std::byte> bytes);

}  // namespace dorvane
