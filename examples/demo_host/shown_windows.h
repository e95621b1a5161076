#pragma once

#include <SDL.h>

#include <vector>

namespace quindle::demo {

// Watches which windows SDL shows while this object lives. SDL video must outlive it.
class ShownWindows {
 public:
  ShownWindows();
  ShownWindows(const ShownWindows&) = delete;
  ShownWindows& operator=(const ShownWindows&) = delete;
  ~ShownWindows();

  // The window that was shown last and still exists; null when there is none.
  SDL_Window* Newest() const;
  // How many windows have been shown so far.
  size_t Count() const { return ids_.size(); }

 private:
  static int SDLCALL Watch(void* self, SDL_Event* event);

  std::vector<Uint32> ids_;
};

}  // namespace quindle::demo
