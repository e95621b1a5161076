#pragma once

#include <stdexcept>

namespace quindle::demo {

// Thrown when there is no way to show a dialog; `what` is one line for the user.
class NothingShownError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

enum class VideoChoice {
  Display,  // A display that a person sees, or what SDL_VIDEODRIVER names.
  Memory,   // SDL's offscreen or dummy driver: what is drawn exists in memory alone.
};

// SDL video and SDL_ttf for as long as this object lives. Shuts down in the order that the library
// asks for: heartbeat, cached fonts, SDL_ttf, SDL. Windows must be gone by then.
class SdlSession {
 public:
  // Throws NothingShownError when there is no display or no font.
  explicit SdlSession(VideoChoice video);
  SdlSession(const SdlSession&) = delete;
  SdlSession& operator=(const SdlSession&) = delete;
  ~SdlSession();
};

}  // namespace quindle::demo
