#pragma once

#include <SDL.h>

#include <string>

#include "frontend/gui/screenshot_save_dialog.h"

namespace quindle::demo {

// The path that a result of the dialog names.
std::string ScreenshotPath(const frontend::gui::ScreenshotSaveDialogResult& result);

// Saves `picture` (8-bit indexed) where and how the accepted `result` says. Throws
// std::exception, with one line for the user, when the file exists already or cannot be written;
// nothing is left behind then.
void WriteScreenshot(const SDL_Surface& picture,
                     const frontend::gui::ScreenshotSaveDialogResult& result);

}  // namespace quindle::demo
