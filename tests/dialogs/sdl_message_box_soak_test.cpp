// Two thousand message boxes in one process: nothing grows.

#include <gmock/gmock.h>

#include <filesystem>
#include <iterator>
#include <string>

#include "frontend/gui/sdl_message_box.h"
#include "support/dialog_test.h"
#include "support/process_memory.h"

namespace quindle::testing {
namespace {

using namespace frontend::gui;  // NOLINT(google-build-using-namespace)

constexpr int kBoxes = 2000;
constexpr int kWarmUp = 200;
// What caches may still take after the warm-up: 73 bytes a box.
constexpr long kAllowedGrowthKiB = 128;

// Sanitizers keep freed memory for a while, so that the process's size says nothing.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kMemorySizeIsMeaningful = false;
#else
constexpr bool kMemorySizeIsMeaningful = true;
#endif

long CountDescriptors() {
  const std::filesystem::directory_iterator descriptors("/proc/self/fd");
  return static_cast<long>(std::distance(begin(descriptors), end(descriptors)));
}

// One box of a changing type, ended in a changing way.
int ShowBox(int number, SDL_Window* parent) {
  SdlMessageBox::Config config;
  config.message = "Box number " + std::to_string(number) + "\n\nwith a few words to wrap.";
  config.type = static_cast<SdlMessageBox::Type>(number % 6);
  config.buttons = {{1, "Yes", true, false, {}}, {2, "No", false, true, {}}};
  int frame = 0;
  SetModalDialogHeartbeat([&frame, number] {
    if (++frame < 2) {
      return;
    }
    if (number % 3 == 0) {
      Quit();
    } else {
      KeyDown(SDLK_ESCAPE);
    }
  });
  const int result = SdlMessageBox(config).Show(parent, 1.0F);
  SetModalDialogHeartbeat({});
  return result;
}

class MessageBoxSoak : public DialogTest {};

TEST_F(MessageBoxSoak, NothingGrowsOverTwoThousandBoxes) {
  // SDL on top of SDL3 keeps some memory of each renderer that it could not make.
  SDL_SetHint(SDL_HINT_RENDER_DRIVER, "software");
  SDL_Window* const parent = MakeParent();
  long descriptors = 0;
  long memory = 0;
  for (int i = 0; i < kBoxes; ++i) {
    if (i == kWarmUp) {
      descriptors = CountDescriptors();
      memory = AllocatedMemoryKiB();
    }
    ASSERT_EQ(ShowBox(i, parent), i % 3 == 0 ? -1 : 2) << i;
    FlushEvents();
    ASSERT_EQ(Recorder().alive(), AliveCounts{}) << i;
    Recorder().Reset();  // The recorder's own memory grows with what it has seen.
  }
  RecordProperty("allocated_kib_after_200", std::to_string(memory));
  RecordProperty("allocated_kib_after_2000", std::to_string(AllocatedMemoryKiB()));
  EXPECT_EQ(CountDescriptors(), descriptors);
  if (kMemorySizeIsMeaningful) {
    EXPECT_LE(AllocatedMemoryKiB(), memory + kAllowedGrowthKiB);
  }
}

}  // namespace
}  // namespace quindle::testing
