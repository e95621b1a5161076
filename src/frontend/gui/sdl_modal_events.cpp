#include "frontend/gui/sdl_modal_events.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <optional>

namespace quindle::frontend::gui {
namespace {

// A host that posts without end must not fill the memory. SDL's queue holds one more.
constexpr std::size_t kMaxKeptEvents = 65534;

// How many queues of dialogs have gone out of scope. All dialogs run on one thread.
unsigned g_ended_queues = 0;

bool IsWindowEventOfOtherWindow(SDL_Window* window, const SDL_Event& event) {
  return event.type == SDL_WINDOWEVENT && event.window.windowID != SDL_GetWindowID(window);
}

// Events of no window that the host alone can use, and would never hear of again.
bool IsHostEvent(const SDL_Event& event) {
  switch (event.type) {
    case SDL_APP_TERMINATING:
    case SDL_APP_LOWMEMORY:
    case SDL_APP_WILLENTERBACKGROUND:
    case SDL_APP_DIDENTERBACKGROUND:
    case SDL_APP_WILLENTERFOREGROUND:
    case SDL_APP_DIDENTERFOREGROUND:
    case SDL_LOCALECHANGED:
    case SDL_DISPLAYEVENT:
    case SDL_KEYMAPCHANGED:
    case SDL_JOYDEVICEADDED:
    case SDL_JOYDEVICEREMOVED:
    case SDL_CONTROLLERDEVICEADDED:
    case SDL_CONTROLLERDEVICEREMOVED:
    case SDL_CONTROLLERDEVICEREMAPPED:
    case SDL_CLIPBOARDUPDATE:
    case SDL_AUDIODEVICEADDED:
    case SDL_AUDIODEVICEREMOVED:
    case SDL_RENDER_TARGETS_RESET:
    case SDL_RENDER_DEVICE_RESET:
      return true;
    default:
      return event.type >= SDL_USEREVENT;
  }
}

// Frees what an event that no dialog uses owns; false for an event that owns nothing.
bool FreeOwnedText(const SDL_Event& event) {
  switch (event.type) {
    case SDL_DROPFILE:
    case SDL_DROPTEXT:
    case SDL_DROPBEGIN:
    case SDL_DROPCOMPLETE:
      SDL_free(event.drop.file);
      return true;
    case SDL_TEXTEDITING_EXT:
      SDL_free(event.editExt.text);
      return true;
    default:
      return false;
  }
}

// The window that an input event names; 0 for any other event.
Uint32 InputWindowId(const SDL_Event& event) {
  switch (event.type) {
    case SDL_KEYDOWN:
    case SDL_KEYUP:
      return event.key.windowID;
    case SDL_TEXTINPUT:
      return event.text.windowID;
    case SDL_TEXTEDITING:
      return event.edit.windowID;
    case SDL_MOUSEMOTION:
      return event.motion.windowID;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
      return event.button.windowID;
    case SDL_MOUSEWHEEL:
      return event.wheel.windowID;
    default:
      return 0;
  }
}

// Some SDLs queue the address of a text, which an event that was taken out and put back would lose.
bool HoldsText(const SDL_Event& event) {
  switch (event.type) {
    case SDL_TEXTINPUT:
    case SDL_TEXTEDITING:
    case SDL_TEXTEDITING_EXT:
    case SDL_DROPFILE:
    case SDL_DROPTEXT:
      return true;
    default:
      return false;
  }
}

// Not pushed: no event watch must see them twice.
void AddToQueue(std::vector<SDL_Event>* events) {
  SDL_PeepEvents(events->data(), static_cast<int>(events->size()), SDL_ADDEVENT, SDL_FIRSTEVENT,
                 SDL_LASTEVENT);
  events->clear();
}

// A pass over the queue, during which SDL keeps other threads away. SDL adds at the end only; so
// all that is queued moves behind the events that are to stand in front.
class MoveBehind {
 public:
  explicit MoveBehind(std::vector<SDL_Event>* events) : events_(events) {}

