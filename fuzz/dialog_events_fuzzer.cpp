// Bytes become a user's input, played through one of the dialogs. What must hold for any input: the
// dialog ends, nothing is left alive, and no sanitizer speaks.

#include <SDL.h>
#include <SDL_ttf.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "faults/fault_scenarios.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "support/byte_input.h"
#include "support/plain_interposers.h"

namespace quindle::testing {
namespace {

constexpr std::size_t kMaxEvents = 200;
constexpr std::size_t kEventsPerFrame = 3;
constexpr int kFrameLimit = 1000;

struct Input {
  const std::uint8_t* bytes = nullptr;
  std::size_t events = 0;
  std::size_t next = 0;
  int frames = 0;
};
Input g_input;

void PlayFrame() {
  if (++g_input.frames > kFrameLimit) {
    std::abort();  // The dialog does not end.
  }
  for (std::size_t i = 0; i < kEventsPerFrame && g_input.next < g_input.events; ++i) {
    PushEventFromBytes(g_input.bytes + kBytesPerEvent * g_input.next++);
  }
  if (g_input.next == g_input.events) {
    SDL_Event quit{};
    quit.type = SDL_QUIT;
    SDL_PushEvent(&quit);
  }
}

// What all inputs share, made with the first.
struct Stage {
  Stage() : samples(std::filesystem::current_path()) {
    SDL_setenv("SDL_VIDEODRIVER", "dummy", 1);
    SDL_Init(SDL_INIT_VIDEO);
    parent = SDL_CreateWindow("Host", 100, 100, 640, 480, SDL_WINDOW_HIDDEN);
  }

  FaultSamples samples;
  SDL_Window* parent = nullptr;
};

void Play(const std::uint8_t* data, std::size_t size) {
  static Stage stage;
  const FaultScenario& scenario = FaultScenarios()[data[0] % FaultScenarios().size()];
  const std::size_t events = (size - 1) / kBytesPerEvent;
  g_input = Input{data + 1, events < kMaxEvents ? events : kMaxEvents, 0, 0};
  SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
  ForgetPointer();
  const PlainCounts before = AliveNow();
  frontend::gui::SetModalDialogHeartbeat(PlayFrame);
  scenario.show(stage.parent);
  frontend::gui::SetModalDialogHeartbeat({});
  frontend::gui::ShutdownSdlUiCachedFonts();
  if (!(AliveNow() == before)) {
    std::abort();  // Something is left alive.
  }
}

}  // namespace
}  // namespace quindle::testing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 0) {
    quindle::testing::Play(data, size);
  }
  return 0;
}
