#include "guide/the_heartbeat.inc"

#include "block_test.h"
#include "frontend/gui/about_dialog.h"

namespace quindle::testing {
namespace {

class GuideHeartbeat : public DialogTest {
 protected:
  // Escape after three frames, without a heartbeat's help.
  static int ShowForThreeFrames() {
    int frames = 0;
    Recorder().OnDelay([&frames](Uint32) {
      if (++frames == 2) {
        KeyDown(SDLK_ESCAPE);
      }
    });
    frontend::gui::ShowSimpleAboutDialog(nullptr, 1.0F);
    Recorder().OnDelay({});
    return frames;
  }
};

TEST_F(GuideHeartbeat, RunsASliceInEachFrame) {
  const auto machine = std::make_shared<Machine>();
  KeepRunning(machine);
  EXPECT_EQ(ShowForThreeFrames(), 3);
  EXPECT_EQ(machine->slices, 3);
}

TEST_F(GuideHeartbeat, LetsTheMachineGoWhenItIsRemoved) {
  const auto machine = std::make_shared<Machine>();
  KeepRunning(machine);
  EXPECT_EQ(machine.use_count(), 2);
  frontend::gui::SetModalDialogHeartbeat({});
  EXPECT_EQ(machine.use_count(), 1);
}

TEST_F(GuideHeartbeat, StartsAnewAtEachCallWhenItIsMutable) {
  int greatest = 0;
  frontend::gui::SetModalDialogHeartbeat(
      [count = 0, &greatest]() mutable { greatest = std::max(greatest, ++count); });
  ShowForThreeFrames();
  EXPECT_EQ(greatest, 1);
}

}  // namespace
}  // namespace quindle::testing
