#include "support/every_dialog.h"

#include "frontend/gui/about_dialog.h"
#include "frontend/gui/hdd_create_dialog.h"
#include "frontend/gui/screenshot_save_dialog.h"
#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/sdl_pickers.h"
#include "frontend/gui/settings_dialog.h"
#include "frontend/gui/shader_parameter_dialog.h"

namespace quindle::testing {
namespace {

namespace gui = frontend::gui;

void ShowMessageBox(SDL_Window* parent) {
  gui::SdlMessageBox::Config config;
  config.title = "Eject disk";
  config.message = "Really?";
  config.buttons = {{1, "Yes", true, false, {}}, {2, "No", false, true, {}}};
  gui::SdlMessageBox(config).Show(parent, 1.0F);
}

void ShowShader(SDL_Window* parent) {
  gui::ShowShaderParameterDialog(parent, "data/shaders/demo_crt.glsl", 1.0F, {}, {});
}

}  // namespace

void PrintTo(const NamedDialog& dialog, std::ostream* out) {
  *out << dialog.name;
}

std::string NameOfDialogTest(const ::testing::TestParamInfo<NamedDialog>& test) {
  return test.param.name;
}

const std::vector<NamedDialog>& EveryDialog() {
  static const std::vector<NamedDialog> dialogs{
      {"MessageBox", "Eject disk", ShowMessageBox},
      {"FloppyPicker", "Load Floppy Image",
       [](SDL_Window* parent) { gui::ShowSimpleFloppyFilePicker(parent, "."); }},
      {"ShaderPicker", "Select Shader",
       [](SDL_Window* parent) { gui::ShowSimpleShaderFilePicker(parent, "."); }},
      {"FontPicker", "Select TTF Font",
       [](SDL_Window* parent) { gui::ShowSimpleTtfFilePicker(parent, ""); }},
      {"FolderPicker", "Select Folder",
       [](SDL_Window* parent) { gui::ShowSimpleFolderPicker(parent, {}); }},
      {"HddDialog", "Create HDD Image",
       [](SDL_Window* parent) { gui::ShowSimpleHddCreateDialog(parent, ".", 32); }},
      {"ScreenshotDialog", "Save Screenshot",
       [](SDL_Window* parent) {
         gui::ShowScreenshotSaveDialog(parent, ".", "", gui::ScreenshotSaveFormat::Png, 90, 6,
                                       false);
       }},
      {"ShaderDialog", "Shader Parameters", ShowShader},
      {"SettingsDialog", "Settings",
       [](SDL_Window* parent) { gui::ShowSettingsDialog(parent, 1.0F, {}, {}); }},
      {"AboutDialog", "About Quindle",
       [](SDL_Window* parent) { gui::ShowSimpleAboutDialog(parent, 1.0F); }},
  };
  return dialogs;
}

}  // namespace quindle::testing
