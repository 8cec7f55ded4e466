#include "support/FileLayer.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <functional>

#include "support/Fault.h"

namespace dorvane {
namespace {

constexpr unsigned kPermissionBits = 07777;
// Of a temporary, without its additions: file systems end at 255 bytes.
constexpr std::size_t kLongestName = 240;
constexpr std::size_t kHeadOfLongName = 220;
constexpr int kMostLinks = 40;

[[noreturn]] void ThrowErrno() {
  switch (errno) {
    case ENOENT:
    case ENOTDIR:
      throw Fault(FaultCode::FileNotFound);
    case EACCES:
    case EPERM:
    case EROFS:
      throw Fault(FaultCode::PermissionDenied);
    default:
      throw Fault(FaultCode::FileFailed);
  }
}

// With its closing slash.
std::string FolderOf(const std::string& path) {
  return path.substr(0, path.rfind('/') + 1);
}

// Long names are cut, and told apart by what their whole hashes to.
std::string TemporaryBeside(const std::string& path) {
  const std::string folder = FolderOf(path);
  std::string name = path.substr(folder.size());
  if (name.size() > kLongestName) {
    name = name.substr(0, kHeadOfLongName) + std::to_string(std::hash<std::string>{}(name));
  }
  return folder + "." + name + ".saving";
}

// Closes on every way out; a failing close counts only where the caller asks for it.
class OpenFile {
 public:
  OpenFile(FileLayer& files, int file) : files_(files), file_(file) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (file_ < 0) return;
    try {
      files_.Close(file_);
    } catch (const Fault&) {  // the failure that brought us here is the one to report
    }
  }
  int Get() const { return file_; }
  void Close() {
    const int file = file_;
    file_ = -1;
    files_.Close(file);
  }

 private:
  FileLayer& files_;
  int file_;
};

}  // namespace

std::optional<FileInfo> SystemFileLayer::Info(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) {
    if (errno == ENOENT || errno == ENOTDIR) return std::nullopt;
    ThrowErrno();
  }
  FileInfo info;
  info.permissions = status.st_mode & kPermissionBits;
  info.size = static_cast<std::size_t>(status.st_size);
  info.regular = S_ISREG(status.st_mode);
  info.writable = access(path.c_str(), W_OK) == 0;
  char* real = realpath(path.c_str(), nullptr);
  if (real == nullptr) ThrowErrno();
  info.real_path = real;
  std::free(real);
  return info;
}

std::string SystemFileLayer::LinkTarget(const std::string& path) {
  std::string at = path;
  for (int links = 0; links < kMostLinks; ++links) {
    std::array<char, PATH_MAX> text{};
    const ssize_t size = readlink(at.c_str(), text.data(), text.size());
    if (size < 0) {
      if (errno == EINVAL || errno == ENOENT || errno == ENOTDIR) return at;
      ThrowErrno();
    }
    const std::string target(text.data(), static_cast<std::size_t>(size));
    at = target.starts_with('/') ? target : FolderOf(at) + target;
  }
  throw Fault(FaultCode::FileFailed);
}

int SystemFileLayer::OpenForReading(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (file < 0) ThrowErrno();
  return file;
}

int SystemFileLayer::Create(const std::string& path, unsigned permissions) {
  constexpr int kFlags = O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
  const int file = open(path.c_str(), kFlags, 0666);
  if (file < 0) ThrowErrno();
  if (permissions != 0 && fchmod(file, permissions) != 0) {
    const int error = errno;
    close(file);
    errno = error;
    ThrowErrno();
  }
  return file;
}

std::size_t SystemFileLayer::Read(int file, std::span<std::byte> out) {
  for (;;) {
    const ssize_t got = read(file, out.data(), out.size());
    if (got >= 0) return static_cast<std::size_t>(got);
    if (errno != EINTR) ThrowErrno();
  }
}

void SystemFileLayer::Write(int file, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const ssize_t put = write(file, bytes.data(), bytes.size());
    if (put < 0) {
      if (errno == EINTR) continue;
      ThrowErrno();
    }
    bytes = bytes.subspan(static_cast<std::size_t>(put));
  }
}

void SystemFileLayer::Flush(int file) {
  if (fsync(file) != 0 && errno != EINVAL) ThrowErrno();
}

void SystemFileLayer::Close(int file) {
  if (close(file) != 0 && errno != EINTR) ThrowErrno();
}

void SystemFileLayer::Rename(const std::string& from, const std::string& to) {
  if (rename(from.c_str(), to.c_str()) != 0) ThrowErrno();
}

void SystemFileLayer::Remove(const std::string& path) {
  if (unlink(path.c_str()) != 0) ThrowErrno();
}

ByteVector ReadFile(FileLayer& files, const std::string& path, std::size_t limit) {
  const auto info = files.Info(path);
  if (!info) throw Fault(FaultCode::FileNotFound);
  if (!info->regular || info->size > limit) throw Fault(FaultCode::FileFailed);
  OpenFile file(files, files.OpenForReading(path));
  ByteVector bytes(info->size);
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    const std::size_t got = files.Read(file.Get(), std::span(bytes).subspan(filled));
    if (got == 0) break;
    filled += got;
  }
  bytes.resize(filled);
  file.Close();
  return bytes;
}

FileReplacement::FileReplacement(FileLayer& files, const std::string& path) : files_(files) {
  const auto info = files.Info(path);
  if (info && !info->regular) throw Fault(FaultCode::FileFailed);
  if (info && !info->writable) throw Fault(FaultCode::PermissionDenied);
  target_ = info ? info->real_path : files.LinkTarget(path);
  temporary_ = TemporaryBeside(target_);
  file_ = files.Create(temporary_, info ? info->permissions : 0);
}

FileReplacement::~FileReplacement() {
  if (pending_) Discard();
}

void FileReplacement::Commit(std::span<const std::byte> bytes) {
  try {
    files_.Write(file_, bytes);
    files_.Flush(file_);
    const int file = file_;
    file_ = -1;
    files_.Close(file);
    files_.Rename(temporary_, target_);
    pending_ = false;
  } catch (const Fault&) {
    Discard();
    throw;
  }
}

void FileReplacement::Discard() {
  pending_ = false;
  try {
    if (file_ >= 0) files_.Close(file_);
  } catch (const Fault&) {  // the failure that brought us here is the one to report
  }
  try {
    files_.Remove(temporary_);
  } catch (const Fault&) {  // the next save takes it over
  }
}

void ReplaceFile(FileLayer& files, const std::string& path, std::span<const std::byte> bytes) {
  FileReplacement(files, path).Commit(bytes);
}

}  // namespace dorvane
