// What a modal dialog is on Windows: owned by its parent, which takes no input while it is open.
// Real windows of SDL's windows driver.

#include <SDL.h>
#include <SDL_syswm.h>
#include <gmock/gmock.h>

#include <array>
#include <functional>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "frontend/gui/about_dialog.h"
#include "frontend/gui/hdd_create_dialog.h"
#include "frontend/gui/screenshot_save_dialog.h"
#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/sdl_pickers.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "frontend/gui/settings_dialog.h"
#include "frontend/gui/shader_parameter_dialog.h"
#include "windows/import_patch.h"

namespace quindle::testing {
namespace {

using namespace frontend::gui;  // NOLINT(google-build-using-namespace)

// Frames after which a dialog has been shown and the system has said so.
constexpr int kSettledFrames = 12;
// A dialog that is open for so long is left by an exception: a failed test must not hang.
constexpr int kFrameBudget = 600;

constexpr const char* kLibrary = "libquindle_sdl_ui.dll";

HWND HandleOf(SDL_Window* window) {
  SDL_SysWMinfo info{};
  SDL_VERSION(&info.version);
  return SDL_GetWindowWMInfo(window, &info) == SDL_TRUE ? info.info.win.window : nullptr;
}

// The window made last and still there.
SDL_Window* NewestWindow() {
  SDL_Window* newest = nullptr;
  for (Uint32 id = 1; id < 500; ++id) {
    if (SDL_Window* window = SDL_GetWindowFromID(id)) {
      newest = window;
    }
  }
  return newest;
}

void PushQuit() {
  SDL_Event quit{};
  quit.type = SDL_QUIT;
  SDL_PushEvent(&quit);
}

// While it lives, the dialog that is open has one step after another, kSettledFrames apart; behind
// the last one each frame ends a dialog.
class Steps {
 public:
  explicit Steps(std::vector<std::function<void()>> steps) : steps_(std::move(steps)) {
    SetModalDialogHeartbeat([this] { Beat(); });
  }
  ~Steps() {
    SetModalDialogHeartbeat({});
    EXPECT_EQ(next_, steps_.size()) << "steps were left over";
  }
  Steps(const Steps&) = delete;
  Steps& operator=(const Steps&) = delete;

 private:
  void Beat() {
    if (++frames_ > kFrameBudget) {
      throw std::runtime_error("the dialog did not end");
    }
    if (++settled_ < kSettledFrames) {
      return;
    }
    settled_ = 0;
    if (next_ < steps_.size()) {
      steps_[next_++]();
    } else {
      PushQuit();
    }
  }

  std::vector<std::function<void()>> steps_;
  std::size_t next_ = 0;
  int settled_ = 0;
  int frames_ = 0;
};

SdlMessageBox::Config Question() {
  SdlMessageBox::Config config;
  config.title = "Question";
  config.message = "Well?";
  config.buttons = {{1, "Yes", true, false, {}}};
  return config;
}

void ShowBox(SDL_Window* parent) {
  SdlMessageBox(Question()).Show(parent, 1.0F);
}

struct Dialog {
  const char* name;
  void (*show)(SDL_Window* parent);
};

void PrintTo(const Dialog& dialog, std::ostream* out) {
  *out << dialog.name;
}

constexpr std::array<Dialog, 7> kDialogs{{
    {"MessageBox", ShowBox},
    {"About", [](SDL_Window* parent) { ShowSimpleAboutDialog(parent, 1.0F); }},
    {"DiskImage", [](SDL_Window* parent) { ShowSimpleHddCreateDialog(parent, ".", 1); }},
    {"Screenshot",
     [](SDL_Window* parent) {
       ShowScreenshotSaveDialog(parent, ".", "a.png", ScreenshotSaveFormat::Png, 90, 6, true);
     }},
    {"Picker", [](SDL_Window* parent) { ShowSimpleFloppyFilePicker(parent, "."); }},
    {"Settings", [](SDL_Window* parent) { ShowSettingsDialog(parent, 1.0F, {}, {}); }},
    {"Shader",
     [](SDL_Window* parent) {
       ShowShaderParameterDialog(parent, "data/shaders/demo_crt.glsl", 1.0F, {}, {});
     }},
}};

class ModalOnWindows : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0) << SDL_GetError();
    ASSERT_STREQ(SDL_GetCurrentVideoDriver(), "windows");
    SDL_SetHint(SDL_HINT_RENDER_DRIVER, "software");  // The others take seconds in each dialog.
    parent_ = SDL_CreateWindow("Host", 40, 40, 320, 200, 0);
    ASSERT_NE(parent_, nullptr) << SDL_GetError();
    SDL_RaiseWindow(parent_);
    Settle();
    ASSERT_EQ(GetForegroundWindow(), Host());
  }
  void TearDown() override {
    ShutdownSdlUiCachedFonts();
    TTF_Quit();
    SDL_DestroyWindow(parent_);
    SDL_Quit();
  }

  static void Settle() {
    for (int i = 0; i < kSettledFrames; ++i) {
      SDL_PumpEvents();
      SDL_Delay(5);
    }
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
  }

  HWND Host() const { return HandleOf(parent_); }
  bool HostTakesInput() const { return IsWindowEnabled(Host()) != 0; }

  void ExpectHostIsBack() const {
    Settle();
    EXPECT_TRUE(HostTakesInput());
    EXPECT_EQ(GetForegroundWindow(), Host());
    EXPECT_EQ(GetFocus(), Host());
    EXPECT_EQ(SDL_GetKeyboardFocus(), parent_);
    EXPECT_EQ(NewestWindow(), parent_);
  }

  void ExpectModal(HWND dialog, HWND owner) const {
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner);
    EXPECT_FALSE(IsWindowEnabled(owner));
    EXPECT_TRUE(IsWindowEnabled(dialog));
    EXPECT_TRUE(IsWindowVisible(dialog));
    EXPECT_EQ(GetForegroundWindow(), dialog);
    EXPECT_EQ(GetWindowLongPtrW(dialog, GWL_EXSTYLE) & WS_EX_APPWINDOW, 0);
  }

  SDL_Window* parent_ = nullptr;
};

