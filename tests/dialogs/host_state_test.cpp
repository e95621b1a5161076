// What a dialog must leave of the host's as it was: its OpenGL context, its captured mouse, its
// hidden cursor. OpenGL is the recorder's here; the real one is in host_x11_test.

#include "frontend/gui/sdl_host_state.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <string>

#include "frontend/gui/hdd_create_dialog.h"
#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/sdl_pickers.h"
#include "frontend/gui/settings_dialog.h"
#include "frontend/gui/shader_parameter_dialog.h"
#include "support/dialog_test.h"
#include "support/every_dialog.h"

namespace quindle::testing {
namespace {

using frontend::gui::SdlMessageBox;
using ::testing::ElementsAre;
using ::testing::ValuesIn;

struct HostError : std::runtime_error {
  HostError() : std::runtime_error("from the heartbeat") {}
};

struct CurrentGraphics {
  SDL_GLContext context = SDL_GL_GetCurrentContext();
  SDL_Window* window = SDL_GL_GetCurrentWindow();

  bool operator==(const CurrentGraphics&) const = default;
};

void PrintTo(const CurrentGraphics& graphics, std::ostream* out) {
  *out << "context " << graphics.context << " on window " << graphics.window;
}

// The kind of context that the next one will be.
std::array<int, 3> AskedForContext() {
  std::array<int, 3> kind{};
  SDL_GL_GetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, &kind[0]);
  SDL_GL_GetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, &kind[1]);
  SDL_GL_GetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, &kind[2]);
  return kind;
}

void AskForContext(int profile, int major, int minor) {
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, profile);
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, major);
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, minor);
}

constexpr std::array<int, 3> kCore33{SDL_GL_CONTEXT_PROFILE_CORE, 3, 3};

// Stands for a second context of the host's.
SDL_GLContext OtherContext() {
  static char other = 0;
  return &other;
}

// A host that draws with OpenGL and waits for the display.
class HostContext : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    host_ = MakeParent();
    Recorder().StartOpenGl(host_);
    AskForContext(kCore33[0], kCore33[1], kCore33[2]);
    SDL_GL_SetSwapInterval(1);
    at_start_ = CurrentGraphics();
    Recorder().ForgetCalls();
  }

  void ExpectHostsOwn() const {
    EXPECT_EQ(CurrentGraphics(), at_start_);
    EXPECT_EQ(AskedForContext(), kCore33);
    EXPECT_EQ(SDL_GL_GetSwapInterval(), 1);
  }

  // That of the dialog that is open; what a host sees that is not given its own back.
  static bool IsDialogsCurrent() {
    return SDL_GL_GetCurrentContext() == Recorder().newest_renderer();
  }

  SDL_Window* host_ = nullptr;
  CurrentGraphics at_start_;
};

class EachHostContext : public HostContext, public ::testing::WithParamInterface<NamedDialog> {};

TEST_P(EachHostContext, IsCurrentInEachHeartbeatAndAfterwards) {
  DialogScript script;
  script.EachFrame([this] { ExpectHostsOwn(); }).Wait(4).Step([] { Quit(); });
  GetParam().show(host_);
  EXPECT_EQ(script.frames(), 5);
  ExpectHostsOwn();
}

TEST_P(EachHostContext, IsCurrentWhenTheHeartbeatThrows) {
  DialogScript script;
  script.Wait(2).Step([] { throw HostError(); });
  EXPECT_THROW(GetParam().show(host_), HostError);
  ExpectHostsOwn();
}

TEST_P(EachHostContext, IsCurrentWhenTheWindowFails) {
  Recorder().FailAlways("SDL_CreateWindow");
  GetParam().show(host_);
  ExpectHostsOwn();
}

TEST_P(EachHostContext, IsCurrentWhenTheRendererFails) {
  Recorder().FailAlways("SDL_CreateRenderer");
  GetParam().show(host_);
  ExpectHostsOwn();
}

TEST_P(EachHostContext, IsCurrentWhenTheFontsFail) {
  Recorder().HideAllFonts();
  DialogScript script;
  script.MayEndEarly().Wait(2).Step([] { Quit(); });
  GetParam().show(host_);
  ExpectHostsOwn();
}

TEST_P(EachHostContext, IsCurrentInADialogOfTheHeartbeat) {
  DialogScript script;
  script.EachFrame([this] { ExpectHostsOwn(); });
  script.Wait(2)
      .Step([this] {
        GetParam().show(host_);
        ExpectHostsOwn();
        FlushEvents();
      })
      .Wait(2)
      .Step([] { Quit(); })
      .Wait()
      .Step([] { Quit(); });
  GetParam().show(host_);
  ExpectHostsOwn();
}

