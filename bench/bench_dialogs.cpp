#include "bench_dialogs.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <memory>

#include "frontend/gui/about_dialog.h"
#include "frontend/gui/hdd_create_dialog.h"
#include "frontend/gui/screenshot_save_dialog.h"
#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/sdl_pickers.h"
#include "frontend/gui/settings_dialog.h"
#include "frontend/gui/shader_parameter_dialog.h"
#include "support/temporary_directory.h"

namespace quindle::bench {
namespace {

namespace gui = frontend::gui;

void ShowMessage(SDL_Window* parent, const std::string& /*folder*/) {
  gui::SdlMessageBox::Config config;
  config.title = "Reset the machine?";
  config.message =
      "What is not saved will be lost.\n\nAll drives stay as they are, and so does the memory of "
      "the machine's clock.";
  config.type = gui::SdlMessageBox::Type::Warning;
  config.buttons = {{1, "Reset", true, false, {}}, {2, "Cancel", false, true, {}}};
  gui::SdlMessageBox(config).Show(parent, 1.0F);
}

void ShowFilePicker(SDL_Window* parent, const std::string& folder) {
  gui::ShowSimpleFloppyFilePicker(parent, folder);
}

// The folder picker lists folders alone, so files would leave it empty.
const std::string& FolderOfFolders() {
  static const testing::TemporaryDirectory directory;
  static const std::string path = [] {
    for (int i = 100; i < 150; ++i) {
      const auto made = directory.MakeFolder("Games " + std::to_string(i));
    }
    return directory.path().string();
  }();
  return path;
}

void ShowFolderPicker(SDL_Window* parent, const std::string& /*folder*/) {
  gui::FolderPickerOptions options;
  options.start_dir = FolderOfFolders();
  gui::ShowSimpleFolderPicker(parent, options);
}

void ShowHdd(SDL_Window* parent, const std::string& /*folder*/) {
  gui::ShowSimpleHddCreateDialog(parent, "/", 64);
}

void ShowScreenshot(SDL_Window* parent, const std::string& /*folder*/) {
  gui::ShowScreenshotSaveDialog(parent, "/", "capture.png", gui::ScreenshotSaveFormat::Png, 90, 6,
                                false);
}

// Enough parameters to fill the window.
const std::string& ShaderFile() {
  static const testing::TemporaryDirectory folder;
  static const std::string file = [] {
    std::string text;
    for (int i = 0; i < 40; ++i) {
      const std::string number = std::to_string(100 + i);
      text += "#pragma parameter PARAM_" + number + " \"Scanline strength " + number +
              "\" 37.5 0.0 100.0 0.25\n";
    }
    return folder.Write("crt.glsl", text).string();
  }();
  return file;
}

void ShowShader(SDL_Window* parent, const std::string& /*folder*/) {
  gui::ShowShaderParameterDialog(parent, ShaderFile(), 1.0F, {}, {});
}

void ShowSettings(SDL_Window* parent, const std::string& /*folder*/) {
  gui::SettingsDialogValues values{};
  values.target_fps = 50;
  values.font_mode = "ttf-custom";
  values.custom_font_path = "data/ttf/IBMPlexSans-Regular.ttf";
  gui::ShowSettingsDialog(parent, 1.0F, values, {});
}

void ShowAbout(SDL_Window* parent, const std::string& /*folder*/) {
  gui::ShowSimpleAboutDialog(parent, 1.0F);
}

// Folders of empty files, one for each count.
class FolderList {
 public:
  // The names of the files with even and with odd numbers; "%06d" becomes the number.
  FolderList(const char* even_name, const char* odd_name)
      : even_name_(even_name), odd_name_(odd_name) {}

  const std::string& FindOrMake(int count) {
    std::unique_ptr<Folder>& folder = folders_[count];
    if (folder == nullptr) {
      folder = std::make_unique<Folder>();
      folder->path = folder->directory.path().string();
      for (int i = 0; i < count; ++i) {
        char name[32];
        std::snprintf(name, sizeof name, i % 2 == 0 ? even_name_ : odd_name_, i);
        folder->directory.Write(name, "");
      }
    }
    return folder->path;
  }

 private:
  struct Folder {
    testing::TemporaryDirectory directory;
    std::string path;
  };
  const char* even_name_;
  const char* odd_name_;
  std::map<int, std::unique_ptr<Folder>> folders_;
};

constexpr std::array<BenchDialog, 8> kDialogs{{
    {"message", ShowMessage},
    {"picker", ShowFilePicker},
    {"folder", ShowFolderPicker},
    {"hdd", ShowHdd},
    {"screenshot", ShowScreenshot},
    {"shader", ShowShader},
    {"settings", ShowSettings},
    {"about", ShowAbout},
}};

}  // namespace

std::span<const BenchDialog> BenchDialogs() {
  return kDialogs;
}

const BenchDialog* FindBenchDialog(const std::string& name) {
  const auto* found =
      std::find_if(kDialogs.begin(), kDialogs.end(),
                   [&name](const BenchDialog& dialog) { return dialog.name == name; });
  return found == kDialogs.end() ? nullptr : found;
}

const std::string& FolderOfFiles(int count) {
  static FolderList folders("Disk %06d.IMG", "notes %06d.txt");
  return folders.FindOrMake(count);
}

const std::string& FolderOfImages(int count) {
  static FolderList folders("Disk %06d.IMG", "Disk %06d.IMG");
  return folders.FindOrMake(count);
}

}  // namespace quindle::bench