// --- Every dialog --------------------------------------------------------------------------------

class ModalDialogOnWindows : public ModalOnWindows, public ::testing::WithParamInterface<Dialog> {};

// With the renderer that SDL takes by itself, for which it may make the window anew.
TEST_P(ModalDialogOnWindows, IsOwnedByAParentThatTakesNoInput) {
  SDL_SetHint(SDL_HINT_RENDER_DRIVER, nullptr);
  EXPECT_TRUE(HostTakesInput());
  const Steps steps({[this] { ExpectModal(HandleOf(NewestWindow()), Host()); }});
  GetParam().show(parent_);
  ExpectHostIsBack();
}

TEST_P(ModalDialogOnWindows, LeavesAParentAloneThatTookNoInputBefore) {
  EnableWindow(Host(), FALSE);
  const Steps steps({[this] { ExpectModal(HandleOf(NewestWindow()), Host()); }});
  GetParam().show(parent_);
  EXPECT_FALSE(HostTakesInput());
}

TEST_P(ModalDialogOnWindows, ThatEndsByAnExceptionGivesTheParentBack) {
  {
    const Steps steps({[] { throw std::logic_error("from the heartbeat"); }});
    EXPECT_THROW(GetParam().show(parent_), std::logic_error);
  }
  ExpectHostIsBack();
}

SDL_Renderer* SDLCALL MakeNoRenderer(SDL_Window* /*window*/, int /*index*/, Uint32 /*flags*/) {
  return nullptr;
}

SDL_Window* SDLCALL MakeNoWindow(const char* /*title*/, int /*x*/, int /*y*/, int /*w*/, int /*h*/,
                                 Uint32 /*flags*/) {
  return nullptr;
}

TEST_P(ModalDialogOnWindows, ThatGetsNoRendererLeavesTheParentAsItWas) {
  const ImportPatch none(kLibrary, "SDL_CreateRenderer", reinterpret_cast<void*>(&MakeNoRenderer));
  GetParam().show(parent_);
  ExpectHostIsBack();
}

TEST_P(ModalDialogOnWindows, ThatGetsNoWindowLeavesTheParentAsItWas) {
  const ImportPatch none(kLibrary, "SDL_CreateWindow", reinterpret_cast<void*>(&MakeNoWindow));
  GetParam().show(parent_);
  ExpectHostIsBack();
}

TEST_P(ModalDialogOnWindows, LiesInTheWorkAreaOfTheParentsMonitor) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof(monitor);
  ASSERT_NE(GetMonitorInfoW(MonitorFromWindow(Host(), MONITOR_DEFAULTTONEAREST), &monitor), 0);
  SDL_SetWindowPosition(parent_, monitor.rcWork.right - 330, monitor.rcWork.bottom - 210);
  RECT place{};
  const Steps steps({[&place] { GetWindowRect(HandleOf(NewestWindow()), &place); }});
  GetParam().show(parent_);
  EXPECT_GT(place.right, place.left);
  EXPECT_GE(place.left, monitor.rcWork.left);
  EXPECT_GE(place.top, monitor.rcWork.top);
  EXPECT_LE(place.right, monitor.rcWork.right);
  EXPECT_LE(place.bottom, monitor.rcWork.bottom);
}

