#pragma once

// Private. A dialog's window comes and takes the focus, keeps it, and gives it back. None of this
// ends the process where X11 refuses.

#include <SDL.h>

namespace quindle::frontend::gui {

// Shows, raises and focuses a dialog's window.
void ShowFocusedWindow(SDL_Window* window);

// Raises and focuses a window that is shown already, if it can have the focus now.
void FocusShownWindow(SDL_Window* window);

// Called once a frame by the innermost dialog: asks for the focus again where the window was too
// late on the screen to get it, and takes back a focus that went to a window it is modal for. A
// window manager that keeps the modal state never lets it come to that; but some that name the
// state among what they support do not keep it, so only what really happens counts.
void KeepFocusOnWindow(SDL_Window* window);

}  // namespace quindle::frontend::gui
