#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "command_table.h"
#include "demo_command.h"
#include "frontend/gui/screenshot_save_dialog.h"
#include "json_output.h"
#include "screenshot_writer.h"
#include "working_directory.h"

namespace quindle::demo {
namespace {

using frontend::gui::OwnedSdlSurface;
using frontend::gui::ScreenshotSaveDialogResult;
using frontend::gui::ScreenshotSaveFormat;
using frontend::gui::ShowScreenshotSaveDialog;

const std::vector<std::pair<std::string, ScreenshotSaveFormat>> kFormats = {
    {"png", ScreenshotSaveFormat::Png},
    {"jpeg", ScreenshotSaveFormat::Jpeg},
    {"bmp", ScreenshotSaveFormat::Bmp},
};

std::vector<std::string> FormatNames() {
  std::vector<std::string> names(kFormats.size());
  std::transform(kFormats.begin(), kFormats.end(), names.begin(),
                 [](const auto& entry) { return entry.first; });
  return names;
}

// `name` is one of FormatNames().
ScreenshotSaveFormat FormatOf(const std::string& name) {
  const auto found = std::find_if(kFormats.begin(), kFormats.end(),
                                  [&name](const auto& entry) { return entry.first == name; });
  return found->second;
}

// What the dialog is given: the last values that were accepted.
struct ScreenshotChoices {
  std::string folder;
  std::string name;
  ScreenshotSaveFormat format = ScreenshotSaveFormat::Png;
  int quality = 90;
  int compression = 2;
  bool rle = false;
};

ScreenshotSaveDialogResult Show(SDL_Window* parent, const ScreenshotChoices& choices) {
  return ShowScreenshotSaveDialog(parent, choices.folder, choices.name, choices.format,
                                  choices.quality, choices.compression, choices.rle);
}

Json ToJson(const ScreenshotSaveDialogResult& result) {
  Json json{{"dialog", "screenshot"}, {"accepted", result.accepted}};
  AddPath(&json, "folder", result.folder);
  AddPath(&json, "file_name", result.file_name);
  for (const auto& [name, format] : kFormats) {
    if (format == result.format) {
      json["format"] = name;
    }
  }
  json["jpeg_quality"] = result.jpeg_quality;
  json["png_compression"] = result.png_compression;
  json["bmp_rle"] = result.bmp_rle;
  AddPath(&json, "path", result.accepted ? ScreenshotPath(result) : std::string());
  return json;
}

// The guest's picture as it is now; it goes on while the dialog is open.
OwnedSdlSurface Capture(const GuestPicture& guest) {
  OwnedSdlSurface copy(SDL_DuplicateSurface(guest.Canvas()));
  if (copy == nullptr) {
    throw std::runtime_error(std::string("cannot copy the guest picture: ") + SDL_GetError());
  }
  return copy;
}

// Middles of the dialog's parts, in pixels of its window at its first size.
constexpr SDL_Point kNameField{400, 100};
constexpr SDL_Point kFormatBox{360, 233};
constexpr SDL_Point kOptionField{330, 300};
constexpr SDL_Point kCheckBox{261, 297};
constexpr SDL_Point kChooseButton{820, 167};
constexpr SDL_Point kBmpRow{360, 337};

TourScene MakeScene(const std::string& name, ScreenshotSaveFormat format, TourScript script,
                    const std::string& folder = "captures",
                    const std::string& file_name = "adventure") {
  ScreenshotChoices choices;
  choices.folder = folder;
  choices.name = file_name;
  choices.format = format;
  choices.rle = true;
  return {"screenshot " + name,
          [choices](SDL_Window* parent) { return ToJson(Show(parent, choices)); },
          std::move(script)};
}

TourScene PngScene() {
  TourScript script;
  script.SaveOverHost("screenshot-png")
      .Click(kOptionField.x, kOptionField.y)
      .Save("screenshot-png-option")
      .Key(SDLK_RETURN);
  return MakeScene("png", ScreenshotSaveFormat::Png, std::move(script));
}

TourScene JpegScene() {
  TourScript script;
  script.Click(kNameField.x, kNameField.y)
      .Save("screenshot-jpeg")
      .Click(kFormatBox.x, kFormatBox.y)
      .Save("screenshot-format-list")
      .Key(SDLK_ESCAPE)
      .Key(SDLK_RETURN);
  return MakeScene("jpeg", ScreenshotSaveFormat::Jpeg, std::move(script));
}

TourScene BmpScene() {
  TourScript script;
  script.Click(kFormatBox.x, kFormatBox.y)
      .Click(kBmpRow.x, kBmpRow.y)
      .Save("screenshot-bmp")
      .Click(kCheckBox.x, kCheckBox.y)
      .Save("screenshot-bmp-plain")
      .Key(SDLK_RETURN);
  return MakeScene("bmp", ScreenshotSaveFormat::Png, std::move(script));
}

// Texts that are far too long for their fields.
TourScene LongScene() {
  std::string folder;
  while (folder.size() < 900) {
    folder += "/archive of the year 1991";
  }
  TourScript script;
  script.Click(kNameField.x, kNameField.y)
      .Save("screenshot-long")
      .Click(kFormatBox.x, kFormatBox.y)
      .Save("screenshot-long-list");
  return MakeScene("long texts", ScreenshotSaveFormat::Jpeg, std::move(script), folder,
                   "a name that goes on and on, as names do where nobody counts the letters, "
                   "until the field has room for no more of it, END OF NAME.png");
}

TourScene PickerScene() {
  TourScript script;
  script.Click(kChooseButton.x, kChooseButton.y)
      .Save("screenshot-folder-picker")
      .Click(-61, -25)  // "Use".
      .Save("screenshot-folder-picked")
      .Key(SDLK_RETURN);
  return MakeScene("folder picker", ScreenshotSaveFormat::Png, std::move(script));
}

TourStep Resize(int width, int height) {
  return [width, height](TourStage& stage) { SDL_SetWindowSize(stage.Dialog(), width, height); };
}

TourScene ResizedScene() {
  TourScript script;
  script.Do(Resize(600, 420))
      .Wait(5)
      .Save("screenshot-narrow")
      .Do(Resize(1200, 600))
      .Wait(5)
      .Save("screenshot-wide")
      .Do(Resize(340, 150))
      .Wait(5)
      .Save("screenshot-tiny");
  return MakeScene("resized", ScreenshotSaveFormat::Png, std::move(script));
}

class ScreenshotCommand : public DemoCommand {
 public:
  std::string Name() const override { return "screenshot"; }
  std::string Description() const override { return "Where and how to save the guest's picture"; }
  std::string ButtonLabel() const override { return "Screenshot"; }

