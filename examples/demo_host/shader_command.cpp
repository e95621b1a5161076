#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>

#include "command_table.h"
#include "demo_command.h"
#include "frontend/gui/shader_parameter_dialog.h"
#include "json_output.h"
#include "shader_view.h"
#include "working_directory.h"

namespace quindle::demo {
namespace {

using frontend::gui::ParseGlslpParameterOverrides;
using frontend::gui::ParseShaderParameterSpecs;
using frontend::gui::ResolveShaderGlslPath;
using frontend::gui::ShaderDialogResult;
using frontend::gui::ShaderParameterSpec;
using frontend::gui::ShaderParameterValue;
using Values = std::vector<ShaderParameterValue>;

// Reads NAME=VALUE. A value holds no '=', a name may.
ShaderParameterValue ParseSetting(const std::string& argument) {
  const size_t equals = argument.rfind('=');
  if (equals == std::string::npos || equals == 0) {
    throw UsageError("--set " + argument + ": expected NAME=VALUE");
  }
  ShaderParameterValue setting{argument.substr(0, equals), 0.0F};
  const char* const end = argument.data() + argument.size();
  const auto [stop, error] = std::from_chars(argument.data() + equals + 1, end, setting.value);
  if (error != std::errc() || stop != end) {
    throw UsageError("--set " + argument + ": the text behind the = is no number");
  }
  return setting;
}

// The number whose shortest decimal form is that of the float, so that 2.2F is printed as 2.2.
double ShortestDouble(float value) {
  char digits[64];
  const auto written = std::to_chars(digits, digits + sizeof(digits), value);
  double shortest = 0.0;
  std::from_chars(digits, written.ptr, shortest);
  return shortest;
}

// An array, because a shader may declare a name twice.
Json ValuesAsJson(const Values& values) {
  Json list = Json::array();
  for (const ShaderParameterValue& value : values) {
    list.push_back({{"name", value.name}, {"value", ShortestDouble(value.value)}});
  }
  return list;
}

Json ResultAsJson(const std::string& file, const ShaderDialogResult& result) {
  Json json = {{"dialog", "shader"}, {"accepted", result.applied}};
  AddPath(&json, "file", file);
  json["values"] = ValuesAsJson(result.values);
  return json;
}

ShaderDialogResult Show(SDL_Window* parent, const std::string& file, const Values& current,
                        std::function<void(const Values&)> on_apply) {
  return ShowShaderParameterDialog(parent, file, 1.0F, std::move(on_apply), current);
}

// --- Tour ----------------------------------------------------------------------------------------

// Without the values, of which there may be hundreds.
Json SummaryAsJson(const std::string& file, const ShaderDialogResult& result) {
  Json json = {{"dialog", "shader"}, {"accepted", result.applied}};
  AddPath(&json, "file", file);
  json["parameters"] = result.values.size();
  return json;
}

std::string DeclarationLine(int index, const std::string& label, const std::string& numbers) {
  return "#pragma parameter PARAM_" + std::to_string(index) + " \"" + label + "\" " + numbers +
         "\n";
}

std::string NumberedShader(int count) {
  std::string text;
  for (int i = 1; i <= count; ++i) {
    const std::string start = std::to_string((i * 37) % 101);
    text += DeclarationLine(i, "Parameter " + std::to_string(i), start + " 0 100 1");
  }
  return text;
}

std::string LongLabelShader() {
  std::string sentence = "Strength of the glow that every bright pixel spreads over its neighbours";
  std::string text = DeclarationLine(1, sentence, "0.5 0 1 0.01");
  text += DeclarationLine(2, sentence + ", measured in guest pixels from its centre outwards",
                          "2 0 8 0.5");
  text += DeclarationLine(3, std::string(400, 'W'), "1 1 1 0");
  text += DeclarationLine(4, "F\u00e4rbung \u2013 \u03b3 \u2265 1", "1 -1 1 0");
  text += DeclarationLine(5, "Latin-1 bytes: \xe4\xf6\xfc", "0 0 1 0.1");
  text += DeclarationLine(6, "Numbers of many digits", "1e38 -3.4e38 3.4e38 1e30");
  return text;
}

TourScene FileScene(const std::string& name, const std::string& file, const std::string& text,
                    TourPlay play) {
  return {"shader " + name,
          [file, text](SDL_Window* parent) {
            std::ofstream(file, std::ios::binary) << text;
            return SummaryAsJson(file, Show(parent, file, {}, {}));
          },
          std::move(play)};
}

TourScene PresetScene() {
  return {"shader preset",
          [](SDL_Window* parent) {
            return ResultAsJson(kDemoPreset, Show(parent, kDemoPreset,
                                                  ParseGlslpParameterOverrides(kDemoPreset), {}));
          },
          [](DialogDriver& user, const TourCamera& camera) {
            user.Do(camera.TakeOverHost("shader-over-demo-window"));
            user.SetParameter("CONTRAST", 1.12F).Apply();
            user.Do(camera.Take("shader-applied")).Close();
          }};
}

// Each parameter goes up, down and back to where it started, so that the frames make a loop.
constexpr std::pair<const char*, float> kAnimation[] = {
    {"BRIGHTNESS", 1.3F}, {"BRIGHTNESS", 1.6F}, {"BRIGHTNESS", 1.1F}, {"GAMMA", 1.6F},
    {"GAMMA", 2.1F},      {"GAMMA", 1.15F},     {"SCANLINE", 0.7F},   {"SCANLINE", 1.0F},
    {"SCANLINE", 0.0F},   {"SCANLINE", 0.4F},   {"CURVATURE", 0.28F}, {"CURVATURE", 0.4F},
    {"CURVATURE", 0.0F},  {"CURVATURE", 0.08F},
};

std::string FrameName(int frame) {
  return std::string("shader-animation-") + (frame < 10 ? "0" : "") + std::to_string(frame);
}

TourScene TenScene() {
  return FileScene("10", "shaders/ten.glsl", NumberedShader(10),
                   [](DialogDriver& user, const TourCamera& camera) {
                     user.Do(camera.Take("shader-10")).Drag({885, 100}, {885, 400});
                     user.Do(camera.Take("shader-10-scrolled")).PressEscape();
                   });
}

TourScene ManyScene() {
  return FileScene("300", "shaders/many.glsl", NumberedShader(300),
                   [](DialogDriver& user, const TourCamera& camera) {
                     user.Drag({885, 40}, {885, 230}).Do(camera.Take("shader-300")).PressEscape();
                   });
}

TourScene LongLabelScene() {
  return FileScene("long labels", "shaders/long.glsl", LongLabelShader(),
                   [](DialogDriver& user, const TourCamera& camera) {
                     user.Do(camera.Take("shader-long-labels")).Drag({885, 40}, {885, 400});
                     user.Do(camera.Take("shader-long-numbers")).PressEscape();
                   });
}

// Below the middle of the guest picture, so that its upper half stays in view.
void MoveBelowGuest(SDL_Window* dialog, SDL_Window* host) {
  SDL_Point corner{0, 0};
  SDL_GetWindowPosition(host, &corner.x, &corner.y);
  SDL_SetWindowPosition(dialog, corner.x, corner.y + 330);
}

TourScene LongPathScene() {
  const std::string folder = "shaders/" + std::string(60, 'a') + "/" + std::string(60, 'b');
  const std::string file = folder + "/three.glsl";
  return {"shader long path",
          [folder, file](SDL_Window* parent) {
            std::filesystem::create_directories(folder);
            std::ofstream(file) << NumberedShader(3);
            return SummaryAsJson(file, Show(parent, file, {}, {}));
          },
          LookAndLeave("shader-long-path")};
}

// --- The command ---------------------------------------------------------------------------------

class ShaderCommand : public DemoCommand {
 public:
  std::string Name() const override { return "shader"; }
  std::string Description() const override {
    return "Shader parameters; prints a line for each Apply";
  }
  std::string ButtonLabel() const override { return "Shader"; }

