#include <utility>

#include "util/files_platform.h"
#include "util/user_registry.h"
#include "util/utf8_path.h"
#include "util/windows_calls.h"

namespace pv {
namespace {

constexpr DWORD kMaxValueSize = DWORD{1} << 20;

/// Bytes that are no UTF-8 become U+FFFD.
std::wstring wide(std::string_view text) {
  const int size = static_cast<int>(text.size());
  std::wstring result(text.size(), L'\0');  // never more units than bytes
  const int used = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), size, result.data(), size);
  result.resize(static_cast<std::size_t>(used));
  return result;
}

bool isSound(std::string_view text) {
  constexpr std::string_view kBreaks("\r\n\0", 3);
  return text.size() < kMaxValueSize && text.find_first_of(kBreaks) == std::string_view::npos;
}

}  // namespace

UserRegistry::UserRegistry(std::filesystem::path folder) : folder_(std::move(folder)) {}

std::optional<RegistryValue> UserRegistry::query(std::string_view key,
                                                 std::string_view name) const {
  if (!isSound(key) || !isSound(name)) {
    return std::nullopt;
  }
  HKEY opened = nullptr;
  if (::RegOpenKeyExW(HKEY_CURRENT_USER, wide(key).c_str(), 0, KEY_QUERY_VALUE, &opened) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  const std::wstring wideName = wide(name);
  const auto read = [&](DWORD& type, BYTE* to, DWORD& size) {
    return ::RegQueryValueExW(opened, wideName.c_str(), nullptr, &type, to, &size) == ERROR_SUCCESS;
  };
  DWORD type = REG_NONE;
  DWORD size = 0;
  std::vector<std::byte> bytes;
  bool found = read(type, nullptr, size) && size <= kMaxValueSize;
  if (found) {
    bytes.resize(size);
    found = read(type, reinterpret_cast<BYTE*>(bytes.data()), size);
  }
  ::RegCloseKey(opened);
  if (!found) {
    return std::nullopt;
  }
  bytes.resize(size);
  return registryValue(type, bytes);
}

Status UserRegistry::setString(std::string_view key, std::string_view name, std::string_view text) {
  if (!isSound(key) || !isSound(name) || !isSound(text)) {
    return Error{ErrorKind::BadData, {}, {}, "settings are single lines"};
  }
  const std::wstring wideText = wide(text);
  const auto size = static_cast<DWORD>((wideText.size() + 1) * sizeof(wchar_t));
  const LSTATUS status = ::RegSetKeyValueW(HKEY_CURRENT_USER, wide(key).c_str(), wide(name).c_str(),
                                           REG_SZ, wideText.c_str(), size);
  if (status != ERROR_SUCCESS) {
    return Error{
        ErrorKind::CannotCreate, {}, {}, platform::systemMessage(static_cast<int>(status))};
  }
  return Done{};
}

}  // namespace pv
