#include "shown_windows.h"

namespace quindle::demo {

ShownWindows::ShownWindows() {
  SDL_AddEventWatch(&Watch, this);
}

ShownWindows::~ShownWindows() {
  SDL_DelEventWatch(&Watch, this);
}

int ShownWindows::Watch(void* self, SDL_Event* event) {
  if (event->type == SDL_WINDOWEVENT && event->window.event == SDL_WINDOWEVENT_SHOWN) {
    ++static_cast<ShownWindows*>(self)->count_;
  }
  return 0;
}

}  // namespace quindle::demo
