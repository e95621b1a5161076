#include "frontend/gui/sdl_modal_events.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <new>

namespace quindle::frontend::gui {
namespace {

// As many as SDL's queue holds: a host that posts without end must not fill the memory.
constexpr std::size_t kMaxKeptEvents = 65535;

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

// Moves all that is in the queue behind `events`. Where memory ends, the rest stays in the queue.
void TakeQueued(std::vector<SDL_Event>* events) {
  // Far more than a queue holds as a rule, so that one call takes all.
  constexpr int kChunk = 1024;
  int taken = 0;
  do {
    const std::size_t known = events->size();
    try {
      events->resize(known + kChunk);
    } catch (const std::bad_alloc&) {
      return;
    }
    taken = SDL_PeepEvents(&(*events)[known], kChunk, SDL_GETEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT);
    events->resize(known + static_cast<std::size_t>(std::max(taken, 0)));
  } while (taken == kChunk);
}

// Not pushed: no event watch must see them twice.
int AddToQueue(std::vector<SDL_Event>* events) {
  return SDL_PeepEvents(events->data(), static_cast<int>(events->size()), SDL_ADDEVENT,
                        SDL_FIRSTEVENT, SDL_LASTEVENT);
}

bool AreSame(const SDL_Event& a, const SDL_Event& b) {
  // SDL's own name for all bytes of the union.
  return std::equal(std::begin(a.padding), std::end(a.padding), std::begin(b.padding));
}

bool IsFirstInQueue(const SDL_Event& event) {
  SDL_Event first{};
  return SDL_PeepEvents(&first, 1, SDL_PEEKEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) == 1 &&
         AreSame(first, event);
}

// Puts `events` in front of all that is queued. SDL adds at the end only, so what is queued is
// taken out first. What another thread adds in that moment stands in front then, although it is
// younger; the same is done again, with that behind.
void PutInFront(std::vector<SDL_Event>* events) {
  constexpr int kMostTries = 20;
  const SDL_Event first = events->front();
  TakeQueued(events);
  int added = AddToQueue(events);
  for (int tries = 1; added > 0 && !IsFirstInQueue(first) && tries < kMostTries; ++tries) {
    events->clear();
    TakeQueued(events);
    const auto own = std::find_if(events->begin(), events->end(), [&first](const SDL_Event& event) {
      return AreSame(event, first);
    });
    std::rotate(events->begin(), own, own + std::min<std::ptrdiff_t>(added, events->end() - own));
    added = AddToQueue(events);
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
