#include <charconv>
#include <memory>
#include <optional>
#include <sstream>

#include "command_table.h"
#include "demo_command.h"
#include "frontend/gui/sdl_message_box.h"

namespace quindle::demo {
namespace {

using frontend::gui::SdlMessageBox;
using Type = SdlMessageBox::Type;

const std::vector<std::pair<std::string, Type>> kTypes = {
    {"info", Type::Info},   {"question", Type::Question}, {"warning", Type::Warning},
    {"error", Type::Error}, {"critical", Type::Critical}, {"success", Type::Success},
};

std::vector<std::string> SplitAtColons(const std::string& text) {
  std::vector<std::string> parts;
  std::string part;
  std::istringstream stream(text + ":");
  while (std::getline(stream, part, ':')) {
    parts.push_back(part);
  }
  return parts;
}

int ParseButtonId(const std::string& digits, const std::string& argument) {
  int id = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, id);
  if (error != std::errc() || stop != end) {
    throw UsageError("--button " + argument + ": the id before the first colon is no number");
  }
  return id;
}

void ApplyButtonFlag(const std::string& flag, const std::string& argument,
                     SdlMessageBox::Button* button) {
  if (flag == "default") {
    button->isDefault = true;
  } else if (flag == "cancel") {
    button->isCancel = true;
  } else {
    throw UsageError("--button " + argument + ": \"" + flag + "\" is neither default nor cancel");
  }
}

// Reads ID:LABEL[:default][:cancel].
SdlMessageBox::Button ParseButton(const std::string& argument) {
  const std::vector<std::string> parts = SplitAtColons(argument);
  if (parts.size() < 2 || parts[1].empty()) {
    throw UsageError("--button " + argument + ": expected ID:LABEL[:default][:cancel]");
  }
  SdlMessageBox::Button button;
  button.id = ParseButtonId(parts[0], argument);
  button.label = parts[1];
  for (size_t i = 2; i < parts.size(); ++i) {
    ApplyButtonFlag(parts[i], argument, &button);
  }
  return button;
}

// Shows the box and says which of the config's buttons was chosen. The buttons' ids alone cannot
// tell: -1 may be one of them.
Json ShowAndReport(SdlMessageBox::Config config, SDL_Window* parent) {
  std::optional<size_t> chosen;
  if (config.buttons.empty()) {
    // As the box itself would add it, but not as a refusal.
    config.buttons.push_back({1, "OK", true, true, {}});
  }
  for (size_t i = 0; i < config.buttons.size(); ++i) {
    config.buttons[i].onClick = [&chosen, i] { chosen = i; };
  }
  const bool single = config.buttons.size() == 1;
  const std::vector<SdlMessageBox::Button> buttons = config.buttons;
  const int id = SdlMessageBox(std::move(config)).Show(parent, 1.0F);
  const bool accepted = chosen.has_value() && (single || !buttons[*chosen].isCancel);
  return {{"dialog", "message"},
          {"accepted", accepted},
          {"button", chosen ? Json(id) : Json(nullptr)},
          {"label", chosen ? Json(buttons[*chosen].label) : Json(nullptr)}};
}

SdlMessageBox::Config SampleConfig(Type type, const std::string& title,
                                   const std::string& message) {
  SdlMessageBox::Config config;
  config.type = type;
  config.title = title;
  config.message = message;
  return config;
}

TourScene OneScene(const std::string& name, SdlMessageBox::Config config, TourPlay play) {
  return {
      "message " + name,
      [config = std::move(config)](SDL_Window* parent) { return ShowAndReport(config, parent); },
      std::move(play)};
}

TourScene TypeScene(const std::string& name, Type type) {
  static const std::map<Type, std::pair<std::string, std::string>> kTexts = {
      {Type::Info, {"Shader loaded", "The shader has 5 parameters.\nTune them while it runs."}},
      {Type::Question, {"Insert disk 2", "The program asks for its second disk. Insert it now?"}},
      {Type::Warning, {"Unsaved changes", "The disk image was changed. Keep what was changed?"}},
      {Type::Error, {"Cannot open the image", "games/adventure.img is not a floppy image."}},
      {Type::Critical, {"The guest has stopped", "The processor met an unknown instruction."}},
      {Type::Success, {"Screenshot saved", "captures/adventure.png, 320 x 200 pixels"}},
  };
  const auto& [title, message] = kTexts.at(type);
  SdlMessageBox::Config config = SampleConfig(type, title, message);
  if (type == Type::Question || type == Type::Warning) {
    config.buttons = {{1, "Yes", true, false, {}}, {2, "No", false, true, {}}};
  }
  return OneScene(name, std::move(config), LookAndLeave("message-" + name));
}

TourScene LongScene() {
  std::string message = "A message of many lines makes the box grow.";
  for (int line = 1; line <= 12; ++line) {
    message += "\nDrive " + std::to_string(line) + ": no disk";
  }
  return OneScene("long", SampleConfig(Type::Info, "Drives", message),
                  LookAndLeave("message-long"));
}

TourScene LongWordScene() {
  return OneScene("long word",
                  SampleConfig(Type::Error, "Cannot read the folder",
                               "/home/player/" + std::string(90, 'x') + "/disk.img"),
                  LookAndLeave("message-long-word"));
}

// Over the demo window, ended by a click.
TourScene ClickedScene() {
  SdlMessageBox::Config config =
      SampleConfig(Type::Question, "Reset the machine?",
                   "Everything that the running program has not saved will be lost.");
  config.buttons = {{1, "Reset", true, false, {}},
                    {2, "Save state", false, false, {}},
                    {3, "Cancel", false, true, {}}};
  return OneScene("clicked", std::move(config), [](DialogDriver& user, const TourCamera& camera) {
    user.Do(camera.TakeOverHost("message-over-demo-window")).PressButton(2);
  });
}

class MessageCommand : public DemoCommand {
 public:
  std::string Name() const override { return "message"; }
  std::string Description() const override { return "Message box with a choice of buttons"; }
  std::string ButtonLabel() const override { return "Message box"; }

