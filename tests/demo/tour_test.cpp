// The tour with dialogs of the test's own, played in this process.

#include "tour.h"

#include <SDL.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "support/call_recorder.h"
#include "support/temporary_directory.h"
#include "working_directory.h"

namespace quindle::demo {
namespace {

namespace fs = std::filesystem;
using frontend::gui::SdlMessageBox;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::Recorder;
using testing::TemporaryDirectory;

using Show = std::function<Json(SDL_Window*)>;

// A command of one scene.
class SampleCommand : public DemoCommand {
 public:
  SampleCommand(std::string name, TourScene scene)
      : name_(std::move(name)), scene_(std::move(scene)) {}
  std::string Name() const override { return name_; }
  std::string Description() const override { return ""; }
  std::string ButtonLabel() const override { return name_; }
  void AddOptions(CLI::App& /*app*/) override {}
  CommandOutcome Run() override { return {}; }
  Json ShowInHost(DemoSession& /*session*/) override { return {}; }
  std::vector<TourScene> TourScenes() override { return {scene_}; }

 private:
  std::string name_;
  TourScene scene_;
};

// A box whose only button shows a second box.
Json ShowNestedBoxes(SDL_Window* parent, std::vector<std::string>* ended) {
  SdlMessageBox::Config inner;
  inner.title = "Inner";
  SdlMessageBox::Config outer;
  outer.title = "Outer";
  outer.escapeEnabled = true;
  outer.buttons = {{1, "Open", true, true, [&] {
                      SdlMessageBox(inner).Show(parent, 1.0F);
                      ended->push_back("inner");
                    }}};
  SdlMessageBox(outer).Show(parent, 1.0F);
  ended->push_back("outer");
  return "both closed";
}

Json ShowBox(SDL_Window* parent) {
  return SdlMessageBox({}).Show(parent, 1.0F);
}

// A dialog that heeds no event.
Json ShowStubbornDialog(SDL_Window* parent) {
  const auto bundle = frontend::gui::CreateModalWindowBundle(
      parent, "Stubborn", 0, 0, 320, 200, 0, frontend::gui::ModalRendererMode::Software);
  for (;;) {
    frontend::gui::PumpModalDialogHeartbeat();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
  }
}

class TourOfOne : public ::testing::Test {
 protected:
  void SetUp() override {
    Recorder().Reset();
    // The tour overrides what was chosen before, for good.
    SDL_ClearHints();
  }
  void TearDown() override {
    EXPECT_EQ(SDL_WasInit(SDL_INIT_VIDEO), 0U);
    EXPECT_EQ(fs::current_path(), start_);
  }

  ExitStatus Play(Show show, TourScript script, int frame_budget = 600) {
    commands_.clear();
    commands_.push_back(std::make_unique<SampleCommand>(
        "sample", TourScene{"sample scene", std::move(show), std::move(script), frame_budget}));
    return PlayAll("");
  }

  ExitStatus PlayAll(const std::string& only) {
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    const ExitStatus status = RunTour(commands_, {out_.path().string(), only, false});
    printed_ = ::testing::internal::GetCapturedStdout();
    errors_ = ::testing::internal::GetCapturedStderr();
    return status;
  }

