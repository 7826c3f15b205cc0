#include <filesystem>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "app/document_picture.h"
#include "cli/cli_fixture.h"
#include "path/path_file.h"
#include "shape/shape_file.h"
#include "util/bmp_file.h"

namespace pv {
namespace {

namespace fs = std::filesystem;

/// A sphere and two rows of points, tagged, in a library of shapes.
class LibraryCommands : public CliTest {
 protected:
  LibraryCommands() {
    for (const char* part : {"lib/thumbs", "lib/tagdb", "lib/tags"}) {
      fs::create_directories(at(part));
    }
    EXPECT_EQ(
        run({"new", "-o", at("lib/ball-0000.j3d"), "emitter.kind=sphere", "modifiers.twist.y=40"})
            .status,
        0);
    for (const char* name : {"lib/dots-0000.j3d", "lib/dots-0001.j3d"}) {
      EXPECT_EQ(run({"new", "-o", at(name), "emitter.copies=5"}).status, 0);
    }
    write("lib/tagdb/ball-0000.tdb", "round\r\nold\r\n");
    write("lib/tagdb/dots-0000.tdb", "round\r\nflat\r\n");
    write("lib/tagdb/dots-0001.tdb", "flat\r\n");
    EXPECT_EQ(library("reconstruct").status, 0);
    EXPECT_EQ(library("thumbnails").status, 0);
  }

