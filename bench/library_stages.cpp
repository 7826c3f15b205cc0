#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "library/library_check.h"
#include "library/tag_cloud.h"
#include "library/tag_editing.h"
#include "library/thumb_grid.h"
#include "library/thumb_list.h"
#include "stages.h"
#include "util/bmp_file.h"
#include "util/program_path.h"

namespace pv::bench {

namespace {

namespace fs = std::filesystem;

constexpr int kFiles[] = {100, 1'000, 10'000};
constexpr int kTags = 256;
constexpr int kTagsPerFile = 3;

std::string numbered(const char* core, int number) {
  char text[32];
  std::snprintf(text, sizeof text, "%s-%04d", core, number);
  return text;
}

/// A library in the temporary folder, for as long as the program runs. The first
/// two tags and the last have every file, each file has a few of the others.
class BenchLibrary {
 public:
  explicit BenchLibrary(int files) {
    const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
    root_ = fs::temp_directory_path() / ("pv-bench-" + std::to_string(ticks));
    for (const char* part : {"thumbs", "tagdb", "tags"}) {
      fs::create_directories(root_ / part);
    }
    place_ = {programPath(root_), ".j3d"};
    const BmpPicture picture{96, 72, std::vector<std::uint32_t>(std::size_t{96} * 72, 0x336699)};
    const auto thumbnail = encodeBmp(picture);
    std::vector<std::string> links(kTags);
    for (int i = 0; i < files; ++i) {
      const std::string name = numbered("shpe", i);
      std::string tags;
      for (int tag = 0; tag < kTags; ++tag) {
        if (tag < 2 || tag == kTags - 1 || (tag + i) % (kTags / kTagsPerFile) == 0) {
          tags += numbered("tag", tag) + "\r\n";
          links[static_cast<std::size_t>(tag)] += name + "\r\n";
        }
      }
      put(place_.dataFile(name), "x");
      put(place_.tagListFile(name), tags);
      put(place_.thumbnailFile(name),
          {reinterpret_cast<const char*>(thumbnail.data()), thumbnail.size()});
    }
    for (int tag = 0; tag < kTags; ++tag) {
      put(place_.tagsFolder() + numbered("tag", tag) + ".tag",
          links[static_cast<std::size_t>(tag)]);
    }
  }
  ~BenchLibrary() {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
  }
  BenchLibrary(const BenchLibrary&) = delete;
  BenchLibrary& operator=(const BenchLibrary&) = delete;
  BenchLibrary(BenchLibrary&&) = delete;
  BenchLibrary& operator=(BenchLibrary&&) = delete;

  [[nodiscard]] const LibraryPlace& place() const { return place_; }
  [[nodiscard]] CTagCloud loadedCloud() const {
    CTagCloud cloud;
    cloud.setFolder(place_.folder);
    cloud.loadAll();
    cloud.layout(100, 0, [](std::int32_t, std::string_view) { return TextExtent{80, 12}; });
    return cloud;
  }
  [[nodiscard]] CThumbList list() const {
    CThumbList list;
    list.setFolder(place_.folder);
    list.setFilter("*.j3d");
    return list;
  }

 private:
  // Plain writing: nothing here has to survive a crash.
  static void put(const std::string& path, std::string_view content) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
        std::fopen(hostPath(path).string().c_str(), "wb"), &std::fclose);
    if (file != nullptr) {
      std::fwrite(content.data(), 1, content.size(), file.get());
    }
  }

  fs::path root_;
  LibraryPlace place_;
};

/// Made when it is first asked for, so that a filter spares the rest.
const BenchLibrary& library(int files) {
  static std::map<int, BenchLibrary> made;
  return made.try_emplace(files, files).first->second;
}

void measureListing(benchmark::State& state, int files) {
  CThumbList list = library(files).list();
  for (auto _ : state) {
    list.fill();
  }
}

void measureTagLoading(benchmark::State& state, int files) {
  CTagCloud cloud = library(files).loadedCloud();
  for (auto _ : state) {
    cloud.loadAll();
  }
}

void clickOn(CTagCloud& cloud, int tag, bool ctrl, bool alt) {
  const auto& box = cloud.entries()[static_cast<std::size_t>(tag)].box;
  cloud.click({box.left, box.top + 3, ctrl, alt});
}

/// A click that leaves two tags selected and one excluded, and the subset shown.
void measureClick(benchmark::State& state, int files) {
  CTagCloud cloud = library(files).loadedCloud();
  CThumbList list = library(files).list();
  list.fill();
  clickOn(cloud, 1, true, false);
  clickOn(cloud, 2, false, true);
  for (auto _ : state) {
    clickOn(cloud, 0, true, false);
    list.showSubset(cloud.filterFiles());
  }
}

/// All tags selected: the most that a filter can be asked.
void measureFilterAll(benchmark::State& state, int files) {
  CTagCloud cloud = library(files).loadedCloud();
  for (int tag = 0; tag < kTags; ++tag) {
    clickOn(cloud, tag, true, false);
  }
  for (auto _ : state) {
    benchmark::DoNotOptimize(cloud.filterFiles());
  }
}

/// What a browser of 960 x 720 pixels shows first.
void measureThumbnails(benchmark::State& state, int files) {
  CThumbList list = library(files).list();
  ThumbGrid grid;
  grid.clientWidth = 960;
  grid.clientHeight = 720;
  for (auto _ : state) {
    state.PauseTiming();
    list.fill();  // forgets the pictures
    grid.count = list.shownCount();
    state.ResumeTiming();
    for (auto i = grid.visible().first; i < grid.visible().last; ++i) {
      benchmark::DoNotOptimize(list.thumbnail(i));
    }
  }
}

void measureLinking(benchmark::State& state, int files) {
  CTagCloud cloud = library(files).loadedCloud();
  clickOn(cloud, 0, false, false);
  const std::string folder = library(files).place().folder + "\\";
  for (auto _ : state) {
    cloud.linkFileToSelected(folder, "new-0000");
    cloud.unlinkFile("new-0000");
  }
}

void measureCheck(benchmark::State& state, int files) {
  const auto load = [](const fs::path&) { return Status(Done{}); };
  for (auto _ : state) {
    benchmark::DoNotOptimize(checkLibrary(library(files).place(), load));
  }
}

}  // namespace

void registerLibraryStages() {
  struct Stage {
    const char* name;
    void (*measure)(benchmark::State&, int);
  };
  constexpr Stage kStages[] = {{"library-list", measureListing},
                               {"library-tags", measureTagLoading},
                               {"library-click", measureClick},
                               {"library-filter-all", measureFilterAll},
                               {"library-thumbnails", measureThumbnails},
                               {"library-link", measureLinking},
                               {"library-check", measureCheck}};
  for (const auto& stage : kStages) {
    for (const int files : kFiles) {
      const std::string name = std::string(stage.name) + "/" + std::to_string(files);
      benchmark::RegisterBenchmark(name.c_str(), stage.measure, files)
          ->Unit(benchmark::kMillisecond);
    }
  }
}

}  // namespace pv::bench
