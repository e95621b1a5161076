// Steps in message boxes, pickers and About, and those of any dialog.

#include <algorithm>
#include <utility>

#include "frontend/gui/testing/driver_script.h"
#include "frontend/gui/testing/user_input.h"

namespace quindle::frontend::gui::testing {
namespace {

constexpr const char* kNeedsPicker = "this needs a file or folder picker";
constexpr int kFolderMode = 1;

SDL_Rect MessageBoxButtonRect(SDL_Window* window, const OpenMessageBox& box, std::size_t index) {
  const SDL_Point size = WindowSize(window);
  const SdlMessageBoxLayout layout =
      BuildSdlMessageBoxLayout(*box.config, box.scale, size.x, size.y, box.fonts->titleFont.get(),
                               box.fonts->bodyFont.get());
  const int step = layout.buttonW + layout.buttonGap;
  return {layout.buttonsX + static_cast<int>(index) * step, layout.buttonsY, layout.buttonW,
          layout.buttonH};
}

std::string PressMessageBoxButton(SDL_Window* window, const OpenMessageBox& box, int id) {
  const std::vector<SdlMessageBox::Button>& buttons = box.config->buttons;
  const auto button = std::find_if(buttons.begin(), buttons.end(),
                                   [id](const auto& candidate) { return candidate.id == id; });
  if (button == buttons.end()) {
    return "there is no such button";
  }
  PushClick(window,
            MessageBoxButtonRect(window, box, static_cast<std::size_t>(button - buttons.begin())));
  return {};
}

// Goes to the row with the arrow keys and presses Return.
std::string EnterRow(SDL_Window* window, const OpenPicker& picker, const std::string& name,
                     bool is_directory) {
  const std::vector<PickerEntry>& rows = *picker.rows;
  const auto row = std::find_if(rows.begin(), rows.end(), [&](const PickerEntry& entry) {
    return entry.name == name && entry.is_directory == is_directory;
  });
  if (row == rows.end()) {
    return is_directory ? "there is no such folder" : "there is no such file";
  }
  const int distance = static_cast<int>(row - rows.begin()) - *picker.selected;
  PushKey(window, distance < 0 ? SDLK_UP : SDLK_DOWN, std::abs(distance));
  PushKey(window, SDLK_RETURN);
  return {};
}

std::string AcceptShownFolder(SDL_Window* window, const OpenPicker& picker) {
  if (picker.options->mode != kFolderMode) {
    return "this picker is for files";
  }
  PushClick(window, picker.accept_button(window, *picker.options));
  return {};
}

// In pixels of the dialog's window.
std::string PlaceText(SDL_Point place) {
  return "(" + std::to_string(place.x) + ", " + std::to_string(place.y) + ")";
}

// An action that begins at a place of whatever dialog is open.
template <typename Act>
DriverAction AtPlace(SDL_Point place, Act act) {
  return [place, act](const DrivenDialog& dialog) {
    const SDL_Point size = WindowSize(dialog.window);
    const SDL_Rect area{0, 0, size.x, size.y};
    if (SDL_PointInRect(&place, &area) == SDL_FALSE) {
      return std::string("that is outside of the dialog's window");
    }
    act(dialog.window);
    return std::string();
  };
}

}  // namespace

DialogDriver& DialogDriver::PressButton(int id) {
  script_->AddStep("press the button " + std::to_string(id),
                   {InDialog<OpenMessageBox>("this needs a message box",
                                             [id](SDL_Window* window, const OpenMessageBox& box) {
                                               return PressMessageBoxButton(window, box, id);
                                             })});
  return *this;
}

DialogDriver& DialogDriver::OpenFolder(const std::string& name) {
  script_->AddStep(
      "open the folder " + Quoted(name),
      {InDialog<OpenPicker>(kNeedsPicker, [name](SDL_Window* window, const OpenPicker& picker) {
        return EnterRow(window, picker, name, true);
      })});
  return *this;
}

DialogDriver& DialogDriver::PickFile(const std::string& name) {
  script_->AddStep(
      "pick the file " + Quoted(name),
      {InDialog<OpenPicker>(kNeedsPicker, [name](SDL_Window* window, const OpenPicker& picker) {
        return EnterRow(window, picker, name, false);
      })});
  return *this;
}

DialogDriver& DialogDriver::SelectFolder() {
  script_->AddStep("select the folder", {InDialog<OpenPicker>(kNeedsPicker, AcceptShownFolder)});
  return *this;
}

DialogDriver& DialogDriver::OpenLink(AboutLink link) {
  const bool homepage = link == AboutLink::Homepage;
  script_->AddStep(homepage ? "open the homepage" : "open the video channel",
                   {InDialog<const AboutDialogLinks*>(
                       "this needs the About dialog",
                       [homepage](SDL_Window* window, const AboutDialogLinks* links) {
                         PushClick(window, homepage ? links->homepage : links->videoChannel);
                         return std::string();
                       })});
  return *this;
}

DialogDriver& DialogDriver::PressEscape() {
  script_->AddStep("press Escape", {[](const DrivenDialog& dialog) {
                     PushKey(dialog.window, SDLK_ESCAPE);
                     return std::string();
                   }});
  return *this;
}

DialogDriver& DialogDriver::Close() {
  script_->AddStep("close the dialog", {[](const DrivenDialog& dialog) {
                     PushClose(dialog.window);
                     return std::string();
                   }});
  return *this;
}

DialogDriver& DialogDriver::PressKey(SDL_Keycode key) {
  script_->AddStep("press the key " + Quoted(SDL_GetKeyName(key)),
                   {[key](const DrivenDialog& dialog) {
                     PushKey(dialog.window, key);
                     return std::string();
                   }});
  return *this;
}

DialogDriver& DialogDriver::Click(const SDL_Rect& part) {
  const SDL_Point at = Middle(part);
  script_->AddStep("click at " + PlaceText(at),
                   {AtPlace(at, [at](SDL_Window* window) { PushClick(window, at); })});
  return *this;
}

DialogDriver& DialogDriver::Drag(SDL_Point from, SDL_Point to) {
  script_->AddStep("drag from " + PlaceText(from) + " to " + PlaceText(to),
                   {AtPlace(from, [from, to](SDL_Window* window) { PushDrag(window, from, to); })});
  return *this;
}

DialogDriver& DialogDriver::TurnWheel(const SDL_Rect& part, int notches) {
  const SDL_Point at = Middle(part);
  const auto turn = [script = script_.get(), at, notches](SDL_Window* window) {
    script->PutPointer(window, {at.x, at.y, false});
    PushWheel(window, at, notches);
  };
  script_->AddStep("turn the wheel at " + PlaceText(at), {AtPlace(at, turn)});
  return *this;
}

DialogDriver& DialogDriver::Wait(int frames) {
  script_->AddStep("wait", std::vector<DriverAction>(
                               static_cast<std::size_t>(std::max(frames, 0)),
                               [](const DrivenDialog& /*dialog*/) { return std::string(); }));
  return *this;
}

DialogDriver& DialogDriver::Do(std::function<void(SDL_Window*)> step) {
  script_->AddStep("a step of the test's own",
                   {[step = std::move(step)](const DrivenDialog& dialog) {
                     step(dialog.window);
                     return std::string();
                   }});
  return *this;
}

}  // namespace quindle::frontend::gui::testing