  /// `library COMMAND lib …`
  [[nodiscard]] Ran library(const std::string& command,
                            const std::vector<std::string>& more = {}) const {
    std::vector<std::string> args{"library", command, at("lib")};
    args.insert(args.end(), more.begin(), more.end());
    return run(args);
  }
  /// The output with the folder cut out.
  [[nodiscard]] std::string without(std::string text) const {
    const std::string folder = at("lib");
    for (auto found = text.find(folder); found != std::string::npos; found = text.find(folder)) {
      text.erase(found, folder.size());
    }
    return text;
  }
  [[nodiscard]] BmpPicture thumbnail(const std::string& name) const {
    const auto picture = readBmpFile(at("lib/thumbs/" + name + ".bmp"));
    return picture ? picture.value() : BmpPicture{};
  }
  [[nodiscard]] BmpPicture expected(const std::string& name, const ShapeLook& look) const {
    return opaque(shapeThumbnail(LoadShapeFile(at("lib/" + name + ".j3d")).value(), look,
                                 kThumbnailWidth, kThumbnailHeight));
  }
  static BmpPicture opaque(BmpPicture picture) {
    for (auto& word : picture.words) {
      word |= 0xFF000000U;
    }
    return picture;
  }
};

TEST_F(LibraryCommands, FilesAreListedByTheirTags) {
  EXPECT_EQ(library("tags").out, "flat: 2\nold: 1\nround: 2\n");
  const std::string all = "ball-0000: old, round\ndots-0000: flat, round\ndots-0001: flat\n";
  struct Row {
    std::vector<std::string> options;
    std::string out;
  };
  for (const Row& row : std::vector<Row>{{{}, all},
                                         {{"--tag", "round"}, all.substr(0, 45)},
                                         {{"--tag", "round", "--tag", "flat"}, all.substr(22, 23)},
                                         {{"--tag", "flat", "--not", "round"}, all.substr(45)},
                                         {{"--tag", "old", "--tag", "flat"}, ""}}) {
    const Ran ran = library("list", row.options);
    EXPECT_EQ(ran.out, row.out) << ::testing::PrintToString(row.options);
    EXPECT_EQ(ran.status, 0);
  }
  fs::remove(at("lib/dots-0001.j3d"));  // its links stay behind
  EXPECT_EQ(library("list", {"--tag", "flat"}).out, "dots-0000: flat, round\n");
  EXPECT_EQ(library("tags").out, "flat: 1\nold: 1\nround: 2\n");
  const auto files = nlohmann::json::parse(library("list", {"--json"}).out);
  EXPECT_EQ(files.dump(), R"([{"name":"ball-0000","tags":["old","round"]},)"
                          R"({"name":"dots-0000","tags":["flat","round"]}])");
  EXPECT_EQ(nlohmann::json::parse(library("tags", {"--json"}).out).at(2).dump(),
            R"({"files":2,"tag":"round"})");
}

TEST_F(LibraryCommands, WhatIsNotThereIsSaid) {
  struct Row {
    std::vector<std::string> args;
    int status;
    std::string err;
  };
  fs::create_directory(at("empty"));
  fs::copy(at("lib"), at("both"));
  write("both/a.j2d", "");
  for (const Row& row : std::vector<Row>{
           {{"list", at("lib"), "--tag", "Round", "--tag", "flat"}, 65, "there is no tag 'Round'"},
           {{"list", at("lib"), "--tag", "flat", "--not", "big"}, 65, "there is no tag 'big'"},
           {{"list", at("lib"), "--not", "flat"}, 64, "--tag"},
           {{"list", at("none")}, 66, "none: there is no such folder"},
           {{"check", at("lib/ball-0000.j3d")}, 66, "there is no such folder"},
           {{"tags", at("empty")}, 64, "holds neither shapes (.j3d) nor paths (.j2d)"},
           {{"check", at("both")}, 64, "holds both shapes and paths"},
           {{"check", at("lib"), "--kind", "forces"}, 64, "'forces' is neither shapes nor paths"},
           {{"thumbnails", at("lib"), "dots-0002"}, 66, "dots-0002.j3d: there is no such file"},
           {{"thumbnails", at("lib"), "--yaw", "400"}, 64, "--yaw: 400 is outside 0 to 360"},
           {{"thumbnails", at("empty"), "--kind=paths", "--yaw=0"}, 64, "--yaw is for shapes"},
           {{"thumbnails", at("empty"), "--kind=paths", "--view=3d"}, 64, "top, front or side"},
           {{"reconstruct", at("empty"), "--kind=paths"}, 66, "tagdb: the folder is missing"},
           {{}, 64, "a command is missing"}}) {
    std::vector<std::string> args{"library"};
    args.insert(args.end(), row.args.begin(), row.args.end());
    const Ran ran = run(args);
    const std::string shown = ::testing::PrintToString(args);
    EXPECT_EQ(ran.status, row.status) << shown;
    EXPECT_EQ(ran.errLines(), 1) << shown << ran.err;
    EXPECT_NE(ran.err.find(row.err), std::string::npos) << shown << ran.err;
    EXPECT_EQ(ran.out.find("dots-0000"), std::string::npos) << shown;
  }
  EXPECT_TRUE(fs::is_empty(at("empty")));
  for (const char* command : {"list", "tags", "check", "reconstruct", "thumbnails"}) {
    EXPECT_NE(run({"library", command, "--help"}).out.find("Examples:\n  pvortex library "),
              std::string::npos)
        << command;
  }
}

TEST_F(LibraryCommands, TheCheckNamesEachFault) {
  const Ran sound = library("check");
  EXPECT_EQ(without(sound.out), ": ok\n");
  EXPECT_EQ(sound.status, 0);

  fs::resize_file(at("lib/ball-0000.j3d"), 6493);
  fs::remove(at("lib/thumbs/dots-0000.bmp"));
  write("lib/thumbs/dots-0001.bmp", "BM");
  write("lib/tagdb/lost.tdb", "");
  write("lib/tags/round.tag", "ball-0000\r\ngone\r\n");
  write("lib/notes\x7F.txt", "");
  const Ran ran = library("check");
  EXPECT_EQ(ran.status, 65);
  std::istringstream lines(without(ran.out));
  std::string found;
  for (std::string line; std::getline(lines, line);) {
    found += line.substr(0, line.find(": ", line.find(": ") + 1)) + "\n";
  }
  EXPECT_EQ(found,
            "foreign-file: /notes?.txt\ndata-does-not-load: /ball-0000.j3d\n"
            "bad-thumbnail: /thumbs/dots-0001.bmp\nmissing-thumbnail: /dots-0000.j3d\n"
            "lost-companion: /tagdb/lost.tdb\ndangling-link: /tags/round.tag\n"
            "missing-link: /tags/round.tag\n");
  EXPECT_NE(ran.err.find("note: 'pvortex library reconstruct' repairs the links"),
            std::string::npos);
}

TEST_F(LibraryCommands, ReconstructionRepairsTheLinks) {
  write("lib/tags/round.tag", "gone\r\ndots-0000\r\n");
  write("lib/tags/old.tag", "ball-0000\r\ndots-0001\r\n");
  const Ran ran = library("reconstruct");
  EXPECT_EQ(ran.status, 0) << ran.err;
  EXPECT_EQ(without(ran.out),
            "repaired: missing-tag: /tagdb/dots-0001.tdb: the tag 'old' has this file, the file "
            "not the tag\n"
            "repaired: dangling-link: /tags/round.tag: 'gone' is not in the library\n"
            "repaired: missing-link: /tags/round.tag: 'ball-0000' has this tag, the tag not the "
            "file\n"
            ": files 3, tags 3, links 5\n");
  EXPECT_EQ(read("lib/tags/round.tag"), "ball-0000\r\ndots-0000\r\n");

  fs::remove_all(at("lib/tags"));
  EXPECT_EQ(library("reconstruct").status, 0);
  EXPECT_EQ(library("check").status, 0);
  // Tag lists that cannot be read would cost their files every tag.
  fs::resize_file(at("lib/tagdb/dots-0000.tdb"), (1U << 24U) + 1);
  EXPECT_EQ(library("reconstruct").status, 65);
  EXPECT_EQ(read("lib/tags/round.tag"), "ball-0000\r\ndots-0000\r\n");
  fs::remove_all(at("lib/tagdb"));
  EXPECT_EQ(library("reconstruct").status, 66);
  EXPECT_EQ(read("lib/tags/round.tag"), "ball-0000\r\ndots-0000\r\n");
  // A tag's file that cannot be replaced is a fault that is left.
  fs::create_directory(at("lib/tagdb"));
  write("lib/tagdb/ball-0000.tdb", "wide\r\n");
  fs::create_directory(at("lib/tags/wide.tag"));
  const Ran refused = library("reconstruct");
  EXPECT_EQ(refused.status, 74) << refused.err;
  EXPECT_NE(refused.err.find("not repaired: missing-link: "), std::string::npos) << refused.err;
}

TEST_F(LibraryCommands, ThumbnailsAreTheLibrarysPictures) {
  ShapeLook dots = kLibraryLook;
  dots.lines = false;
  EXPECT_EQ(thumbnail("ball-0000"), expected("ball-0000", kLibraryLook));
  EXPECT_EQ(thumbnail("dots-0000"), expected("dots-0000", dots));
  EXPECT_NE(expected("dots-0000", dots), expected("dots-0000", kLibraryLook));

  ShapeLook top = kLibraryLook;
  top.mode = ViewMode::Top;
  write("lib/thumbs/ball-0000.bmp", "cut short");
  fs::resize_file(at("lib/dots-0001.j3d"), 100);
  fs::remove(at("lib/thumbs/dots-0001.bmp"));
  const BmpPicture before = thumbnail("dots-0000");
  const Ran ran = library("thumbnails", {"--missing", "--view", "top"});
  EXPECT_EQ(ran.status, 65);
  EXPECT_EQ(ran.errLines(), 1) << ran.err;
  EXPECT_NE(ran.err.find("dots-0001.j3d: byte 100: "), std::string::npos) << ran.err;
  EXPECT_EQ(without(ran.out), ": thumbnails 1 of 3 written\n");
  EXPECT_EQ(thumbnail("ball-0000"), expected("ball-0000", top));
  EXPECT_EQ(thumbnail("dots-0000"), before);
  EXPECT_FALSE(exists("lib/thumbs/dots-0001.bmp"));

  EXPECT_EQ(library("thumbnails", {"ball-0000", "--yaw", "200"}).status, 0);
  ShapeLook turned = kLibraryLook;
  turned.camera.yaw = 200.0F;
  EXPECT_EQ(thumbnail("ball-0000"), expected("ball-0000", turned));

  fs::remove(at("lib/thumbs/dots-0000.bmp"));
  fs::create_directory(at("lib/thumbs/dots-0000.bmp"));
  EXPECT_EQ(library("thumbnails", {"dots-0000"}).status, 73);
}

TEST_F(LibraryCommands, PathsFitIntoTheirPictures) {
  fs::create_directory(at("paths"));
  ASSERT_EQ(run({"path", "new", "-o", at("paths/a.j2d"), "0,-.5,0", "0,.5,0", "0,.5,.4"}).status,
            0);
  ASSERT_EQ(run({"path", "new", "-o", at("paths/b.j2d"), "-.4,-9,0", ".4,9,0"}).status, 0);
  EXPECT_EQ(run({"library", "thumbnails", at("paths")}).status, 0);
  const auto picture = [this](const char* name, PathAxisView axes, float zoom) {
    PathViewport look{kThumbnailWidth, kThumbnailWidth, axes, zoom, {}};
    const auto path = LoadPathFile(at(std::string("paths/") + name + ".j2d"));
    return opaque(pathThumbnail(path.value(), look));
  };
  const auto read = [this](const char* name) {
    return readBmpFile(at(std::string("paths/thumbs/") + name + ".bmp")).value();
  };
  EXPECT_EQ(read("a"), picture("a", PathAxisView::Side, 1.0F));
  EXPECT_EQ(read("b"), picture("b", PathAxisView::Front, 0.95F * 72 / 96 / 9.0F));
  EXPECT_EQ(run({"library", "thumbnails", at("paths"), "a", "--view", "top"}).status, 0);
  EXPECT_EQ(read("a"), picture("a", PathAxisView::Top, 1.0F));
}

TEST_F(LibraryCommands, ProgressIsShownOnATerminalOnly) {
  EXPECT_EQ(library("thumbnails").err, "");
  std::ostringstream out;
  std::ostringstream err;
  write("lib/dots-0000.j3d", "");
  EXPECT_EQ(runCli(std::vector<std::string>{"library", "thumbnails", at("lib")}, out, err, true),
            65);
  const std::string shown = err.str();
  EXPECT_TRUE(shown.starts_with("\r[#############...........................] 33% of 3\r "))
      << shown;
  EXPECT_NE(shown.find(" \rpvortex: "), std::string::npos) << shown;
  EXPECT_TRUE(shown.ends_with(" \r")) << "the bar goes away";
}

#ifndef _WIN32
// Names are looked up without regard to case, which must not lead elsewhere.
TEST_F(LibraryCommands, AFolderOfTheSameLettersIsNotTouched) {
  fs::copy(at("lib"), at("LIB"), fs::copy_options::recursive);
  write("LIB/tags/round.tag", "");
  const Ran ran = run({"library", "reconstruct", at("LIB")});
  EXPECT_EQ(ran.status, 66);
  EXPECT_NE(ran.err.find("another folder's name differs in case only"), std::string::npos);
  EXPECT_EQ(read("LIB/tags/round.tag"), "");
  EXPECT_EQ(library("check").status, 0);
}
#endif

}  // namespace
}  // namespace pv
