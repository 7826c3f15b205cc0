#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <string>
#include <vector>

#include "cli/cli_fixture.h"
#include "path/path_file.h"

namespace pv {
namespace {

class PathSvg : public CliTest {
 protected:
  [[nodiscard]] Ran import(const std::string& svg, std::vector<std::string> more = {}) const {
    write("in.svg", svg);
    std::vector<std::string> args{"path", "import", at("in.svg"), "-o", at("o.j2d")};
    args.insert(args.end(), more.begin(), more.end());
    return run(args);
  }
  /// The path that the content of an svg element becomes.
  [[nodiscard]] PathRecord imported(const std::string& content,
                                    std::vector<std::string> more = {}) const {
    const Ran ran = import("<svg>" + content + "</svg>", std::move(more));
    EXPECT_EQ(ran.status, 0) << ran.err;
    const auto path = LoadPathFile(at("o.j2d"));
    return path ? path.value() : PathRecord{};
  }
  void save(const PathRecord& path) const { ASSERT_TRUE(SavePathFile(at("p"), path)); }
  [[nodiscard]] Ran exported(const std::string& view) const {
    return run({"path", "export", at("p.j2d"), "-o", at("p.svg"), "--view", view});
  }
};

PathRecord pathOf(const std::vector<Vec3>& points) {
  PathRecord path;
  for (const Vec3 point : points) {
    path.points[static_cast<std::size_t>(path.count++)] = point;
  }
  return path;
}

void expectNear(const PathRecord& path, const std::vector<Vec3>& points) {
  ASSERT_EQ(path.inUse().size(), points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_NEAR(path.points[i].x, points[i].x, 1e-6) << i;
    EXPECT_NEAR(path.points[i].y, points[i].y, 1e-6) << i;
    EXPECT_EQ(path.points[i].z, 0.0F) << i;
  }
}

/// Equal steps between neighbours, and all points at `radius` from the origin.
void expectEvenCircle(const PathRecord& path, double radius) {
  const auto points = path.inUse();
  const double step =
      2 * radius * std::sin(std::numbers::pi / static_cast<double>(points.size() - 1));
  for (std::size_t i = 1; i < points.size(); ++i) {
    const Vec3 gap = points[i] - points[i - 1];
    EXPECT_NEAR(std::hypot(gap.x, gap.y), step, 2e-4) << i;
    EXPECT_NEAR(std::hypot(points[i].x, points[i].y), radius, 5e-4) << i;
  }
  EXPECT_EQ(points.front(), points.back());
}

TEST_F(PathSvg, StraightShapesKeepTheirCorners) {
  struct Case {
    const char* content;
    std::vector<Vec3> points;
  };
  const std::vector<Vec3> rect{
      {-1, 0.5F, 0}, {1, 0.5F, 0}, {1, -0.5F, 0}, {-1, -0.5F, 0}, {-1, 0.5F, 0}};
  const Case cases[] = {
      {"<rect x='7' y='-3' width='4' height='2'/>", rect},
      {"<s:rect width='50%' height='1in' xmlns:s='u'/>",  // no viewBox: of 100
       {{-50.0F / 96, 1, 0},
        {50.0F / 96, 1, 0},
        {50.0F / 96, -1, 0},
        {-50.0F / 96, -1, 0},
        {-50.0F / 96, 1, 0}}},
      {"<polygon points='0,0 4,0,4,2 0 2'/>", rect},
      {"<polygon points='0,0 4,0,4,2 0 2 0 0'/>", rect},
      {"<polyline points='0,0 -4,-2'/>", {{1, -0.5F, 0}, {-1, 0.5F, 0}}},
      {"<line x2='4' y2='2e0'/>", {{-1, 0.5F, 0}, {1, -0.5F, 0}}},
      {"<path d='m1 1 4 0v2H1z'/>", rect},
      {"<path d='M.1.1.2.1.2.15.1.15.1.1Z'/>", rect},
      {"<path d='M0 0L4,0'/><path d='M4 0V2'/><line x1='4' y1='2' y2='2'/> "
       "<path d='M0 2 0 0'/>",
       rect},
      {"<g transform='translate(5)'><a><g transform='scale(2,-1) , rotate(90)'> "
       "<path transform='matrix(1 0 0 1 9 9)' d='M0 0 0 -2 -2 -2 -2 0z'/></g></a></g>",
       rect},
      {"<path transform='rotate(90 3 4) skewX(45)' d='M0 0 1 0 0 1z'/>",
       {{1, 1, 0}, {1, -1, 0}, {-1, -1, 0}, {1, 1, 0}}},
      {"<defs><path d='M0 0h99'/></defs><g style='stroke:red; display: none'><path d='M0 "
       "0h9'/></g> "
       "<path display='none' d='M0 0h9'/><path d='M0 2L8 6'/><path d=''/><circle r='0'/>",
       {{-1, 0.5F, 0}, {1, -0.5F, 0}}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.content);
    expectNear(imported(c.content), c.points);
  }
}

TEST_F(PathSvg, CurvesBecomePointsAtEqualLengths) {
  const char* circles[] = {
      "<circle cx='5' cy='6' r='7mm'/>",
      "<ellipse rx='4' ry='2' transform='scale(1 2)'/>",
      "<rect width='6' height='6' rx='9'/>",
      "<path d='M5 0A5 5 0 1 1-5 0 5,5 0 11 5 0z'/>",
      "<path d='M5 0A5 5 30 01-5 0a1 1 0 0110 0'/>",  // the radius grows to reach
      "<path d='M0,0c0 55.228475-44.771525 100-100 100S-200 55.228475-200 0 "
      "s44.771525-100 100-100S0-55.228475 0 0'/>",
  };
  for (const char* circle : circles) {
    SCOPED_TRACE(circle);
    const PathRecord plain = imported(circle);
    EXPECT_GT(plain.count, 40);
    EXPECT_LT(plain.count, 120);
    expectEvenCircle(plain, 1.0);
    for (const int count : {5, 128, 512}) {
      const PathRecord some = imported(circle, {"--points", std::to_string(count)});
      EXPECT_EQ(some.count, count);
      if (count > 100) {
        expectEvenCircle(some, 1.0);
      }
    }
  }
  // Two parabolas with a corner where they meet, the second one mirrored.
  const PathRecord wave = imported("<path d='M0 0Q1 1 2 0T4 0'/>", {"--points", "5"});
  expectNear(wave, {{-1, 0, 0}, wave.points[1], {0, 0, 0}, wave.points[3], {1, 0, 0}});
  EXPECT_NEAR(wave.points[1].y, -0.25, 2e-2);
  EXPECT_NEAR(wave.points[3].y, 0.25, 2e-2);
  // Corners between curves stay even where points are few.
  const PathRecord lens = imported("<path d='M0 0A5 5 0 0 1 8 0A5 5 0 0 1 0 0'/>");
  EXPECT_NE(std::find(lens.points.begin(), lens.points.end(), Vec3{1, 0, 0}), lens.points.end());
}

TEST_F(PathSvg, SaysWhichLinesItTookAndWhatItLeftOut) {
  const std::string two = "<svg><path d='M0 0h1M0 2h8v4'/><use/><text>a</text></svg>";
  const Ran longest = import(two);
  EXPECT_NE(longest.err.find("2 separate lines were found; the longest, number 2"),
            std::string::npos)
      << longest.err;
  EXPECT_NE(longest.err.find("left out: 2"), std::string::npos) << longest.err;
  EXPECT_EQ(LoadPathFile(at("o.j2d")).value().count, 3);
  EXPECT_NE(import(two, {"--join"}).err.find("joined"), std::string::npos);
  EXPECT_EQ(LoadPathFile(at("o.j2d")).value().count, 5);

  std::string zigzag = "<polyline points='";
  for (int i = 0; i < 600; ++i) {
    zigzag += std::to_string(i) + (i % 2 == 0 ? " 0 " : " 9 ");
  }
  EXPECT_EQ(imported(zigzag + "'/>").count, 512);
  EXPECT_NE(import("<svg>" + zigzag + "'/></svg>").err.find("evenly spaced"), std::string::npos);
  EXPECT_EQ(imported("<rect width='1' height='1'/>", {"--points", "4"}).count, 4);
}

TEST_F(PathSvg, HostileDrawingsAreBadData) {
  const auto many = [](int times, const std::string& text) {
    std::string all;
    for (int i = 0; i < times; ++i) {
      all += text;
    }
    return all;
  };
  const std::string documents[] = {
      "",
      "no drawing",
      std::string(100, '\0'),
      "\x1F\x8B compressed",
      "<html><svg/></html>",
      "<svg><path d='M0 0h1'/>",
      "<svg/>",
      "<svg>" + std::string(16 << 20, ' ') + "</svg>",
      many(200'000, "<g>"),
      "<svg>" + many(20'000, "<g>") + "<path d='M0 0h1'/>" + many(20'000, "</g>") + "</svg>",
      "<svg>" + many(200, "<g transform='scale(1e12)'>") + "<path d='M1 1h1'/>" +
          many(200, "</g>") + "</svg>",
      "<svg><path d='M0 0" + many(600'000, "h1") + "'/></svg>",
  };
  const char* const contents[] = {
      "<path d='M0 0L1e999 0'/>",
      "<path d='M0 0L1e13 0'/>",
      "<path d='M0 0Lnan 0'/>",
      "<path d='L1 1'/>",
      "<path d='M0 0h1x'/>",
      "<path d='M0 0h1 2,'/><path d='M0 0a1 1 0 2 0 1 1'/>",
      "<path d='M5 5z'/>",
      "<path d='M1e-300 0h1e-300'/>",
      "<path d='M1e12 0h1e12'/>",
      "<path d='M0 0a1e-11 1e12 1e12 11 1e12 1e12'/>",
      "<circle r='inf'/>",
      "<circle r='1parsec'/>",
      "<rect width='-1' height='1'/>",
      "<polyline points='0 0 1'/>",
      "<g transform='spin(1)'><path d='M0 0h1'/></g>",
      "<g transform='rotate(1 2)'><path d='M0 0h1'/></g>",
      "<path d='M0 0h1v1' transform='skewX(90)'/>",
  };
  std::vector<std::string> all(std::begin(documents), std::end(documents));
  for (const char* content : contents) {
    all.push_back("<svg>" + std::string(content) + "</svg>");
  }
  for (const std::string& document : all) {
    SCOPED_TRACE(document.substr(0, 60));
    const Ran ran = import(document);
    EXPECT_EQ(ran.status, 65) << ran.err;
    EXPECT_EQ(ran.errLines(), 1) << ran.err;
    EXPECT_EQ(ran.err.find("pvortex: " + at("in.svg") + ": "), 0U) << ran.err;
    EXPECT_FALSE(exists("o.j2d"));
  }
  // A long name is cut between letters.
  EXPECT_NE(import("<a" + many(30, "\xC3\xA9") + "/>").err.find("\xC3\xA9'"), std::string::npos);
  EXPECT_EQ(import("<svg>" + many(40'000, "<rect width='1' height='2'/>") + "</svg>").status, 0);
  EXPECT_EQ(import("<svg><path d='M0 0" + many(100'000, "q1 2 2 0") + "'/></svg>").status, 0);
}

TEST_F(PathSvg, NamesThatCannotBeUsed) {
  EXPECT_EQ(run({"path", "import", at("none.svg"), "-o", at("o.j2d")}).status, 66);
  EXPECT_EQ(run({"path", "import", at(""), "-o", at("o.j2d")}).status, 66);
  const std::string line = "<svg><line x2='1'/></svg>";
  EXPECT_EQ(import(line, {"--points", "513"}).status, 64);
  EXPECT_EQ(import(line, {"--points", "1"}).status, 64);
  EXPECT_EQ(run({"path", "import", at("in.svg"), "-o", at("o.txt")}).status, 64);
  EXPECT_EQ(run({"path", "import", at("in.svg"), "-o", at("no/o.j2d")}).status, 73);
  save(pathOf({{0, 0, 0}, {1, 0, 0}}));
  EXPECT_EQ(exported("back").status, 64);
  EXPECT_EQ(run({"path", "export", at("p.j2d"), "-o", at("p.png")}).status, 64);
  EXPECT_EQ(run({"path", "export", at("p.j2d"), "-o", at("no/p.svg")}).status, 73);
  EXPECT_EQ(run({"path", "export", at("none.j2d"), "-o", at("p.svg")}).status, 66);
  EXPECT_EQ(run({"path", "export", at("in.svg"), "-o", at("p.svg")}).status, 65);
  save(pathOf({}));
  EXPECT_EQ(exported("front").status, 65);
  save(pathOf({{0, 0, 0}, {INFINITY, 0, 0}}));
  EXPECT_EQ(exported("front").status, 65);
  EXPECT_EQ(exported("side").status, 0);
#ifdef __linux__
  EXPECT_EQ(run({"path", "import", at("in.svg"), "-o", at("full.j2d")}).status, 0);
  std::filesystem::remove(at("full.j2d"));
  std::filesystem::create_symlink("/dev/full", at("full.j2d"));
  EXPECT_EQ(run({"path", "import", at("in.svg"), "-o", at("full.j2d")}).status, 74);
#endif
}

TEST_F(PathSvg, WhatIsExportedComesBackPointByPoint) {
  const PathRecord paths[] = {
      pathOf({{-1, 0.1F, 0}, {1.0F / 3, -1, 0}, {1, 1, 0}, {0.7F, 1e-7F, 0}}),
      pathOf({{-1, -1, 0}, {1, -1, 0}, {0, 1, 0}, {-1, -1, 0}}),
      pathOf({{-1, -1, 0}, {1, -1, 0}, {0, 1, 0}, {-1, -1 + 1e-7F, 0}, {-1, -1, 0}}),
      pathOf({{-1, 0, 0}, {-1, 0, 0}, {1, 0, 0}}),
  };
  for (const PathRecord& path : paths) {
    save(path);
    ASSERT_EQ(exported("front").status, 0);
    ASSERT_EQ(import(read("p.svg")).status, 0) << read("p.svg");
    EXPECT_EQ(LoadPathFile(at("o.j2d")).value(), path) << read("p.svg");
  }
  // Side shows z to the right and y up, top shows x to the right and z down.
  save(pathOf({{1, 0.5F, -1}, {-1, -0.5F, 1}}));
  for (const auto& [view, line] : {std::pair{"side", "M-1 -0.5\n       L1 0.5\""},
                                   std::pair{"top", "M1 -1\n       L-1 1\""}}) {
    ASSERT_EQ(exported(view).status, 0);
    EXPECT_NE(read("p.svg").find(line), std::string::npos) << read("p.svg");
  }
  // What lies outside is in sight too, however far.
  save(pathOf({{-3, 0, 0}, {3e38F, 0, 0}}));
  ASSERT_EQ(exported("front").status, 0);
  EXPECT_NE(read("p.svg").find("viewBox=\"-1.5e+37 "), std::string::npos) << read("p.svg");
}

TEST_F(PathSvg, InfoOfPathsIsTheInfoOfFiles) {
  save(pathOf({{-1, 0, 0}, {1, 0, 0}}));
  for (const std::vector<std::string>& more : {std::vector<std::string>{}, {"--json"}}) {
    std::vector<std::string> args{"info", at("p.j2d")};
    args.insert(args.end(), more.begin(), more.end());
    const Ran plain = run(args);
    args.insert(args.begin(), "path");
    EXPECT_EQ(run(args).out, plain.out);
    EXPECT_NE(plain.out.find("count"), std::string::npos);
  }
  ASSERT_EQ(run({"new", "-o", at("s.j3d")}).status, 0);
  EXPECT_EQ(run({"path", "info", at("s.j3d"), at("p.j2d")}).status, 65);
}

}  // namespace
}  // namespace pv
