#pragma once

#include <SDL.h>

namespace quindle::demo {

// Counts the windows that SDL shows while this object lives. SDL video must outlive it.
class ShownWindows {
 public:
  ShownWindows();
  ShownWindows(const ShownWindows&) = delete;
  ShownWindows& operator=(const ShownWindows&) = delete;
  ~ShownWindows();

  // How many windows have been shown so far.
  int Count() const { return count_; }

 private:
  static int SDLCALL Watch(void* self, SDL_Event* event);

  int count_ = 0;
};

}  // namespace quindle::demo
