#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "util/files_platform.h"

namespace pv::platform {
namespace {

constexpr std::size_t kReadStep = 4096;  // beyond the size that was reported
constexpr std::size_t kLargestWrite = std::size_t{1} << 30;
constexpr int kMaxLinks = 40;
constexpr mode_t kPermissionBits = 0777;
constexpr mode_t kNewFile = 0666;  // less the user's mask

/// Closes on every way out.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) {
      ::close(number_);
    }
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor(Descriptor&&) = delete;
  Descriptor& operator=(Descriptor&&) = delete;

  [[nodiscard]] bool open() const { return number_ >= 0; }
  [[nodiscard]] int number() const { return number_; }

  /// Some file systems report a full disk only here.
  [[nodiscard]] bool close() {
    const int number = number_;
    number_ = -1;
    return ::close(number) == 0 || errno == EINTR;
  }

 private:
  int number_;
};

Failure failed(ErrorKind kind, const char* what, int code) {
  return {kind, std::string(what) + ": " + systemMessage(code)};
}

int openRetrying(const std::filesystem::path& file, int flags, mode_t mode = 0) {
  int number = -1;
  do {
    number = ::open(file.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode);
  } while (number < 0 && errno == EINTR);
  return number;
}

Outcome notRegular(mode_t mode) {
  if (S_ISREG(mode)) {
    return std::nullopt;
  }
  return Failure{ErrorKind::NoInput,
                 S_ISDIR(mode) ? "this is a folder" : "this is not a regular file"};
}

Outcome writeAll(int number, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const auto written = ::write(number, bytes.data(), std::min(bytes.size(), kLargestWrite));
    if (written < 0 && errno == EINTR) {
      continue;
    }
    if (written <= 0) {
      return failed(ErrorKind::InputOutput, "writing failed", written < 0 ? errno : EIO);
    }
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return std::nullopt;
}

Outcome flush(int number) {
  while (::fsync(number) != 0) {
    if (errno == EINVAL || errno == ENOTSUP) {
      break;  // this file system has no such thing
    }
    if (errno != EINTR) {
      return failed(ErrorKind::InputOutput, "writing failed", errno);
    }
  }
  return std::nullopt;
}

/// Owner and permissions as they were. Where that is refused, the bits given at
/// creation stand, which never allow more than the old ones.
void takeOver(int number, const struct stat& old) {
  struct stat made = {};
  if (::fstat(number, &made) != 0) {
    return;
  }
  if ((made.st_uid != old.st_uid || made.st_gid != old.st_gid) &&
      ::fchown(number, old.st_uid, old.st_gid) != 0) {
    return;
  }
  static_cast<void>(::fchmod(number, old.st_mode & kPermissionBits));
}

Outcome fill(Descriptor& file, std::span<const std::byte> bytes) {
  if (auto failure = writeAll(file.number(), bytes)) {
    return failure;
  }
  if (auto failure = flush(file.number())) {
    return failure;
  }
  if (!file.close()) {
    return failed(ErrorKind::InputOutput, "writing failed", errno);
  }
  return std::nullopt;
}

/// Makes a rename last. Not every file system can, and the data is safe already.
void flushFolder(const std::filesystem::path& file) {
  const auto folder = file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
  const Descriptor opened(openRetrying(folder, O_RDONLY | O_DIRECTORY));
  if (opened.open()) {
    static_cast<void>(::fsync(opened.number()));
  }
}

}  // namespace

std::string systemMessage(int code) {
  return std::error_code(code, std::system_category()).message();
}

std::uint64_t processId() {
  return static_cast<std::uint64_t>(::getpid());
}