  void AddOptions(CLI::App& app) override {
    app.add_option("file", file_, "Shader (.glsl, ...) or preset (.glslp)")
        ->required()
        ->type_name("FILE");
    app.add_option("--set", settings_,
                   "NAME=VALUE, a starting value instead of the preset's or the shader's own; may "
                   "be given again")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->type_name("NAME=VALUE");
  }

  CommandOutcome Run() override {
    const std::string file = ResolveUserPath(file_);
    const std::vector<ShaderParameterSpec> specs = ParseShaderParameterSpecs(file);
    const ShaderDialogResult result = Show(nullptr, file, CurrentValues(file, specs), PrintApply);
    CommandOutcome outcome;
    outcome.status = result.applied ? ExitStatus::Accepted : ExitStatus::Cancelled;
    outcome.result = ResultAsJson(file_, result);
    outcome.message = specs.empty() ? "no parameters in " + file_ : "";
    return outcome;
  }

  void AttachToSession(DemoSession& session) override { session_ = &session; }

  Json ShowInHost(DemoSession& session) override {
    ShaderGuestView& view = InstallShaderView(session);
    const Values before = view.Parameters();
    const auto show_values = [&view](const Values& values) { view.SetParameters(values); };
    const ShaderDialogResult result = Show(session.host, kDemoPreset, before, show_values);
    if (!result.applied) {
      show_values(before);
    }
    return ResultAsJson(kDemoPreset, result);
  }

