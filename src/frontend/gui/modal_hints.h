#pragma once

// Private. What makes a window modal for another where SDL does not see to all of it: on X11 and on
// Windows. On any other video driver all of this does nothing.

#include <SDL.h>

namespace quindle::frontend::gui {

// Makes a window that is still hidden modal for `parent`. Its renderer must be there, since SDL may
// make the system's window anew for it.
void MarkWindowModal(SDL_Window* window, SDL_Window* parent);

// The parent that `window` was marked modal for; null when it was not marked.
SDL_Window* FindModalParent(SDL_Window* window);

// To be called before the focus goes back to the parent, while `window` is still shown: no window
// manager gives it to `window` again. Does what UnmarkWindowModal does, too.
void EndWindowModality(SDL_Window* window);

// The parent of `window`, which is about to go, takes input again, if the mark has kept it from
// that. A second call does nothing.
void UnmarkWindowModal(SDL_Window* window);

}  // namespace quindle::frontend::gui
