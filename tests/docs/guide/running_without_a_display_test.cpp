#include "guide/running_without_a_display.inc"

#include "block_test.h"

namespace quindle::testing {
namespace {

class GuideUnattended : public DialogTest {
 protected:
  // The block has the heartbeat: what waits for a key that never comes is ended from here.
  void SetUp() override {
    DialogTest::SetUp();
    Recorder().OnDelay([this](Uint32) {
      if (++frames_ == 100) {
        ADD_FAILURE() << "the picker is still open";
        Quit();
      }
    });
  }

  void TearDown() override {
    Recorder().OnDelay({});
    DialogTest::TearDown();
  }

  int frames_ = 0;
  TemporaryDirectory folder_;
};

TEST_F(GuideUnattended, PicksTheFirstImageBehindTheFolders) {
  folder_.Write("more/notes.txt", "");
  folder_.Write("b.img", "");
  const std::filesystem::path first = folder_.Write("a.img", "");
  EXPECT_EQ(PickFirstFloppyUnattended(folder_.path().string()), first.string());
}

TEST_F(GuideUnattended, PicksFromARelativeFolder) {
  folder_.Write("disks/a.img", "");
  const ScopedWorkingDirectory here(folder_.path());
  EXPECT_EQ(PickFirstFloppyUnattended("disks"), "disks/a.img");
}

TEST_F(GuideUnattended, PicksNothingWhereNoImageIs) {
  folder_.Write("more/notes.txt", "");
  folder_.Write("readme.txt", "");
  EXPECT_EQ(PickFirstFloppyUnattended(folder_.path().string()), "");
  FlushEvents();
  EXPECT_EQ(PickFirstFloppyUnattended((folder_.path() / "missing").string()), "");
}

TEST_F(GuideUnattended, LeavesNoHeartbeatWithoutAWindow) {
  Recorder().FailAlways("SDL_CreateWindow");
  EXPECT_EQ(PickFirstFloppyUnattended(folder_.path().string()), "");
  frontend::gui::PumpModalDialogHeartbeat();
  EXPECT_TRUE(QueuedEvents().empty());
}

}  // namespace
}  // namespace quindle::testing