  std::vector<TourScene> TourScenes() override {
    std::vector<TourScene> scenes;
    scenes.push_back(AnimationScene());
    scenes.push_back(PresetScene());
    scenes.push_back(
        FileScene("3", "shaders/three.glsl", NumberedShader(3), LookAndLeave("shader-3")));
    scenes.push_back(TenScene());
    scenes.push_back(ManyScene());
    scenes.push_back(LongLabelScene());
    scenes.push_back(LongPathScene());
    return scenes;
  }

 private:
  // Over the demo window, which shows its picture through the shader meanwhile.
  TourScene AnimationScene() {
    return {"shader animation",
            [this](SDL_Window* /*parent*/) {
              Json result = ShowInHost(*session_);
              ToggleShaderView(*session_);
              return result;
            },
            [this](DialogDriver& user, const TourCamera& camera) {
              int frame = 0;
              user.Do([this](SDL_Window* dialog) { MoveBelowGuest(dialog, session_->host); });
              user.Do(camera.TakeOverHost(FrameName(frame)));
              for (const auto& [name, value] : kAnimation) {
                user.SetParameter(name, value).Apply();
                user.Do(camera.TakeOverHost(FrameName(++frame)));
              }
              user.Close();
            }};
  }

  // Flushed at once, so that whoever reads the output sees each Apply when it happens.
  static void PrintApply(const Values& values) {
    PrintJsonLine({{"event", "apply"}, {"values", ValuesAsJson(values)}});
  }

  // What counts is the first value of a name: the last --set, then the preset's.
  Values CurrentValues(const std::string& file,
                       const std::vector<ShaderParameterSpec>& specs) const {
    Values current;
    for (const std::string& argument : settings_) {
      current.insert(current.begin(), ParseSetting(argument));
      RequireDeclared(argument, current.front().name, specs);
    }
    const Values overrides = ParseGlslpParameterOverrides(file);
    current.insert(current.end(), overrides.begin(), overrides.end());
    return current;
  }

  // A file without parameters gets the dialog's own message instead.
  static void RequireDeclared(const std::string& argument, const std::string& name,
                              const std::vector<ShaderParameterSpec>& specs) {
    const bool declared = std::any_of(specs.begin(), specs.end(),
                                      [&name](const auto& spec) { return spec.name == name; });
    if (!declared && !specs.empty()) {
      throw UsageError("--set " + argument + ": the shader declares no parameter of that name");
    }
  }

  std::string file_;
  std::vector<std::string> settings_;
  DemoSession* session_ = nullptr;  // The demo window's; null before it has opened.
};

}  // namespace

std::unique_ptr<DemoCommand> MakeShaderCommand() {
  return std::make_unique<ShaderCommand>();
}

}  // namespace quindle::demo
