// The registry, the lock and the program's name as Windows has them.

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "util/instance_lock.h"
#include "util/module_name.h"
#include "util/registry_store.h"
#include "util/user_folders.h"

namespace pv {
namespace {

constexpr std::string_view kKey = "Software\\Maker\\T\xC3\xB6ol";

RegistryBytes bytes(std::uint32_t type, std::initializer_list<int> values) {
  RegistryBytes result{type, {}};
  for (const int v : values) {
    result.bytes.push_back(static_cast<std::byte>(v));
  }
  return result;
}

TEST(WindowsRegistry, TypesOfValues) {
  struct Row {
    std::uint32_t type;
    std::initializer_list<std::uint8_t> stored;
    RegistryValue value;
  };
  const Row rows[] = {
      {REG_SZ, {'a', 0, 0xE9, 0, 0, 0}, "a\xC3\xA9"},
      {REG_SZ, {'a', 0, 0, 0, 'b', 0, 0, 0}, "a"},
      {REG_SZ, {0x3D, 0xD8, 0x00, 0xDE, 0, 0}, "\xF0\x9F\x98\x80"},
      {REG_SZ, {0, 0xD8, 0, 0}, "\xEF\xBF\xBD"},
      {REG_DWORD, {1, 2, 3, 4}, 0x04030201U},
      {REG_DWORD, {1, 2, 3}, bytes(REG_DWORD, {1, 2, 3})},
      {REG_DWORD, {1, 2, 3, 4, 5, 6, 7, 8}, bytes(REG_DWORD, {1, 2, 3, 4, 5, 6, 7, 8})},
      {REG_DWORD_BIG_ENDIAN, {1, 2, 3, 4}, bytes(REG_DWORD_BIG_ENDIAN, {1, 2, 3, 4})},
      {REG_QWORD, {1, 2, 3, 4, 5, 6, 7, 8}, bytes(REG_QWORD, {1, 2, 3, 4, 5, 6, 7, 8})},
      {REG_BINARY, {1, 2, 3, 4}, bytes(REG_BINARY, {1, 2, 3, 4})},
      {REG_BINARY, {}, bytes(REG_BINARY, {})},
      {REG_NONE, {1}, bytes(REG_NONE, {1})},
  };
  RegistryStore store;
  for (const Row& row : rows) {
    store.put(kKey, "Name", row.type, row.stored);
    EXPECT_EQ(store.registry().query(kKey, "nAME"), row.value)
        << row.type << " of " << row.stored.size();
  }
  // Texts of other kinds are neither texts nor numbers here, whatever they hold.
  for (const std::uint32_t type : {REG_EXPAND_SZ, REG_MULTI_SZ, REG_LINK}) {
    store.put(kKey, "Name", type, {'%', 0, 'A', 0, '%', 0, 0, 0, 0, 0});
    const auto value = store.registry().query(kKey, "Name");
    ASSERT_TRUE(value) << type;
    ASSERT_TRUE(std::holds_alternative<RegistryBytes>(*value)) << type;
    EXPECT_EQ(std::get<RegistryBytes>(*value).type, type);
  }
}

TEST(WindowsRegistry, TextsComeBackAndReplaceOtherTypes) {
  RegistryStore store;
  UserRegistry& registry = store.registry();
  EXPECT_EQ(registry.query(kKey, "Name"), std::nullopt);
  store.put(kKey, "Name", REG_QWORD, {1, 2, 3, 4, 5, 6, 7, 8});
  for (const std::string text : {"", "a\\\"\xC3\xA9", "\xF0\x9F\x98\x80"}) {
    ASSERT_TRUE(registry.setString(kKey, "Name", text));
    EXPECT_EQ(registry.query(kKey, "Name"), RegistryValue(text));
  }
  for (const auto& text : {std::string("two\nlines"), std::string("a\0b", 3)}) {
    EXPECT_FALSE(registry.setString(kKey, "Name", text));
    EXPECT_FALSE(registry.setString(kKey, text, "x"));
  }
  EXPECT_FALSE(registry.setString(kKey, "Name", std::string(1 << 20, 'x')));
  EXPECT_EQ(registry.query(kKey, "Name"), RegistryValue("\xF0\x9F\x98\x80"));
  EXPECT_EQ(registry.query("Software\\None", "Name"), std::nullopt);
  EXPECT_TRUE(registry.setString(kKey, "", "own"));
  EXPECT_EQ(registry.query(kKey, ""), RegistryValue("own"));
}

constexpr const char* kLock = "PV_TEST_LOCK";
constexpr const wchar_t* kHolds = L"PV_TEST_LOCK_HOLDS";
constexpr DWORD kPatience = 20'000;  // milliseconds

// Run by the test below in a process of its own, which is then killed.
TEST(WindowsInstanceLock, DISABLED_HolderOfTheLock) {
  const InstanceLock lock({}, kLock);
  const HANDLE holds = ::OpenEventW(EVENT_MODIFY_STATE, FALSE, kHolds);
  ASSERT_TRUE(lock.first());
  ::SetEvent(holds);
  ::Sleep(kPatience);
}

TEST(WindowsInstanceLock, AnotherProcessIsSeenUntilItsEnd) {
  const HANDLE holds = ::CreateEventW(nullptr, TRUE, FALSE, kHolds);
  std::wstring command = L"\"" + pathFromUtf8(*moduleName()).native() +
                         L"\" --gtest_also_run_disabled_tests --gtest_filter=*HolderOfTheLock";
  STARTUPINFOW start = {};
  start.cb = sizeof start;
  PROCESS_INFORMATION process = {};
  ASSERT_NE(::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                             &start, &process),
            0);
  const HANDLE either[] = {holds, process.hProcess};
  EXPECT_EQ(::WaitForMultipleObjects(2, either, FALSE, kPatience), WAIT_OBJECT_0);
  for (int i = 0; i < 2; ++i) {
    EXPECT_FALSE(InstanceLock({}, kLock).first());
  }
  EXPECT_TRUE(InstanceLock({}, "PV_TEST_OTHER").first());
  ::TerminateProcess(process.hProcess, 1);
  ::WaitForSingleObject(process.hProcess, kPatience);
  {
    const InstanceLock next({}, kLock);
    EXPECT_TRUE(next.first());
    EXPECT_FALSE(InstanceLock({}, kLock).first());
  }
  EXPECT_TRUE(InstanceLock({}, kLock).first());
  for (const HANDLE handle : {process.hThread, process.hProcess, holds}) {
    ::CloseHandle(handle);
  }
}

TEST(WindowsUser, SettingsNeedNoFolder) {
  EXPECT_EQ(userConfigFolder(), std::filesystem::path());
  EXPECT_EQ(userRuntimeFolder(), std::filesystem::path());
}

TEST(WindowsModuleName, IsThisProgram) {
  const auto name = moduleName();
  ASSERT_TRUE(name.has_value());
  EXPECT_EQ(name->substr(1, 2), ":\\") << *name;
  EXPECT_TRUE(name->ends_with("_test.exe")) << *name;
  EXPECT_EQ(name->find('/'), std::string::npos) << *name;
}

}  // namespace
}  // namespace pv
