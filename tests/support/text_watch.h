#pragma once

#include <SDL.h>

#include <string>
#include <vector>

namespace quindle::testing {

/// Hears of every text that is typed while it lives, as an event watch of the host's would.
class TextWatch {
 public:
  TextWatch() { SDL_AddEventWatch(&Hear, this); }
  ~TextWatch() { SDL_DelEventWatch(&Hear, this); }
  TextWatch(const TextWatch&) = delete;
  TextWatch& operator=(const TextWatch&) = delete;

  /// One for each event.
  [[nodiscard]] const std::vector<std::string>& Texts() const { return texts_; }

 private:
  static int Hear(void* self, SDL_Event* event) {
    if (event->type == SDL_TEXTINPUT) {
      static_cast<TextWatch*>(self)->texts_.emplace_back(event->text.text);
    }
    return 0;
  }

  std::vector<std::string> texts_;
};

}  // namespace quindle::testing
