#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <utility>

#include "command_table.h"
#include "demo_command.h"
#include "file_paths.h"
#include "frontend/gui/sdl_pickers.h"
#include "json_output.h"
#include "working_directory.h"

namespace quindle::demo {
namespace {

namespace fs = std::filesystem;
namespace gui = frontend::gui;

// What tells one picker from another.
struct PickerTraits {
  const char* name;
  const char* description;
  const char* button_label;
  // Shows the picker with a start folder, which may be empty, and returns the chosen path.
  std::string (*show)(SDL_Window* parent, const std::string& start);
  std::vector<TourScene> (*scenes)();
};

Json Report(const PickerTraits& traits, const std::string& path) {
  Json result = {{"dialog", traits.name}};
  AddPath(&result, "path", path);
  return result;
}

class PickerCommand : public DemoCommand {
 public:
  explicit PickerCommand(const PickerTraits& traits) : traits_(traits) {}

  std::string Name() const override { return traits_.name; }
  std::string Description() const override { return traits_.description; }
  std::string ButtonLabel() const override { return traits_.button_label; }

  void AddOptions(CLI::App& app) override {
    app.add_option("--start", start_, "Folder shown first; a file means its folder")
        ->type_name("DIR");
  }

  CommandOutcome Run() override {
    const std::string path = traits_.show(nullptr, ResolveUserPath(start_));
    return {path.empty() ? ExitStatus::Cancelled : ExitStatus::Accepted, Report(traits_, path), ""};
  }

  Json ShowInHost(DemoSession& session) override {
    const std::string path = traits_.show(session.host, session.last_folder);
    if (!path.empty()) {
      session.last_folder =
          fs::is_directory(PathOf(path)) ? path : TextOf(PathOf(path).parent_path());
    }
    return Report(traits_, path);
  }

  std::vector<TourScene> TourScenes() override { return traits_.scenes(); }

 private:
  const PickerTraits& traits_;
  std::string start_;
};

std::string ShowFolderPicker(SDL_Window* parent, const std::string& start) {
  gui::FolderPickerOptions options;
  options.start_dir = start;
  return gui::ShowSimpleFolderPicker(parent, options);
}

// --- Tour ----------------------------------------------------------------------------------------

// A scene over a start folder, which `prepare` may fill first.
TourScene PickerScene(const std::string& name, const PickerTraits& traits, const std::string& start,
                      TourPlay play, void (*prepare)(const fs::path&) = nullptr) {
  TourScene scene;
  scene.name = name;
  scene.show = [&traits, start, prepare](SDL_Window* parent) {
    if (prepare != nullptr) {
      fs::create_directories(start);
      prepare(start);
    }
    return Report(traits, traits.show(parent, start));
  };
  scene.play = std::move(play);
  return scene;
}

void Touch(const fs::path& path) {
  std::ofstream file(path);
}

void FillWithThree(const fs::path& folder) {
  for (const char* name : {"boot.img", "games.img", "tools.ima"}) {
    Touch(folder / name);
  }
}

void FillWithMany(const fs::path& folder) {
  constexpr int kCount = 10'000;
  for (int i = 1; i <= kCount; ++i) {
    Touch(folder / ("disk-" + std::to_string(100'000 + i).substr(1) + ".img"));
  }
}

void FillWithOddNames(const fs::path& folder) {
  Touch(folder / (std::string(240, 'w') + ".img"));
  Touch(folder / "-begins with a dash.img");
  Touch(folder / "line\nfeed and\ttab.img");
  Touch(folder / "not \xFF\xFE UTF-8.img");
  Touch(folder / PathOf("\xC3\xBC"
                        "berlange Namen haben auch Umlaute.img"));
  fs::create_directories(folder /
                         "a folder whose name is so long that it does not fit into the list "
                         "of the picker at all and has to be cut");
}

std::vector<TourScene> FloppyScenes();
std::vector<TourScene> ShaderScenes();
std::vector<TourScene> FontScenes();
std::vector<TourScene> FolderScenes();

constexpr PickerTraits kFloppy{"floppy", "Picker for floppy images", "Floppy",
                               gui::ShowSimpleFloppyFilePicker, FloppyScenes};
constexpr PickerTraits kShaderFile{"shader-file", "Picker for shaders and shader presets",
                                   "Shader file", gui::ShowSimpleShaderFilePicker, ShaderScenes};
constexpr PickerTraits kFont{"font", "Picker for TrueType and OpenType fonts", "Font",
                             gui::ShowSimpleTtfFilePicker, FontScenes};
constexpr PickerTraits kFolder{"folder", "Picker for folders", "Folder", ShowFolderPicker,
                               FolderScenes};

std::vector<TourScene> FloppyScenes() {
  const auto choose = [](DialogDriver& user, const TourCamera& camera) {
    user.Do(camera.Take("picker-floppy"));
    user.PressKey(SDLK_DOWN).PressKey(SDLK_DOWN).PressKey(SDLK_DOWN);
    user.Do(camera.Take("picker-floppy-selected")).PressKey(SDLK_RETURN);
  };
  const auto scroll = [](DialogDriver& user, const TourCamera& camera) {
    user.Do(camera.Take("picker-many-rows")).TurnWheel({300, 200, 1, 1}, -3);
    user.Drag({738, 70}, {738, 260});
    user.Do(camera.Take("picker-many-rows-scrolled")).PressEscape();
  };
  std::vector<TourScene> scenes;
  scenes.push_back(PickerScene("floppy, a file is chosen", kFloppy, "floppies", choose));
  scenes.push_back(PickerScene("floppy, three rows", kFloppy, "three",
                               LookAndLeave("picker-three-rows"), FillWithThree));
  scenes.push_back(PickerScene("floppy, 10,000 rows", kFloppy, "many", scroll, FillWithMany));
  scenes.push_back(PickerScene("floppy, odd names", kFloppy,
                               "a folder with a long name/and one in it with a long name as well/"
                               "so that the whole path does not fit/above the list/odd",
                               LookAndLeave("picker-odd-names"), FillWithOddNames));
  return scenes;
}

std::vector<TourScene> ShaderScenes() {
  return {PickerScene("shader file", kShaderFile, "shaders", LookAndLeave("picker-shader"))};
}

std::vector<TourScene> FontScenes() {
  return {PickerScene("font", kFont, "", LookAndLeave("picker-font"))};
}

std::vector<TourScene> FolderScenes() {
  return {PickerScene("folder, the folder shown is chosen", kFolder, "disks",
                      [](DialogDriver& user, const TourCamera& camera) {
                        user.Do(camera.Take("picker-folder")).SelectFolder();
                      })};
}

}  // namespace

std::unique_ptr<DemoCommand> MakeFloppyCommand() {
  return std::make_unique<PickerCommand>(kFloppy);
}

std::unique_ptr<DemoCommand> MakeShaderFileCommand() {
  return std::make_unique<PickerCommand>(kShaderFile);
}

std::unique_ptr<DemoCommand> MakeFontCommand() {
  return std::make_unique<PickerCommand>(kFont);
}

std::unique_ptr<DemoCommand> MakeFolderCommand() {
  return std::make_unique<PickerCommand>(kFolder);
}

}  // namespace quindle::demo
