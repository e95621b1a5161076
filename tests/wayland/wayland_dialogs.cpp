// Opens every dialog of the demo program under the Wayland compositor weston, looks whether it
// shows a picture and closes it with a key. Prints a line for each and ends with 1 when one does
// not hold.
//
// Weston runs in a window of an X server of its own: its keyboard is then that server's, so that
// xdotool's keys reach it, and its picture can be taken. Its backend without a screen has no
// keyboard.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "support/child_process.h"
#include "support/temporary_directory.h"
#include "support/wait_until.h"
#include "support/x11_display.h"

namespace quindle::testing {
namespace {

constexpr const char* kSocket = "quindle-wayland";
// Weston's bar, which shows the time, is above.
constexpr const char* kBelowBar = "1280x960+0+64";

// A program of Wayland alone: it does not see the X server that carries the compositor.
std::vector<std::string> OnWayland(const std::string& folder, const std::string& driver) {
  std::vector<std::string> command{"env",
                                   "-u",
                                   "DISPLAY",
                                   "-u",
                                   "SDL_VIDEODRIVER",
                                   "XDG_RUNTIME_DIR=" + folder,
                                   std::string("WAYLAND_DISPLAY=") + kSocket};
  if (!driver.empty()) {
    command.push_back("SDL_VIDEODRIVER=" + driver);
  }
  return command;
}

class Weston {
 public:
  Weston()
      : display_(std::vector<std::string>{}),
        process_({"env", "XDG_RUNTIME_DIR=" + folder_.path().string(), "weston",
                  "--backend=x11-backend.so", "--use-pixman", "--width=1280", "--height=1024",
                  "--no-config", "--idle-time=0", std::string("--socket=") + kSocket}) {
    WaitForX11Step("weston shows its desktop", [this] {
      return process_.IsRunning() && std::filesystem::exists(folder_.path() / kSocket) &&
             CountColours(TakePicture("desktop.png")) > 1;
    });
    // On the bar, as the pointer would be taken for a part of a dialog's picture.
    RunX11Tool({"xdotool", "mousemove", "640", "20"});
    WaitUntilStill();
    empty_ = TakePicture("empty.png");
  }

  [[nodiscard]] std::string Folder() const { return folder_.path().string(); }

  // Desktop and windows fade in.
  void WaitUntilStill() const {
    std::string last;
    WaitForX11Step("weston's desktop to stay as it is", [&] {
      const std::string now = RunX11Tool({"identify", "-format", "%#", TakePicture("desktop.png")});
      const bool still = now == last;
      last = now;
      std::this_thread::sleep_for(std::chrono::milliseconds(300));
      return still;
    });
  }

  // The colours of what has appeared on the empty desktop; 0 when nothing has.
  [[nodiscard]] int CountNewColours() const {
    const std::string now = TakePicture("now.png");
    // Fails, or names nothing or the whole, when the two are the same.
    const ProgramResult area =
        RunProgram({"convert", empty_, now, "-compose", "difference", "-composite", "-threshold",
                    "0", "-format", "%@", "info:"});
    if (area.exit_status != 0 || area.out.rfind("0x0", 0) == 0 || area.out == "1280x960+0+0") {
      return 0;
    }
    const std::string cut = (folder_.path() / "cut.png").string();
    // Without its edge, where the desktop may shine through.
    RunX11Tool({"convert", now, "-crop", area.out, "+repage", "-shave", "8x8", cut});
    return CountColours(cut);
  }

 private:
  [[nodiscard]] std::string TakePicture(const std::string& name) const {
    const std::string file = (folder_.path() / name).string();
    RunX11Tool({"import", "-window", "root", "-crop", kBelowBar, "+repage", file});
    return file;
  }

  static int CountColours(const std::string& file) {
    return std::atoi(RunX11Tool({"identify", "-format", "%k", file}).c_str());
  }

  TemporaryDirectory folder_;
  X11Display display_;
  ChildProcess process_;
  std::string empty_;
};

// Throws what was missed. `arguments` are the demo program's.
int TryDialog(const Weston& weston, const std::string& driver,
              const std::vector<std::string>& arguments) {
  WaitForX11Step("the desktop is empty", [&] { return weston.CountNewColours() == 0; });
  std::vector<std::string> command = OnWayland(weston.Folder(), driver);
  command.emplace_back(QUINDLE_DEMO_PROGRAM);
  command.insert(command.end(), arguments.begin(), arguments.end());
  ChildProcess program(command);
  int colours = 0;
  WaitForX11Step("the dialog shows a picture of more than one colour", [&] {
    if (!program.IsRunning()) {
      throw X11StepError("it has ended: " + program.Output().err);
    }
    weston.WaitUntilStill();
    colours = weston.CountNewColours();
    return colours > 1;
  });
  PressKey("Escape");
  const int status = WaitForProgram(&program).exit_status;
  // Escape is an answer to the message box with one button, and About has nothing to cancel.
  const bool is_answer = arguments[0] == "message" || arguments[0] == "about";
  if (status != (is_answer ? 0 : 1)) {
    throw X11StepError("it ends with status " + std::to_string(status) + ": " +
                       program.Output().err);
  }
  return colours;
}

// False when the dialog did not hold.
bool ReportDialog(const Weston& weston, const std::string& driver,
                  const std::vector<std::string>& arguments) {
  const char* chosen = driver.empty() ? "SDL chooses" : "asked for";
  try {
    const int colours = TryDialog(weston, driver, arguments);
    std::printf("| %s | %s | yes | %d | yes |\n", arguments[0].c_str(), chosen, colours);
    return true;
  } catch (const std::exception& error) {
    std::printf("| %s | %s | NO: %s | | |\n", arguments[0].c_str(), chosen, error.what());
    return false;
  }
}

const std::vector<std::vector<std::string>> kDialogs{
    {"message"},  {"floppy"}, {"shader-file"}, {"font"},
    {"folder"},   {"hdd"},    {"screenshot"},  {"shader", "data/shaders/demo_crt.glsl"},
    {"settings"}, {"about"}};

}  // namespace
}  // namespace quindle::testing

int main() {
  using namespace quindle::testing;  // NOLINT(google-build-using-namespace)
  try {
    const Weston weston;
    std::printf(
        "| dialog | driver | opens | colours | closed by Escape |\n|---|---|---|---|---|\n");
    int failures = 0;
    for (const char* driver : {"", "wayland"}) {
      for (const auto& arguments : kDialogs) {
        failures += ReportDialog(weston, driver, arguments) ? 0 : 1;
        std::fflush(stdout);
      }
    }
    return failures == 0 ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
