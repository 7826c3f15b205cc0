#include <cstdint>
#include <gtest/gtest.h>
#include <locale>
#include <new>
#include <nlohmann/json.hpp>
#include <png.h>
#include <streambuf>

#include "cli/cli_fixture.h"
#include "path/path_file.h"
#include "shape/shape_fields.h"
#include "shape/shape_file.h"
#include "view3d/shape_view.h"

namespace pv {
namespace {

using Cli = CliTest;

constexpr const char* kSixVertices =
    "v 0 0.5 0\nv 0 0 0\nv 0 -0.5 0\nv 0 0.5 -1\nv 0 0 -1\nv 0 -0.5 -1\n"
    "l 1 2\nl 2 3\nl 4 5\nl 5 6\nl 1 4\nl 2 5\nl 3 6\n";

std::vector<std::string> gridArgs(const std::string& file) {
  return {"new",
          "-o",
          file,
          "emitter.kind=grid",
          "emitter.horizontalAmount=2",
          "emitter.horizontalSize=500",
          "emitter.verticalAmount=1",
          "emitter.verticalSize=1000",
          "emitter.verticalCentre=0"};
}

// Commas, points and groups exchanged, as in many countries.
struct SwappedPunctuation : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\1"; }
};

TEST_F(Cli, EveryKeyGoesThroughFilesAndBack) {
  std::vector<std::string> args{"new", "-o", at("all.j3d")};
  std::string expected;
  for (const ShapeField& field : shapeFields()) {
    if (field.isSettable() && field.type != FieldType::Name) {
      const std::string value = field.type == FieldType::Float ? "0.25" : "1";
      args.push_back(field.key + "=" + value);
      expected += field.key + " = " + value + "\n";
    }
  }
  EXPECT_EQ(run(args).status, 0);
  const Ran info = run({"info", at("all.j3d")});
  std::istringstream lines(expected);
  for (std::string line; std::getline(lines, line);) {
    EXPECT_NE(info.out.find("\n" + line + "\n"), std::string::npos) << line;
  }
}

TEST_F(Cli, NewInfoSetExportInAnyLocale) {
  const std::locale before =
      std::locale::global(std::locale(std::locale(), new SwappedPunctuation));
  EXPECT_EQ(run(gridArgs(at("grid.j3d"))).status, 0);
  EXPECT_EQ(run({"export", at("grid.j3d"), "-o", at("grid.obj"), "--stage", "base"}).status, 0);
  EXPECT_EQ(
      run({"set", at("grid.j3d"), "-o", at("moved.j3d"), "modifiers.vertexMove.x=1234.5"}).status,
      0);
  EXPECT_EQ(run({"export", at("moved.j3d"), "-o", at("moved.obj")}).status, 0);
  const Ran info = run({"info", "--json", at("moved.j3d")});
  std::locale::global(before);

  EXPECT_EQ(read("grid.obj"), kSixVertices);
  EXPECT_TRUE(read("moved.obj").starts_with("v 1234.5 0.5 "));
  const auto json = nlohmann::json::parse(info.out).at(0);
  EXPECT_EQ(json["emitter"]["kind"], "gridPatch");
  EXPECT_EQ(json["emitter"]["horizontalSize"], 500);
  EXPECT_EQ(json["modifiers"]["vertexMove"]["x"], 1234.5);
  EXPECT_EQ(json["duplicates"]["reserved"].size(), 15U);
  EXPECT_EQ(json["totalEmitterCount"], 6);
  EXPECT_EQ(names(), (std::vector<std::string>{"grid.j3d", "grid.obj", "moved.j3d", "moved.obj"}));
}

TEST_F(Cli, PathsAreTakenFromFilesAndShown) {
  PathRecord path;
  path.count = 2;
  path.points[0] = {0.1F, -2.0F, 0.0F};
  const auto bytes = encodePathFile(path);
  write("profile.j2d", {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
  ASSERT_EQ(
      run({"new", "-o", at("a.j3d"), "emitter.kind=loft", "path=" + at("profile.j2d")}).status, 0);
  const Ran info = run({"info", at("a.j3d"), at("profile.j2d")});
  EXPECT_NE(info.out.find("emitter.pathPointCount = 2\n"), std::string::npos);
  EXPECT_NE(info.out.find("profile.j2d: path\npath.count = 2\n"
                          "path.points.0 = 0.100000001 -2 0\npath.points.1 = 0 0 0\n"),
            std::string::npos);
  const auto json = nlohmann::json::parse(run({"info", "--json", at("profile.j2d")}).out);
  EXPECT_EQ(json[0]["path"]["points"][0].dump(), "[0.100000001,-2.0,0.0]");

  ASSERT_EQ(run({"set", at("a.j3d"), "-o", at("a.j3d"), "emitter.kind=sphere"}).status, 0);
  EXPECT_NE(run({"info", at("a.j3d")}).out.find("pathPointCount = 11\n"), std::string::npos);
  ASSERT_EQ(run({"set", at("a.j3d"), "-o", at("a.j3d"), "Emitter.PathPointCount=5"}).status, 0);
  EXPECT_NE(run({"info", at("a.j3d")}).out.find("pathPointCount = 5\n"), std::string::npos);
}

TEST_F(Cli, ThePictureIsTheViewsFrame) {
  ASSERT_EQ(run({"new", "-o", at("a.j3d"), "emitter.kind=sphere", "emitter.verticalSize=300",
                 "modifiers.vertexDisperse.x=40", "emitter.copies=1"})
                .status,
            0);
  const Ran ran =
      run({"render", at("a.j3d"), "-o", at("a.png"), "--size", "121x64", "--yaw=200.5", "--pitch",
           "-30", "--roll", "15", "--distance", "2", "--modifier", "Twist", "--no-grid", "--dots"});
  ASSERT_EQ(ran.status, 0) << ran.err;

  ShapeView view;
  view.setShape(LoadShapeFile(at("a.j3d")).value());
  view.setSize(121, 64);
  view.setCamera({200.5F, -30.0F, 15.0F, 2.0F});
  view.SelectModifier(ModifierKind::Twist);
  view.setShowGrid(false);
  view.setShowLines(false);
  const auto frame = view.drawFrame();

  const std::string file = read("a.png");
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  ASSERT_NE(png_image_begin_read_from_memory(&image, file.data(), file.size()), 0);
  EXPECT_EQ(image.format, static_cast<png_uint_32>(PNG_FORMAT_RGB));
  ASSERT_EQ(image.width, 121U);
  ASSERT_EQ(image.height, 64U);
  std::vector<std::uint8_t> rgb(PNG_IMAGE_SIZE(image));
  ASSERT_NE(png_image_finish_read(&image, nullptr, rgb.data(), 0, nullptr), 0);
  std::size_t lit = 0;
  for (std::size_t i = 0; i < frame.size(); ++i) {
    const std::size_t at = 3 * ((63 - i / 121) * 121 + i % 121);
    const std::uint32_t pixel = (rgb[at] << 16U) | (rgb[at + 1] << 8U) | rgb[at + 2];
    ASSERT_EQ(pixel, frame[i] & 0xFFFFFFU) << "pixel " << i;
    lit += pixel != 0 ? 1 : 0;
  }
  EXPECT_GT(lit, 100U);
}

TEST_F(Cli, WrongUsageIsOneLineAndLeavesNothing) {
  const std::string in = at("a.j3d");
  ASSERT_EQ(run({"new", "-o", in}).status, 0);
  const std::string png = at("a.png");
  const std::vector<std::vector<std::string>> lines{
      {},
      {"frobnicate"},
      {"info"},
      {"info", "--frob", in},
      {"new"},
      {"new", "-o", at("b.txt")},
      {"new", "-o", at("b.j3d"), "emitter.kind"},
      {"new", "-o", at("b.j3d"), "emitter.knd=1"},
      {"new", "-o", at("b.j3d"), "emitter.kind=cube"},
      {"new", "-o", at("b.j3d"), "modifiers.twist.y=nan"},
      {"set", in},
      {"export", in, "-o", at("b.stl")},
      {"export", in, "-o", at("b.obj"), "--stage", "middle"},
      {"render", in, "-o", at("a.jpg")},
      {"render", in, "-o", png, "--view", "back"},
      {"render", in, "-o", png, "--size", "640"},
      {"render", in, "-o", png, "--size", "1x100"},
      {"render", in, "-o", png, "--size", "100x4000"},
      {"render", in, "-o", png, "--size", "99999999999x10"},
      {"render", in, "-o", png, "--yaw", "360.5"},
      {"render", in, "-o", png, "--pitch", "-90"},
      {"render", in, "-o", png, "--roll", "nan"},
      {"render", in, "-o", png, "--distance", "1.1"},
      {"render", in, "-o", png, "--modifier", "wobble"},
      {"render", in, "-o", png, "--modifier", ""},
      {"render", in, "-o", png, "--yaw", ""},
  };
  for (const auto& args : lines) {
    const Ran ran = run(args);
    const std::string shown = ::testing::PrintToString(args);
    EXPECT_EQ(ran.status, 64) << shown;
    EXPECT_EQ(ran.errLines(), 1) << shown << ran.err;
    EXPECT_TRUE(ran.err.starts_with("pvortex: ")) << ran.err;
    EXPECT_EQ(ran.out, "") << shown;
  }
  EXPECT_NE(run(lines[20]).err.find("-89 to 89"), std::string::npos) << "names the limit";
  EXPECT_EQ(run(lines[1]).err, "pvortex: 'frobnicate' is no command; see 'pvortex --help'\n");
  EXPECT_TRUE(run({"path", "new"}).err.ends_with("see 'pvortex path new --help'\n"));
  EXPECT_EQ(names(), std::vector<std::string>{"a.j3d"});
}

TEST_F(Cli, HelpVersionAndKeysNeedNothingElse) {
  for (const std::string command : {"info", "new", "set", "export", "render", "check"}) {
    const Ran help = run({command, "--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("Examples:\n  pvortex " + command), std::string::npos) << command;
    EXPECT_EQ(run({command, "--version"}).out, run({"--version"}).out);
  }
  EXPECT_NE(run({"--help"}).out.find("render"), std::string::npos);
  const Ran keys = run({"new", "--list-keys"});
  EXPECT_EQ(keys.status, 0);
  EXPECT_EQ(keys.out, run({"set", "--list-keys"}).out);
  EXPECT_NE(keys.out.find("1..100, spherePatch: 0..180"), std::string::npos) << keys.out;
}

struct FullMemory : std::streambuf {
  int_type overflow(int_type /*c*/) override { throw std::bad_alloc(); }
};

TEST_F(Cli, FailingOutputAndMemoryAreReported) {
  const std::vector<std::string> args{"new", "--list-keys"};
  std::ostream closed(nullptr);
  std::ostringstream err;
  EXPECT_EQ(runCli(args, closed, err), 74);
  FullMemory memory;
  std::ostream full(&memory);
  full.exceptions(std::ios::badbit);
  EXPECT_EQ(runCli(args, full, err), 74);
  EXPECT_EQ(err.str(),
            "pvortex: the standard output cannot be written\n"
            "pvortex: there is not enough memory\n");
}

}  // namespace
}  // namespace pv
