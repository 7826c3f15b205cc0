#include "util/instance_lock.h"
#include "util/utf8_path.h"
#include "util/windows_calls.h"

namespace pv {

InstanceLock::InstanceLock(const std::filesystem::path& /*folder*/, std::string_view name) {
  const HANDLE mutex = ::CreateMutexW(nullptr, TRUE, pathFromUtf8(name).c_str());
  const DWORD code = ::GetLastError();
  // A copy with more rights may own it, and then it cannot even be opened.
  first_ = code != ERROR_ALREADY_EXISTS && code != ERROR_ACCESS_DENIED;
  if (first_ && mutex != nullptr) {
    handle_ = reinterpret_cast<std::intptr_t>(mutex);
  } else if (mutex != nullptr) {
    ::CloseHandle(mutex);  // or it would outlive the first copy
  }
}

InstanceLock::~InstanceLock() {
  if (handle_ != kNone) {
    ::CloseHandle(reinterpret_cast<HANDLE>(handle_));
  }
}

}  // namespace pv
