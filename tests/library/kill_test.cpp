// Kills a program that saves, at random moments, and looks at what it left.

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <string>
#include <thread>

#include "library/library_check.h"
#include "library/tag_editing.h"
#include "library/thumb_list.h"
#include "library_fixture.h"
#include "save_loop_data.h"
#include "save_loop_process.h"

namespace pv {
namespace {

/// A killed process takes nothing with it that it wrote, so a disk in memory is
/// as good as a real one and much quicker to flush.
struct QuickDisk {
  QuickDisk() {
    if (std::filesystem::exists("/dev/shm")) {
#ifdef _WIN32
      ::SetEnvironmentVariableW(L"TMP", std::filesystem::absolute("/dev/shm").c_str());
#else
      ::setenv("TMPDIR", "/dev/shm", 1);
#endif
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
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 2000));
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
