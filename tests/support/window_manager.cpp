#include "support/window_manager.h"

#include <signal.h>

#include <fstream>
#include <stdexcept>

#include "support/wait_until.h"

namespace quindle::testing {
namespace {

constexpr const char* kProcessIdFile = "process_id";

// A settings file in the window manager's home, and what stands in it.
struct SettingsFile {
  const char* name = "";
  const char* text = "";
};

// With them Alt+F4 closes a window, windows are placed without being asked where, and no wallpaper
// is set: where fluxbox's helper cannot, it says so in a window that takes the focus.
std::vector<SettingsFile> SettingsOf(const std::string& name) {
  if (name == "fluxbox") {
    return {{".fluxbox/keys", "Mod1 F4 :Close\n"}, {".fluxbox/overlay", "background: none\n"}};
  }
  if (name == "i3") {
    return {{"i3.config", "font pango:monospace 8\nbindsym Mod1+F4 kill\n"}};
  }
  if (name == "twm") {
    return {{"twmrc", "RandomPlacement\n\"F4\" = m : window|title|frame : f.delete\n"}};
  }
  return {};
}

// The session's services end with the window manager, but not with what started both. So its
// process id is left in a file.
std::vector<std::string> InSession(const std::string& home, const std::string& name) {
  return {"dbus-run-session", "--", "sh", "-c",
          "echo $$ > " + home + "/" + kProcessIdFile + "; exec " + name};
}

std::vector<std::string> CommandOf(const std::string& name, const std::string& home) {
  if (name == "openbox") {
    return {"openbox", "--sm-disable", "--config-file", "/etc/xdg/openbox/rc.xml"};
  }
  if (name == "i3") {
    return {"i3", "-c", home + "/i3.config"};
  }
  if (name == "twm") {
    return {"twm", "-f", home + "/twmrc"};
  }
  if (name == "kwin") {
    return InSession(home, "kwin_x11");
  }
  if (name == "xfwm4") {
    return InSession(home, "xfwm4");
  }
  if (name == "mutter") {
    return {"mutter", "--x11"};
  }
  return {name};
}

// What a window manager keeps goes to a home of its own, and what it would ask a session's services
// for is not there.
std::vector<std::string> InHome(const std::string& home, const std::vector<std::string>& command) {
  std::vector<std::string> line{"env",
                                "-u",
                                "SESSION_MANAGER",
                                "HOME=" + home,
                                "XDG_CONFIG_HOME=" + home + "/.config",
                                "XDG_CACHE_HOME=" + home + "/.cache",
                                "XDG_RUNTIME_DIR=" + home,
                                "ICEWM_PRIVCFG=" + home,
                                "I3SOCK=" + home + "/i3.socket"};
  line.insert(line.end(), command.begin(), command.end());
  return line;
}

bool IsManaged(const std::string& title) {
  const ProgramResult state = RunProgram({"xprop", "-name", title, "WM_STATE"});
  return state.out.find("window state: Normal") != std::string::npos;
}

}  // namespace

WindowManager::WindowManager(const std::vector<std::string>& command) {
  const std::string& name = command.at(0);
  for (const SettingsFile& file : SettingsOf(name)) {
    home_.Write(file.name, file.text);
  }
  process_ = std::make_unique<ChildProcess>(
      InHome(home_.path(), command.size() > 1 ? command : CommandOf(name, home_.path())));
  WaitUntilItManages();
}

WindowManager::~WindowManager() {
  std::ifstream file(home_.path() / kProcessIdFile);
  pid_t id = 0;
  if (file >> id && process_->IsRunning()) {
    kill(id, SIGTERM);
    process_->WaitForExit(std::chrono::seconds(5));
  }
}

// A window manager may lose requests to show a window that come while it starts, although it has
// announced itself by then. So windows are shown, one after the other, until it manages one.
void WindowManager::WaitUntilItManages() const {
  constexpr const char* kProbe = "Quindle window manager probe";
  constexpr std::chrono::milliseconds kPatienceWithOne{1500};
  const bool manages = WaitUntil(
      [&] {
        ChildProcess probe({"xev", "-name", kProbe, "-geometry", "20x20+300+300"});
        return WaitUntil([&] { return !process_->IsRunning() || IsManaged(kProbe); },
                         kPatienceWithOne);
      },
      std::chrono::seconds(20));
  if (!manages || !process_->IsRunning()) {
    throw std::runtime_error("the window manager does not manage the display: " +
                             process_->Output().err);
  }
}

}  // namespace quindle::testing
