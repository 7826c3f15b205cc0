#include <string>
#include <vector>

#include "cli/cli_fixture.h"
#include "path/path_file.h"

namespace pv {
namespace {

TEST_F(CliTest, PathNewWritesItsPointsInOrder) {
  const Ran made = run({"path", "new", "-o", at("a.j2d"), "-.25,-.5,0", "-1,1e-3,2", "-5e-1,0,0"});
  EXPECT_EQ(made.status, 0) << made.err;
  const auto path = LoadPathFile(at("a.j2d"));
  ASSERT_TRUE(path);
  ASSERT_EQ(path.value().count, 3);
  EXPECT_EQ(path.value().points[0], (Vec3{-0.25F, -0.5F, 0}));
  EXPECT_EQ(path.value().points[1], (Vec3{-1, 1e-3F, 2}));
  EXPECT_EQ(run({"path", "new", "-o", at("empty.j2d")}).status, 0);
}

TEST_F(CliTest, PathNewRefusesWhatIsNoPoint) {
  for (const char* point : {"1,2", "1,2,3,4", "1,,3", "1,2,x", "1,2,inf", "", "1 2 3"}) {
    const Ran refused = run({"path", "new", "-o", at("a.j2d"), "0,0,0", point});
    EXPECT_EQ(refused.status, 64) << point;
    EXPECT_EQ(refused.errLines(), 1) << refused.err;
  }
  std::vector<std::string> args{"path", "new", "-o", at("a.j2d")};
  args.resize(args.size() + 513, "0,0,0");
  EXPECT_EQ(run(args).status, 64);
  args.pop_back();
  EXPECT_EQ(run(args).status, 0);
  EXPECT_EQ(names(), std::vector<std::string>{"a.j2d"});
}

}  // namespace
}  // namespace pv