  void AddOptions(CLI::App& app) override {
    app.add_option("--folder", choices_.folder, "Folder shown first");
    app.add_option("--name", choices_.name, "File name shown first");
    app.add_option_function<std::string>(
           "--format", [this](const std::string& name) { choices_.format = FormatOf(name); },
           "Format selected first")
        ->transform(CLI::IsMember(FormatNames(), CLI::ignore_case));
    // Number: an empty argument is none.
    app.add_option("--quality", choices_.quality, "JPEG quality shown first, 1 to 100")
        ->check(CLI::Number);
    app.add_option("--compression", choices_.compression, "PNG compression shown first, 0 to 9")
        ->check(CLI::Number);
    app.add_flag("--rle", choices_.rle, "BMP run-length encoding ticked first");
    app.add_flag("--write", write_, "Save the guest's picture");
  }

  CommandOutcome Run() override {
    choices_.folder = FolderOrStart(ResolveUserPath(choices_.folder));
    const GuestPicture guest;
    const ScreenshotSaveDialogResult result = Show(nullptr, choices_);
    CommandOutcome outcome{result.accepted ? ExitStatus::Accepted : ExitStatus::Cancelled,
                           ToJson(result), ""};
    if (write_) {
      Write(*guest.Canvas(), result, &outcome);
    }
    return outcome;
  }

  // Saves what the guest showed when the button was pressed.
  Json ShowInHost(DemoSession& session) override {
    const OwnedSdlSurface picture = Capture(session.guest);
    choices_.folder = FolderOrStart(session.last_folder);
    const ScreenshotSaveDialogResult result = Show(session.host, choices_);
    if (result.accepted) {
      Remember(result);
      session.last_folder = result.folder;
      WriteScreenshot(*picture, result);
    }
    return ToJson(result);
  }

  std::vector<TourScene> TourScenes() override {
    std::vector<TourScene> scenes;
    scenes.push_back(PngScene());
    scenes.push_back(JpegScene());
    scenes.push_back(BmpScene());
    scenes.push_back(LongScene());
    scenes.push_back(PickerScene());
    scenes.push_back(ResizedScene());
    return scenes;
  }

 private:
  void Remember(const ScreenshotSaveDialogResult& result) {
    choices_.format = result.format;
    choices_.quality = result.jpeg_quality;
    choices_.compression = result.png_compression;
    choices_.rle = result.bmp_rle;
  }

  static void Write(const SDL_Surface& picture, const ScreenshotSaveDialogResult& result,
                    CommandOutcome* outcome) {
    outcome->result["written"] = false;
    if (!result.accepted) {
      return;
    }
    try {
      WriteScreenshot(picture, result);
      outcome->result["written"] = true;
    } catch (const std::exception& error) {
      outcome->status = ExitStatus::Failed;
      outcome->message = error.what();
    }
  }

  ScreenshotChoices choices_;
  bool write_ = false;
};

}  // namespace

std::unique_ptr<DemoCommand> MakeScreenshotCommand() {
  return std::make_unique<ScreenshotCommand>();
}

}  // namespace quindle::demo
