#pragma once

// What a host does with dialogs, for the driver to press the buttons of.

#include <SDL.h>

#include <functional>
#include <string>
#include <vector>

#include "frontend/gui/sdl_message_box.h"

namespace quindle::testing {

// A box with the buttons 1 "Yes" and 2 "No", the latter for Escape.
inline frontend::gui::SdlMessageBox::Config MakeQuestion(const std::string& title) {
  frontend::gui::SdlMessageBox::Config config;
  config.title = title;
  config.message = "Go on?";
  config.buttons = {{1, "Yes", true, false, {}}, {2, "No", false, true, {}}};
  return config;
}

inline int Ask(const std::string& title) {
  return frontend::gui::SdlMessageBox(MakeQuestion(title)).Show(nullptr, 1.0F);
}

}  // namespace quindle::testing
