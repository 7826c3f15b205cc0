#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "cli/run_cli.h"

namespace pv {

/// What one run of the program left behind.
struct Ran {
  int status = 0;
  std::string out;
  std::string err;

  [[nodiscard]] auto errLines() const { return std::count(err.begin(), err.end(), '\n'); }
};

/// A folder that lives as long as the test.
class CliTest : public ::testing::Test {
 protected:
  CliTest() {
    folder_ = std::filesystem::temp_directory_path() /
              ("pvortex-" + std::string(testInfo().name()) + "-" +
               std::to_string(reinterpret_cast<std::uintptr_t>(this)));
    std::filesystem::create_directories(folder_);
  }
  ~CliTest() override { std::filesystem::remove_all(folder_); }

  [[nodiscard]] std::string at(const std::string& name) const { return (folder_ / name).string(); }
  [[nodiscard]] bool exists(const std::string& name) const {
    return std::filesystem::exists(folder_ / name);
  }
  /// The names of everything in the folder, sorted.
  [[nodiscard]] std::vector<std::string> names() const {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
      found.push_back(entry.path().filename().string());
    }
    std::sort(found.begin(), found.end());
    return found;
  }

  static Ran run(const std::vector<std::string>& args) {
    std::ostringstream out;
    std::ostringstream err;
    const int status = runCli(args, out, err);
    return {status, out.str(), err.str()};
  }

  [[nodiscard]] std::string read(const std::string& name) const {
    std::ifstream file(folder_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void write(const std::string& name, const std::string& bytes) const {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
  }

 private:
  static const ::testing::TestInfo& testInfo() {
    return *::testing::UnitTest::GetInstance()->current_test_info();
  }

  std::filesystem::path folder_;
};

}  // namespace pv