INSTANTIATE_TEST_SUITE_P(Dialogs, EachHostContext, ValuesIn(EveryDialog()), NameOfDialogTest);

// Otherwise the tests above could not fail.
TEST_F(HostContext, IsNotCurrentWhileADialogDraws) {
  Recorder().OnDelay([](Uint32) { EXPECT_TRUE(IsDialogsCurrent()); });
  DialogScript script;
  script.Wait().Step([] { Quit(); });
  EveryDialog().front().show(host_);
  EXPECT_EQ(Recorder().presents(), 2);
}

TEST_F(HostContext, IsCurrentInDialogsOfDialogs) {
  DialogScript script;
  script.EachFrame([this] { ExpectHostsOwn(); });
  script.Wait().Step([] { MouseUp(700, 200); }).Wait(2);
  script.Step([] {
    EXPECT_EQ(Recorder().windows().back().title, "Select HDD Output Folder");
    KeyDown(SDLK_ESCAPE);
  });
  script.Wait(2).Step([] { Quit(); });
  frontend::gui::ShowSimpleHddCreateDialog(host_, ".", 32);
  ExpectHostsOwn();
}

// Then no heartbeat has made it current before the inner dialog opens.
TEST_F(HostContext, IsCurrentAfterDialogsOfDialogsWithoutAHeartbeat) {
  int frame = 0;
  Recorder().OnDelay([&frame](Uint32) {
    ++frame;
    if (frame == 2) {
      MouseUp(700, 200);
    } else if (frame == 5 || frame == 8) {
      KeyDown(SDLK_ESCAPE);
    }
  });
  frontend::gui::ShowSimpleHddCreateDialog(host_, ".", 32);
  EXPECT_EQ(Recorder().windows().size(), 3U);
  ExpectHostsOwn();
}

TEST_F(HostContext, IsCurrentInAButtonsCallback) {
  SdlMessageBox::Config config;
  int calls = 0;
  const auto answer = [&] {
    ++calls;
    ExpectHostsOwn();
    EveryDialog().front().show(host_);
    ExpectHostsOwn();
  };
  config.buttons = {{1, "Again", true, true, answer}};
  DialogScript script;
  script.Wait().Step([] { KeyDown(SDLK_ESCAPE); }).Wait().Step([] { Quit(); });
  SdlMessageBox(config).Show(host_, 1.0F);
  EXPECT_EQ(calls, 1);
  ExpectHostsOwn();
}

TEST_F(HostContext, IsCurrentWhenAnApplyCallbackIsCalledAndThrows) {
  int calls = 0;
  const auto apply = [&](const auto&) {
    ++calls;
    ExpectHostsOwn();
    throw HostError();
  };
  {
    DialogScript script;
    script.Wait().Step([] { KeyDown(SDLK_RETURN); });
    EXPECT_THROW(frontend::gui::ShowShaderParameterDialog(host_, "data/shaders/demo_crt.glsl", 1.0F,
                                                          apply, {}),
                 HostError);
    ExpectHostsOwn();
  }
  {
    DialogScript script;
    script.Wait().Step([] { Click(760, 460, SDL_BUTTON_LEFT, 1, WindowId()); });
    EXPECT_THROW(frontend::gui::ShowSettingsDialog(host_, 1.0F, {}, apply), HostError);
    ExpectHostsOwn();
  }
  EXPECT_EQ(calls, 2);
}

TEST_F(HostContext, OfACallbackStaysCurrent) {
  DialogScript script;
  // As a host does that starts its display anew because a setting has changed.
  script.Step([this] {
    SDL_GL_MakeCurrent(host_, OtherContext());
    AskForContext(SDL_GL_CONTEXT_PROFILE_ES, 3, 0);
    SDL_GL_SetSwapInterval(0);
  });
  script.Wait().Step([] {
    EXPECT_EQ(SDL_GL_GetCurrentContext(), OtherContext());
    Quit();
  });
  EveryDialog().front().show(host_);
  EXPECT_EQ(SDL_GL_GetCurrentContext(), OtherContext());
  EXPECT_EQ(SDL_GL_GetCurrentWindow(), host_);
  EXPECT_EQ(AskedForContext(), (std::array<int, 3>{SDL_GL_CONTEXT_PROFILE_ES, 3, 0}));
  EXPECT_EQ(SDL_GL_GetSwapInterval(), 0);
}

