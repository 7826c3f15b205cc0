#include "util/files.h"

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "temporary_folder.h"

#ifndef _WIN32
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#endif

namespace pv {
namespace {

namespace fs = std::filesystem;

std::span<const std::byte> bytesOf(const std::string& text) {
  return std::as_bytes(std::span(text));
}

std::string textOf(const fs::path& file, std::size_t limit = 1 << 20) {
  const auto read = readFile(file, limit);
  if (!read) {
    return "error: " + read.error().message();
  }
  return {reinterpret_cast<const char*>(read.value().data()), read.value().size()};
}

class Files : public ::testing::Test {
 protected:
  /// Names in the folder, so that a forgotten temporary file shows.
  [[nodiscard]] std::string names() const { return folder_.names(); }
  [[nodiscard]] fs::path at(const char* name) const { return folder_.path() / name; }

 private:
  TemporaryFolder folder_;
};

TEST_F(Files, WritesWholeAndReadsUpToTheLimit) {
  const std::string text(200'000, 'x');
  ASSERT_TRUE(writeFile(at("a"), bytesOf(text)));
  EXPECT_EQ(textOf(at("a")), text);
  EXPECT_EQ(textOf(at("a"), 65'537).size(), 65'537U);
  EXPECT_EQ(textOf(at("a"), 0), "");
  ASSERT_TRUE(writeFile(at("a"), {}));
  EXPECT_EQ(textOf(at("a")), "");
  EXPECT_EQ(names(), "a");
}

TEST_F(Files, ReasonsNameTheFileAsGiven) {
  const auto missing = readFile(at("none"), 10);
  ASSERT_FALSE(missing);
  EXPECT_EQ(missing.error().kind, ErrorKind::NoInput);
  EXPECT_EQ(missing.error().file, at("none").string());
  EXPECT_EQ(readFile(at("."), 10).error().reason, "this is a folder");
  EXPECT_EQ(readFile("", 10).error().kind, ErrorKind::NoInput);

  for (const fs::path& target :
       {at("."), at(""), fs::path(), at("no-folder/x"), fs::path(at("a").string() + '\0' + "b")}) {
    const auto status = writeFile(target, bytesOf("x"));
    ASSERT_FALSE(status);
    EXPECT_EQ(status.error().kind, ErrorKind::CannotCreate);
  }
  EXPECT_EQ(names(), "");
}

#ifndef _WIN32

TEST_F(Files, OnlyRegularFilesAreRead) {
  ASSERT_EQ(::mkfifo(at("pipe").c_str(), 0600), 0);
  EXPECT_EQ(readFile(at("pipe"), 10).error().reason, "this is not a regular file");
  EXPECT_EQ(readFile("/dev/zero", 10).error().kind, ErrorKind::NoInput);
}

TEST_F(Files, ReadOnlyTargetsStayAndPermissionsAreKept) {
  ASSERT_TRUE(writeFile(at("a"), bytesOf("old")));
  ASSERT_EQ(::chmod(at("a").c_str(), 0444), 0);
  EXPECT_EQ(writeFile(at("a"), bytesOf("new")).error().kind, ErrorKind::CannotCreate);
  EXPECT_EQ(textOf(at("a")), "old");

  for (const mode_t mode : {mode_t{0600}, mode_t{0666}}) {
    ASSERT_EQ(::chmod(at("a").c_str(), mode), 0);
    ASSERT_TRUE(writeFile(at("a"), bytesOf("new")));
    struct stat state = {};
    ASSERT_EQ(::stat(at("a").c_str(), &state), 0);
    EXPECT_EQ(state.st_mode & 0777U, mode);
  }
  EXPECT_EQ(names(), "a");
}

TEST_F(Files, LinksAreFollowed) {
  ASSERT_TRUE(fs::create_directory(at("sub")));
  fs::create_symlink("sub/far", at("near"));
  fs::create_symlink(at("near"), at("nearer"));
  fs::create_symlink("loop", at("loop"));
  for (const std::string text : {"made", "replaced"}) {
    ASSERT_TRUE(writeFile(at("nearer"), bytesOf(text)));
    EXPECT_EQ(textOf(at("sub/far")), text);
    EXPECT_TRUE(fs::is_symlink(at("near")) && fs::is_symlink(at("nearer")));
  }
  EXPECT_EQ(writeFile(at("loop"), bytesOf("x")).error().kind, ErrorKind::CannotCreate);
  EXPECT_EQ(names(), "loop near nearer sub");
}

/// A disk that is full half way, for as long as it lives.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &old_);
    const rlimit small = {bytes, old_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
  }
  ~FileSizeLimit() {
    ::setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, signal_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  void (*signal_)(int);
  rlimit old_ = {};
};

TEST_F(Files, AWriteThatFailsHalfWayLeavesTheOldFile) {
  ASSERT_TRUE(writeFile(at("a"), bytesOf("old")));
  {
    const FileSizeLimit limit(4096);
    for (const char* name : {"a", "b"}) {
      const auto status = writeFile(at(name), bytesOf(std::string(100'000, 'x')));
      ASSERT_FALSE(status);
      EXPECT_EQ(status.error().kind, ErrorKind::InputOutput);
    }
  }
  EXPECT_EQ(textOf(at("a")), "old");
  EXPECT_EQ(names(), "a");
}

TEST_F(Files, DevicesAndDescriptorsAreWrittenStraight) {
  EXPECT_TRUE(writeFile("/dev/null", bytesOf("x")));
  if (fs::exists("/dev/full")) {
    EXPECT_EQ(writeFile("/dev/full", bytesOf("x")).error().kind, ErrorKind::InputOutput);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
  }
  // Output redirected to a file is added to, as a shell user expects.
  std::FILE* out = std::fopen(at("log").c_str(), "w");
  ASSERT_NE(out, nullptr);
  std::fputs("first,", out);
  std::fflush(out);
  const fs::path name = "/dev/fd/" + std::to_string(::fileno(out));
  EXPECT_TRUE(writeFile(name, bytesOf("second")));
  std::fclose(out);
  EXPECT_EQ(textOf(at("log")), "first,second");
  EXPECT_EQ(names(), "log");
}

#endif

}  // namespace
}  // namespace pv
