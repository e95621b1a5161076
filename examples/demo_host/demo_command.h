#pragma once

// The interface between the demo host and the file of one dialog.
//
// To add a dialog called "clock":
//   1. Write clock_command.cpp: a class derived from DemoCommand in an unnamed namespace, and
//        std::unique_ptr<DemoCommand> MakeClockCommand() { return std::make_unique<ClockCommand>();
//        }
//   2. Add the line  X(Clock)  to the table in command_table.cpp.
//   3. Add clock_command.cpp to the sources in CMakeLists.txt.
// The subcommand, the button and number key of the demo window, and the tour follow from these.
//
// A command object lives as long as the program, so values that outlast one showing of the dialog
// (the settings, say) are members of it. What commands share is in DemoSession.

#include <SDL.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "demo_session.h"
#include "tour_camera.h"

namespace quindle::demo {

// Keeps the members of printed objects in the order in which they were added.
using Json = nlohmann::ordered_json;

enum class ExitStatus {
  Accepted = 0,
  Cancelled = 1,     // Cancelled or closed.
  WrongUsage = 2,    // Throw UsageError rather than return it.
  NothingShown = 3,  // No display, no font, or no window.
  Failed = 4,        // Accepted, but what the demo host then did with the result failed.
};

// Thrown for arguments that cannot be obeyed; `what` is shown as it stands.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// What became of one subcommand.
struct CommandOutcome {
  ExitStatus status = ExitStatus::Cancelled;
  Json result;          // Printed as one line on stdout, unless null or nothing could be shown.
  std::string message;  // One line for stderr; empty: a line that fits the status.
};

// One showing of a dialog in the tour.
struct TourScene {
  std::string name;  // Shown beside the result; say which dialog and which state.
  // Shows the dialog over `parent` (not null) and returns its result.
  std::function<Json(SDL_Window* parent)> show;
  TourPlay play;  // What is done in it; called before it opens. It ends the dialog.
};

// One dialog as the demo host knows it.
class DemoCommand {
 public:
  DemoCommand() = default;
  DemoCommand(const DemoCommand&) = delete;
  DemoCommand& operator=(const DemoCommand&) = delete;
  virtual ~DemoCommand() = default;

  // Name of the subcommand, lower case with dashes.
  virtual std::string Name() const = 0;
  // One line for --help.
  virtual std::string Description() const = 0;
  // Caption of the button in the demo window.
  virtual std::string ButtonLabel() const = 0;

  // Adds the options to this command's own `app`, bound to members. Options that name a file or a
  // folder go through ResolveUserPath (working_directory.h) before they are used.
  virtual void AddOptions(CLI::App& app) = 0;
  // Runs the subcommand after its options were read. SDL video and SDL_ttf are up and a font is
  // there. Called at most once in a process.
  virtual CommandOutcome Run() = 0;

  // Called once, when the demo window has opened: the place for what the dialog leaves in the
  // session (a GuestView, texts of the status line).
  virtual void AttachToSession(DemoSession& /*session*/) {}
  // The button's action: shows the dialog over session.host and returns the result for the
  // window's result line.
  virtual Json ShowInHost(DemoSession& session) = 0;

  // The scenes of the tour, in the order in which they are shown. The working directory is then the
  // sample tree that tour_samples.h describes, so relative paths look the same in every tour.
  virtual std::vector<TourScene> TourScenes() = 0;
};

}  // namespace quindle::demo
