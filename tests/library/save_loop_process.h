#pragma once

#include <algorithm>
#include <string>
#include <vector>

#ifdef _WIN32
#include "util/utf8_path.h"
#include "util/windows_calls.h"
#else
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace pv {

/// A running save_loop and the names that it has told so far.
class SaveLoop {
 public:
  explicit SaveLoop(const std::string& folder);
  ~SaveLoop() { kill(); }
  SaveLoop(const SaveLoop&) = delete;
  SaveLoop& operator=(const SaveLoop&) = delete;
  SaveLoop(SaveLoop&&) = delete;
  SaveLoop& operator=(SaveLoop&&) = delete;

  /// Until that many saves were told; fewer when the program ended.
  void wait(int saves) {
    while (std::count(told_.begin(), told_.end(), '\n') < saves && readMore()) {
    }
  }
  void kill() {
    if (running_) {
      running_ = false;
      end();
      while (readMore()) {
      }
      close();
    }
  }
  [[nodiscard]] std::vector<std::string> finished() const {
    std::vector<std::string> names;
    std::string rest = told_;
    std::erase(rest, '\r');
    for (auto end = rest.find('\n'); end != std::string::npos; end = rest.find('\n')) {
      names.push_back(rest.substr(0, end));
      rest.erase(0, end + 1);
    }
    return names;
  }

 private:
  bool readMore();
  void end();
  void close();

  bool running_ = false;
  std::string told_;
#ifdef _WIN32
  HANDLE child_ = nullptr;
  HANDLE output_ = nullptr;
#else
  pid_t child_ = -1;
  int output_ = -1;
#endif
};

#ifdef _WIN32

inline SaveLoop::SaveLoop(const std::string& folder) {
  SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
  HANDLE input = nullptr;
  ::CreatePipe(&output_, &input, &inherited, 0);
  ::SetHandleInformation(output_, HANDLE_FLAG_INHERIT, 0);
  STARTUPINFOW start = {};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdOutput = input;
  PROCESS_INFORMATION process = {};
  const auto program = platform::systemPath(PV_SAVE_LOOP);
  std::wstring command = L"save_loop \"" + pathFromUtf8(folder).native() + L"\" 100000";
  running_ = ::CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, TRUE, 0, nullptr,
                              nullptr, &start, &process) != 0;
  ::CloseHandle(input);
  ::CloseHandle(process.hThread);
  child_ = process.hProcess;
}

inline bool SaveLoop::readMore() {
  char buffer[256];
  DWORD got = 0;
  const bool read = ::ReadFile(output_, buffer, sizeof buffer, &got, nullptr) != 0;
  told_.append(buffer, got);
  return read && got > 0;
}

inline void SaveLoop::end() {
  ::TerminateProcess(child_, 1);
  ::WaitForSingleObject(child_, INFINITE);
}

inline void SaveLoop::close() {
  ::CloseHandle(child_);
  ::CloseHandle(output_);
}

#else

inline SaveLoop::SaveLoop(const std::string& folder) {
  int ends[2] = {-1, -1};
  if (::pipe(ends) != 0) {
    return;
  }
  child_ = ::fork();
  if (child_ == 0) {
    ::dup2(ends[1], STDOUT_FILENO);
    ::close(ends[0]);
    ::execl(PV_SAVE_LOOP, PV_SAVE_LOOP, folder.c_str(), "100000", nullptr);
    ::_exit(127);
  }
  ::close(ends[1]);
  output_ = ends[0];
  running_ = child_ > 0;
}

inline bool SaveLoop::readMore() {
  char buffer[256];
  const auto got = ::read(output_, buffer, sizeof buffer);
  told_.append(buffer, static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
  return got > 0;
}

inline void SaveLoop::end() {
  ::kill(child_, SIGKILL);
  ::waitpid(child_, nullptr, 0);
}

inline void SaveLoop::close() {
  ::close(output_);
}

#endif

}  // namespace pv
