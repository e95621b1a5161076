#include "support/x11_display.h"

#include <SDL_syswm.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <sstream>
#include <utility>

#include "frontend/gui/sdl_modal_runtime.h"
#include "support/x11_requests.h"

namespace quindle::testing {
namespace {

constexpr std::chrono::seconds kPatience{10};
// What SDL makes of clicks on a busy machine is not what the tests look at. The second of two may
// be late; and it passes over one that it reads within 10 ms of the focus, whenever both came.
constexpr const char* kDoubleClickTime = "SDL_MOUSE_DOUBLE_CLICK_TIME";
constexpr const char* kFocusClickThrough = "SDL_MOUSE_FOCUS_CLICKTHROUGH";

std::optional<std::string> GetVariable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

void PutVariable(const char* name, const std::optional<std::string>& value) {
  if (value) {
    setenv(name, value->c_str(), 1);
  } else {
    unsetenv(name);
  }
}

// The server writes the number of the display it has found free, once it answers.
std::string ReadDisplayName(int pipe_end) {
  std::string number;
  char byte = 0;
  while (read(pipe_end, &byte, 1) == 1 && byte != '\n') {
    number += byte;
  }
  if (number.empty()) {
    throw std::runtime_error("Xvfb has found no free display");
  }
  return ":" + number;
}

std::unique_ptr<ChildProcess> StartServer(std::string* name) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) {
    throw std::runtime_error("cannot make a pipe");
  }
  std::unique_ptr<ChildProcess> server;
  try {
    server = std::make_unique<ChildProcess>(
        std::vector<std::string>{"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0",
                                 "1280x1024x24", "-nolisten", "tcp", "-noreset"},
        ends[1]);
  } catch (...) {
    close(ends[0]);
    close(ends[1]);
    throw;
  }
  close(ends[1]);
  *name = ReadDisplayName(ends[0]);
  close(ends[0]);
  return server;
}

std::string WithoutLastLineFeed(std::string text) {
  if (!text.empty() && text.back() == '\n') {
    text.pop_back();
  }
  return text;
}

std::string JoinWords(const std::vector<std::string>& words) {
  std::string line;
  for (const std::string& word : words) {
    line += line.empty() ? word : ' ' + word;
  }
  return line;
}

void RunXdotool(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "xdotool");
  RunX11Tool(arguments);
}

std::vector<std::string> MoveArguments(X11WindowId window, int x, int y) {
  return {"mousemove", "--window", std::to_string(window), std::to_string(x), std::to_string(y)};
}

void RunAt(X11WindowId window, int x, int y, const std::vector<std::string>& action) {
  std::vector<std::string> arguments = MoveArguments(window, x, y);
  arguments.insert(arguments.end(), action.begin(), action.end());
  RunXdotool(arguments);
}

// xdotool's name search takes a regular expression.
std::string ExactPattern(const std::string& title) {
  std::string pattern = "^";
  for (const char c : title) {
    if (std::string("\\^$.[]|()*+?{}").find(c) != std::string::npos) {
      pattern += '\\';
    }
    pattern += c;
  }
  return pattern + "$";
}

std::vector<X11WindowId> FindWindows(const std::string& title) {
  // The search ends with status 1 when it finds none.
  const ProgramResult search =
      RunProgram({"xdotool", "search", "--onlyvisible", "--name", ExactPattern(title)});
  std::istringstream lines(search.out);
  std::vector<X11WindowId> found;
  X11WindowId id = 0;
  while (lines >> id) {
    found.push_back(id);
  }
  return found;
}

}  // namespace

X11Display::X11Display(const std::vector<std::string>& window_manager)
    : former_display_(GetVariable("DISPLAY")), former_driver_(GetVariable("SDL_VIDEODRIVER")) {
  server_ = StartServer(&name_);
  PutVariable("DISPLAY", name_);
  PutVariable("SDL_VIDEODRIVER", "x11");
  PutVariable(kDoubleClickTime, "5000");
  PutVariable(kFocusClickThrough, "1");
  if (!window_manager.empty()) {
    window_manager_ = std::make_unique<WindowManager>(window_manager);
  }
}

X11Display::~X11Display() {
  window_manager_.reset();
  server_.reset();
  PutVariable("DISPLAY", former_display_);
  PutVariable("SDL_VIDEODRIVER", former_driver_);
  PutVariable(kDoubleClickTime, std::nullopt);
  PutVariable(kFocusClickThrough, std::nullopt);
}