  static int SDLCALL Visit(void* self, SDL_Event* event) {
    // SDL does not count its own.
    const bool is_sdls_own = event->type == SDL_POLLSENTINEL;
    return is_sdls_own || static_cast<MoveBehind*>(self)->Stays(*event) ? 1 : 0;
  }

  // Dropped when it is met.
  SDL_Event Mark() const {
    SDL_Event mark{};
    mark.type = SDL_USEREVENT;
    mark.user.data1 = const_cast<MoveBehind*>(this);
    return mark;
  }

 private:
  bool IsMark(const SDL_Event& event) const {
    return event.type == SDL_USEREVENT && event.user.data1 == this;
  }

  bool Stays(const SDL_Event& event) {
    if (!unvisited_) {
      unvisited_ = CountQueued();
    }
    if (*unvisited_ == 0) {
      return !IsMark(event);
    }
    const bool moves = !HoldsText(event);
    if (moves && !IsMark(event)) {
      events_->push_back(event);
    }
    if (--*unvisited_ == 0) {
      AddToQueue(events_);
    }
    return !moves;
  }

  // Makes room for them too; 0 where memory ends, and all that is queued stays.
  int CountQueued() {
    const int count = SDL_PeepEvents(nullptr, 0, SDL_PEEKEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT);
    try {
      events_->reserve(events_->size() + static_cast<std::size_t>(std::max(count, 0)));
    } catch (const std::bad_alloc&) {
      return 0;
    }
    return std::max(count, 0);
  }

  std::vector<SDL_Event>* events_;
  std::optional<int> unvisited_;  // Of what was queued; unknown before the first.
};

// Puts `events` in front of all that is queued, and empties the list.
void PutInFront(std::vector<SDL_Event>* events) {
  MoveBehind pass(events);
  // An empty queue would not be passed over, and another thread may add to it just then.
  SDL_Event mark = pass.Mark();
  SDL_PeepEvents(&mark, 1, SDL_ADDEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT);
  SDL_FilterEvents(&MoveBehind::Visit, &pass);
  if (!events->empty()) {
    AddToQueue(events);
  }
}

}  // namespace

ModalEventQueue::ModalEventQueue(SDL_Window* window)
    : window_(window), seen_ended_queues_(g_ended_queues) {}

ModalEventQueue::~ModalEventQueue() {
  ++g_ended_queues;
  if (!kept_.empty()) {
    PutInFront(&kept_);
  }
}

bool ModalEventQueue::Poll(SDL_Event* event) {
  while (SDL_PollEvent(event) != 0) {
    if (IsHostEvent(*event)) {
      if (kept_.size() < kMaxKeptEvents) {
        kept_.push_back(*event);
      }
    } else if (!FreeOwnedText(*event) && !IsWindowEventOfOtherWindow(window_, *event)) {
      return true;
    }
  }
  return false;
}

bool ModalEventQueue::MissedLeftRelease() {
  if (seen_ended_queues_ == g_ended_queues) {
    return false;
  }
  seen_ended_queues_ = g_ended_queues;
  return (SDL_GetMouseState(nullptr, nullptr) & SDL_BUTTON_LMASK) == 0;
}

bool IsModalCancelEvent(const SDL_Event& event) {
  return event.type == SDL_QUIT ||
         (event.type == SDL_WINDOWEVENT && event.window.event == SDL_WINDOWEVENT_CLOSE);
}

bool IsInputOfOtherWindow(SDL_Window* window, const SDL_Event& event) {
  const Uint32 id = InputWindowId(event);
  return id != 0 && id != SDL_GetWindowID(window);
}

bool IsLeftButtonEvent(const SDL_Event& event) {
  return (event.type == SDL_MOUSEBUTTONDOWN || event.type == SDL_MOUSEBUTTONUP) &&
         event.button.button == SDL_BUTTON_LEFT;
}

}  // namespace quindle::frontend::gui
