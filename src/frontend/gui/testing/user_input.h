#pragma once

// Private. What a user's hands do, as SDL events that name the dialog's window.

#include <SDL.h>

#include <string>

namespace quindle::frontend::gui::testing {

// Presses and releases a key `times` times.
void PushKey(SDL_Window* window, SDL_Keycode key, int times = 1);
// Types UTF-8, one event for each character.
void PushText(SDL_Window* window, const std::string& text);
// Moves the pointer, with the left button held or not.
void PushMotion(SDL_Window* window, SDL_Point at, bool held);
// Presses or releases the left button.
void PushPress(SDL_Window* window, SDL_Point at);
void PushRelease(SDL_Window* window, SDL_Point at);
// Moves to a place, or the middle of a rectangle, presses and releases.
void PushClick(SDL_Window* window, SDL_Point at);
void PushClick(SDL_Window* window, const SDL_Rect& rect);
// Presses at one place, moves to the other and releases there.
void PushDrag(SDL_Window* window, SDL_Point from, SDL_Point to);
// Turns the wheel where the pointer is; positive is away from the user.
void PushWheel(SDL_Window* window, SDL_Point at, int notches);
// Closes the window.
void PushClose(SDL_Window* window);
// Ends the program, which closes the innermost dialog.
void PushQuit();

SDL_Point Middle(const SDL_Rect& rect);
SDL_Point WindowSize(SDL_Window* window);

}  // namespace quindle::frontend::gui::testing