std::string RunX11Tool(const std::vector<std::string>& command) {
  const ProgramResult result = RunProgram(command);
  if (result.exit_status != 0) {
    throw X11StepError("\"" + JoinWords(command) + "\" failed: " + result.err);
  }
  return WithoutLastLineFeed(result.out);
}

void WaitForX11Step(const std::string& what, const std::function<bool()>& condition) {
  if (!WaitUntil(condition, kPatience)) {
    throw X11StepError("waited in vain: " + what);
  }
}

X11WindowId WaitForX11Window(const std::string& title) {
  std::vector<X11WindowId> found;
  WaitForX11Step("a window titled \"" + title + "\" appears", [&] {
    found = FindWindows(title);
    return !found.empty();
  });
  return found.front();
}

std::size_t CountX11Windows(const std::string& title) {
  return FindWindows(title).size();
}

void WaitForX11WindowGone(const std::string& title) {
  WaitForX11Step("the window titled \"" + title + "\" disappears",
                 [&] { return FindWindows(title).empty(); });
}

X11WindowId FocusedX11Window() {
  // Fails for a moment while the focus is nowhere, between two windows.
  const ProgramResult focus = RunProgram({"xdotool", "getwindowfocus"});
  return focus.exit_status == 0 ? std::strtoul(focus.out.c_str(), nullptr, 10) : 0;
}

void WaitForX11WindowToRest(X11WindowId window) {
  SDL_Rect last{};
  int unmoved = 0;
  WaitForX11Step("the window to stay where it is", [&] {
    const SDL_Rect now = X11WindowGeometry(window);
    unmoved = SDL_RectEquals(&now, &last) == SDL_TRUE ? unmoved + 1 : 0;
    last = now;
    return unmoved >= 10;
  });
}

void WaitForX11Focus(X11WindowId window) {
  WaitForX11Step("window " + std::to_string(window) + " gets the focus",
                 [window] { return FocusedX11Window() == window; });
}

std::string X11Property(X11WindowId window, const std::string& name) {
  // Either "NAME(TYPE) = value", "NAME(TYPE): value" or "NAME:  not found.".
  const std::string line = RunX11Tool({"xprop", "-id", std::to_string(window), name});
  const std::size_t type_end = line.find(')');
  if (type_end == std::string::npos) {
    return "";
  }
  return line.substr(std::min(line.find_first_not_of("=: ", type_end + 1), line.size()));
}

SDL_Rect X11WindowGeometry(X11WindowId window) {
  // Not xdotool's, which counts the window manager's frame twice.
  const std::string text = RunX11Tool({"xwininfo", "-id", std::to_string(window)});
  const auto number_behind = [&text](const std::string& label) {
    const std::size_t start = text.find(label);
    return start == std::string::npos ? 0 : std::atoi(text.c_str() + start + label.size());
  };
  return {number_behind("Absolute upper-left X:"), number_behind("Absolute upper-left Y:"),
          number_behind("Width:"), number_behind("Height:")};
}

SDL_Rect X11FrameGeometry(X11WindowId window) {
  const SDL_Rect rect = X11WindowGeometry(window);
  std::istringstream extents(X11Property(window, "_NET_FRAME_EXTENTS"));
  int left = 0;
  int right = 0;
  int top = 0;
  int bottom = 0;
  char comma = 0;
  extents >> left >> comma >> right >> comma >> top >> comma >> bottom;
  return {rect.x - left, rect.y - top, rect.w + left + right, rect.h + top + bottom};
}

void MovePointerTo(X11WindowId window, int x, int y) {
  RunXdotool(MoveArguments(window, x, y));
}

void ClickAt(X11WindowId window, int x, int y) {
  RunAt(window, x, y, {"click", "1"});
}

void DoubleClickAt(X11WindowId window, int x, int y) {
  RunAt(window, x, y, {"click", "--repeat", "2", "--delay", "40", "1"});
}

void DragFromTo(X11WindowId window, int x1, int y1, int x2, int y2) {
  constexpr int kSteps = 4;
  RunAt(window, x1, y1, {"mousedown", "1"});
  for (int step = 1; step <= kSteps; ++step) {
    MovePointerTo(window, x1 + (x2 - x1) * step / kSteps, y1 + (y2 - y1) * step / kSteps);
  }
  RunXdotool({"mouseup", "1"});
}

