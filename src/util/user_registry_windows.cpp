#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <utility>
#include <windows.h>

#include "util/files_platform.h"
#include "util/user_registry.h"

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
  return text.size() < kMaxValueSize && text.find('\0') == std::string_view::npos;
}

}  // namespace

UserRegistry::UserRegistry(std::filesystem::path folder) : folder_(std::move(folder)) {}

std::optional<RegistryValue> UserRegistry::query(std::string_view key,
                                                 std::string_view name) const {
  if (!isSound(key) || !isSound(name)) {
    return std::nullopt;
  }
  constexpr DWORD kAsStored = RRF_RT_ANY | RRF_NOEXPAND;
  const std::wstring wideKey = wide(key);
  const std::wstring wideName = wide(name);
  DWORD type = REG_NONE;
  DWORD size = 0;
  LSTATUS status = ::RegGetValueW(HKEY_CURRENT_USER, wideKey.c_str(), wideName.c_str(), kAsStored,
                                  &type, nullptr, &size);
  if (status != ERROR_SUCCESS || size > kMaxValueSize) {
    return std::nullopt;
  }
  std::vector<std::byte> bytes(size);
  status = ::RegGetValueW(HKEY_CURRENT_USER, wideKey.c_str(), wideName.c_str(), kAsStored, &type,
                          bytes.data(), &size);
  if (status != ERROR_SUCCESS) {
    return std::nullopt;
  }
  bytes.resize(size);
  return registryValue(type, bytes);
}

Status UserRegistry::setString(std::string_view key, std::string_view name, std::string_view text) {
  if (!isSound(key) || !isSound(name) || !isSound(text)) {
    return Error{ErrorKind::BadData, {}, {}, "settings are texts without zeros"};
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
