// What each dialog asks of SDL in its shortest life, in order: the loop's steps and the guards
// around it. Left out are questions, fonts and what is drawn, which have tests of their own.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "support/dialog_test.h"
#include "support/every_dialog.h"

namespace quindle::testing {
namespace {

using ::testing::ValuesIn;

using Calls = std::vector<std::string>;

bool IsDrawing(std::string_view call) {
  constexpr std::string_view kDrawing[]{"SDL_Render",        "SDL_SetRender",
                                        "SDL_CreateTexture", "SDL_DestroyTexture",
                                        "SDL_FreeSurface",   "TTF_"};
  return call != "SDL_RenderPresent" &&
         std::any_of(std::begin(kDrawing), std::end(kDrawing),
                     [call](std::string_view start) { return call.starts_with(start); });
}

// How many events there are is SDL's business, so polling in a row counts once, and pumping, which
// polling does anyway, not at all.
Calls RecordedCalls() {
  Calls calls = Recorder().CallsButQuestions();
  std::erase_if(calls, IsDrawing);
  std::erase(calls, "SDL_PumpEvents");
  // What the library writes down on its own window, for itself, reaches nobody.
  std::erase(calls, "SDL_SetWindowData");
  const auto is_repeated_poll = [](const std::string& a, const std::string& b) {
    return a == "SDL_PollEvent" && a == b;
  };
  calls.erase(std::unique(calls.begin(), calls.end(), is_repeated_poll), calls.end());
  return calls;
}

void Append(const Calls& more, Calls* calls) {
  calls->insert(calls->end(), more.begin(), more.end());
}

bool IsOneOf(const std::string& name, std::initializer_list<std::string_view> names) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

// Two frames; in the second one a quit is read.
Calls ExpectedCalls(const std::string& name) {
  Calls calls{"SDL_CreateWindow", "SDL_SetWindowModalFor"};
  // On the dummy driver there is nothing that accelerates.
  if (!IsOneOf(name, {"ShaderDialog", "SettingsDialog"})) {
    calls.emplace_back("SDL_CreateRenderer");
  }
  calls.emplace_back("SDL_CreateRenderer");
  if (name == "MessageBox") {
    calls.emplace_back("SDL_SetWindowSize");  // To the height of its message.
  }
  const bool types_text = IsOneOf(name, {"HddDialog", "ScreenshotDialog"});
  if (types_text) {
    calls.emplace_back("SDL_StartTextInput");
  }
  Append({"SDL_PollEvent", "SDL_RenderPresent", "SDL_ShowWindow", "SDL_RaiseWindow",
          "SDL_SetWindowInputFocus", "SDL_Delay", "SDL_PollEvent"},
         &calls);
  // The others draw the frame in which they end as well.
  if (!IsOneOf(name, {"ShaderDialog", "SettingsDialog"})) {
    Append({"SDL_RenderPresent", "SDL_Delay"}, &calls);
  }
  if (types_text) {
    calls.emplace_back("SDL_StopTextInput");
  }
  Calls hand_back{"SDL_RaiseWindow", "SDL_SetWindowInputFocus"};
  Calls release{"SDL_DestroyRenderer", "SDL_DestroyWindow"};
  if (IsOneOf(name, {"ShaderDialog", "SettingsDialog"})) {
    std::swap(hand_back, release);
  }
  Append(hand_back, &calls);
  Append(release, &calls);
  return calls;
}

class EachDialogsCalls : public DialogTest, public ::testing::WithParamInterface<NamedDialog> {};

TEST_P(EachDialogsCalls, AreTheLoopsAndNoOthers) {
  SDL_Window* const parent = MakeParent();
  const Calls expected = ExpectedCalls(GetParam().name);
  // Some SDLs have an answer to a wish for hardware even here, where there is none.
  if (std::count(expected.begin(), expected.end(), "SDL_CreateRenderer") == 2) {
    Recorder().FailCall("SDL_CreateRenderer");
  }
  Recorder().ForgetCalls();
  DialogScript script;
  script.Wait().Step([] { Quit(); });
  GetParam().show(parent);
  EXPECT_EQ(RecordedCalls(), expected);
}

INSTANTIATE_TEST_SUITE_P(Dialogs, EachDialogsCalls, ValuesIn(EveryDialog()), NameOfDialogTest);

}  // namespace
}  // namespace quindle::testing
