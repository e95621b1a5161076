// Opens and closes every dialog, round after round, with random input, and looks for what grows.
//
//   quindle_soak [ROUNDS]      10,000 rounds when none are given; run from the source folder
//
// Exit status 0: no memory beyond the allowance, no descriptor, window or font was left behind.

#include <SDL.h>
#include <SDL_ttf.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "faults/fault_scenarios.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "support/byte_input.h"
#include "support/plain_interposers.h"
#include "support/process_memory.h"

namespace quindle::testing {
namespace {

namespace fs = std::filesystem;

constexpr int kEventsPerRound = 30;
constexpr int kFrameLimit = 2000;
constexpr int kWarmUpRounds = 500;
// What caches of the C library, of SDL and of SDL_ttf may still take after the warm-up.
constexpr long kAllowedGrowthKiB = 128;

std::mt19937 g_random(20260420);  // Seeded, so that a finding can be played again.
int g_events_left = 0;
int g_frames = 0;
bool g_does_not_end = false;

void PlayFrame() {
  if (++g_frames > kFrameLimit) {
    g_does_not_end = true;
    throw std::runtime_error("the dialog does not end");
  }
  if (g_events_left-- > 0) {
    std::uint8_t bytes[kBytesPerEvent];
    for (std::uint8_t& byte : bytes) {
      byte = static_cast<std::uint8_t>(g_random());
    }
    PushEventFromBytes(bytes);
    return;
  }
  SDL_Event quit{};
  quit.type = SDL_QUIT;
  SDL_PushEvent(&quit);
}

void PlayRound(int round, SDL_Window* parent) {
  const std::vector<FaultScenario>& scenarios = FaultScenarios();
  g_events_left = kEventsPerRound;
  g_frames = 0;
  SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
  scenarios[static_cast<std::size_t>(round) % scenarios.size()].show(parent);
}

struct Measures {
  long allocated_kib = 0;
  long descriptors = 0;
  PlainCounts alive;
};

Measures Measure() {
  Measures measures;
  measures.allocated_kib = AllocatedMemoryKiB();
  measures.descriptors = std::distance(fs::directory_iterator("/proc/self/fd"), {});
  measures.alive = AliveNow();
  return measures;
}

void Print(const char* when, int rounds, const Measures& measures) {
  std::printf(
      "%s %d rounds: %ld KiB allocated, %ld descriptors, %ld windows, %ld renderers, "
      "%ld textures, %ld surfaces, %ld fonts\n",
      when, rounds, measures.allocated_kib, measures.descriptors, measures.alive.windows,
      measures.alive.renderers, measures.alive.textures, measures.alive.surfaces,
      measures.alive.fonts);
}

bool NothingGrew(const Measures& before, const Measures& after) {
  return after.descriptors == before.descriptors && after.alive == before.alive &&
         after.allocated_kib - before.allocated_kib <= kAllowedGrowthKiB && !g_does_not_end;
}

int Soak(int rounds) {
  const int warm_up = std::min(kWarmUpRounds, rounds / 2);
  SDL_Window* parent = SDL_CreateWindow("Host", 100, 100, 640, 480, SDL_WINDOW_HIDDEN);
  frontend::gui::SetModalDialogHeartbeat(PlayFrame);
  Measures before;
  for (int round = 0; round < rounds; ++round) {
    if (round == warm_up) {
      before = Measure();
      Print("after", round, before);
    }
    PlayRound(round, parent);
  }
  const Measures after = Measure();
  Print("after", rounds, after);
  frontend::gui::SetModalDialogHeartbeat({});
  SDL_DestroyWindow(parent);
  const bool good = NothingGrew(before, after);
  std::printf("%s: %+ld KiB in %d rounds\n", good ? "nothing grew" : "GREW",
              after.allocated_kib - before.allocated_kib, rounds - warm_up);
  return good ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace quindle::testing

int main(int argc, char** argv) {
  const int rounds = argc > 1 ? std::atoi(argv[1]) : 10'000;
  SDL_setenv("SDL_VIDEODRIVER", "dummy", 1);
  // SDL on top of SDL3 keeps some memory of each renderer that it could not make.
  SDL_setenv("SDL_RENDER_DRIVER", "software", 1);
  const quindle::testing::FaultSamples samples(std::filesystem::current_path());
  if (rounds < 20 || SDL_Init(SDL_INIT_VIDEO) != 0) {
    std::fprintf(stderr, "usage: quindle_soak [ROUNDS], at least 20\n");
    return EXIT_FAILURE;
  }
  const int status = quindle::testing::Soak(rounds);
  quindle::frontend::gui::ShutdownSdlUiCachedFonts();
  TTF_Quit();
  SDL_Quit();
  return status;
}
