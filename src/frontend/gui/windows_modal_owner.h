#pragma once

// Private. What Windows wants to hear before it treats a window as a dialog. On any other video
// driver all of this does nothing.

#include <SDL.h>

namespace quindle::frontend::gui {

// Makes `parent` the owner of a window that is still hidden, which so stays above it and has no
// entry in the task bar, and takes no input while it has one. Returns whether it could.
bool OwnWindowsModal(SDL_Window* window, SDL_Window* parent);

// Lets the owner take input again, if it did before.
void DisownWindowsModal(SDL_Window* window);

// Whether the user works with this window now. False outside Windows.
bool IsWindowsForeground(SDL_Window* window);

}  // namespace quindle::frontend::gui