void TurnWheelAt(X11WindowId window, int x, int y, int notches) {
  const char* button = notches > 0 ? "4" : "5";
  const std::string count = std::to_string(std::abs(notches));
  RunAt(window, x, y, {"click", "--repeat", count, "--delay", "20", button});
}

void PressKey(const std::string& key) {
  WaitForFreePointer();
  RunXdotool({"key", key});
}

void TypeText(const std::string& text) {
  WaitForFreePointer();
  RunXdotool({"type", "--delay", "12", "--", text});
}

void CloseByWindowManager(X11WindowId window) {
  WaitForX11Focus(window);
  AskToCloseX11Window(window);
}

void SaveX11Screenshot(X11WindowId window, const std::string& path) {
  RunX11Tool({"import", "-window", std::to_string(window), path});
}

std::string X11PixelColour(X11WindowId window, int x, int y) {
  const std::string pixel = "1x1+" + std::to_string(x) + "+" + std::to_string(y);
  const std::string text = RunX11Tool(
      {"import", "-window", std::to_string(window), "-crop", pixel, "-depth", "8", "txt:-"});
  const std::size_t colour = text.find(" #");
  return colour == std::string::npos ? "" : text.substr(colour + 1, 7);
}

bool IsSdlOnTopOfSdl3() {
  SDL_version version{};
  SDL_GetVersion(&version);
  return SDL_VERSIONNUM(version.major, version.minor, version.patch) >= SDL_VERSIONNUM(2, 32, 50);
}

ProgramResult WaitForProgram(ChildProcess* program) {
  std::optional<ProgramResult> result = program->WaitForExit(kPatience);
  if (!result) {
    const ProgramResult so_far = program->Output();
    throw X11StepError("the program does not end; it has printed: " + so_far.out + so_far.err);
  }
  return *result;
}

X11Hands::X11Hands(std::function<void()> steps)
    : steps_(std::move(steps)), thread_([this] { Run(); }) {}

X11Hands::~X11Hands() {
  dialog_ended_ = true;
  thread_.join();
}

void X11Hands::Run() {
  try {
    steps_();
  } catch (const std::exception& error) {
    ADD_FAILURE() << error.what();
  }
  if (WaitUntil([this] { return dialog_ended_.load(); }, kPatience)) {
    return;
  }
  ADD_FAILURE() << "the dialog is still open after the last step";
  while (!dialog_ended_) {
    SDL_Event quit{};
    quit.type = SDL_QUIT;
    SDL_PushEvent(&quit);
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
  }
}

std::unique_ptr<X11Display> X11DisplayTest::display_;

void X11DisplayTest::SetUpTestSuite() {
  StartDisplay({"openbox"});
}

void X11DisplayTest::StartDisplay(const std::vector<std::string>& window_manager) {
  display_ = std::make_unique<X11Display>(window_manager);
}

void X11DisplayTest::TearDownTestSuite() {
  display_.reset();
}

X11WindowId X11WindowOf(SDL_Window* window) {
  SDL_SysWMinfo info{};
  SDL_VERSION(&info.version);
  if (SDL_GetWindowWMInfo(window, &info) != SDL_TRUE || info.subsystem != SDL_SYSWM_X11) {
    throw X11StepError("the window is none of X11");
  }
  return info.info.x11.window;
}

void PumpX11Until(const std::string& what, const std::function<bool()>& condition) {
  WaitForX11Step(what, [&condition] {
    SDL_PumpEvents();
    return condition();
  });
}

void X11DialogTest::SetUp() {
  ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0) << SDL_GetError();
  parent_ = SDL_CreateWindow("Host", 200, 150, 640, 480, SDL_WINDOW_SHOWN);
  ASSERT_NE(parent_, nullptr) << SDL_GetError();
  PumpX11Until("the host window has the focus", [this] {
    return SDL_GetKeyboardFocus() == parent_ && FocusedX11Window() == ParentId();
  });
}

void X11DialogTest::TearDown() {
  // As a host does that runs on top of SDL3.
  frontend::gui::DestroySdlWindow(parent_);
  parent_ = nullptr;
  SDL_Quit();
}

X11WindowId X11DialogTest::ParentId() const {
  return X11WindowOf(parent_);
}

}  // namespace quindle::testing
