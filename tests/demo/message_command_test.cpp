// The program run in this process, its dialogs driven through the heartbeat.

#include <SDL.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "demo/run_in_process.h"
#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/testing/dialog_driver.h"
#include "support/call_recorder.h"
#include "support/dialog_script.h"

namespace quindle::demo {
namespace {

using frontend::gui::testing::DialogDriver;
using testing::DialogScript;
using ::testing::HasSubstr;
using testing::Recorder;

const std::vector<const char*> kYesNo = {"message",       "--type",    "warning",    "--title",
                                         "Overwrite?",    "--message", "It exists.", "--button",
                                         "1:Yes:default", "--button",  "2:No:cancel"};

class MessageCommand : public ::testing::Test {
 protected:
  // The driver wants SDL video; the program shuts it down.
  void SetUp() override {
    Recorder().Reset();
    SDL_Init(SDL_INIT_VIDEO);
  }
  void TearDown() override { EXPECT_EQ(SDL_WasInit(SDL_INIT_VIDEO), 0U); }
};

TEST_F(MessageCommand, ClickedButtonIsAccepted) {
  DialogDriver user;
  user.PressButton(1);
  const Ended ended = RunProgramWith(kYesNo);
  EXPECT_EQ(user.failure(), "");
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.out,
            "{\"dialog\":\"message\",\"accepted\":true,\"button\":1,\"label\":\"Yes\"}\n");
  EXPECT_EQ(ended.err, "");
}

TEST_F(MessageCommand, CancelButtonIsReportedAsCancelled) {
  DialogDriver user;
  user.PressButton(2);
  const Ended ended = RunProgramWith(kYesNo);
  EXPECT_EQ(user.failure(), "");
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.out,
            "{\"dialog\":\"message\",\"accepted\":false,\"button\":2,\"label\":\"No\"}\n");
  EXPECT_EQ(ended.err, "quindle_dialogs: cancelled\n");
}

TEST_F(MessageCommand, EscapeChoosesTheCancelButton) {
  DialogDriver user;
  user.PressEscape();
  const Ended ended = RunProgramWith(kYesNo);
  EXPECT_EQ(user.failure(), "");
  EXPECT_EQ(ended.status, 1);
  EXPECT_THAT(ended.out, HasSubstr("\"button\":2"));
}

TEST_F(MessageCommand, ClosedBoxHasNoButton) {
  DialogDriver user;
  user.Close();
  const Ended ended = RunProgramWith(kYesNo);
  EXPECT_EQ(user.failure(), "");
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.out,
            "{\"dialog\":\"message\",\"accepted\":false,\"button\":null,\"label\":null}\n");
}

TEST_F(MessageCommand, ButtonOfIdMinusOneIsNoClosedBox) {
  DialogDriver user;
  user.PressButton(-1);
  const Ended ended = RunProgramWith({"message", "--button=-1:A", "--button", "2:B"});
  EXPECT_EQ(user.failure(), "");
  EXPECT_EQ(ended.status, 0);
  EXPECT_THAT(ended.out, HasSubstr("\"button\":-1,\"label\":\"A\""));
}

TEST_F(MessageCommand, BoxWithoutButtonsHasOneOk) {
  DialogDriver user;
  user.PressEscape();
  const Ended ended = RunProgramWith({"message"});
  EXPECT_EQ(user.failure(), "");
  EXPECT_EQ(ended.status, 0);
  EXPECT_THAT(ended.out, HasSubstr("\"button\":1,\"label\":\"OK\""));
}

TEST_F(MessageCommand, NoEscapeLeavesTheBoxOpen) {
  DialogDriver user;
  user.PressEscape().PressButton(1);
  const Ended ended = RunProgramWith({"message", "--no-escape"});
  EXPECT_EQ(user.failure(), "");
  EXPECT_EQ(ended.status, 0);
}

TEST_F(MessageCommand, OptionsReachTheBox) {
  DialogScript script;
  script.Wait(2).Step([] {
    EXPECT_TRUE(Recorder().last_frame().HasText("Overwrite?"));
    EXPECT_TRUE(Recorder().last_frame().HasText("It exists."));
    EXPECT_TRUE(Recorder().last_frame().HasText("Yes"));
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(Recorder().newest_window(), &width, &height);
    EXPECT_EQ(width, 510);
    EXPECT_EQ(height, 333);
    testing::Quit();
  });
  std::vector<const char*> arguments = kYesNo;
  arguments.insert(arguments.end(), {"--width", "510", "--height", "333"});
  RunProgramWith(arguments);
}

