#pragma once

// Private. A dialog as the driver's steps see it, and what one step is made of.

#include <SDL.h>

#include <functional>
#include <string>

#include "frontend/gui/open_dialog.h"

namespace quindle::frontend::gui::testing {

// The innermost dialog. Valid for one call.
struct DrivenDialog {
  SDL_Window* window = nullptr;
  OpenDialog shown;
};

// One frame's part of a step. Returns what keeps the step from being done; empty when nothing does.
using DriverAction = std::function<std::string(const DrivenDialog&)>;

// The dialog and what it shows, in words.
std::string DescribeDialog(const DrivenDialog& dialog);

// A text in double quotes.
std::string Quoted(const std::string& text);
// A number with a decimal point, whatever the locale is.
std::string NumberText(double number);

// An action for one kind of dialog: `act` takes the window and what that kind shows. In any other
// dialog it is refused with `needed`, such as "this needs a message box".
template <typename Shown, typename Act>
DriverAction InDialog(std::string needed, Act act) {
  return [needed = std::move(needed), act = std::move(act)](const DrivenDialog& dialog) {
    const Shown* const shown = std::get_if<Shown>(&dialog.shown);
    return shown == nullptr ? needed : act(dialog.window, *shown);
  };
}

}  // namespace quindle::frontend::gui::testing
