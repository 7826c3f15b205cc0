#include <bit>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "cli/cli_fixture.h"
#include "shape/shape_file.h"

namespace pv {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kHuge = std::numeric_limits<std::int32_t>::max();
constexpr std::size_t kKind = 122;
constexpr std::size_t kHorizontalAmount = 130;
constexpr std::size_t kVerticalAmount = 146;
constexpr std::size_t kCopies = 158;
constexpr std::size_t kPathCount = 174;

class BadInput : public CliTest {
 protected:
  /// A small grid's file with some words replaced.
  static std::string patched(std::vector<std::pair<std::size_t, std::uint32_t>> words) {
    ShapeRecord shape;
    shape.emitter.kind = EmitterKind::GridPatch;
    const auto encoded = encodeShapeFile(shape);
    std::string bytes(reinterpret_cast<const char*>(encoded.data()), encoded.size());
    for (const auto& [offset, word] : words) {
      for (std::size_t i = 0; i < 4; ++i) {
        bytes[offset + i] = static_cast<char>(word >> (8 * i));
      }
    }
    return bytes;
  }

  [[nodiscard]] Ran exportIt() const { return run({"export", at("in.j3d"), "-o", at("o.obj")}); }
  [[nodiscard]] Ran renderIt() const { return run({"render", at("in.j3d"), "-o", at("o.png")}); }
  [[nodiscard]] Ran checkIt() const { return run({"check", at("in.j3d")}); }

