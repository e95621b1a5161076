#include "frontend/gui/settings_dialog.h"

#include <memory>

#include "command_table.h"
#include "demo_command.h"
#include "file_paths.h"
#include "json_output.h"
#include "settings_json.h"
#include "working_directory.h"

namespace quindle::demo {
namespace {

using frontend::gui::SettingsDialogValues;
using frontend::gui::ShowSettingsDialog;

// Shows the dialog and says what it came to. `apply` is called with what each "Apply" hands over.
Json ShowAndReport(SDL_Window* parent, const SettingsDialogValues& initial,
                   const std::function<void(const SettingsDialogValues&)>& apply) {
  int applied = 0;
  ShowSettingsDialog(parent, 1.0F, initial, [&](const SettingsDialogValues& values) {
    ++applied;
    apply(values);
  });
  return {{"dialog", "settings"}, {"applied", applied}};
}

// --- Tour ----------------------------------------------------------------------------------------

SettingsDialogValues SampleSettings() {
  SettingsDialogValues values = DefaultSettings();
  values.font_mode = "ttf-hires";
  values.cpu_mhz = 33.33;
  values.mouse_capture_gain = 1.5;
  values.allow_mouse_capture_in_text_mode = true;
  values.hdd_sounds_enabled = true;
  values.hdd_sounds_volume = 0.75;
  return values;
}

TourScene Scene(const std::string& name, const SettingsDialogValues& values, TourPlay play) {
  return {"settings " + name,
          [values](SDL_Window* parent) {
            return ShowAndReport(parent, values, [](const SettingsDialogValues&) {});
          },
          std::move(play)};
}

TourScene PageScene(const std::string& label, const std::string& picture) {
  return Scene(label, SampleSettings(),
               [label, picture](DialogDriver& user, const TourCamera& camera) {
                 user.OpenPage(label).Do(camera.Take("settings-" + picture)).PressEscape();
               });
}

TourScene FontModeScene(const std::string& picture, const std::string& mode,
                        const std::string& custom_font) {
  SettingsDialogValues values = SampleSettings();
  values.font_mode = mode;
  values.custom_font_path = custom_font;
  return Scene("Font Mode, " + picture, values, LookAndLeave("settings-font-mode-" + picture));
}

// Over the demo window, with one "Apply".
TourScene AppliedScene() {
  return Scene("applied", SampleSettings(), [](DialogDriver& user, const TourCamera& camera) {
    user.Do(camera.TakeOverHost("settings-over-demo-window")).Apply().PressEscape();
  });
}

// --- Command -------------------------------------------------------------------------------------

class SettingsCommand : public DemoCommand {
 public:
  std::string Name() const override { return "settings"; }
  std::string Description() const override {
    return "Settings; each Apply prints the values as one line";
  }
  std::string ButtonLabel() const override { return "Settings"; }

  void AddOptions(CLI::App& app) override {
    app.add_option_function<std::string>(
           "--from", [this](const std::string& file) { ReadValues(file); },
           "JSON file of the values to start with")
        ->type_name("FILE");
    app.add_option("--save", save_file_, "JSON file that receives the applied values")
        ->type_name("FILE");
  }

  CommandOutcome Run() override {
    const Json result = ShowAndReport(nullptr, values_, [this](const SettingsDialogValues& values) {
      PrintJsonLine(SettingsToJson(values));
      if (!save_file_.empty()) {
        WriteSettingsFile(ResolveUserPath(save_file_), values);
      }
    });
    const bool any_applied = result.at("applied").get<int>() > 0;
    // Each "Apply" has printed its line; there is nothing more to tell.
    return {any_applied ? ExitStatus::Accepted : ExitStatus::Cancelled, nullptr, ""};
  }

  void AttachToSession(DemoSession& session) override {
    values_.target_fps = session.target_fps;
    ObeySettings(session);
  }

  Json ShowInHost(DemoSession& session) override {
    return ShowAndReport(session.host, values_,
                         [this, &session](const SettingsDialogValues& values) {
                           values_ = values;
                           ObeySettings(session);
                         });
  }

  std::vector<TourScene> TourScenes() override {
    std::vector<TourScene> scenes;
    scenes.push_back(FontModeScene("pixel", "pixel", ""));
    scenes.push_back(FontModeScene("ttf", "ttf", ""));
    scenes.push_back(FontModeScene("ttf-hires", "ttf-hires", ""));
    scenes.push_back(FontModeScene("custom-without-file", "ttf-custom", ""));
    scenes.push_back(FontModeScene("custom", "ttf-custom", "data/ttf/IBMPlexSans-Regular.ttf"));
    scenes.push_back(FontModeScene("custom-long-name", "ttf-custom",
                                   "fonts/" + std::string(90, 'x') + "-regular.ttf"));
    scenes.push_back(FontModeScene("unknown", "vector", ""));
    scenes.push_back(PageScene("Target FPS", "target-fps"));
    scenes.push_back(PageScene("Renderer", "renderer"));
    scenes.push_back(PageScene("Screenshots", "screenshots"));
    scenes.push_back(PageScene("Mouse Capture", "mouse-capture"));
    scenes.push_back(PageScene("CPU Speed", "cpu-speed"));
    scenes.push_back(PageScene("Logger Options", "logger-options"));
    scenes.push_back(PageScene("HDD Sounds", "hdd-sounds"));
    scenes.push_back(AppliedScene());
    return scenes;
  }

 private:
  void ReadValues(const std::string& file) {
    try {
      values_ = ReadSettingsFile(ResolveUserPath(file));
    } catch (const SettingsFileError& error) {
      throw UsageError("--from " + std::string(error.what()));
    }
  }

  // What the demo window can obey it obeys; the rest it shows.
  void ObeySettings(DemoSession& session) const {
    session.target_fps = values_.target_fps;
    session.status["renderer"] = values_.renderer_mode;
    const std::string file = TextOf(PathOf(values_.custom_font_path).filename());
    session.status["font"] = values_.font_mode == "ttf-custom" && !file.empty()
                                 ? values_.font_mode + " " + file
                                 : values_.font_mode;
  }

  SettingsDialogValues values_ = DefaultSettings();  // As applied last, for the whole program.
  std::string save_file_;
};

}  // namespace

std::unique_ptr<DemoCommand> MakeSettingsCommand() {
  return std::make_unique<SettingsCommand>();
}

}  // namespace quindle::demo