INSTANTIATE_TEST_SUITE_P(Every, ModalDialogOnWindows, ::testing::ValuesIn(kDialogs),
                         [](const auto& dialog) { return dialog.param.name; });

// --- The moment of the end -----------------------------------------------------------------------

// Asks, at the moment in which Windows destroys a window, whether its owner takes input.
class DestroyedWindows {
 public:
  DestroyedWindows() {
    g_owner_took_input.clear();
    hook_ = SetWindowsHookExW(WH_CBT, &Hook, nullptr, GetCurrentThreadId());
  }
  ~DestroyedWindows() { UnhookWindowsHookEx(hook_); }
  DestroyedWindows(const DestroyedWindows&) = delete;
  DestroyedWindows& operator=(const DestroyedWindows&) = delete;

  // One answer for each owned window.
  static const std::vector<bool>& OwnerTookInput() { return g_owner_took_input; }

 private:
  static LRESULT CALLBACK Hook(int code, WPARAM window, LPARAM parameter) {
    if (code == HCBT_DESTROYWND) {
      if (HWND const owner = GetWindow(reinterpret_cast<HWND>(window), GW_OWNER)) {
        g_owner_took_input.push_back(IsWindowEnabled(owner) != 0);
      }
    }
    return CallNextHookEx(nullptr, code, window, parameter);
  }

  static inline std::vector<bool> g_owner_took_input;
  HHOOK hook_;
};

TEST_P(ModalDialogOnWindows, LetsTheParentTakeInputBeforeItGoes) {
  const DestroyedWindows destroyed;
  {
    const Steps steps({[] {}});
    GetParam().show(parent_);
  }
  EXPECT_THAT(DestroyedWindows::OwnerTookInput(), ::testing::ElementsAre(true));
}

SDL_Window* g_raised = nullptr;
bool g_raised_took_input = false;

void SDLCALL RaiseAndRemember(SDL_Window* window) {
  g_raised = window;
  g_raised_took_input = IsWindowEnabled(HandleOf(window)) != 0;
  SDL_RaiseWindow(window);
}

TEST_P(ModalDialogOnWindows, LetsTheParentTakeInputBeforeItIsRaised) {
  const ImportPatch raise(kLibrary, "SDL_RaiseWindow", reinterpret_cast<void*>(&RaiseAndRemember));
  const Steps steps({[] {}});
  GetParam().show(parent_);
  EXPECT_EQ(g_raised, parent_);
  EXPECT_TRUE(g_raised_took_input);
}

TEST_F(ModalOnWindows, ABoxWithoutFontsGivesTheParentBack) {
  const auto open_none = [](const char* /*file*/, int /*size*/) -> TTF_Font* { return nullptr; };
  TTF_Font*(SDLCALL* const function)(const char*, int) = open_none;
  const ImportPatch none(kLibrary, "TTF_OpenFont", reinterpret_cast<void*>(function));
  ShowBox(parent_);
  ExpectHostIsBack();
}

// --- Dialogs in dialogs --------------------------------------------------------------------------

TEST_F(ModalOnWindows, AnInnerDialogLeavesTheHostToTheOuterOne) {
  HWND outer = nullptr;
  const Steps steps({[&] {
                       outer = HandleOf(NewestWindow());
                       ShowSimpleHddCreateDialog(NewestWindow(), ".", 1);
                     },
                     [&] {
                       ExpectModal(HandleOf(NewestWindow()), outer);
                       EXPECT_FALSE(HostTakesInput());
                       PushQuit();
                     },
                     [&] {
                       EXPECT_EQ(HandleOf(NewestWindow()), outer);
                       ExpectModal(outer, Host());
                     }});
  ShowBox(parent_);
  ExpectHostIsBack();
}

TEST_F(ModalOnWindows, TwoDialogsOfOneParentGiveItBackOnce) {
  for (const Dialog& inner : kDialogs) {
    HWND outer = nullptr;
    const Steps steps({[&] {
                         outer = HandleOf(NewestWindow());
                         inner.show(parent_);
                       },
                       [&] {
                         EXPECT_FALSE(HostTakesInput());
                         PushQuit();
                       },
                       [&] { EXPECT_FALSE(HostTakesInput()) << inner.name; },
                       [&] { ExpectModal(outer, Host()); }});
    ShowBox(parent_);
    ExpectHostIsBack();
  }
}

