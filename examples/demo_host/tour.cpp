#include "tour.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

#include "file_paths.h"
#include "host_window.h"
#include "json_output.h"
#include "sdl_session.h"
#include "tour_camera.h"
#include "tour_pictures.h"
#include "tour_samples.h"
#include "working_directory.h"

namespace quindle::demo {
namespace {

// Returns what went wrong; empty when nothing did. Stores the dialog's result in `result`.
std::string ShowScene(const TourScene& scene, HostWindow* host, TourPictures* pictures,
                      Json* result) {
  // What the last dialog left in the queue is not for this one.
  SDL_PumpEvents();
  SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
  DialogDriver user;
  scene.play(user, TourCamera(host, pictures));
  try {
    *result = scene.show(host->Window());
  } catch (const std::exception& error) {
    return error.what();
  }
  return user.failure();
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
