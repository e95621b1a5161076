#pragma once

// Puts input into SDL's event queue the way a user's input arrives there.
//
//   Click(120, 80);                      // press and release of the left button
//   TextInput("C:\\HDD.IMG");            // as many text events as it needs
//   KeyDown(SDLK_TAB, 0, KMOD_LSHIFT);
//   CloseWindow(SDL_GetWindowID(Recorder().newest_window()));
//
// `window_id` 0 names no window; WindowId() is the id of the dialog that is open.

#include <SDL.h>

#include <string_view>
#include <vector>

namespace quindle::testing {

// Id of the window made last and still alive; 0 when there is none.
Uint32 WindowId();

void KeyDown(SDL_Keycode sym, Uint32 window_id = 0, int modifiers = KMOD_NONE);
void KeyUp(SDL_Keycode sym, Uint32 window_id = 0, int modifiers = KMOD_NONE);
// Splits at the 31 bytes that an event holds, never inside a UTF-8 character.
void TextInput(std::string_view text, Uint32 window_id = 0);
void MouseDown(int x, int y, Uint8 button = SDL_BUTTON_LEFT, Uint8 clicks = 1,
               Uint32 window_id = 0);
void MouseUp(int x, int y, Uint8 button = SDL_BUTTON_LEFT, Uint8 clicks = 1, Uint32 window_id = 0);
// MouseDown and MouseUp.
void Click(int x, int y, Uint8 button = SDL_BUTTON_LEFT, Uint8 clicks = 1, Uint32 window_id = 0);
// In the middle of a rectangle.
void Click(const SDL_Rect& rect);
// Two clicks, the second one with a click count of 2.
void DoubleClick(int x, int y, Uint32 window_id = 0);
// `buttons` is a mask such as SDL_BUTTON_LMASK.
void Motion(int x, int y, Uint32 buttons = 0, Uint32 window_id = 0);
// `y` is positive away from the user. The event says where the mouse was.
void Wheel(int y, int x = 0, SDL_Point mouse = {0, 0}, Uint32 window_id = 0);
// A wheel of which the system has turned the direction round.
void FlippedWheel(int y, int x = 0, SDL_Point mouse = {0, 0}, Uint32 window_id = 0);
void WindowEvent(Uint32 window_id, Uint8 event, int data1 = 0, int data2 = 0);
void CloseWindow(Uint32 window_id);
void Resized(Uint32 window_id, int width, int height);
void Quit();

// The largest position or turn that leaves SDL's queue as it went in. On top of SDL3 they are
// floating-point numbers in between, and INT_MAX comes out negative. Leaves the queue empty.
int LargestInEvents();

// Empties the queue; between two dialogs of one test, because an SDL_PollEvent may have left a
// sentinel at which the next dialog's first frame would stop reading.
void FlushEvents();
// What is queued now, oldest first, left where it is; without SDL's sentinels.
std::vector<SDL_Event> QueuedEvents();
// What a dialog that has ended left for the host: QueuedEvents() without what SDL itself says of a
// window that it takes away, and says when nobody is left to read it: that the window is hidden,
// that the pointer and the focus have left it, and, on top of SDL3, that it is destroyed.
std::vector<SDL_Event> EventsLeftBehind();

}  // namespace quindle::testing
