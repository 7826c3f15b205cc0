#include "util/windows_calls.h"

namespace pv::platform {
namespace {

constexpr std::wstring_view kAnyLength = L"\\\\?\\";
constexpr std::wstring_view kAnyLengthNetwork = L"\\\\?\\UNC\\";
constexpr std::wstring_view kDevice = L"\\\\.\\";
constexpr std::wstring_view kNetwork = L"\\\\";

}  // namespace

std::wstring systemPath(const std::filesystem::path& path) {
  const std::wstring& given = path.native();
  if (given.starts_with(kAnyLength)) {
    return given;
  }
  std::wstring whole(MAX_PATH, L'\0');
  DWORD used = 0;
  while ((used = ::GetFullPathNameW(given.c_str(), static_cast<DWORD>(whole.size()), whole.data(),
                                    nullptr)) > whole.size()) {
    whole.resize(used);
  }
  whole.resize(used);
  if (whole.empty() || whole.starts_with(kDevice)) {
    return {};
  }
  if (whole.starts_with(kNetwork)) {
    return std::wstring(kAnyLengthNetwork) + whole.substr(kNetwork.size());
  }
  return std::wstring(kAnyLength) + whole;
}

std::filesystem::path plainPath(std::wstring_view systemPath) {
  if (systemPath.starts_with(kAnyLengthNetwork)) {
    return std::wstring(kNetwork) += systemPath.substr(kAnyLengthNetwork.size());
  }
  return std::wstring(
      systemPath.substr(systemPath.starts_with(kAnyLength) ? kAnyLength.size() : 0));
}

}  // namespace pv::platform
