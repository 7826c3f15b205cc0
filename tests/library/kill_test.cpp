// Kills a program that saves, at random moments, and looks at what it left.

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "library/library_check.h"
#include "library/tag_editing.h"
#include "library/thumb_list.h"
#include "library_fixture.h"
#include "save_loop_data.h"

namespace pv {
namespace {

/// A running save_loop and the names that it has told so far.
class SaveLoop {
 public:
  explicit SaveLoop(const std::string& folder) {
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
  }
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
    if (child_ > 0) {
      ::kill(child_, SIGKILL);
      ::waitpid(child_, nullptr, 0);
      child_ = -1;
      while (readMore()) {
      }
      ::close(output_);
    }
  }
  [[nodiscard]] std::vector<std::string> finished() const {
    std::vector<std::string> names;
    std::string rest = told_;
    for (auto end = rest.find('\n'); end != std::string::npos; end = rest.find('\n')) {
      names.push_back(rest.substr(0, end));
      rest.erase(0, end + 1);
    }
    return names;
  }

 private:
  bool readMore() {
    char buffer[256];
    const auto got = ::read(output_, buffer, sizeof buffer);
    told_.append(buffer, static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    return got > 0;
  }

  pid_t child_ = -1;
  int output_ = -1;
  std::string told_;
};

/// A killed process takes nothing with it that it wrote, so a disk in memory is
/// as good as a real one and much quicker to flush.
struct QuickDisk {
  QuickDisk() {
    if (::access("/dev/shm", W_OK) == 0) {
      ::setenv("TMPDIR", "/dev/shm", 1);
    }
  }
};

class KillTest : private QuickDisk,
                 public LibraryTest,
                 public ::testing::WithParamInterface<unsigned> {
 protected:
  [[nodiscard]] Status loadWhole(const std::filesystem::path& file) const {
    const bool whole = get(file.filename().string()) == saveLoopData(file.stem().string());
    return whole ? Status(Done{}) : Error{ErrorKind::BadData, {}, {}, "the file is not whole"};
  }
  /// Faults that an interruption may leave are `allowed`.
  void expectOnly(const std::set<FindingKind>& allowed) const {
    for (const auto& finding :
         checkLibrary(place_, [this](const auto& file) { return loadWhole(file); })) {
      EXPECT_TRUE(allowed.contains(finding.kind))
          << findingName(finding.kind) << " " << finding.file << " " << finding.text;
    }
  }
};

TEST_P(KillTest, NoMomentOfASaveIsABadOne) {
  for (const char* name : {"red", "green", "blue"}) {
    tag(name);
  }
  ASSERT_TRUE(cloud_.saveAll());
  std::mt19937 random(GetParam());
  std::set<std::string> finished;
  constexpr std::size_t kSaves = 200;
  constexpr int kMostRounds = 100;
  for (int round = 0; finished.size() < kSaves && round < kMostRounds; ++round) {
    SaveLoop loop(host("").parent_path().string());
    loop.wait(10 + static_cast<int>(random() % 40));
    ::usleep(static_cast<useconds_t>(random() % 2000));
    loop.kill();
    const auto names = loop.finished();
    finished.insert(names.begin(), names.end());
    expectOnly({FindingKind::LostCompanion, FindingKind::MissingLink, FindingKind::DanglingLink,
                FindingKind::MissingTag});

    CThumbList list;
    list.setFolder(place_.folder);
    list.setFilter("*.j3d");
    list.fill();
    const std::set<std::string> listed(list.allNames().begin(), list.allNames().end());
    for (const auto& name : finished) {
      ASSERT_TRUE(listed.contains(name)) << name;
    }
    CTagCloud cloud;
    cloud.setFolder(place_.folder);
    cloud.loadAll();
    reconstructLinks(cloud, place_, list.allNames());
    expectOnly({FindingKind::LostCompanion});
  }
  EXPECT_GE(finished.size(), kSaves);
}

// A thousand saves in all; small libraries keep the looking quick.
INSTANTIATE_TEST_SUITE_P(Libraries, KillTest, ::testing::Range(0U, 5U));

}  // namespace
}  // namespace pv
