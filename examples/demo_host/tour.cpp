#include "tour.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

#include "file_paths.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "host_window.h"
#include "json_output.h"
#include "sdl_session.h"
#include "shown_windows.h"
#include "tour_pictures.h"
#include "tour_samples.h"
#include "working_directory.h"

namespace quindle::demo {
namespace {

// Ends a dialog that neither the script nor a quit could end.
class SceneOverrun : public std::runtime_error {
 public:
  SceneOverrun() : std::runtime_error("the dialog did not end") {}
};

// Frames between a close or quit event and the next one.
constexpr int kCloseInterval = 4;
// Frames that a dialog has to end after its budget is used up.
constexpr int kGraceFrames = 60;

// Plays one scene's script from the heartbeat of its dialog.
class ScenePlayer : public TourStage {
 public:
  ScenePlayer(const TourScene& scene, HostWindow* host, TourPictures* pictures)
      : steps_(scene.script.Steps()),
        budget_(scene.frame_budget),
        host_(*host),
        pictures_(*pictures) {}

  void PlayFrame() {
    ++frames_;
    if (frames_ > budget_) {
      EndByForce();
    } else if (idle_frames_ > 0) {
      --idle_frames_;
    } else if (dialogs_.Newest() != nullptr) {
      PlayStep();
    }
  }

  bool CameToItsEnd() const { return next_ == steps_.size() && frames_ <= budget_; }

  SDL_Window* Dialog() const override { return dialogs_.Newest(); }
  void SavePicture(const std::string& name) override { pictures_.Save(Dialog(), name); }
  void SavePictureOverHost(const std::string& name) override {
    host_.Draw();
    pictures_.SaveOver(host_.Window(), Dialog(), name);
  }

 private:
  // A free frame after each step: a dialog that the step opens has then shown its window.
  void PlayStep() {
    if (next_ < steps_.size()) {
      idle_frames_ = 1;
      steps_[next_++](*this);
    } else {
      idle_frames_ = kCloseInterval;
      PushCloseEvent(Dialog());
    }
  }

  void EndByForce() {
    if (frames_ > budget_ + kGraceFrames) {
      throw SceneOverrun();
    }
    SDL_Event quit{};
    quit.type = SDL_QUIT;
    SDL_PushEvent(&quit);
  }

  const std::vector<TourStep>& steps_;
  const int budget_;
  HostWindow& host_;
  TourPictures& pictures_;
  ShownWindows dialogs_;
  size_t next_ = 0;
  int frames_ = 0;
  int idle_frames_ = 0;
};

// The heartbeat for as long as this object lives.
class HeartbeatGuard {
 public:
  explicit HeartbeatGuard(std::function<void()> heartbeat) {
    frontend::gui::SetModalDialogHeartbeat(std::move(heartbeat));
  }
  HeartbeatGuard(const HeartbeatGuard&) = delete;
  HeartbeatGuard& operator=(const HeartbeatGuard&) = delete;
  ~HeartbeatGuard() { frontend::gui::SetModalDialogHeartbeat({}); }
};

// Returns what went wrong; empty when nothing did. Stores the dialog's result in `result`.
std::string ShowScene(const TourScene& scene, HostWindow* host, TourPictures* pictures,
                      Json* result) {
  // What the last dialog left in the queue is not for this one.
  SDL_PumpEvents();
  SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
  ScenePlayer player(scene, host, pictures);
  const HeartbeatGuard heartbeat([&player] { player.PlayFrame(); });
  try {
    *result = scene.show(host->Window());
  } catch (const std::exception& error) {
    return error.what();
  }
  return player.CameToItsEnd() ? "" : "the dialog ended before its script, or outlasted it";
}

bool RunScene(const DemoCommand& command, const TourScene& scene, HostWindow* host,
              TourPictures* pictures) {
  Json result;
  const std::string problem = ShowScene(scene, host, pictures, &result);
  PrintJsonLine({{"dialog", command.Name()},
                 {"scene", scene.name},
                 {"result", result},
                 {"pictures", pictures->TakeNames()}});
  if (!problem.empty()) {
    std::cerr << "quindle_dialogs: tour: " << scene.name << ": " << problem << std::endl;
  }
  return problem.empty();
}

// The demo window at a moment of its animation that is the same in every tour.
void ShowHost(HostWindow* host, TourPictures* pictures) {
  for (int frame = 0; frame < 110; ++frame) {
    host->AdvanceGuest();
  }
  host->Draw();
  pictures->Save(host->Window(), "demo-window");
  PrintJsonLine({{"scene", "demo window"}, {"pictures", pictures->TakeNames()}});
}

bool IsChosen(const DemoCommand& command, const TourOptions& options) {
  return options.only.empty() || options.only == command.Name();
}

void CheckOnly(const DemoCommands& commands, const TourOptions& options) {
  if (std::none_of(commands.begin(), commands.end(),
                   [&](const auto& command) { return IsChosen(*command, options); })) {
    throw UsageError("tour --only: there is no dialog called " + options.only);
  }
}

}  // namespace

ExitStatus RunTour(const DemoCommands& commands, const TourOptions& options) {
  CheckOnly(commands, options);
  TourPictures pictures(std::filesystem::absolute(PathOf(ResolveUserPath(options.folder))));
  // Pictures are read after they were presented; other renderers do not keep them that long.
  SDL_SetHintWithPriority(SDL_HINT_RENDER_DRIVER, "software", SDL_HINT_OVERRIDE);
  const SdlSession sdl(options.display ? VideoChoice::Display : VideoChoice::Memory);
  const TourSamples samples;
  HostWindow host(commands);
  ShowHost(&host, &pictures);
  bool complete = true;
  for (const auto& command : commands) {
    if (!IsChosen(*command, options)) {
      continue;
    }
    for (const TourScene& scene : command->TourScenes()) {
      complete = RunScene(*command, scene, &host, &pictures) && complete;
    }
  }
  return complete ? ExitStatus::Accepted : ExitStatus::Failed;
}

}  // namespace quindle::demo
