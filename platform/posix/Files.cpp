// SPDX-License-Identifier: MIT
#include "platform/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>

namespace platform {
namespace {

SystemError LastError() {
  return ErrorOf(static_cast<std::uint32_t>(errno));
}

/// An open file; closed at the end of its life.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  explicit operator bool() const { return number_ >= 0; }
  int Number() const { return number_; }

 private:
  int number_;
};

bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

/// The file that `path` names when links are followed, also when that file is not there yet. What has no path
/// of its own, such as a pipe, stays under the name that it was given.
std::string Resolved(const std::string& path) {
  constexpr int MostLinks = 40;
  char text[PATH_MAX];
  struct stat status {};
  if (stat(path.c_str(), &status) == 0) return realpath(path.c_str(), text) != nullptr ? text : path;
  std::string target = path;
  for (int i = 0; i < MostLinks; ++i) {
    const ssize_t length = readlink(target.c_str(), text, sizeof text);
    if (length < 0) return target;
    const std::string link(text, static_cast<std::size_t>(length));
    target = link.starts_with('/') ? link : FolderOf(target).append("/").append(link);
  }
  return path;
}

SystemError WriteInPlace(const std::string& path, std::string_view bytes) {
  const Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666));
  if (!file || !WriteAll(file.Number(), bytes)) return LastError();
  return {};
}

/// Creates a new file beside the target; its name is stored in `path`.
int CreateTemporary(const std::string& folder, std::string& path) {
  constexpr int Attempts = 100;  // files of that name are left only by a crash
  int file = -1;
  for (int i = 0; i < Attempts && file < 0; ++i) {
    path = folder + "/.halvex-" + std::to_string(getpid()) + "-" + std::to_string(i) + ".tmp";
    file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file < 0 && errno != EEXIST) break;
  }
  return file;
}

/// Gives the file the permissions and, where the system lets us, the owner and group of the one that it
/// replaces.
bool TakeAfter(const struct stat& old, int file) {
  constexpr uid_t Unchanged = static_cast<uid_t>(-1);
  mode_t mode = old.st_mode & 07777;
  if (fchown(file, old.st_uid, old.st_gid) != 0 && fchown(file, Unchanged, old.st_gid) != 0) {
    mode &= ~static_cast<mode_t>(S_IRWXG | S_ISGID);  // they were meant for another group
  }
  return fchmod(file, mode) == 0;
}

void FlushFolder(const std::string& folder) {
  const Descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened) fsync(opened.Number());
}

}  // namespace

SystemError ReadWholeFile(const std::string& path, std::size_t limit, std::string& bytes) {
  bytes.clear();
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  struct stat status {};
  if (!file || fstat(file.Number(), &status) != 0) return LastError();

  const std::size_t most = limit + 1;
  const std::size_t known = S_ISREG(status.st_mode) ? static_cast<std::size_t>(status.st_size) : 0;
  std::size_t length = 0;
  bytes.resize(std::clamp<std::size_t>(known + 1, 4096, most));
  while (true) {
    if (length == bytes.size()) {
      if (length == most) break;
      bytes.resize(std::min(2 * length, most));
    }
    const ssize_t got = read(file.Number(), bytes.data() + length, bytes.size() - length);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) {
      SystemError failed = LastError();
      bytes.clear();
      return failed;
    }
    if (got == 0) break;
    length += static_cast<std::size_t>(got);
  }
  bytes.resize(length);
  return {};
}

SystemError ReplaceWholeFile(const std::string& path, std::string_view bytes) {
  const std::string target = Resolved(path);
  struct stat old {};
  const bool exists = stat(target.c_str(), &old) == 0;
  if (exists && !S_ISREG(old.st_mode)) return WriteInPlace(target, bytes);
  // Renaming asks for no right to the old file; one that is protected from writing stays protected.
  if (exists && access(target.c_str(), W_OK) != 0) return LastError();

  const std::string folder = FolderOf(target);
  std::string temporary;
  const Descriptor file(CreateTemporary(folder, temporary));
  if (!file) return LastError();
  const bool isWritten = WriteAll(file.Number(), bytes) && (!exists || TakeAfter(old, file.Number())) &&
                         fsync(file.Number()) == 0 && rename(temporary.c_str(), target.c_str()) == 0;
  if (!isWritten) {
    SystemError failed = LastError();
    unlink(temporary.c_str());
    return failed;
  }
  FlushFolder(folder);
  return {};
}

// By std::filesystem a file dated after 2037 is none where its library has times of 32 bits.
bool IsSameFile(const std::string& path, const std::string& other) {
  struct stat one {
  }, two{};
  return stat(path.c_str(), &one) == 0 && stat(other.c_str(), &two) == 0 && one.st_dev == two.st_dev &&
         one.st_ino == two.st_ino;
}

}  // namespace platform
