// Instructions of one frame of each dialog, counted by callgrind; scripts/frame_cost runs it so.
// Each dialog's counts become a part of callgrind's output that bears the dialog's name.

#include <SDL.h>
#include <SDL_ttf.h>
#include <valgrind/callgrind.h>

#include <cstdio>

#include "bench_dialogs.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/sdl_ui_font_cache.h"

namespace quindle::bench {
namespace {

// The first frames fill the caches of glyphs, and show the window.
constexpr int kFramesBefore = 3;
constexpr int kFramesCounted = 10;

void CountFrames(const BenchDialog& dialog) {
  int frame = 0;
  frontend::gui::SetModalDialogHeartbeat([&dialog, &frame] {
    if (frame == kFramesBefore) {
      CALLGRIND_ZERO_STATS;
    } else if (frame == kFramesBefore + kFramesCounted) {
      CALLGRIND_DUMP_STATS_AT(dialog.name);
      SDL_Event quit{};
      quit.type = SDL_QUIT;
      SDL_PushEvent(&quit);
    }
    ++frame;
  });
  dialog.show(nullptr, FolderOfFiles(50));
  frontend::gui::SetModalDialogHeartbeat({});
}

}  // namespace
}  // namespace quindle::bench

// The pause between two frames is none of their cost.
extern "C" void SDL_Delay(Uint32 /*ms*/) {}

int main() {
  SDL_setenv("SDL_VIDEODRIVER", "dummy", 1);
  SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
  SDL_SetHint(SDL_HINT_RENDER_DRIVER, "software");
  if (SDL_Init(SDL_INIT_VIDEO) != 0) {
    std::fprintf(stderr, "quindle_frame_cost: %s\n", SDL_GetError());
    return 1;
  }
  std::printf("frames %d\n", quindle::bench::kFramesCounted);
  for (const quindle::bench::BenchDialog& dialog : quindle::bench::BenchDialogs()) {
    quindle::bench::CountFrames(dialog);
  }
  quindle::frontend::gui::ShutdownSdlUiCachedFonts();
  TTF_Quit();
  SDL_Quit();
  return 0;
}
