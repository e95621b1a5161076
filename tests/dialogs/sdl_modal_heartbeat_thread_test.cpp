// Another thread of the host replaces the heartbeat while a dialog runs. A program of its own, to
// be run with the thread sanitizer as well.

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>

#include "frontend/gui/sdl_message_box.h"
#include "support/dialog_test.h"

namespace quindle::frontend::gui {
namespace {

class ModalHeartbeatThread : public testing::DialogTest {};

TEST_F(ModalHeartbeatThread, MayReplaceTheHeartbeatAtAnyTime) {
  constexpr int kReplacements = 100'000;
  testing::Recorder().SetDrawMode(testing::DrawMode::Counted);
  std::atomic<int> beats{0};
  std::atomic<bool> done{false};
  // Owned by each heartbeat, so that a torn or dangling one would be seen.
  const auto beat = [&](std::shared_ptr<int> payload) {
    beats += *payload;
    if (done) {
      testing::Quit();
    }
  };
  SetModalDialogHeartbeat([&beat] { beat(std::make_shared<int>(1)); });
  std::thread other([&] {
    while (beats == 0) {
      std::this_thread::yield();  // The dialog runs before the first replacement.
    }
    for (int i = 0; i < kReplacements; ++i) {
      SetModalDialogHeartbeat([&beat, payload = std::make_shared<int>(1)] { beat(payload); });
    }
    done = true;
  });
  SdlMessageBox::Config config;
  config.message = "Busy";
  EXPECT_EQ(SdlMessageBox(config).Show(nullptr, 1.0F), -1);
  other.join();
  EXPECT_TRUE(done);
  EXPECT_EQ(beats, testing::Recorder().presents());
  RecordProperty("frames", beats);
}

}  // namespace
}  // namespace quindle::frontend::gui
