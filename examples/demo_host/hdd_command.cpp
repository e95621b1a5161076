#include <cstdint>
#include <memory>

#include "command_table.h"
#include "demo_command.h"
#include "disk_image_writer.h"
#include "frontend/gui/hdd_create_dialog.h"
#include "json_output.h"
#include "working_directory.h"

namespace quindle::demo {
namespace {

using frontend::gui::HddCreateDialogResult;
using frontend::gui::ShowSimpleHddCreateDialog;

std::string PathOf(const HddCreateDialogResult& result) {
  return result.accepted ? frontend::gui::BuildHddCreateTargetPath(result.folder, result.file_name)
                         : std::string();
}

Json ToJson(const HddCreateDialogResult& result) {
  Json json{{"dialog", "hdd"}, {"accepted", result.accepted}, {"size_mb", result.size_mb}};
  AddPath(&json, "folder", result.folder);
  AddPath(&json, "file_name", result.file_name);
  AddPath(&json, "path", PathOf(result));
  return json;
}

TourScene MakeScene(const std::string& name, const std::string& folder, TourPlay play) {
  return {"hdd " + name,
          [folder](SDL_Window* parent) {
            return ToJson(ShowSimpleHddCreateDialog(parent, folder, 64));
          },
          std::move(play)};
}

TourScene StartScene() {
  return MakeScene("start", "disks", [](DialogDriver& user, const TourCamera& camera) {
    user.Do(camera.TakeOverHost("hdd-start")).PressEscape();
  });
}

TourScene TypedScene() {
  return MakeScene("typed", "disks", [](DialogDriver& user, const TourCamera& camera) {
    user.EnterDiskSize("512").EnterFileName("games.img").Do(camera.Take("hdd-typed")).Create();
  });
}

TourScene EmptyScene() {
  return MakeScene("empty fields", "disks", [](DialogDriver& user, const TourCamera& camera) {
    user.EnterDiskSize("").EnterFileName("").Do(camera.Take("hdd-empty")).PressEscape();
  });
}

// Texts that are far too long for their fields.
TourScene LongScene() {
  std::string folder;
  while (folder.size() < 900) {
    folder += "/archive of the year 1991";
  }
  return MakeScene("long texts", folder, [](DialogDriver& user, const TourCamera& camera) {
    user.EnterDiskSize("6499999999")
        .EnterFileName(
            "a name that goes on and on, as names do where nobody counts the letters, until "
            "the field has room for no more of it, END OF NAME")
        .Do(camera.Take("hdd-long"))
        .Create();
  });
}

TourScene PickerScene() {
  return MakeScene("folder picker", "disks", [](DialogDriver& user, const TourCamera& camera) {
    user.ChooseFolder().Do(camera.Take("hdd-folder-picker")).SelectFolder();
    user.Do(camera.Take("hdd-folder-picked")).Create();
  });
}

class HddCommand : public DemoCommand {
 public:
  std::string Name() const override { return "hdd"; }
  std::string Description() const override { return "Size, name and folder of a new disk image"; }
  std::string ButtonLabel() const override { return "HDD image"; }

  void AddOptions(CLI::App& app) override {
    app.add_option("--folder", folder_, "Folder shown first");
    app.add_option("--size", size_mb_, "Size shown first, in MB; 0 or none: the dialog's own")
        ->check(CLI::Number);  // An empty argument is none.
    app.add_flag("--create", create_, "Make the image, as a sparse file of that many MiB");
  }

  CommandOutcome Run() override {
    const HddCreateDialogResult result =
        ShowSimpleHddCreateDialog(nullptr, FolderOrStart(ResolveUserPath(folder_)), size_mb_);
    CommandOutcome outcome{result.accepted ? ExitStatus::Accepted : ExitStatus::Cancelled,
                           ToJson(result), ""};
    if (create_) {
      Create(result, &outcome);
    }
    return outcome;
  }

  Json ShowInHost(DemoSession& session) override {
    const HddCreateDialogResult result =
        ShowSimpleHddCreateDialog(session.host, FolderOrStart(session.last_folder), size_mb_);
    if (result.accepted) {
      session.last_folder = result.folder;
      size_mb_ = result.size_mb;
    }
    return ToJson(result);
  }

  std::vector<TourScene> TourScenes() override {
    std::vector<TourScene> scenes;
    scenes.push_back(StartScene());
    scenes.push_back(TypedScene());
    scenes.push_back(EmptyScene());
    scenes.push_back(LongScene());
    scenes.push_back(PickerScene());
    return scenes;
  }

 private:
  static void Create(const HddCreateDialogResult& result, CommandOutcome* outcome) {
    outcome->result["created"] = false;
    if (!result.accepted) {
      return;
    }
    try {
      WriteDiskImage(PathOf(result), result.size_mb);
      outcome->result["created"] = true;
    } catch (const std::exception& error) {
      outcome->status = ExitStatus::Failed;
      outcome->message = error.what();
    }
  }

  std::string folder_;
  std::uint32_t size_mb_ = 0;
  bool create_ = false;
};

}  // namespace

std::unique_ptr<DemoCommand> MakeHddCommand() {
  return std::make_unique<HddCommand>();
}

}  // namespace quindle::demo
