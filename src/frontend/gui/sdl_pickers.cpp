#include "frontend/gui/sdl_pickers.h"

#include <string_view>

#include "frontend/gui/text_entry.h"
#include "utils/path_text.h"

namespace quindle::frontend::gui {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kDirectoryTag = "[DIR] ";

std::string LabelWithTag(const PickerEntry& e, std::string_view file_tag) {
  return std::string(e.is_directory ? kDirectoryTag : file_tag).append(e.name);
}

std::string LabelFloppyPickerEntry(const PickerEntry& e) {
  return LabelWithTag(e, "[IMG] ");
}

std::string LabelFontPickerEntry(const PickerEntry& e) {
  return LabelWithTag(e, HasAnyExtension(e.path, {".otf"}) ? "[OTF] " : "[TTF] ");
}

std::string LabelShaderPickerEntry(const PickerEntry& e) {
  return LabelWithTag(e, HasAnyExtension(e.path, {".glslp"}) ? "[PST] " : "[SHD] ");
}

std::string LabelFolderPickerEntry(const PickerEntry& e) {
  return LabelWithTag(e, kDirectoryTag);
}

std::vector<PickerEntry> LoadFloppyPickerEntries(const fs::path& dir) {
  return ReadFilteredPickerEntries(dir, IsAllowedImagePickerEntry);
}

std::vector<PickerEntry> LoadShaderPickerEntries(const fs::path& dir) {
  return ReadFilteredPickerEntries(dir, IsShaderPickerEntry);
}

std::vector<PickerEntry> LoadFontPickerEntries(const fs::path& dir) {
  return ReadFilteredPickerEntries(dir, IsFontPickerEntry);
}

// Existence is not looked at here: the dialog falls back by itself.
fs::path ResolveSimplePickerStartDir(const std::string& requested, const char* fallback) {
  return utils::path_from_text(TextOr(requested, fallback));
}

// What the three file pickers have in common; sizes and mode are the record's defaults.
SdlPickerDialogOptions FilePickerOptions() {
  SdlPickerDialogOptions options;
  options.accept_label = "Open";
  options.cancel_label = "Cancel";
  return options;
}

}  // namespace

std::string ShowSimpleFloppyFilePicker(SDL_Window* parent, const std::string& startDir) {
  SdlPickerDialogOptions options = FilePickerOptions();
  options.title = "Load Floppy Image";
  options.hint = "Select floppy image (*.ima, *.img)";
  options.start_dir = ResolveSimplePickerStartDir(startDir, "floppies");
  options.load_entries = LoadFloppyPickerEntries;
  options.label_entry = LabelFloppyPickerEntry;
  return RunSimplePickerDialog(parent, options);
}

std::string ShowSimpleShaderFilePicker(SDL_Window* parent, const std::string& startDir) {
  SdlPickerDialogOptions options = FilePickerOptions();
  options.title = "Select Shader";
  options.hint = "Select shader (*.glsl, *.glslp, *.frag, *.vert, *.fs, *.vs)";
  options.start_dir = ResolveSimplePickerStartDir(startDir, ".");
  options.load_entries = LoadShaderPickerEntries;
  options.label_entry = LabelShaderPickerEntry;
  options.window_flags = SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE;
  return RunSimplePickerDialog(parent, options);
}

std::string ShowSimpleTtfFilePicker(SDL_Window* parent, const std::string& startDir) {
  SdlPickerDialogOptions options = FilePickerOptions();
  options.title = "Select TTF Font";
  options.hint = "Select font (*.ttf, *.otf)";
  options.start_dir = ResolveSimplePickerStartDir(startDir, "data/ttf");
  options.load_entries = LoadFontPickerEntries;
  options.label_entry = LabelFontPickerEntry;
  options.window_flags = SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE;
  return RunSimplePickerDialog(parent, options);
}

std::string ShowSimpleFolderPicker(SDL_Window* parent, const FolderPickerOptions& options) {
  const FolderPickerOptions defaults;
  const std::string title = TextOr(options.title, defaults.title);
  const std::string accept_label = TextOr(options.accept_label, defaults.accept_label);
  const std::string cancel_label = TextOr(options.cancel_label, defaults.cancel_label);
  SdlPickerDialogOptions dialog;
  dialog.title = title.c_str();
  dialog.hint = TextOr(options.hint, defaults.hint);
  dialog.start_dir =
      options.start_dir.empty() ? fs::current_path() : utils::path_from_text(options.start_dir);
  dialog.load_entries = ReadFolderPickerEntries;
  dialog.label_entry = LabelFolderPickerEntry;
  dialog.accept_label = accept_label.c_str();
  dialog.cancel_label = cancel_label.c_str();
  dialog.width = 780;
  dialog.height = 540;
  dialog.footer_height = 50;
  dialog.button_width = 86;
  dialog.button_height = 34;
  dialog.mode = 1;
  return RunSimplePickerDialog(parent, dialog);
}

}  // namespace quindle::frontend::gui
