#pragma once

#include <SDL.h>

#include <functional>
#include <string>
#include <vector>

namespace quindle::demo {

// What a step of a tour script can reach while a dialog is open.
class TourStage {
 public:
  TourStage() = default;
  TourStage(const TourStage&) = delete;
  TourStage& operator=(const TourStage&) = delete;
  virtual ~TourStage() = default;

  // The dialog that is open, the innermost where dialogs are nested. Never null.
  virtual SDL_Window* Dialog() const = 0;
  // Saves what the dialog shows as `name`.png in the tour's folder.
  virtual void SavePicture(const std::string& name) = 0;
  // As SavePicture, with the demo window behind the dialog.
  virtual void SavePictureOverHost(const std::string& name) = 0;
};

using TourStep = std::function<void(TourStage&)>;

// What a user does in a dialog: real SDL events, pushed for the innermost open dialog, one step
// after another. After each step the dialog draws at least one whole frame, so a Save shows what
// the step before it did.
//
// Positions are pixels of the dialog's window. A negative x or y counts from the right or bottom
// edge: (-1, -1) is the last pixel.
//
// When the script is over, the dialogs that are still open are closed by their windows' close
// event, the innermost first.
class TourScript {
 public:
  // Presses and releases a key.
  TourScript& Key(SDL_Keycode key, Uint16 modifiers = KMOD_NONE);
  // Enters UTF-8 text, one event for each character.
  TourScript& Text(const std::string& text);
  // Moves to a position, presses and releases the left button; `clicks` 2 is a double click.
  TourScript& Click(int x, int y, int clicks = 1);
  // Single parts of a click or drag.
  TourScript& Press(int x, int y);
  TourScript& Move(int x, int y);
  TourScript& Release(int x, int y);
  // Presses at `from`, moves to `to` in a few steps, releases there.
  TourScript& Drag(SDL_Point from, SDL_Point to);
  // Turns the wheel; positive is up. Without a display no window has the pointer, and dialogs that
  // ask for it ignore the wheel.
  TourScript& Wheel(int notches);
  // Puts the pointer itself at a position, for what a dialog shows under it. Has an effect only
  // with a display.
  TourScript& Hover(int x, int y);
  // Lets the dialog draw that many frames.
  TourScript& Wait(int frames);
  // Saves what the dialog shows as `name`.png. Names are unique in a tour; begin them with the
  // command's name.
  TourScript& Save(const std::string& name);
  // As Save, with the demo window behind the dialog.
  TourScript& SaveOverHost(const std::string& name);
  // Closes the innermost dialog as the window manager does.
  TourScript& Close();
  // Anything else.
  TourScript& Do(TourStep step);

  const std::vector<TourStep>& Steps() const { return steps_; }

 private:
  std::vector<TourStep> steps_;
};

// Pushes the events of a single click at a position of `window`, as TourScript::Click does.
void PushClickEvents(SDL_Window* window, int x, int y);

// Pushes the close event of `window`.
void PushCloseEvent(SDL_Window* window);

}  // namespace quindle::demo