TEST_F(ModalOnWindows, AnExceptionThroughTwoDialogsGivesAllBack) {
  {
    const Steps steps({[] { ShowSimpleHddCreateDialog(NewestWindow(), ".", 1); },
                       [] { throw std::logic_error("from the heartbeat"); }});
    EXPECT_THROW(ShowBox(parent_), std::logic_error);
  }
  ExpectHostIsBack();
}

// --- What the host does meanwhile ----------------------------------------------------------------

TEST_F(ModalOnWindows, TheDialogTakesTheFocusBackFromItsParent) {
  const Steps steps({[this] {
                       SetForegroundWindow(Host());
                       EXPECT_EQ(GetForegroundWindow(), Host());
                     },
                     [this] { ExpectModal(HandleOf(NewestWindow()), Host()); }});
  ShowBox(parent_);
  ExpectHostIsBack();
}

TEST_F(ModalOnWindows, TheDialogLeavesTheFocusToAWindowThatItIsNotModalFor) {
  SDL_Window* other = nullptr;
  {
    const Steps steps({[&] { other = SDL_CreateWindow("Other", 400, 400, 100, 100, 0); },
                       [&] { SDL_RaiseWindow(other); },
                       [&] { EXPECT_EQ(GetForegroundWindow(), HandleOf(other)); }});
    ShowBox(parent_);
  }
  SDL_DestroyWindow(other);
}

TEST_F(ModalOnWindows, AParentThatComesAndGoesIsTheOwnerWhileItIsThere) {
  HWND dialog = nullptr;
  const Steps steps({[&] {
                       dialog = HandleOf(NewestWindow());
                       SDL_HideWindow(parent_);
                     },
                     [&] {
                       EXPECT_EQ(GetWindow(dialog, GW_OWNER), nullptr);
                       EXPECT_TRUE(IsWindowVisible(dialog));
                       SDL_ShowWindow(parent_);
                     },
                     [&] { ExpectModal(dialog, Host()); }});
  ShowBox(parent_);
  ExpectHostIsBack();
}

TEST_F(ModalOnWindows, TheDialogOutlivesItsParent) {
  SDL_Window* const short_lived = SDL_CreateWindow("Short-lived", 60, 60, 200, 100, 0);
  ModalWindowBundle bundle = CreateModalWindowBundle(
      short_lived, "Dialog", 10, 10, 200, 100, SDL_WINDOW_HIDDEN, ModalRendererMode::Software);
  HWND const dialog = HandleOf(bundle.window.get());
  ASSERT_EQ(GetWindow(dialog, GW_OWNER), HandleOf(short_lived));
  SDL_DestroyWindow(short_lived);
  EXPECT_TRUE(IsWindow(dialog));
  bundle = {};
  EXPECT_FALSE(IsWindow(dialog));
}

// --- A host's own dialogs ------------------------------------------------------------------------

TEST_F(ModalOnWindows, ABundleGivesTheParentBackWhenItIsReleased) {
  ModalWindowBundle bundle = CreateModalWindowBundle(
      parent_, "Dialog", 10, 10, 200, 100, SDL_WINDOW_HIDDEN, ModalRendererMode::Software);
  EXPECT_FALSE(HostTakesInput());
  SDL_ShowWindow(bundle.window.get());
  Settle();
  RestoreModalParentFocus(parent_);
  bundle = {};
  ExpectHostIsBack();
}

int g_event_watches = 0;

void SDLCALL AddCountedWatch(SDL_EventFilter filter, void* user_data) {
  ++g_event_watches;
  SDL_AddEventWatch(filter, user_data);
}

void SDLCALL RemoveCountedWatch(SDL_EventFilter filter, void* user_data) {
  --g_event_watches;
  SDL_DelEventWatch(filter, user_data);
}

TEST_F(ModalOnWindows, NothingWatchesTheEventsOfADialogThatHasGone) {
  const ImportPatch add(kLibrary, "SDL_AddEventWatch", reinterpret_cast<void*>(&AddCountedWatch));
  const ImportPatch remove(kLibrary, "SDL_DelEventWatch",
                           reinterpret_cast<void*>(&RemoveCountedWatch));
  for (const Dialog& dialog : kDialogs) {
    const Steps steps({[] { EXPECT_GT(g_event_watches, 0); }});
    dialog.show(parent_);
    EXPECT_EQ(g_event_watches, 0) << dialog.name;
  }
}

TEST_F(ModalOnWindows, WithoutAParentNobodyIsDisabled) {
  const Steps steps({[this] {
    EXPECT_EQ(GetWindow(HandleOf(NewestWindow()), GW_OWNER), nullptr);
    EXPECT_TRUE(HostTakesInput());
  }});
  ShowBox(nullptr);
  EXPECT_TRUE(HostTakesInput());
}

}  // namespace
}  // namespace quindle::testing
