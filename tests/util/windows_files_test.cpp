// What files do on Windows and nowhere else.

#include <chrono>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "temporary_folder.h"
#include "util/disk_object.h"
#include "util/files.h"
#include "util/folders.h"
#include "util/program_path.h"
#include "util/utf8_path.h"
#include "util/windows_calls.h"

namespace pv {
namespace {

namespace fs = std::filesystem;
using platform::Handle;
using platform::systemPath;
using namespace std::chrono_literals;

std::span<const std::byte> bytesOf(const std::string& text) {
  return std::as_bytes(std::span(text));
}

std::string textOf(const fs::path& file) {
  const auto read = readFile(file, 1 << 20);
  if (!read) {
    return "error: " + read.error().message();
  }
  return {reinterpret_cast<const char*>(read.value().data()), read.value().size()};
}

class WindowsFiles : public ::testing::Test {
 protected:
  [[nodiscard]] std::string names() const { return folder_.names(); }
  [[nodiscard]] fs::path at(const fs::path& name) const { return folder_.path() / name; }

 private:
  TemporaryFolder folder_;
};

/// The file for itself alone, as some scanners take it.
HANDLE holdAlone(const fs::path& file) {
  return ::CreateFileW(systemPath(file).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0,
                       nullptr);
}

TEST_F(WindowsFiles, AFileThatIsHeldShortlyIsWaitedFor) {
  const std::pair<const char*, bool (*)(const fs::path&)> kUses[] = {
      {"write", [](const fs::path& file) { return writeFile(file, bytesOf("new")).ok(); }},
      {"read", [](const fs::path& file) { return textOf(file) == "old"; }},
      {"rename", [](const fs::path& file) { return !renameEntry(file, fs::path(file) += ".bak"); }},
      {"remove", [](const fs::path& file) { return !removeEntry(file); }},
  };
  for (const auto& [name, use] : kUses) {
    const auto file = at(name);
    ASSERT_TRUE(writeFile(file, bytesOf("old")));
    Handle held(holdAlone(file));
    ASSERT_TRUE(held.open());
    std::thread release([&held] {
      std::this_thread::sleep_for(200ms);
      static_cast<void>(held.close());
    });
    EXPECT_TRUE(use(file)) << name;
    release.join();
  }
  EXPECT_EQ(textOf(at("write")), "new");
  EXPECT_EQ(names(), "read rename.bak write");
}

TEST_F(WindowsFiles, AFileThatIsHeldForGoodStaysWhole) {
  ASSERT_TRUE(writeFile(at("a"), bytesOf("old")));
  Handle held(holdAlone(at("a")));
  const auto begin = std::chrono::steady_clock::now();
  const auto written = writeFile(at("a"), bytesOf("new"));
  const auto read = readFile(at("a"), 10);
  EXPECT_GT(std::chrono::steady_clock::now() - begin, 900ms);
  ASSERT_FALSE(written);
  EXPECT_EQ(written.error().kind, ErrorKind::CannotCreate);
  EXPECT_TRUE(written.error().reason.starts_with("cannot be replaced: ")) << written.error().reason;
  ASSERT_FALSE(read);
  EXPECT_EQ(read.error().kind, ErrorKind::NoInput);
  EXPECT_TRUE(held.close());
  EXPECT_EQ(textOf(at("a")), "old");
  EXPECT_EQ(names(), "a");
}

TEST_F(WindowsFiles, ReadersThatShareTheFileSeeItWhole) {
  ASSERT_TRUE(writeFile(at("a"), bytesOf(std::string(100'000, 'x'))));
  std::thread writer([this] {
    for (int i = 0; i < 50; ++i) {
      EXPECT_TRUE(writeFile(at("a"), bytesOf(std::string(100'000, i % 2 == 0 ? 'y' : 'x'))));
    }
  });
  for (int i = 0; i < 50; ++i) {
    const std::string text = textOf(at("a"));
    EXPECT_EQ(text, std::string(100'000, text[0])) << i;
  }
  writer.join();
  EXPECT_EQ(names(), "a");
}

TEST_F(WindowsFiles, AttributesStayAndReadOnlyProtects) {
  const auto name = systemPath(at("a"));
  ASSERT_TRUE(writeFile(at("a"), bytesOf("old")));
  ASSERT_NE(::SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_HIDDEN), 0);
  ASSERT_TRUE(writeFile(at("a"), bytesOf("new")));
  EXPECT_NE(::GetFileAttributesW(name.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
  ASSERT_NE(::SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_READONLY), 0);
  EXPECT_EQ(writeFile(at("a"), bytesOf("newer")).error().reason, "the file is read-only");
  EXPECT_EQ(textOf(at("a")), "new");
  ASSERT_NE(::SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_NORMAL), 0);
  EXPECT_EQ(names(), "a");
}

TEST_F(WindowsFiles, PathsMayBeLong) {
  fs::path folder = at("deep");
  while (folder.native().size() < 300) {
    folder /= std::wstring(40, L'\x3B1');
  }
  ASSERT_FALSE(createFolders(folder));
  EXPECT_TRUE(isFolder(folder));
  const fs::path file = folder / L"\x30B7\x30FC\x30F3 \xD83D\xDE00.j3d";
  ASSERT_TRUE(writeFile(file, bytesOf("one")));
  ASSERT_TRUE(writeFile(file, bytesOf("two")));
  EXPECT_EQ(textOf(file), "two");
  EXPECT_TRUE(isSameEntry(file, finalPath(file)));
  EXPECT_EQ(finalPath(file).filename(), file.filename());

  CDiskObject disk;
  std::vector<std::string> list;
  const std::string name = programPath(file);
  EXPECT_TRUE(disk.listFilesMatching("*.j3d", programPath(folder), list, ListMode::FullPaths));
  EXPECT_EQ(list, std::vector<std::string>{name});
  EXPECT_EQ(disk.fileInformation(name), (FileInformation{3, false}));
  ASSERT_FALSE(renameEntry(file, fs::path(file) += ".bak"));
  EXPECT_TRUE(disk.createFile(name) && disk.removeFile(name) && disk.removeFile(name + ".bak"));
  for (; folder != at("deep").parent_path(); folder = folder.parent_path()) {
    ASSERT_TRUE(disk.removeDirectory(programPath(folder))) << disk.errorText();
  }
  EXPECT_EQ(names(), "");
}

TEST_F(WindowsFiles, DevicesAreNeverOpened) {
  for (const char* name : {"con", "NUL", "Com1", "lpt9", "aux", "prn", "nul.j3d", "con .j3d"}) {
    EXPECT_EQ(readFile(name, 10).error().kind, ErrorKind::NoInput) << name;
    EXPECT_EQ(writeFile(name, bytesOf("x")).error().kind, ErrorKind::CannotCreate) << name;
    EXPECT_FALSE(CDiskObject().createFile(name)) << name;
    EXPECT_FALSE(isFolder(name)) << name;
  }
  // Whether these stand for a device or a file is the system's choice; a file it is then.
  for (const char* name : {"CONIN$", "CONOUT$", "com\xC2\xB9"}) {
    const auto file = at(pathFromUtf8(name));
    if (writeFile(file, bytesOf("x"))) {
      EXPECT_EQ(textOf(file), "x") << name;
      EXPECT_FALSE(removeEntry(file));
    }
  }
  EXPECT_FALSE(readFile("\\\\.\\pipe\\pv-no-such-pipe", 10));
  EXPECT_FALSE(writeFile("\\\\?\\pipe\\pv-no-such-pipe", bytesOf("x")));
  EXPECT_EQ(names(), "");
}

TEST_F(WindowsFiles, DotsAndBlanksAtTheEndAreNotTheNames) {
  ASSERT_TRUE(writeFile(at("a. ."), bytesOf("x")));
  EXPECT_EQ(textOf(at("a")), "x");
  EXPECT_EQ(names(), "a");
}

TEST_F(WindowsFiles, AVanishedDriveIsAnError) {
  wchar_t letter = L'Y';
  while ((::GetLogicalDrives() >> (letter - L'A') & 1U) != 0) {
    --letter;
  }
  const fs::path file = std::wstring{letter} + L":\\folder\\a.j3d";
  EXPECT_EQ(readFile(file, 10).error().kind, ErrorKind::NoInput);
  EXPECT_EQ(writeFile(file, bytesOf("x")).error().kind, ErrorKind::CannotCreate);
  EXPECT_TRUE(createFolders(file.parent_path()));
  EXPECT_FALSE(isNameTaken(file));
}

// PV_SMALL_DRIVE names a folder on a drive of a few hundred kilobytes.
TEST_F(WindowsFiles, AFullDriveLeavesTheOldFile) {
  const char* drive = std::getenv("PV_SMALL_DRIVE");
  if (drive == nullptr) {
    GTEST_SKIP() << "there is no small drive";
  }
  const fs::path file = fs::path(drive) / "a";
  ASSERT_TRUE(writeFile(file, bytesOf("old")));
  const auto status = writeFile(file, bytesOf(std::string(1 << 22, 'x')));
  ASSERT_FALSE(status);
  EXPECT_EQ(status.error().kind, ErrorKind::InputOutput) << status.error().reason;
  EXPECT_EQ(textOf(file), "old");
  std::vector<FolderEntry> left;
  ASSERT_FALSE(listFolder(drive, left));
  EXPECT_EQ(left.size(), 1U);
  EXPECT_FALSE(removeEntry(file));
}

TEST_F(WindowsFiles, HostPathsKeepTheirRoots) {
  const std::pair<const char*, const wchar_t*> kCases[] = {
      {"C:\\\\a//b\\", L"C:\\a\\b"},
      {"c:/", L"c:\\"},
      {"//host/share\\\\x\\", L"\\\\host\\share\\x"},
      {"\\\\?\\C:\\x\\\\y", L"\\\\?\\C:\\x\\y"},
      {"a\\b", L"a\\b"},
      {"", L""},
      {"\xCE\xB1\\\xED\xA0\x80", L"\x3B1\\\xD800"},  // half a pair, as a name may hold it
      {"\xFF", L"\xFFFD"},
  };
  for (const auto& [program, host] : kCases) {
    EXPECT_EQ(hostPath(program).native(), host) << program;
  }
  EXPECT_EQ(utf8FromPath(L"\xD800x\xDE00"), "\xED\xA0\x80x\xED\xB8\x80");
}

}  // namespace
}  // namespace pv
