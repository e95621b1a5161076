#pragma once

// Private. A dialog's place on the screen.

#include <SDL.h>

namespace quindle::frontend::gui {

// Moves a shown window whose frame reaches beyond the usable area of its display onto that area;
// its top left corner counts more where it does not fit. Does nothing on drivers without a screen
// and where windows cannot place themselves.
void MoveWindowOntoDisplay(SDL_Window* window);

}  // namespace quindle::frontend::gui