  const fs::path start_ = fs::current_path();
  DemoCommands commands_;
  TemporaryDirectory out_;
  std::string printed_;
  std::string errors_;
};

TEST_F(TourOfOne, PrintsResultAndPictures) {
  EXPECT_EQ(Play(&ShowBox, TourScript().Save("one").Key(SDLK_ESCAPE)), ExitStatus::Accepted);
  EXPECT_THAT(printed_, HasSubstr("{\"dialog\":\"sample\",\"scene\":\"sample scene\",\"result\":1,"
                                  "\"pictures\":[\"one.png\"]}\n"));
  EXPECT_EQ(errors_, "");
  EXPECT_TRUE(fs::exists(out_.path() / "one.png"));
}

TEST_F(TourOfOne, DialogThatIsStillOpenIsClosed) {
  EXPECT_EQ(Play(&ShowBox, TourScript().Wait(2)), ExitStatus::Accepted);
  EXPECT_THAT(printed_, HasSubstr("\"result\":-1"));
}

TEST_F(TourOfOne, NestedDialogsAreClosedInnermostFirst) {
  std::vector<std::string> ended;
  EXPECT_EQ(Play([&](SDL_Window* parent) { return ShowNestedBoxes(parent, &ended); },
                 TourScript().Key(SDLK_ESCAPE).Do([](TourStage& stage) {
                   EXPECT_STREQ(SDL_GetWindowTitle(stage.Dialog()), "Inner");
                 })),
            ExitStatus::Accepted);
  EXPECT_THAT(ended, ElementsAre("inner", "outer"));
}

TEST_F(TourOfOne, DialogThatHeedsNoEventIsBrokenOff) {
  EXPECT_EQ(Play(&ShowStubbornDialog, TourScript().Wait(2), 50), ExitStatus::Failed);
  EXPECT_EQ(errors_, "quindle_dialogs: tour: sample scene: the dialog did not end\n");
}

TEST_F(TourOfOne, ScriptLongerThanTheBudgetFails) {
  EXPECT_EQ(Play(&ShowBox, TourScript().Wait(200), 50), ExitStatus::Failed);
  EXPECT_THAT(errors_, HasSubstr("sample scene: "));
}

TEST_F(TourOfOne, DialogThatEndsBeforeItsScriptFails) {
  EXPECT_EQ(Play(&ShowBox, TourScript().Key(SDLK_ESCAPE).Save("never")), ExitStatus::Failed);
  EXPECT_THAT(errors_, HasSubstr("the dialog ended before its script"));
  EXPECT_FALSE(fs::exists(out_.path() / "never.png"));
}

TEST_F(TourOfOne, DialogThatCannotOpenFails) {
  const auto show_without_window = [](SDL_Window* parent) {
    Recorder().FailCall("SDL_CreateWindow", 1);
    return ShowBox(parent);
  };
  EXPECT_EQ(Play(show_without_window, TourScript().Save("never")), ExitStatus::Failed);
}

TEST_F(TourOfOne, PictureThatCannotBeSavedFails) {
  EXPECT_EQ(Play(&ShowBox, TourScript().Save("no/such/folder")), ExitStatus::Failed);
  EXPECT_THAT(errors_, HasSubstr("cannot save "));
}

TEST_F(TourOfOne, GoesOnBehindASceneThatFailed) {
  commands_.clear();
  commands_.push_back(std::make_unique<SampleCommand>(
      "first",
      TourScene{"first", [](SDL_Window*) -> Json { throw std::runtime_error("broken"); }, {}}));
  commands_.push_back(std::make_unique<SampleCommand>(
      "second", TourScene{"second", &ShowBox, TourScript().Save("s")}));
  EXPECT_EQ(PlayAll(""), ExitStatus::Failed);
  EXPECT_EQ(errors_, "quindle_dialogs: tour: first: broken\n");
  EXPECT_TRUE(fs::exists(out_.path() / "s.png"));
}

TEST_F(TourOfOne, OnlyChoosesByName) {
  commands_.clear();
  for (const char* name : {"first", "second"}) {
    commands_.push_back(
        std::make_unique<SampleCommand>(name, TourScene{name, &ShowBox, TourScript().Save(name)}));
  }
  EXPECT_EQ(PlayAll("second"), ExitStatus::Accepted);
  EXPECT_FALSE(fs::exists(out_.path() / "first.png"));
  EXPECT_TRUE(fs::exists(out_.path() / "second.png"));
}

TEST_F(TourOfOne, SamplesAreTheWorkingDirectory) {
  EXPECT_EQ(Play(
                [](SDL_Window* parent) {
                  EXPECT_TRUE(fs::exists("floppies/boot.img"));
                  EXPECT_TRUE(fs::exists("data/ttf/IBMPlexSans-Regular.ttf"));
                  EXPECT_TRUE(fs::is_empty("captures"));
                  return ShowBox(parent);
                },
                {}),
            ExitStatus::Accepted);
}

TEST_F(TourOfOne, PushesWhatAUserDoes) {
  std::vector<SDL_Event> seen;
  const auto show = [&](SDL_Window* parent) -> Json {
    const auto bundle = frontend::gui::CreateModalWindowBundle(
        parent, "Probe", 0, 0, 320, 200, 0, frontend::gui::ModalRendererMode::Software);
    for (;;) {
      frontend::gui::PumpModalDialogHeartbeat();
      SDL_Event event;
      while (SDL_PollEvent(&event) != 0) {
        if (event.type == SDL_WINDOWEVENT && event.window.event == SDL_WINDOWEVENT_CLOSE) {
          return nullptr;
        }
        if (event.type >= SDL_KEYDOWN && event.type <= SDL_MOUSEWHEEL) {
          EXPECT_EQ(event.key.windowID, SDL_GetWindowID(bundle.window.get()));
          seen.push_back(event);
        }
      }
    }
  };
  Play(show, TourScript().Key(SDLK_a, KMOD_LSHIFT).Text("é!").Click(-1, -2, 2).Wheel(-3));
  ASSERT_EQ(seen.size(), 10U);
  EXPECT_EQ(seen[0].type, SDL_KEYDOWN);
  EXPECT_EQ(seen[0].key.keysym.sym, SDLK_a);
  EXPECT_EQ(seen[0].key.keysym.mod, KMOD_LSHIFT);
  EXPECT_EQ(seen[1].type, SDL_KEYUP);
  EXPECT_STREQ(seen[2].text.text, "é");
  EXPECT_STREQ(seen[3].text.text, "!");
  EXPECT_EQ(seen[4].type, SDL_MOUSEMOTION);
  EXPECT_EQ(seen[5].type, SDL_MOUSEBUTTONDOWN);
  EXPECT_EQ(seen[5].button.x, 319);
  EXPECT_EQ(seen[5].button.y, 198);
  EXPECT_EQ(seen[6].type, SDL_MOUSEBUTTONUP);
  EXPECT_EQ(seen[7].button.clicks, 2);
  EXPECT_EQ(seen[9].wheel.y, -3);
}

TEST(ResolveUserPath, IsUnchangedWhereTheFontsWereAtTheStart) {
  EnterDataDirectory();
  EXPECT_EQ(ResolveUserPath("some/file"), "some/file");
  EXPECT_EQ(ResolveUserPath(""), "");
}

// Runs last: where the program was started is remembered for the rest of the process.
TEST(ResolveUserPathElsewhere, IsAbsoluteWhereTheProgramHadToMove) {
  const fs::path source = fs::current_path();
  const TemporaryDirectory elsewhere;
  fs::current_path(elsewhere.path());
  EnterDataDirectory();
  EXPECT_TRUE(fs::exists("data/ttf"));
  EXPECT_EQ(ResolveUserPath("some/file"), elsewhere.path() / "some/file");
  EXPECT_EQ(ResolveUserPath("/some/file"), "/some/file");
  EXPECT_EQ(ResolveUserPath(""), "");
  fs::current_path(source);
}

}  // namespace
}  // namespace quindle::demo
