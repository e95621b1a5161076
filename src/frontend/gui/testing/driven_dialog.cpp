#include "frontend/gui/testing/driven_dialog.h"

#include <locale>
#include <sstream>

#include "frontend/gui/testing/settings_controls.h"
#include "utils/path_text.h"

namespace quindle::frontend::gui::testing {
namespace {

// "a", "b" and so on; "none" for none.
template <typename Items, typename InWords>
std::string List(const Items& items, InWords in_words) {
  std::string list;
  for (const auto& item : items) {
    list += (list.empty() ? "" : ", ") + in_words(item);
  }
  return list.empty() ? "none" : list;
}

// What the kinds of dialogs show.
struct Contents {
  std::string operator()(const OpenMessageBox& box) const {
    return "the buttons " + List(box.config->buttons, [](const SdlMessageBox::Button& button) {
             return std::to_string(button.id) + " " + Quoted(button.label);
           });
  }
  std::string operator()(const OpenPicker& picker) const {
    return "the folder " + Quoted(utils::text_from_path(*picker.dir)) + " with the rows " +
           List(*picker.rows, [](const PickerEntry& row) {
             return Quoted(row.name) + (row.is_directory ? " (folder)" : "");
           });
  }
  std::string operator()(const HddCreateDialogState* state) const {
    return "the size " + Quoted(state->size_text) + ", the file name " + Quoted(state->name_text) +
           ", the folder " + Quoted(state->folder_text);
  }
  std::string operator()(const ScreenshotSaveDialogState* state) const {
    return "the file name " + Quoted(state->file_name_text) + ", the folder " +
           Quoted(state->folder_text) + ", the format " + Quoted(FormatLabel(state->format)) +
           ", the JPEG quality " + Quoted(state->jpeg_quality_text) + ", the PNG compression " +
           Quoted(state->png_compression_text) + ", run-length encoding " +
           (state->result.bmp_rle ? "on" : "off");
  }
  std::string operator()(const ShaderDialogSession* session) const {
    return "the parameters " + List(session->result->values, [](const ShaderParameterValue& value) {
             return Quoted(value.name) + " = " + NumberText(value.value);
           });
  }
  std::string operator()(const SettingsDialogSession* session) const {
    return "the page " + Quoted(SettingsPageName(*session)) + " with the controls " +
           List(SettingsControlLabels(session->panel_id), Quoted);
  }
  std::string operator()(const AboutDialogLinks* /*links*/) const { return "its two links"; }
};

struct KindName {
  const char* operator()(const OpenMessageBox&) const { return "the message box"; }
  const char* operator()(const OpenPicker&) const { return "the picker"; }
  template <typename Record>
  const char* operator()(const Record* /*record*/) const {
    return "the dialog";
  }
};

}  // namespace

std::string Quoted(const std::string& text) {
  return '"' + text + '"';
}

std::string NumberText(double number) {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << number;
  return text.str();
}

std::string DescribeDialog(const DrivenDialog& dialog) {
  return std::string(std::visit(KindName{}, dialog.shown)) + " " +
         Quoted(SDL_GetWindowTitle(dialog.window)) + ", which shows " +
         std::visit(Contents{}, dialog.shown);
}

}  // namespace quindle::frontend::gui::testing