Outcome readRegularFile(const std::filesystem::path& file, std::size_t limit,
                        std::vector<std::byte>& bytes) {
  struct stat state = {};
  if (::stat(file.c_str(), &state) != 0) {
    return failed(ErrorKind::NoInput, "cannot be opened", errno);
  }
  if (auto failure = notRegular(state.st_mode)) {
    return failure;  // without opening, which is an event to some devices
  }
  const Descriptor opened(openRetrying(file, O_RDONLY | O_NONBLOCK));
  if (!opened.open() || ::fstat(opened.number(), &state) != 0) {
    return failed(ErrorKind::NoInput, "cannot be opened", errno);
  }
  if (auto failure = notRegular(state.st_mode)) {
    return failure;
  }
  // The size is only a hint: the file may grow, and some report none. The byte more
  // lets most files be seen to their end with one step and a short one.
  auto step = static_cast<std::size_t>(std::max<off_t>(state.st_size, 0)) + 1;
  while (bytes.size() < limit) {
    const auto used = bytes.size();
    bytes.resize(used + std::min(limit - used, std::exchange(step, kReadStep)));
    const auto got = ::read(opened.number(), bytes.data() + used, bytes.size() - used);
    const int code = errno;
    bytes.resize(used + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    if (got == 0) {
      break;
    }
    if (got < 0 && code != EINTR) {
      return failed(ErrorKind::InputOutput, "reading failed", code);
    }
  }
  return std::nullopt;
}

Outcome inspectTarget(const std::filesystem::path& file, TargetKind& kind) {
  struct stat state = {};
  if (::stat(file.c_str(), &state) != 0) {
    kind = TargetKind::Missing;
    if (errno == ENOENT) {
      return std::nullopt;
    }
    return failed(ErrorKind::CannotCreate, "cannot be written", errno);
  }
  if (S_ISDIR(state.st_mode)) {
    kind = TargetKind::Folder;
  } else if (!S_ISREG(state.st_mode)) {
    kind = TargetKind::Special;
  } else {
    // The superuser may write anything, so the owner's bit is asked as well.
    const bool writable = (state.st_mode & S_IWUSR) != 0 &&
                          ::faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS) == 0;
    kind = writable ? TargetKind::Regular : TargetKind::Protected;
  }
  return std::nullopt;
}

bool isDescriptorName(const std::filesystem::path& file) {
  const auto folder = file.parent_path();
  const auto& text = folder.native();
  return folder.filename() == "fd" && (text.starts_with("/proc/") || text.starts_with("/dev/"));
}

std::filesystem::path followLinks(const std::filesystem::path& file) {
  std::filesystem::path target = file;
  std::error_code error;
  for (int i = 0; i < kMaxLinks && !isDescriptorName(target); ++i) {
    if (!std::filesystem::is_symlink(std::filesystem::symlink_status(target, error))) {
      break;
    }
    const auto next = std::filesystem::read_symlink(target, error);
    if (error) {
      break;
    }
    target = target.parent_path() / next;  // an absolute `next` replaces all
  }
  return target;
}

Outcome createFilled(const std::filesystem::path& temporary, const std::filesystem::path& target,
                     std::span<const std::byte> bytes) {
  struct stat old = {};
  const bool replaces = ::stat(target.c_str(), &old) == 0;
  const mode_t mode = replaces ? old.st_mode & kPermissionBits : kNewFile;
  Descriptor file(openRetrying(temporary, O_WRONLY | O_CREAT | O_EXCL, mode));
  if (!file.open()) {
    const bool taken = errno == EEXIST;
    auto failure = failed(ErrorKind::CannotCreate, "cannot be created", errno);
    failure.nameTaken = taken;
    return failure;
  }
  if (replaces) {
    takeOver(file.number(), old);
  }
  auto failure = fill(file, bytes);
  if (failure) {
    ::unlink(temporary.c_str());
  }
  return failure;
}

Outcome moveOver(const std::filesystem::path& temporary, const std::filesystem::path& target) {
  if (::rename(temporary.c_str(), target.c_str()) != 0) {
    auto failure = failed(ErrorKind::CannotCreate, "cannot be replaced", errno);
    ::unlink(temporary.c_str());
    return failure;
  }
  flushFolder(target);
  return std::nullopt;
}

Outcome writeStraight(const std::filesystem::path& file, std::span<const std::byte> bytes) {
  // A descriptor that is redirected to a file may hold earlier output already.
  struct stat state = {};
  const bool regular = ::stat(file.c_str(), &state) == 0 && S_ISREG(state.st_mode);
  Descriptor opened(openRetrying(file, regular ? O_WRONLY | O_APPEND : O_WRONLY));
  if (!opened.open()) {
    return failed(ErrorKind::CannotCreate, "cannot be opened for writing", errno);
  }
  if (auto failure = writeAll(opened.number(), bytes)) {
    return failure;
  }
  if (!opened.close()) {
    return failed(ErrorKind::InputOutput, "writing failed", errno);
  }
  return std::nullopt;
}

}  // namespace pv::platform