TEST_F(HostContext, OnAnotherWindowOfACallbacksStaysThere) {
  const frontend::gui::OwnedSdlWindow owner(
      SDL_CreateWindow("Other", 0, 0, 64, 64, SDL_WINDOW_HIDDEN));
  SDL_Window* const other = owner.get();
  DialogScript script;
  script.Step([&] { SDL_GL_MakeCurrent(other, at_start_.context); });
  script.Wait().Step([] { Quit(); });
  EveryDialog().front().show(host_);
  EXPECT_EQ(SDL_GL_GetCurrentContext(), at_start_.context);
  EXPECT_EQ(SDL_GL_GetCurrentWindow(), other);
}

TEST_F(HostContext, OfACallbackThatPumpsTheHeartbeatStaysCurrent) {
  DialogScript script;
  script.Step([this] {
    frontend::gui::PumpModalDialogHeartbeat();
    SDL_GL_MakeCurrent(host_, OtherContext());
  });
  script.Wait().Step([] { Quit(); });
  EveryDialog().front().show(host_);
  EXPECT_EQ(SDL_GL_GetCurrentContext(), OtherContext());
}

// The driver may wait for the display without having been told to.
TEST_F(HostContext, ThatDoesNotWaitIsNotToldTo) {
  SDL_GL_SetSwapInterval(0);
  Recorder().ForgetCalls();
  DialogScript script;
  script.Step([] { Quit(); });
  EveryDialog().front().show(host_);
  EXPECT_THAT(Recorder().CallsAmong({"SDL_GL_SetSwapInterval"}), ElementsAre());
}

// It may be deleted, or another thread's by now.
TEST_F(HostContext, ThatACallbackHasLetGoOfIsNotTouched) {
  DialogScript script;
  script.Step([] {
    SDL_GL_MakeCurrent(nullptr, nullptr);
    Recorder().ForgetCalls();
  });
  script.Wait(2).Step([] { Quit(); });
  EveryDialog().front().show(host_);
  EXPECT_THAT(Recorder().CallsAmong({"SDL_GL_MakeCurrent"}), ElementsAre());
}

TEST_F(HostContext, OfADestroyedWindowIsNotTouched) {
  SDL_Window* const drawn = SDL_CreateWindow("Drawn", 0, 0, 64, 64, SDL_WINDOW_HIDDEN);
  SDL_GL_MakeCurrent(drawn, OtherContext());
  DialogScript script;
  script.Wait().Step([] { Quit(); });
  // Not from a callback: behind the dialog's back, as an event watch would.
  Recorder().OnDelay([&](Uint32) {
    Recorder().OnDelay({});
    SDL_DestroyWindow(drawn);
    Recorder().ForgetCalls();
  });
  EveryDialog().front().show(host_);
  EXPECT_THAT(Recorder().CallsAmong({"SDL_GL_MakeCurrent"}), ElementsAre());
}

// --- A host that uses none of it -----------------------------------------------------------------

class EachPlainHost : public DialogTest, public ::testing::WithParamInterface<NamedDialog> {};

TEST_P(EachPlainHost, IsOnlyAsked) {
  SDL_Window* const host = MakeParent();
  Recorder().StartOpenGl(host);
  SDL_GL_MakeCurrent(nullptr, nullptr);
  Recorder().ForgetCalls();
  DialogScript script;
  script.Wait(2)
      .Step([host] { GetParam().show(host); })
      .Wait(2)
      .Step([] { Quit(); })
      .Wait(2)
      .Step([] { Quit(); });
  GetParam().show(host);
  EXPECT_THAT(
      Recorder().CallsAmong({"SDL_GL_MakeCurrent", "SDL_GL_SetAttribute", "SDL_GL_GetAttribute",
                             "SDL_GL_SetSwapInterval", "SDL_GL_GetSwapInterval", "SDL_ShowCursor",
                             "SDL_SetRelativeMouseMode", "SDL_PeepEvents", "SDL_free"}),
      ElementsAre());
}

INSTANTIATE_TEST_SUITE_P(Dialogs, EachPlainHost, ValuesIn(EveryDialog()), NameOfDialogTest);

// --- Mouse ---------------------------------------------------------------------------------------

bool IsMouseFree() {
  return SDL_GetRelativeMouseMode() == SDL_FALSE && SDL_ShowCursor(SDL_QUERY) == SDL_ENABLE;
}

bool IsMouseCaptured() {
  return SDL_GetRelativeMouseMode() == SDL_TRUE && SDL_ShowCursor(SDL_QUERY) == SDL_DISABLE;
}

void CaptureMouse() {
  SDL_SetRelativeMouseMode(SDL_TRUE);
  SDL_ShowCursor(SDL_DISABLE);
}

