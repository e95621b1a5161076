// Benchmarks need no display: everything is drawn by SDL's software renderer.

#include <SDL.h>
#include <benchmark/benchmark.h>

#include <cstdio>

#include "frontend/gui/sdl_ui_font_cache.h"

int main(int argc, char** argv) {
  SDL_setenv("SDL_VIDEODRIVER", "dummy", 1);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 1;
  }
  if (SDL_Init(SDL_INIT_VIDEO) != 0) {
    std::fprintf(stderr, "quindle_bench: %s\n", SDL_GetError());
    return 1;
  }
  benchmark::RunSpecifiedBenchmarks();
  quindle::frontend::gui::ShutdownSdlUiCachedFonts();
  TTF_Quit();
  SDL_Quit();
  return 0;
}
