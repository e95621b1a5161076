// Measures one thing of one dialog in a real window, in a process of its own, and prints the
// figures.
//
//   quindle_live_probe MEASURE DIALOG FOLDER [alone]     run from the source folder, with a DISPLAY
//
// "alone" goes without a host's window.
// A line of output is a name and a value. scripts/bench puts all of them into a table.

#include <SDL.h>
#include <SDL_ttf.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>

#include "frontend/gui/sdl_ui_font_cache.h"
#include "live_measures.h"

namespace quindle::bench {
namespace {

constexpr std::pair<const char*, Figures (*)(const LiveSubject&)> kMeasures[] = {
    {"opening", MeasureOpening},        {"first-opening", MeasureFirstOpening},
    {"first-floor", MeasureFirstFloor}, {"idle", MeasureIdle},
    {"gaps", MeasureHeartbeatGaps},     {"wheel", MeasureWheel},
    {"memory", MeasureMemory},
};

// The host's own window, painted as a host's is before it asks its user something.
SDL_Window* OpenHostWindow() {
  SDL_Window* host = SDL_CreateWindow("Host", 100, 100, 640, 400, 0);
  SDL_FillRect(SDL_GetWindowSurface(host), nullptr, 0);
  SDL_UpdateWindowSurface(host);
  SDL_Delay(200);
  SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
  return host;
}

int Probe(const std::string& wanted, const BenchDialog& dialog, const std::string& folder,
          bool alone) {
  for (const auto& [name, measure] : kMeasures) {
    if (name != wanted) {
      continue;
    }
    SDL_Window* host = alone ? nullptr : OpenHostWindow();
    for (const Figure& figure : measure(LiveSubject{dialog, host, folder})) {
      std::printf("%s %.3f\n", figure.name.c_str(), figure.value);
    }
    if (host != nullptr) {
      SDL_DestroyWindow(host);
    }
    return EXIT_SUCCESS;
  }
  std::fprintf(stderr, "quindle_live_probe: no such measure: %s\n", wanted.c_str());
  return EXIT_FAILURE;
}

}  // namespace
}  // namespace quindle::bench

int main(int argc, char** argv) {
  const quindle::bench::BenchDialog* dialog =
      argc == 4 || argc == 5 ? quindle::bench::FindBenchDialog(argv[2]) : nullptr;
  if (dialog == nullptr || SDL_Init(SDL_INIT_VIDEO) != 0) {
    std::fprintf(stderr, "usage: quindle_live_probe MEASURE DIALOG FOLDER [alone]\n");
    return EXIT_FAILURE;
  }
  const int status = quindle::bench::Probe(argv[1], *dialog, argv[3], argc == 5);
  quindle::frontend::gui::ShutdownSdlUiCachedFonts();
  TTF_Quit();
  SDL_Quit();
  return status;
}
