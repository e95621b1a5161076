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
  const auto newest = std::find_if(ids_.rbegin(), ids_.rend(),
                                   [](Uint32 id) { return SDL_GetWindowFromID(id) != nullptr; });
  return newest == ids_.rend() ? nullptr : SDL_GetWindowFromID(*newest);
}

int ShownWindows::Watch(void* self, SDL_Event* event) {
  if (event->type == SDL_WINDOWEVENT && event->window.event == SDL_WINDOWEVENT_SHOWN) {
    static_cast<ShownWindows*>(self)->ids_.push_back(event->window.windowID);
  }
  return 0;
}

}  // namespace quindle::demo
