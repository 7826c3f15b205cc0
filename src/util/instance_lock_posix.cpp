#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "util/instance_lock.h"

namespace pv {
namespace {

constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;

bool lockAtOnce(int descriptor) {
  while (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
    if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

}  // namespace

// The file stays when the lock is given back: were it removed, a process that
// has just opened it and one that makes a new one would both be the first.
InstanceLock::InstanceLock(const std::filesystem::path& folder, std::string_view name) {
  if (folder.empty()) {
    return;
  }
  const auto file = folder / (std::string(name) + ".lock");
  const int descriptor =
      ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, kOwnerOnly);
  if (descriptor < 0) {
    return;
  }
  if (!lockAtOnce(descriptor)) {
    first_ = errno != EWOULDBLOCK;
    ::close(descriptor);
    return;
  }
  // The sticky bit keeps the file from being tidied away while it is locked.
  static_cast<void>(::fchmod(descriptor, kOwnerOnly | S_ISVTX));
  handle_ = descriptor;
}

InstanceLock::~InstanceLock() {
  if (handle_ != kNone) {
    ::close(static_cast<int>(handle_));
  }
}

}  // namespace pv
