#include "shown_windows.h"

#include <algorithm>

namespace quindle::demo {

ShownWindows::ShownWindows() {
  SDL_AddEventWatch(&Watch, this);
}

ShownWindows::~ShownWindows() {
  SDL_DelEventWatch(&Watch, this);
}

SDL_Window* ShownWindows::Newest() const {
  for (auto id = ids_.rbegin(); id != ids_.rend(); ++id) {
    SDL_Window* window = SDL_GetWindowFromID(*id);
    if (window != nullptr) {
      return window;
    }
  }
  return nullptr;
}

int ShownWindows::Watch(void* self, SDL_Event* event) {
  if (event->type == SDL_WINDOWEVENT && event->window.event == SDL_WINDOWEVENT_SHOWN) {
    static_cast<ShownWindows*>(self)->ids_.push_back(event->window.windowID);
  }
  return 0;
}

}  // namespace quindle::demo
