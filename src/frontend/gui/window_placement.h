#pragma once

// Private. A dialog's place on the screen.

#include <SDL.h>

namespace quindle::frontend::gui {

// To be called once a dialog's window was shown: from then on MoveWindowOntoDisplay minds it. Does
// nothing on drivers without a screen and where windows cannot place themselves.
void MindWindowPlace(SDL_Window* window);

// To be called in each frame. Moves a minded window whose frame reaches beyond the usable area of
// its display onto that area, once; its top left corner counts more where it does not fit. A window
// manager may put a window into its frame, and tell how large that is, a while after it was shown.
void MoveWindowOntoDisplay(SDL_Window* window);

}  // namespace quindle::frontend::gui
