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

TourScene MakeScene(const std::string& name, ScreenshotSaveFormat format, TourPlay play,
                    const std::string& folder = "captures",
                    const std::string& file_name = "adventure") {
  ScreenshotChoices choices;
  choices.folder = folder;
  choices.name = file_name;
  choices.format = format;
  choices.rle = true;
  return {"screenshot " + name,
          [choices](SDL_Window* parent) { return ToJson(Show(parent, choices)); }, std::move(play)};
}

// The dialog's parts at its first size.
frontend::gui::ScreenshotSaveDialogLayout FirstLayout() {
  return frontend::gui::BuildScreenshotSaveDialogLayout(900, 410);
}

TourScene PngScene() {
  return MakeScene("png", ScreenshotSaveFormat::Png,
                   [](DialogDriver& user, const TourCamera& camera) {
                     user.Do(camera.TakeOverHost("screenshot-png")).EnterFormatOption(2);
                     user.Do(camera.Take("screenshot-png-option")).Save();
                   });
}

TourScene JpegScene() {
  return MakeScene("jpeg", ScreenshotSaveFormat::Jpeg,
                   [](DialogDriver& user, const TourCamera& camera) {
                     const auto layout = FirstLayout();
                     user.Click(layout.file_name_field).Do(camera.Take("screenshot-jpeg"));
                     user.Click(layout.format_box);
                     user.Do(camera.Take("screenshot-format-list")).PressEscape().Save();
                   });
}

TourScene BmpScene() {
  return MakeScene("bmp", ScreenshotSaveFormat::Png,
                   [](DialogDriver& user, const TourCamera& camera) {
                     user.ChooseFormat(ScreenshotSaveFormat::Bmp).Do(camera.Take("screenshot-bmp"));
                     user.TickRunLengthEncoding(false);
                     user.Do(camera.Take("screenshot-bmp-plain")).Save();
                   });
}

// Texts that are far too long for their fields.
TourScene LongScene() {
  std::string folder;
  while (folder.size() < 900) {
    folder += "/archive of the year 1991";
  }
  const auto play = [](DialogDriver& user, const TourCamera& camera) {
    const auto layout = FirstLayout();
    user.Click(layout.file_name_field).Do(camera.Take("screenshot-long"));
    user.Click(layout.format_box).Do(camera.Take("screenshot-long-list")).Close();
  };
  return MakeScene("long texts", ScreenshotSaveFormat::Jpeg, play, folder,
                   "a name that goes on and on, as names do where nobody counts the letters, "
                   "until the field has room for no more of it, END OF NAME.png");
}

TourScene PickerScene() {
  return MakeScene("folder picker", ScreenshotSaveFormat::Png,
                   [](DialogDriver& user, const TourCamera& camera) {
                     user.ChooseFolder().Do(camera.Take("screenshot-folder-picker")).SelectFolder();
                     user.Do(camera.Take("screenshot-folder-picked")).Save();
                   });
}

std::function<void(SDL_Window*)> Resize(int width, int height) {
  return [width, height](SDL_Window* dialog) { SDL_SetWindowSize(dialog, width, height); };
}

TourScene ResizedScene() {
  return MakeScene("resized", ScreenshotSaveFormat::Png,
                   [](DialogDriver& user, const TourCamera& camera) {
                     user.Do(Resize(600, 420)).Wait(5).Do(camera.Take("screenshot-narrow"));
                     user.Do(Resize(1200, 600)).Wait(5).Do(camera.Take("screenshot-wide"));
                     user.Do(Resize(340, 150)).Wait(5).Do(camera.Take("screenshot-tiny")).Close();
                   });
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