  /// One line that names the file, the status, and nothing left behind.
  void expectRefused(const Ran& ran, int status) const {
    EXPECT_EQ(ran.status, status) << ran.err;
    EXPECT_EQ(ran.errLines(), 1) << ran.err;
    EXPECT_EQ(ran.err.find("pvortex: " + at("")), 0U) << ran.err;
    EXPECT_EQ(names(), std::vector<std::string>{"in.j3d"});
  }
};

TEST_F(BadInput, WhatTheReaderRefusesIsBadData) {
  std::string noise(kShapeFileBytes, '\0');
  std::minstd_rand random(7);
  std::generate(noise.begin(), noise.end(), [&random] { return static_cast<char>(random()); });
  const std::string files[] = {
      "",
      "\x46",
      noise,
      patched({}).substr(0, 2),
      patched({}).substr(0, kShapeFileBytes - 1),
      patched({{0, 0x11111111U}}),
      patched({{kPathCount, static_cast<std::uint32_t>(-1)}}),
      patched({{kPathCount, 513}}),
      patched({{kPathCount, kHuge}}),
  };
  for (const std::string& bytes : files) {
    SCOPED_TRACE(bytes.size());
    write("in.j3d", bytes);
    expectRefused(run({"info", at("in.j3d")}), 65);
    expectRefused(run({"set", at("in.j3d"), "-o", at("o.j3d")}), 65);
    expectRefused(exportIt(), 65);
    expectRefused(renderIt(), 65);
    const Ran check = checkIt();
    EXPECT_EQ(check.status, 65);
    EXPECT_EQ(check.out.find(at("in.j3d") + ": fault: "), 0U) << check.out;
  }
}

TEST_F(BadInput, ShapesThatCannotBeBuiltAreFaults) {
  const std::string files[] = {
      patched({{kKind, static_cast<std::uint32_t>(-1)}}),
      patched({{kKind, 5}}),
      patched({{kKind, 0x80000000U}}),
      patched({{kHorizontalAmount, kHuge}, {kVerticalAmount, kHuge}, {kCopies, 20}}),
      patched({{kVerticalAmount, kHuge}}),
      patched({{kHorizontalAmount, 1999}, {kVerticalAmount, 1999}, {kCopies, 20}}),
  };
  for (const std::string& bytes : files) {
    write("in.j3d", bytes);
    expectRefused(exportIt(), 65);
    expectRefused(renderIt(), 65);
    EXPECT_EQ(checkIt().status, 65) << checkIt().out;
    EXPECT_EQ(run({"info", "--json", at("in.j3d")}).status, 0);
  }
}

TEST_F(BadInput, OddShapesGetNotesAndStillWork) {
  const std::string odd[] = {
      patched({{kHorizontalAmount, 401}}),
      patched({{kHorizontalAmount, static_cast<std::uint32_t>(-5)}}),
      patched({{kHorizontalAmount, static_cast<std::uint32_t>(-5)},
               {kVerticalAmount, static_cast<std::uint32_t>(-5)}}),
      patched({{kKind, 2}, {kHorizontalAmount, 0x80000000U}, {kVerticalAmount, 0x80000000U}}),
      patched({{kCopies, static_cast<std::uint32_t>(-1)}}),
      patched({{kCopies, 21}}),
      patched({{kCopies, kHuge}}),
      patched({}) + "and more",
  };
  for (const std::string& bytes : odd) {
    write("in.j3d", bytes);
    const Ran check = checkIt();
    EXPECT_EQ(check.status, 0);
    EXPECT_EQ(check.out.find(at("in.j3d") + ": note: "), 0U) << check.out;
    EXPECT_TRUE(check.out.ends_with(": ok\n")) << check.out;
    EXPECT_EQ(exportIt().status, 0);
    EXPECT_EQ(renderIt().status, 0);
  }
  for (const std::uint32_t kind : {0U, 1U, 2U, 3U, 4U}) {
    write("in.j3d", patched({{kKind, kind}, {kHorizontalAmount, 0}, {kVerticalAmount, 0}}));
    EXPECT_EQ(exportIt().status, 0);
    EXPECT_EQ(renderIt().status, 0);
    EXPECT_EQ(checkIt().status, 0);
  }
}

TEST_F(BadInput, NumbersThatAreNotFiniteAreNamed) {
  for (const float bad :
       {std::numeric_limits<float>::quiet_NaN(), -std::numeric_limits<float>::infinity()}) {
    const auto word = std::bit_cast<std::uint32_t>(bad);
    write("in.j3d", patched({{6322 + 120, word}, {kPathCount, 1}, {kPathCount + 8, word}}));
    const Ran check = checkIt();
    EXPECT_EQ(check.status, 65);
    EXPECT_NE(check.out.find("byte 6442: modifiers.twist.x"), std::string::npos) << check.out;
    EXPECT_NE(check.out.find("byte 182: path.points.0.y"), std::string::npos) << check.out;
    EXPECT_EQ(run({"info", "--json", at("in.j3d")}).status, 0);
    expectRefused(exportIt(), 65);
    EXPECT_EQ(renderIt().status, 0);
    fs::remove(at("o.png"));
  }
}

TEST_F(BadInput, FilesThatCannotBeOpenedDoNotStopTheRest) {
  write("in.j3d", patched({}));
  fs::create_directory(at("folder.j3d"));
  const Ran ran = run({"check", at("none.j3d"), at("folder.j3d"), at("in.j3d")});
  EXPECT_EQ(ran.status, 66);
  EXPECT_EQ(ran.errLines(), 2) << ran.err;
  EXPECT_EQ(ran.out, at("in.j3d") + ": ok\n");
  write("bad.j3d", "?");
  EXPECT_EQ(run({"check", at("none.j3d"), at("bad.j3d")}).status, 65);
  EXPECT_EQ(run({"info", at("folder.j3d")}).status, 66);
  EXPECT_EQ(run({"new", "-o", at("o.j3d"), "path=" + at("none.j2d")}).status, 66);
  EXPECT_EQ(run({"info", "--json", at("no\nne\xFF")}).errLines(), 1);
  EXPECT_FALSE(exists("o.j3d"));
  fs::permissions(at("in.j3d"), fs::perms::none);
  if (!std::ifstream(at("in.j3d"))) {  // the superuser reads everything
    EXPECT_EQ(checkIt().status, 66);
  }
  fs::permissions(at("in.j3d"), fs::perms::owner_all);
}

TEST_F(BadInput, TargetsThatCannotBeWrittenStayAsTheyAre) {
  write("in.j3d", patched({}));
  const auto tryAll = [this](const std::string& stem) {
    return std::vector<Ran>{run({"set", at("in.j3d"), "-o", at(stem + ".j3d")}),
                            run({"export", at("in.j3d"), "-o", at(stem + ".obj")}),
                            run({"render", at("in.j3d"), "-o", at(stem + ".png")})};
  };
  for (const Ran& ran : tryAll("nowhere/o")) {
    expectRefused(ran, 73);
  }
  const std::string extensions[] = {".j3d", ".obj", ".png"};
  for (const std::string& extension : extensions) {
    write("kept" + extension, "old");
    fs::permissions(at("kept" + extension), fs::perms::owner_read);
    fs::create_directory(at("folder" + extension));
  }
  auto before = names();
  for (const std::string stem : {"kept", "folder"}) {
    for (const Ran& ran : tryAll(stem)) {
      EXPECT_EQ(ran.status, 73) << ran.err;
      EXPECT_EQ(ran.errLines(), 1) << ran.err;
    }
  }
  EXPECT_EQ(names(), before);
  EXPECT_EQ(read("kept.obj"), "old");
  for (const std::string& extension : extensions) {
    fs::permissions(at("kept" + extension), fs::perms::owner_all);
  }
#ifdef __linux__
  for (const std::string& extension : extensions) {
    fs::create_symlink("/dev/full", at("full" + extension));
  }
  before = names();
  for (const Ran& ran : tryAll("full")) {
    EXPECT_EQ(ran.status, 74) << ran.err;
    EXPECT_NE(ran.err.find("full."), std::string::npos) << ran.err;
    EXPECT_EQ(ran.errLines(), 1) << ran.err;
  }
  EXPECT_EQ(names(), before);
#endif
}

}  // namespace
}  // namespace pv
