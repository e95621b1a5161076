#include "faults/fault_scenarios.h"

#include <stdlib.h>

#include <fstream>
#include <stdexcept>

#include "frontend/gui/about_dialog.h"
#include "frontend/gui/hdd_create_dialog.h"
#include "frontend/gui/screenshot_save_dialog.h"
#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/sdl_pickers.h"
#include "frontend/gui/settings_dialog.h"
#include "frontend/gui/shader_parameter_dialog.h"
#include "frontend/gui/testing/input_events.h"
#include "frontend/gui/testing/push_event.h"
#include "support/real_function.h"

namespace quindle::testing {
namespace {

using namespace frontend::gui::testing;

namespace fs = std::filesystem;
namespace gui = frontend::gui;

constexpr int kFrameLimit = 120;

// Thrown out of a dialog that does not end.
struct DoesNotEnd : std::runtime_error {
  DoesNotEnd() : std::runtime_error("the dialog does not end") {}
};

// --- Events, without any allocation of the test's own --------------------------------------------

// A push that fails is one of the faults.
void Push(SDL_Event event) {
  PushEvent(event);
}

void Key(SDL_Keycode key) {
  Push(MakeKeyEvent(SDL_KEYDOWN, key));
}

void Type(const char* text) {
  Push(MakeTextEvent(text));
}

void Press(int x, int y, Uint8 clicks = 1) {
  Push(MakeButtonEvent(SDL_MOUSEBUTTONDOWN, {x, y}, SDL_BUTTON_LEFT, clicks));
}

void Release(int x, int y) {
  Push(MakeButtonEvent(SDL_MOUSEBUTTONUP, {x, y}));
}

void Click(int x, int y) {
  Press(x, y);
  Release(x, y);
}

void Move(int x, int y) {
  Push(MakeMotionEvent({x, y}));
}

void Wheel(int y) {
  Push(MakeWheelEvent({0, y}));
}

// The window's id of a click in the settings dialog, which takes no others.
void ClickInNewestWindow(int x, int y) {
  // Past the call recorder: what is asked here is none of the library's calls.
  static auto* const find = RealFunction<SDL_Window*(Uint32)>("SDL_GetWindowFromID");
  for (Uint32 id = 1; id < 100'000; ++id) {
    // Ids count up; the dialog's is the last that exists.
    if (find(id) != nullptr && find(id + 1) == nullptr) {
      Push(MakeButtonEvent(SDL_MOUSEBUTTONDOWN, {x, y}, SDL_BUTTON_LEFT, 1, id));
    }
  }
}

// --- Dialogs -------------------------------------------------------------------------------------

void ShowMessage(SDL_Window* parent) {
  gui::SdlMessageBox::Config config;
  config.title = "Reset the machine?";
  config.message =
      "What is not saved will be lost.\n\nAll drives stay as they are, and so does the "
      "memory of the machine.";
  config.type = gui::SdlMessageBox::Type::Warning;
  config.buttons = {
      {1, "Reset", true, false, {}},
      {2, "Ask again", false, false, [parent] { gui::SdlMessageBox({}).Show(parent, 1.0F); }},
      {3, "Cancel", false, true, {}}};
  gui::SdlMessageBox(config).Show(parent, 1.0F);
}

void ShowFloppyPicker(SDL_Window* parent) {
  gui::ShowSimpleFloppyFilePicker(parent, "floppies");
}

void ShowShaderPicker(SDL_Window* parent) {
  gui::ShowSimpleShaderFilePicker(parent, "");
}

void ShowFolderPicker(SDL_Window* parent) {
  gui::ShowSimpleFolderPicker(parent, {});
}

void ShowHdd(SDL_Window* parent) {
  gui::ShowSimpleHddCreateDialog(parent, "floppies", 32);
}

void ShowScreenshot(SDL_Window* parent) {
  gui::ShowScreenshotSaveDialog(parent, "", "", gui::ScreenshotSaveFormat::Jpeg, 90, 6, true);
}

void ShowShader(SDL_Window* parent) {
  gui::ShowShaderParameterDialog(
      parent, "shader.glslp", 1.0F, [](const auto&) {},
      gui::ParseGlslpParameterOverrides("shader.glslp"));
}

void ShowNoShader(SDL_Window* parent) {
  gui::ShowShaderParameterDialog(parent, "missing.glsl", 1.0F, {}, {});
}

void ShowSettings(SDL_Window* parent) {
  gui::SettingsDialogValues values{};
  values.target_fps = 50;
  values.font_mode = "ttf-custom";
  values.custom_font_path = "data/ttf/IBMPlexSans-Regular.ttf";
  gui::ShowSettingsDialog(parent, 1.0F, values, [](const auto&) {});
}

void ShowAbout(SDL_Window* parent) {
  gui::ShowSimpleAboutDialog(parent, 1.0F);
}

std::vector<FaultScenario> MakeScenarios() {
  return {
      {"message box",
       1,
       ShowMessage,
       {[](PointAt) {}, [](PointAt at) { at(250, 190, false); },
        [](PointAt) { Key(SDLK_ESCAPE); }}},
      {"message box in a message box",
       2,
       ShowMessage,
       {[](PointAt) {},
        [](PointAt) {
          Release(255, 222);
          Release(255, 206);
        },
        [](PointAt) {}, [](PointAt) { Key(SDLK_ESCAPE); }}},
      {"floppy picker",
       1,
       ShowFloppyPicker,
       {[](PointAt) {
          Key(SDLK_DOWN);
          Wheel(-1);
        },
        [](PointAt) { Press(100, 62, 2); }, [](PointAt) { Click(100, 62); },
        [](PointAt) { Key(SDLK_RETURN); },
        [](PointAt) {
          Key(SDLK_DOWN);
          Key(SDLK_RETURN);
        }}},
      {"shader picker",
       1,
       ShowShaderPicker,
       {[](PointAt) { Move(5, 5); }, [](PointAt) { Release(700, 497); },
        [](PointAt) { Key(SDLK_ESCAPE); }}},
      {"folder picker",
       1,
       ShowFolderPicker,
       {[](PointAt) { Key(SDLK_RETURN); }, [](PointAt) { Release(700, 515); }}},
      {"HDD image dialog",
       2,
       ShowHdd,
       {[](PointAt) {
          Type("64");
          Key(SDLK_TAB);
          Type("x.img");
        },
        [](PointAt) { Release(700, 200); }, [](PointAt) {}, [](PointAt) { Key(SDLK_RETURN); },
        [](PointAt) { Release(700, 515); }, [](PointAt) { Key(SDLK_RETURN); }}},
      {"screenshot dialog",
       2,
       ShowScreenshot,
       {[](PointAt) {
          Click(300, 90);
          Type("shot");
        },
        [](PointAt) { Click(300, 230); }, [](PointAt) { Click(300, 330); },
        [](PointAt) { Release(800, 160); }, [](PointAt) {}, [](PointAt) { Release(700, 515); },
        [](PointAt) { Key(SDLK_RETURN); }}},
      {"shader dialog",
       1,
       ShowShader,
       {[](PointAt at) {
          at(300, 100, false);
          Wheel(-1);
        },
        [](PointAt) { Press(400, 60); },
        [](PointAt) {
          Move(450, 60);
          Release(450, 60);
        },
        [](PointAt) { Key(SDLK_RETURN); }, [](PointAt) { Key(SDLK_ESCAPE); }}},
      {"shader dialog without declarations", 0, ShowNoShader, {}},
      {"settings dialog",
       1,
       ShowSettings,
       {[](PointAt at) { at(300, 100, true); }, [](PointAt) { ClickInNewestWindow(60, 85); },
        [](PointAt) { ClickInNewestWindow(60, 145); },
        [](PointAt) { ClickInNewestWindow(60, 385); },
        [](PointAt) { ClickInNewestWindow(760, 460); },
        [](PointAt) { ClickInNewestWindow(660, 460); }}},
      {"font picker in the settings dialog",
       2,
       ShowSettings,
       {[](PointAt at) { at(750, 250, false); }, [](PointAt) { ClickInNewestWindow(750, 250); },
        [](PointAt) {},
        [](PointAt) {
          Key(SDLK_DOWN);
          Key(SDLK_RETURN);
        },
        [](PointAt) { ClickInNewestWindow(760, 460); }}},
      {"About dialog",
       1,
       ShowAbout,
       {[](PointAt) {},
        [](PointAt at) {
          at(100, 200, false);
          Press(100, 200);
        },
        [](PointAt) { Key(SDLK_ESCAPE); }}},
  };
}

void WriteFile(const fs::path& path, const char* contents) {
  std::ofstream(path) << contents;
}

// The scenario that plays now. Plain globals: a step must not allocate.
const FaultScenario* g_scenario = nullptr;
PointAt g_point_at = nullptr;
std::size_t g_frame = 0;
bool g_broken_off = false;

void PlayFrame() {
  const std::size_t frame = g_frame++;
  if (frame < g_scenario->steps.size()) {
    g_scenario->steps[frame](g_point_at);
    return;
  }
  if (frame > kFrameLimit) {
    g_broken_off = true;
    throw DoesNotEnd();
  }
  Push(MakeQuitEvent());
}

class InstalledScript {
 public:
  InstalledScript() { gui::SetModalDialogHeartbeat(PlayFrame); }
  ~InstalledScript() { gui::SetModalDialogHeartbeat({}); }
  InstalledScript(const InstalledScript&) = delete;
  InstalledScript& operator=(const InstalledScript&) = delete;
  InstalledScript(InstalledScript&&) = delete;
  InstalledScript& operator=(InstalledScript&&) = delete;
};

}  // namespace

const std::vector<FaultScenario>& FaultScenarios() {
  static const std::vector<FaultScenario> scenarios = MakeScenarios();
  return scenarios;
}

FaultSamples::FaultSamples(const fs::path& source_directory)
    : former_directory_(fs::current_path()) {
  std::string name = (fs::temp_directory_path() / "quindle_faults_XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    throw std::runtime_error("cannot make a temporary directory");
  }
  directory_ = name;
  // A folder of its own above it, so that what the pickers list never changes from outside.
  const fs::path home = fs::path(name) / "parent" / "home";
  fs::create_directories(home / "data");
  fs::create_directory_symlink(source_directory / "data" / "ttf", home / "data" / "ttf");
  fs::create_directories(home / "floppies" / "games");
  WriteFile(home / "floppies" / "dos.img", "");
  WriteFile(home / "floppies" / "games" / "adventure.ima", "");
  fs::create_symlink("dos.img", home / "floppies" / "link.img");
  WriteFile(home / "shader.glslp",
            "shaders = 1\nshader0 = \"crt.glsl\"\nparameters = \"gamma;blur\"\ngamma = 2.4\n");
  WriteFile(home / "crt.glsl",
            "#pragma parameter gamma \"Gamma\" 2.2 1.0 3.0 0.05\n"
            "#pragma parameter blur \"Blur\" 0.0 0.0 1.0 0.0\n"
            "#pragma parameter curve \"A label that is far too long to stand in front of the "
            "value of its parameter without being cut\" 1 0 2 0.25\n");
  fs::current_path(home);
}

FaultSamples::~FaultSamples() {
  std::error_code ignored;
  fs::current_path(former_directory_, ignored);
  fs::remove_all(directory_, ignored);
}

bool PlayScenario(const FaultScenario& scenario, SDL_Window* parent, PointAt point_at) {
  g_scenario = &scenario;
  g_point_at = point_at;
  g_frame = 0;
  g_broken_off = false;
  const InstalledScript script;
  try {
    scenario.show(parent);
  } catch (const DoesNotEnd&) {
    return false;
  }
  return !g_broken_off;
}

std::size_t FramesPlayed() {
  return g_frame;
}

}  // namespace quindle::testing