class CapturedMouse : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    CaptureMouse();
  }
};

class EachCapturedMouse : public CapturedMouse,
                          public ::testing::WithParamInterface<NamedDialog> {};

TEST_P(EachCapturedMouse, IsFreeWhileTheDialogIsOpen) {
  DialogScript script;
  script.EachFrame([] { EXPECT_TRUE(IsMouseFree()); }).Wait(2).Step([] { Quit(); });
  GetParam().show(MakeParent());
  EXPECT_TRUE(IsMouseCaptured());
}

TEST_P(EachCapturedMouse, IsCapturedAgainWhenTheHeartbeatThrows) {
  DialogScript script;
  script.Wait().Step([] { throw HostError(); });
  EXPECT_THROW(GetParam().show(MakeParent()), HostError);
  EXPECT_TRUE(IsMouseCaptured());
}

TEST_P(EachCapturedMouse, IsCapturedAgainWhenNothingOpens) {
  for (const char* function : {"SDL_CreateWindow", "SDL_CreateRenderer"}) {
    Recorder().ClearFaults();
    Recorder().FailAlways(function);
    GetParam().show(nullptr);
    EXPECT_TRUE(IsMouseCaptured()) << function;
  }
}

TEST_P(EachCapturedMouse, StaysFreeInDialogsOfTheHeartbeat) {
  DialogScript script;
  script.EachFrame([] { EXPECT_TRUE(IsMouseFree()); });
  script.Wait()
      .Step([] {
        GetParam().show(nullptr);
        EXPECT_TRUE(IsMouseFree());
        FlushEvents();
      })
      .Wait()
      .Step([] { Quit(); })
      .Wait(2)
      .Step([] { Quit(); });
  GetParam().show(nullptr);
  EXPECT_TRUE(IsMouseCaptured());
}

// A host may free or capture it in every frame.
TEST_P(EachCapturedMouse, ByAHeartbeatIsFreedAtOnceAndCapturedAfterwards) {
  SDL_SetRelativeMouseMode(SDL_FALSE);
  SDL_ShowCursor(SDL_ENABLE);
  Recorder().OnDelay([](Uint32) { EXPECT_TRUE(IsMouseFree()); });
  DialogScript script;
  script.Wait().Step(CaptureMouse).Wait().Step([] { Quit(); });
  GetParam().show(MakeParent());
  EXPECT_TRUE(IsMouseCaptured());
}

INSTANTIATE_TEST_SUITE_P(Dialogs, EachCapturedMouse, ValuesIn(EveryDialog()), NameOfDialogTest);

TEST_F(CapturedMouse, EitherStateIsPutBackAlone) {
  SDL_SetRelativeMouseMode(SDL_FALSE);
  {
    DialogScript script;
    script.Step([] { Quit(); });
    EveryDialog().front().show(nullptr);
  }
  EXPECT_FALSE(SDL_GetRelativeMouseMode());
  EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_DISABLE);
  FlushEvents();
  SDL_SetRelativeMouseMode(SDL_TRUE);
  SDL_ShowCursor(SDL_ENABLE);
  {
    DialogScript script;
    script.Step([] { Quit(); });
    EveryDialog().front().show(nullptr);
  }
  EXPECT_TRUE(SDL_GetRelativeMouseMode());
  EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_ENABLE);
}

TEST_F(CapturedMouse, StaysFreeBetweenADialogsOwnDialogs) {
  DialogScript script;
  script.EachFrame([] { EXPECT_TRUE(IsMouseFree()); });
  script.Wait().Step([] { MouseUp(700, 200); }).Wait(2);
  // The picker's heartbeat captures it; the dialog behind the picker must not have it captured.
  script.Step(CaptureMouse).Step([] { KeyDown(SDLK_ESCAPE); });
  script.Wait(2).Step([] { Quit(); });
  frontend::gui::ShowSimpleHddCreateDialog(nullptr, ".", 32);
  EXPECT_TRUE(IsMouseCaptured());
}

class HostWithoutVideo : public DialogTest {};

// SDL starts its video with the first window, and calls the cursor hidden before.
TEST_F(HostWithoutVideo, FindsTheCursorShown) {
  SDL_Quit();
  SDL_ShowCursor(SDL_DISABLE);  // As in a process that has not started it yet.
  ASSERT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_DISABLE);
  DialogScript script;
  script.Wait().Step([] { Quit(); });
  EveryDialog().front().show(nullptr);
  EXPECT_EQ(script.frames(), 2);
  EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_ENABLE);
}

}  // namespace
}  // namespace quindle::testing
