#include "util/instance_lock.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include "util/module_name.h"
#include "util/temporary_folder.h"
#include "util/user_folders.h"

namespace pv {
namespace {

constexpr const char* kName = "TEST_LOCK";

struct Pipe {
  Pipe() { EXPECT_EQ(::pipe(ends), 0); }
  void close(int end) { ::close(std::exchange(ends[end], -1)); }

  int ends[2] = {-1, -1};
};

/// Processes that wait for a common start, try the lock, say how it went and
/// then keep what they have until they are killed or this program is gone.
class Crowd {
 public:
  Crowd(const std::filesystem::path& folder, int size) {
    for (int i = 0; i < size; ++i) {
      const pid_t child = ::fork();
      if (child == 0) {
        tryLock(folder);
      }
      if (child > 0) {
        children_.push_back(child);
      }
    }
    start_.close(1);
    answersPipe_.close(1);
    char answer = 0;
    while (::read(answersPipe_.ends[0], &answer, 1) == 1 &&
           (answers_ += answer).size() < children_.size()) {
    }
  }
  ~Crowd() {
    kill();
    start_.close(0);
    answersPipe_.close(0);
    hold_.close(0);
    hold_.close(1);
  }
  Crowd(const Crowd&) = delete;
  Crowd& operator=(const Crowd&) = delete;

  void kill() {
    for (const pid_t child : children_) {
      ::kill(child, SIGKILL);
      ::waitpid(child, nullptr, 0);
    }
    children_.clear();
  }

  /// How many were the first, and how many answered at all.
  std::pair<std::ptrdiff_t, std::size_t> result() const {
    return {std::count(answers_.begin(), answers_.end(), 'F'), answers_.size()};
  }

 private:
  [[noreturn]] void tryLock(const std::filesystem::path& folder) {
    char unused = 0;
    start_.close(1);
    hold_.close(1);
    std::ptrdiff_t done = ::read(start_.ends[0], &unused, 1);
    const InstanceLock lock(folder, kName);
    const char answer = lock.first() ? 'F' : 'o';
    done += ::write(answersPipe_.ends[1], &answer, 1);
    done += ::read(hold_.ends[0], &unused, 1);
    ::_exit(done == 1 ? 0 : 1);
  }

  Pipe start_;
  Pipe answersPipe_;
  Pipe hold_;
  std::vector<pid_t> children_;
  std::string answers_;
};

TEST(InstanceLock, OneOfAHundredIsFirstAndDeathFreesTheLock) {
  const TemporaryFolder folder;
  Crowd crowd(folder.path(), 100);
  EXPECT_EQ(crowd.result(), std::pair(std::ptrdiff_t{1}, std::size_t{100}));
  EXPECT_FALSE(InstanceLock(folder.path(), kName).first());
  EXPECT_TRUE(InstanceLock(folder.path(), "OTHER").first());
  crowd.kill();
  {
    const InstanceLock next(folder.path(), kName);
    EXPECT_TRUE(next.first());
    EXPECT_FALSE(InstanceLock(folder.path(), kName).first());
  }
  EXPECT_TRUE(InstanceLock(folder.path(), kName).first());
}

TEST(InstanceLock, WithoutAUsableFolderTheProgramMayRun) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.path() / "TEST_LOCK.lock");
  for (const auto& unusable : {std::filesystem::path(), folder.path() / "none", folder.path()}) {
    const InstanceLock lock(unusable, kName);
    EXPECT_TRUE(lock.first()) << unusable;
  }
}

/// A variable of the environment that gets its value back.
class Variable {
 public:
  explicit Variable(const char* name) : name_(name) {
    if (const char* value = std::getenv(name)) {
      before_ = value;
    }
  }
  ~Variable() { set(before_ ? before_->c_str() : nullptr); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

  void set(const char* value) const {
    value != nullptr ? ::setenv(name_, value, 1) : ::unsetenv(name_);
  }

 private:
  const char* name_;
  std::optional<std::string> before_;
};

TEST(UserFolders, FollowTheEnvironmentAndRefuseWhatOthersMayWrite) {
  const TemporaryFolder folder;
  const auto& top = folder.path();
  const Variable config("XDG_CONFIG_HOME");
  const Variable home("HOME");
  const Variable runtime("XDG_RUNTIME_DIR");
  const Variable temporary("TMPDIR");
  config.set(top.c_str());
  EXPECT_EQ(userConfigFolder(), top / "particle-vortex");
  config.set("relative");
  home.set(top.c_str());
  EXPECT_EQ(userConfigFolder(), top / ".config/particle-vortex");
  home.set(nullptr);
  EXPECT_EQ(userConfigFolder(), std::filesystem::path());

  runtime.set(top.c_str());
  const auto own = userRuntimeFolder();
  EXPECT_EQ(own, top / "particle-vortex");
  EXPECT_EQ(std::filesystem::status(own).permissions(), std::filesystem::perms::owner_all);
  std::filesystem::permissions(own, std::filesystem::perms::all);
  temporary.set(top.c_str());
  const auto fallback = top / ("particle-vortex-" + std::to_string(::geteuid()));
  EXPECT_EQ(userRuntimeFolder(), fallback);
  std::filesystem::remove(fallback);
  std::filesystem::create_symlink(top, fallback);
  EXPECT_EQ(userRuntimeFolder(), std::filesystem::path());
}

TEST(ModuleName, IsThisProgramWithAnExtension) {
  const auto name = moduleName();
  ASSERT_TRUE(name.has_value());
  EXPECT_TRUE(name->starts_with('\\')) << *name;
  EXPECT_TRUE(name->ends_with("_test.exe")) << *name;
  EXPECT_EQ(name->find('/'), std::string::npos) << *name;
}

}  // namespace
}  // namespace pv
