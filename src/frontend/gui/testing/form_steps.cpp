// Steps in the two forms: new hard-disk image, and screenshot.

#include "frontend/gui/testing/driver_script.h"
#include "frontend/gui/testing/user_input.h"

namespace quindle::frontend::gui::testing {
namespace {

constexpr const char* kNeedsHdd = "this needs the hard-disk image dialog";
constexpr const char* kNeedsScreenshot = "this needs the screenshot dialog";
constexpr const char* kNeedsForm = "this needs the hard-disk image or the screenshot dialog";
constexpr int kFormats = 3;

ScreenshotSaveDialogLayout LayOut(SDL_Window* window) {
  const SDL_Point size = WindowSize(window);
  return BuildScreenshotSaveDialogLayout(size.x, size.y);
}

// A text field of a form: where it is and what stands in it.
struct Field {
  SDL_Rect place{0, 0, 0, 0};
  const std::string* text = nullptr;  // Null: there is no such field.
};

using FindField = Field (*)(const DrivenDialog& dialog);

Field SizeField(const DrivenDialog& dialog) {
  const auto* const state = std::get_if<const HddCreateDialogState*>(&dialog.shown);
  return state == nullptr ? Field{}
                          : Field{BuildHddCreateDialogLayout().size_field, &(*state)->size_text};
}

Field NameField(const DrivenDialog& dialog) {
  if (const auto* const state = std::get_if<const HddCreateDialogState*>(&dialog.shown)) {
    return {BuildHddCreateDialogLayout().name_field, &(*state)->name_text};
  }
  if (const auto* const state = std::get_if<const ScreenshotSaveDialogState*>(&dialog.shown)) {
    return {LayOut(dialog.window).file_name_field, &(*state)->file_name_text};
  }
  return {};
}

Field OptionField(const DrivenDialog& dialog) {
  const auto* const state = std::get_if<const ScreenshotSaveDialogState*>(&dialog.shown);
  if (state == nullptr || (*state)->format == ScreenshotSaveFormat::Bmp) {
    return {};
  }
  return {LayOut(dialog.window).option_field, (*state)->format == ScreenshotSaveFormat::Jpeg
                                                  ? &(*state)->jpeg_quality_text
                                                  : &(*state)->png_compression_text};
}

// Replaces a field's text, and looks a frame later whether all of it stands there.
std::vector<DriverAction> ReplaceText(FindField find, std::string needed, const std::string& text) {
  const auto type = [find, needed = std::move(needed), text](const DrivenDialog& dialog) {
    const Field field = find(dialog);
    if (field.text == nullptr) {
      return needed;
    }
    PushClick(dialog.window, field.place);
    PushKey(dialog.window, SDLK_BACKSPACE, static_cast<int>(field.text->size()));
    PushText(dialog.window, text);
    return std::string();
  };
  const auto check = [find, text](const DrivenDialog& dialog) {
    const Field field = find(dialog);
    const bool typed = field.text != nullptr && *field.text == text;
    return typed ? std::string() : "the field did not take the whole text";
  };
  return {type, check};
}

std::string PressChoose(const DrivenDialog& dialog) {
  if (std::holds_alternative<const HddCreateDialogState*>(dialog.shown)) {
    PushClick(dialog.window, BuildHddCreateDialogLayout().choose_button);
  } else if (std::holds_alternative<const ScreenshotSaveDialogState*>(dialog.shown)) {
    PushClick(dialog.window, LayOut(dialog.window).choose_button);
  } else {
    return kNeedsForm;
  }
  return {};
}

using OpenScreenshotDialog = const ScreenshotSaveDialogState*;

std::string OpenFormatList(SDL_Window* window, const ScreenshotSaveDialogState* state) {
  if (!state->format_list_open) {
    PushClick(window, LayOut(window).format_box);
  }
  return {};
}

std::string ClickFormat(SDL_Window* window, ScreenshotSaveFormat format) {
  SDL_Rect row = LayOut(window).format_list;
  row.h /= kFormats;
  row.y += row.h * static_cast<int>(format);
  PushClick(window, row);
  return {};
}

std::string TickRle(SDL_Window* window, const ScreenshotSaveDialogState* state, bool on) {
  if (state->format != ScreenshotSaveFormat::Bmp) {
    return "only BMP has that check box";
  }
  if (state->result.bmp_rle != on) {
    PushClick(window, LayOut(window).rle_checkbox);
  }
  return {};
}

}  // namespace

DialogDriver& DialogDriver::EnterDiskSize(const std::string& size) {
  script_->AddStep("enter the disk size " + Quoted(size), ReplaceText(SizeField, kNeedsHdd, size));
  return *this;
}

DialogDriver& DialogDriver::EnterFileName(const std::string& name) {
  script_->AddStep("enter the file name " + Quoted(name), ReplaceText(NameField, kNeedsForm, name));
  return *this;
}

DialogDriver& DialogDriver::ChooseFolder() {
  script_->AddStep("choose a folder", {PressChoose});
  return *this;
}

DialogDriver& DialogDriver::Create() {
  script_->AddStep("create the image",
                   {InDialog<const HddCreateDialogState*>(
                       kNeedsHdd, [](SDL_Window* window, const HddCreateDialogState* /*state*/) {
                         PushClick(window, BuildHddCreateDialogLayout().create_button);
                         return std::string();
                       })});
  return *this;
}

DialogDriver& DialogDriver::ChooseFormat(ScreenshotSaveFormat format) {
  script_->AddStep("choose the format " + Quoted(FormatLabel(format)),
                   {InDialog<OpenScreenshotDialog>(kNeedsScreenshot, OpenFormatList),
                    InDialog<OpenScreenshotDialog>(
                        kNeedsScreenshot,
                        [format](SDL_Window* window, const ScreenshotSaveDialogState* /*state*/) {
                          return ClickFormat(window, format);
                        }),
                    InDialog<OpenScreenshotDialog>(
                        kNeedsScreenshot,
                        [format](SDL_Window* /*window*/, const ScreenshotSaveDialogState* state) {
                          return state->format == format ? std::string()
                                                         : "the list has no such format";
                        })});
  return *this;
}

DialogDriver& DialogDriver::EnterFormatOption(int number) {
  const std::string text = std::to_string(number);
  script_->AddStep(
      "enter the format's option " + Quoted(text),
      ReplaceText(OptionField, "this needs the screenshot dialog and a format with a number",
                  text));
  return *this;
}

DialogDriver& DialogDriver::TickRunLengthEncoding(bool on) {
  script_->AddStep(
      on ? "tick run-length encoding" : "untick run-length encoding",
      {InDialog<OpenScreenshotDialog>(
          kNeedsScreenshot, [on](SDL_Window* window, const ScreenshotSaveDialogState* state) {
            return TickRle(window, state, on);
          })});
  return *this;
}

DialogDriver& DialogDriver::Save() {
  script_->AddStep(
      "save the screenshot",
      {InDialog<OpenScreenshotDialog>(
          kNeedsScreenshot, [](SDL_Window* window, const ScreenshotSaveDialogState* /*state*/) {
            PushClick(window, LayOut(window).save_button);
            return std::string();
          })});
  return *this;
}

}  // namespace quindle::frontend::gui::testing
