// The program as Windows starts it: its arguments and what it writes.

#include <gtest/gtest.h>
#include <string>
#include <utility>

#include "util/files.h"
#include "util/folders.h"
#include "util/temporary_folder.h"
#include "util/utf8_path.h"
#include "util/windows_calls.h"

namespace pv {
namespace {

/// The exit status, and all that was written, of pvortex in a folder.
std::pair<DWORD, std::string> run(const std::filesystem::path& folder, std::wstring arguments) {
  const auto output = folder / "output";
  SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
  platform::Handle file(::CreateFileW(output.c_str(), GENERIC_WRITE, platform::kShareAll,
                                      &inherited, CREATE_ALWAYS, 0, nullptr));
  STARTUPINFOW start = {};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdOutput = start.hStdError = file.get();
  PROCESS_INFORMATION process = {};
  arguments = L"pvortex " + arguments;
  if (::CreateProcessW(platform::systemPath(PV_PROGRAM).c_str(), arguments.data(), nullptr, nullptr,
                       TRUE, 0, nullptr, folder.c_str(), &start, &process) == 0) {
    return {::GetLastError(), "not started"};
  }
  DWORD status = 0;
  constexpr DWORD kPatience = 20'000;  // milliseconds
  EXPECT_EQ(::WaitForSingleObject(process.hProcess, kPatience), WAIT_OBJECT_0) << "it hangs";
  ::GetExitCodeProcess(process.hProcess, &status);
  ::CloseHandle(process.hThread);
  ::CloseHandle(process.hProcess);
  EXPECT_TRUE(file.close());
  const auto bytes = readFile(output, 1 << 20);
  EXPECT_FALSE(removeEntry(output));
  return {status, {reinterpret_cast<const char*>(bytes.value().data()), bytes.value().size()}};
}

TEST(WindowsProgram, ArgumentsAreAnyTextAndStarsAreExpanded) {
  const TemporaryFolder folder;
  const auto says = [&folder](const std::wstring& arguments, DWORD status,
                              const std::string& text) {
    const auto [ended, written] = run(folder.path(), arguments);
    EXPECT_EQ(ended, status) << written;
    EXPECT_EQ(written, text);
  };
  says(L"new -o \x3B1\xD83D\xDE00.j3d", 0, "");
  says(L"new -o \"b c.j3d\"", 0, "");
  // Lines end with LF, as everywhere.
  says(L"check *.j3d", 0, "b c.j3d: ok\n\xCE\xB1\xF0\x9F\x98\x80.j3d: ok\n");
  // The reason is in the system's own words.
  const auto [missing, reason] = run(folder.path(), L"check \xD800.j3d");
  EXPECT_EQ(missing, 66U);
  EXPECT_TRUE(reason.starts_with("pvortex: \xED\xA0\x80.j3d: cannot be opened: ")) << reason;
  for (const wchar_t* device : {L"con", L"nul", L"COM1", L"CONIN$", L"con.j3d"}) {
    EXPECT_EQ(run(folder.path(), std::wstring(L"check ") + device).first, 66U) << device;
  }
  EXPECT_EQ(run(folder.path(), L"new -o nul.j3d").first, 73U);
}

}  // namespace
}  // namespace pv
