#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <sstream>
#include <string>
#include <string_view>

#include "util/temporary_folder.h"
#include "util/user_registry.h"

#ifdef _WIN32
#include "util/utf8_path.h"
#include "util/windows_calls.h"
#endif

namespace pv {

/// An empty registry for one test, and a way to put values of any type into it.
class RegistryStore {
 public:
  [[nodiscard]] UserRegistry& registry() { return registry_; }

  /// The bytes as they are stored; texts (type 1) are UTF-16 with a zero behind.
  void put(std::string_view key, std::string_view name, std::uint32_t type,
           std::initializer_list<std::uint8_t> bytes);

#ifdef _WIN32
  /// This process takes a key of its own for the current user's.
  RegistryStore() {
    ::RegDeleteTreeW(HKEY_CURRENT_USER, name_.c_str());
    ::RegCreateKeyW(HKEY_CURRENT_USER, name_.c_str(), &own_);
    ::RegOverridePredefKey(HKEY_CURRENT_USER, own_);
  }
  ~RegistryStore() {
    ::RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    ::RegCloseKey(own_);
    ::RegDeleteTreeW(HKEY_CURRENT_USER, name_.c_str());
  }

 private:
  std::wstring name_ =
      L"Software\\Particle Vortex Test " + std::to_wstring(::GetCurrentProcessId());
  HKEY own_ = nullptr;
  UserRegistry registry_{{}};
#else
  RegistryStore() = default;

 private:
  TemporaryFolder folder_;
  UserRegistry registry_{folder_.path()};
#endif

 public:
  RegistryStore(const RegistryStore&) = delete;
  RegistryStore& operator=(const RegistryStore&) = delete;
};

inline void RegistryStore::put(std::string_view key, std::string_view name, std::uint32_t type,
                               std::initializer_list<std::uint8_t> bytes) {
#ifdef _WIN32
  ::RegSetKeyValueW(own_, pathFromUtf8(key).c_str(), pathFromUtf8(name).c_str(), type, data(bytes),
                    static_cast<DWORD>(bytes.size()));
#else
  std::string file;
  for (const char c : key) {
    file += c == '\\' ? '.' : c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
  }
  std::ostringstream line;
  line << '"' << name << "\"=hex(" << std::hex << type << "):";
  for (const std::uint8_t byte : bytes) {
    line << (byte < 16 ? "0" : "") << unsigned{byte} << (&byte + 1 < end(bytes) ? "," : "");
  }
  std::ofstream out(folder_.path() / (file + ".reg"), std::ios::app | std::ios::binary);
  out << "[HKEY_CURRENT_USER\\" << key << "]\n" << line.str() << '\n';
#endif
}

}  // namespace pv
