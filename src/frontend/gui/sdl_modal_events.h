#pragma once

// Private. The event queue as a dialog's loop reads it, and the questions that the loops ask of an
// event. What an event means is the dialog's; nothing here calls back into one.

#include <SDL.h>

#include <vector>

namespace quindle::frontend::gui {

// The queue while one dialog's loop runs. What the host waits for and no dialog uses (its own
// events, devices that come and go and the like) is kept aside and stands in the queue again, in
// its order and in front of what was left unread, when this goes out of scope, by an exception too.
class ModalEventQueue {
 public:
  // Borrows the dialog's window.
  explicit ModalEventQueue(SDL_Window* window);
  ~ModalEventQueue();
  ModalEventQueue(const ModalEventQueue&) = delete;
  ModalEventQueue& operator=(const ModalEventQueue&) = delete;
  ModalEventQueue(ModalEventQueue&&) = delete;
  ModalEventQueue& operator=(ModalEventQueue&&) = delete;

  // Takes the next event for the dialog; false once the queue is empty. Window events of other
  // windows are dropped. Key, text and mouse events are NOT filtered: that rule is the dialog's.
  bool Poll(SDL_Event* event);

  // True when another dialog has read events since this was asked last and the left button is up
  // now: the release that would have ended a drag may have gone to that dialog.
  bool MissedLeftRelease();

 private:
  SDL_Window* window_;
  std::vector<SDL_Event> kept_;
  unsigned seen_ended_queues_;
};

// True for a quit, and for a close of the dialog's own window, of an event from Poll.
bool IsModalCancelEvent(const SDL_Event& event);

// True for a key, text or mouse event that names a window other than the dialog's. Id 0 (no window)
// counts as the dialog's, as do all other events.
bool IsInputOfOtherWindow(SDL_Window* window, const SDL_Event& event);

// True for a press or release of the left mouse button.
bool IsLeftButtonEvent(const SDL_Event& event);

}  // namespace quindle::frontend::gui