TEST_F(MessageCommand, TypeChoosesTheBadge) {
  const std::vector<std::pair<const char*, SDL_Color>> accents = {
      {"info", {86, 172, 255, 255}},    {"question", {70, 148, 255, 255}},
      {"warning", {255, 180, 0, 255}},  {"error", {255, 92, 92, 255}},
      {"critical", {255, 36, 36, 255}}, {"success", {92, 204, 108, 255}}};
  for (const auto& [type, accent] : accents) {
    DialogScript script;
    script.Wait(2).Step([accent = accent] {
      const auto layout =
          frontend::gui::BuildSdlMessageBoxLayout({}, 1.0F, 420, 160, nullptr, nullptr);
      const SDL_Color bar = testing::PixelAt(layout.icon.x + 1, layout.icon.y + 1);
      EXPECT_EQ(bar.r, accent.r);
      EXPECT_EQ(bar.g, accent.g);
      EXPECT_EQ(bar.b, accent.b);
      testing::Quit();
    });
    EXPECT_EQ(RunProgramWith({"message", "--type", type}).status, 1) << type;
  }
}

TEST_F(MessageCommand, FailedWindowIsNothingShown) {
  Recorder().FailCall("SDL_CreateWindow", 1);
  const Ended ended = RunProgramWith(kYesNo);
  EXPECT_EQ(ended.status, 3);
  EXPECT_EQ(ended.out, "");
  EXPECT_THAT(ended.err, HasSubstr("quindle_dialogs: no window: "));
}

TEST_F(MessageCommand, DialogWithoutResultNeedsAWindowToo) {
  Recorder().FailAlways("SDL_CreateWindow");
  const Ended ended = RunProgramWith({"about"});
  EXPECT_EQ(ended.status, 3);
  EXPECT_EQ(ended.out, "");
  EXPECT_THAT(ended.err, HasSubstr("quindle_dialogs: no window: "));
}

TEST_F(MessageCommand, MachineWithoutFontsShowsNothing) {
  Recorder().HideAllFonts();
  const Ended ended = RunProgramWith(kYesNo);
  EXPECT_EQ(ended.status, 3);
  EXPECT_EQ(ended.out, "");
  EXPECT_THAT(ended.err, HasSubstr("quindle_dialogs: no font: "));
  EXPECT_TRUE(Recorder().windows().empty());
}

TEST_F(MessageCommand, ThrownInTheDialogIsAFailure) {
  DialogScript script;
  script.Step([] { throw std::runtime_error("the host fell over"); });
  const Ended ended = RunProgramWith(kYesNo);
  EXPECT_EQ(ended.status, 4);
  EXPECT_EQ(ended.err, "quindle_dialogs: the host fell over\n");
}

class WrongMessageArguments : public ::testing::TestWithParam<std::vector<const char*>> {};

TEST_P(WrongMessageArguments, EndWithStatusTwoAndOneLine) {
  Recorder().Reset();
  std::vector<const char*> arguments = GetParam();
  arguments.insert(arguments.begin(), "message");
  const Ended ended = RunProgramWith(arguments);
  EXPECT_EQ(ended.status, 2);
  EXPECT_EQ(ended.out, "");
  EXPECT_EQ(ended.err.rfind("quindle_dialogs: ", 0), 0U) << ended.err;
  EXPECT_EQ(ended.err.find('\n'), ended.err.size() - 1) << ended.err;
  EXPECT_TRUE(Recorder().windows().empty());
}

INSTANTIATE_TEST_SUITE_P(All, WrongMessageArguments,
                         ::testing::Values(std::vector<const char*>{"--type", "purple"},
                                           std::vector<const char*>{"--type", "9"},
                                           std::vector<const char*>{"--button", "Yes"},
                                           std::vector<const char*>{"--button", "1:"},
                                           std::vector<const char*>{"--button", "one:Yes"},
                                           std::vector<const char*>{"--button", "1x:Yes"},
                                           std::vector<const char*>{"--button", "99999999999:Yes"},
                                           std::vector<const char*>{"--button", "1:Yes:maybe"},
                                           std::vector<const char*>{"--button", "1:Yes:"},
                                           std::vector<const char*>{"--button"},
                                           std::vector<const char*>{"--width", "0"},
                                           std::vector<const char*>{"--height", "tall"},
                                           std::vector<const char*>{"--unknown"},
                                           std::vector<const char*>{"extra"}));

}  // namespace
}  // namespace quindle::demo
