#pragma once

// Private. What an open dialog tells the dialog driver, which is another library and finds it as a
// datum of the dialog's window; and the pointer that the driver puts there in the system's place.
// Products without a driver neither read the one nor set the other.

#include <SDL.h>

#include <variant>

#include "frontend/gui/about_dialog.h"
#include "frontend/gui/hdd_create_dialog.h"
#include "frontend/gui/screenshot_save_dialog.h"
#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/sdl_pickers.h"
#include "frontend/gui/settings_dialog.h"
#include "frontend/gui/shader_parameter_dialog.h"

namespace quindle::frontend::gui {

// Keys of the windows' data: an OpenDialog and a ModalPointer.
inline constexpr const char* kOpenDialogKey = "quindle_open_dialog";
inline constexpr const char* kDrivenPointerKey = "quindle_driven_pointer";

struct OpenMessageBox {
  const SdlMessageBox::Config* config = nullptr;
  float scale = 1.0F;
  const SdlMessageBoxFonts* fonts = nullptr;
};

struct OpenPicker {
  const SdlPickerDialogOptions* options = nullptr;
  const std::filesystem::path* dir = nullptr;
  const std::vector<PickerEntry>* rows = nullptr;
  const int* selected = nullptr;  // Index of a row.
  SDL_Rect (*accept_button)(SDL_Window* window, const SdlPickerDialogOptions& options) = nullptr;
};

// The dialog and what it shows. All that is pointed to belongs to the dialog, which changes it.
using OpenDialog = std::variant<OpenMessageBox, OpenPicker, const HddCreateDialogState*,
                                const ScreenshotSaveDialogState*, const ShaderDialogSession*,
                                const SettingsDialogSession*, const AboutDialogLinks*>;

// The dialog can be found by its window while this lives.
class FindableDialog {
 public:
  FindableDialog(SDL_Window* window, OpenDialog dialog) : window_(window), dialog_(dialog) {
    SDL_SetWindowData(window_, kOpenDialogKey, &dialog_);
  }
  ~FindableDialog() { SDL_SetWindowData(window_, kOpenDialogKey, nullptr); }
  FindableDialog(const FindableDialog&) = delete;
  FindableDialog& operator=(const FindableDialog&) = delete;
  FindableDialog(FindableDialog&&) = delete;
  FindableDialog& operator=(FindableDialog&&) = delete;

 private:
  SDL_Window* window_;
  OpenDialog dialog_;
};

}  // namespace quindle::frontend::gui
