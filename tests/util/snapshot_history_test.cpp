#include "util/snapshot_history.h"

#include <gtest/gtest.h>
#include <string>

namespace pv {
namespace {

TEST(SnapshotHistory, WalksBackAndForthAndForgetsWhatWasUndone) {
  SnapshotHistory<std::string> history;
  EXPECT_FALSE(history.undo() || history.redo());
  EXPECT_FALSE(history.record("a", "a"));
  EXPECT_TRUE(history.record("a", "b", "first"));
  EXPECT_TRUE(history.record("b", "c", "second"));
  EXPECT_EQ(history.undoLabel(), "second");
  EXPECT_EQ(history.undo(), "b");
  EXPECT_EQ(history.redoLabel(), "second");
  EXPECT_EQ(history.undo(), "a");
  EXPECT_FALSE(history.canUndo() || history.undo());
  EXPECT_EQ(history.redo(), "b");
  EXPECT_FALSE(history.record("b", "b"));
  EXPECT_TRUE(history.canRedo());  // nothing happened
  EXPECT_TRUE(history.record("b", "d", "third"));
  EXPECT_FALSE(history.canRedo());
  EXPECT_EQ(history.undo(), "b");
  EXPECT_EQ(history.undo(), "a");
  history.clear();
  EXPECT_FALSE(history.canUndo() || history.canRedo());
  EXPECT_EQ(history.undoLabel(), "");
}

TEST(SnapshotHistory, ForgetsTheOldestStep) {
  SnapshotHistory<int> history(3);
  for (int i = 0; i < 10; ++i) {
    history.record(i, i + 1);
  }
  EXPECT_EQ(history.undo(), 9);
  EXPECT_EQ(history.undo(), 8);
  EXPECT_EQ(history.undo(), 7);
  EXPECT_FALSE(history.undo());
  EXPECT_EQ(history.redo(), 8);
}

}  // namespace
}  // namespace pv
