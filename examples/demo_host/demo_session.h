#pragma once

// What the dialogs of one demo window share.

#include <SDL.h>

#include <map>
#include <memory>
#include <string>

#include "guest_picture.h"
#include "guest_view.h"

namespace quindle::demo {

struct DemoSession {
  SDL_Window* host = nullptr;  // The demo window, parent of its dialogs. Borrowed.
  GuestPicture guest;          // The guest's screen as it is at this moment; animated.
  // Puts the guest picture onto the demo window; never null. Replace it to show it another way.
  std::unique_ptr<GuestView> view = std::make_unique<PlainGuestView>();
  int target_fps = 50;      // Pictures a second that the guest makes; obeyed at once.
  std::string last_folder;  // Folder of the last accepted path, as its bytes; empty at first.
  // Further texts of the status line, drawn as "key: value", ordered by key.
  std::map<std::string, std::string> status;
};

}  // namespace quindle::demo
