#include "command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <iostream>
#include <map>
#include <string>

#include "command_table.h"
#include "host_window.h"
#include "json_output.h"
#include "sdl_session.h"
#include "shown_windows.h"
#include "tour.h"
#include "working_directory.h"

namespace quindle::demo {
namespace {

constexpr const char* kFooter =
    "A dialog's result is one line of JSON on stdout. Paths are strings; a path that is not\n"
    "valid UTF-8 is shown with U+FFFD for its odd bytes, and a member of the same name with\n"
    "\"_hex\" appended holds all its bytes as hexadecimal digits. A cancelled path is null.\n"
    "\n"
    "Exit status: 0 accepted, 1 cancelled or closed, 2 wrong usage, 3 nothing could be shown\n"
    "(no display, no font), 4 accepted but what was to be done with the result failed. Each\n"
    "but 0 comes with one line on stderr.\n"
    "\n"
    "Fonts are looked for in data/ttf under the working directory; where there is none, the\n"
    "program works from the folder that holds its own. Relative paths in the arguments are\n"
    "taken from where it was started.";

void PrintError(std::string message) {
  std::replace(message.begin(), message.end(), '\n', ' ');
  std::cerr << "quindle_dialogs: " << message << std::endl;
}

int ReportError(ExitStatus status, const std::string& message) {
  PrintError(message);
  return static_cast<int>(status);
}

const char* DefaultMessage(ExitStatus status) {
  switch (status) {
    case ExitStatus::Accepted:
      return "";
    case ExitStatus::Cancelled:
      return "cancelled";
    case ExitStatus::WrongUsage:
      return "wrong usage, see --help";
    case ExitStatus::NothingShown:
      return "nothing could be shown";
    case ExitStatus::Failed:
      return "failed";
  }
  return "";
}

int ReportOutcome(const CommandOutcome& outcome) {
  if (!outcome.result.is_null() && outcome.status != ExitStatus::NothingShown &&
      outcome.status != ExitStatus::WrongUsage) {
    PrintJsonLine(outcome.result);
  }
  if (outcome.status != ExitStatus::Accepted) {
    PrintError(outcome.message.empty() ? DefaultMessage(outcome.status) : outcome.message);
  }
  return static_cast<int>(outcome.status);
}

int RunOneDialog(DemoCommand* command) {
  const SdlSession sdl(VideoChoice::Display);
  const ShownWindows shown;
  CommandOutcome outcome = command->Run();
  // A dialog that gets no window returns all the same, as if it had been cancelled or closed.
  if (shown.Count() == 0 && outcome.message.empty()) {
    throw NothingShownError(std::string("no window: ") + SDL_GetError());
  }
  return ReportOutcome(outcome);
}

int RunHost(const DemoCommands& commands) {
  const SdlSession sdl(VideoChoice::Display);
  HostWindow(commands).Run();
  return static_cast<int>(ExitStatus::Accepted);
}

int RunPicturesTour(const DemoCommands& commands, const TourOptions& options) {
  return static_cast<int>(RunTour(commands, options));
}

// The program's arguments and what they choose.
class CommandLine {
 public:
  explicit CommandLine(const DemoCommands& commands) : commands_(commands) {
    app_.footer(kFooter);
    app_.require_subcommand(0, 1);
    for (const auto& command : commands_) {
      CLI::App* subcommand = app_.add_subcommand(command->Name(), command->Description());
      command->AddOptions(*subcommand);
      dialogs_[subcommand] = command.get();
    }
    AddTour();
  }

  int ParseAndRun(int argc, const char* const* argv) {
    try {
      app_.parse(argc, argv);
    } catch (const CLI::Success& request) {  // --help
      return app_.exit(request);
    } catch (const CLI::ParseError& error) {
      throw UsageError(std::string(error.what()) + " (see --help)");
    }
    return Run();
  }

 private:
  void AddTour() {
    tour_ = app_.add_subcommand("tour",
                                "Play through every dialog and save pictures; needs no "
                                "display and nobody at the keyboard");
    tour_->add_option("--out", tour_options_.folder, "Folder for the PNG files")->required();
    tour_->add_option("--only", tour_options_.only, "Name of the one dialog to show");
    tour_->add_flag("--display", tour_options_.display, "Show the dialogs on the display");
  }

  int Run() {
    if (app_.get_subcommands().empty()) {
      return RunHost(commands_);
    }
    CLI::App* chosen = app_.get_subcommands().front();
    return chosen == tour_ ? RunPicturesTour(commands_, tour_options_)
                           : RunOneDialog(dialogs_.at(chosen));
  }

  const DemoCommands& commands_;
  CLI::App app_{
      "Shows the dialogs of libquindle_sdl_ui. Without arguments it opens a window with "
      "a button for each dialog.",
      "quindle_dialogs"};
  std::map<const CLI::App*, DemoCommand*> dialogs_;
  CLI::App* tour_ = nullptr;
  TourOptions tour_options_;
};

}  // namespace

int RunDemo(int argc, const char* const* argv) {
  try {
    EnterDataDirectory();
    const DemoCommands commands = MakeDemoCommands();
    return CommandLine(commands).ParseAndRun(argc, argv);
  } catch (const UsageError& error) {
    return ReportError(ExitStatus::WrongUsage, error.what());
  } catch (const NothingShownError& error) {
    return ReportError(ExitStatus::NothingShown, error.what());
  } catch (const std::exception& error) {
    return ReportError(ExitStatus::Failed, error.what());
  }
}

}  // namespace quindle::demo
