// The hand at the keyboard: presses Escape in the third frame of whatever dialog is open. Calls the
// companion libraries and SDL_ttf as well, so that the program needs all that the package brings.
#include <SDL.h>
#include <SDL_ttf.h>

#include <cstdlib>

#include "frontend/gui/sdl_modal_runtime.h"
#include "opengl/shader_preset.h"
#include "utils/path_utils.h"

namespace {

void PressEscape() {
  static int frame = 0;
  if (++frame == 3) {
    SDL_Event event{};
    event.type = SDL_KEYDOWN;
    event.key.state = SDL_PRESSED;
    event.key.keysym.sym = SDLK_ESCAPE;
    SDL_PushEvent(&event);
  }
}

const bool kInstalled = [] {
  const bool all_answer = quindle::utils::filename_from_path("a:\\dos\\disk.img") == "disk.img" &&
                          quindle::opengl::ResolveGlslpFirstPass("missing.glslp").empty() &&
                          TTF_Linked_Version() != nullptr;
  if (!all_answer) {
    std::abort();
  }
  quindle::frontend::gui::SetModalDialogHeartbeat(PressEscape);
  return true;
}();

}  // namespace