  void AddOptions(CLI::App& app) override {
    app.add_option("--type", config_.type, "What the box is about")
        ->transform(CLI::CheckedTransformer(kTypes, CLI::ignore_case));
    app.add_option("--title", config_.title, "Heading and window title");
    app.add_option("--message", config_.message, "Text; line feeds start new lines");
    app.add_option_function<std::vector<std::string>>(
           "--button", [this](const std::vector<std::string>& all) { SetButtons(all); },
           "ID:LABEL[:default][:cancel], once for each button, left to right")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->type_name("BUTTON");
    app.add_option("--width", config_.width, "Width in pixels")->check(CLI::Range(1, 8192));
    app.add_option("--height", config_.height, "Least height in pixels")
        ->check(CLI::Range(1, 8192));
    app.add_flag("--no-escape", no_escape_, "Escape does not close the box");
  }

  CommandOutcome Run() override {
    config_.escapeEnabled = !no_escape_;
    Json result = ShowAndReport(config_, nullptr);
    const bool accepted = result.at("accepted").get<bool>();
    return {accepted ? ExitStatus::Accepted : ExitStatus::Cancelled, std::move(result), ""};
  }

  Json ShowInHost(DemoSession& session) override {
    SdlMessageBox::Config config =
        SampleConfig(kTypes[next_type_].second, "Message box",
                     "The guest picture goes on meanwhile.\nEach press of the button shows "
                     "another type.");
    config.buttons = {
        {1, "Yes", true, false, {}}, {2, "No", false, false, {}}, {3, "Cancel", false, true, {}}};
    next_type_ = (next_type_ + 1) % kTypes.size();
    return ShowAndReport(std::move(config), session.host);
  }

  std::vector<TourScene> TourScenes() override {
    std::vector<TourScene> scenes;
    scenes.reserve(kTypes.size() + 3);
    for (const auto& [name, type] : kTypes) {
      scenes.push_back(TypeScene(name, type));
    }
    scenes.push_back(LongScene());
    scenes.push_back(LongWordScene());
    scenes.push_back(ClickedScene());
    return scenes;
  }

 private:
  void SetButtons(const std::vector<std::string>& arguments) {
    config_.buttons.clear();
    for (const std::string& argument : arguments) {
      config_.buttons.push_back(ParseButton(argument));
    }
  }

  SdlMessageBox::Config config_;
  bool no_escape_ = false;
  size_t next_type_ = 0;  // Type that the demo window's button shows next.
};

}  // namespace

std::unique_ptr<DemoCommand> MakeMessageCommand() {
  return std::make_unique<MessageCommand>();
}

}  // namespace quindle::demo
