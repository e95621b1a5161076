#pragma once

// Private. The folder picker that a form opens for its folder field.

#include <SDL.h>

#include <string>

namespace quindle::frontend::gui {

// Opens the picker at `folder`, which changes only when the user chooses one. `title` and `hint`
// are the form's words for it.
void ChooseFormFolder(SDL_Window* parent, const char* title, const char* hint, std::string* folder);

}  // namespace quindle::frontend::gui
