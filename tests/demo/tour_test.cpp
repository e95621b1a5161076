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
using ::testing::StartsWith;
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

  ExitStatus Play(Show show, TourPlay play) {
    commands_.clear();
    commands_.push_back(std::make_unique<SampleCommand>(
        "sample", TourScene{"sample scene", std::move(show), std::move(play)}));
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
  EXPECT_EQ(Play(&ShowBox, LookAndLeave("one")), ExitStatus::Accepted);
  EXPECT_THAT(printed_, HasSubstr("{\"dialog\":\"sample\",\"scene\":\"sample scene\",\"result\":1,"
                                  "\"pictures\":[\"one.png\"]}\n"));
  EXPECT_EQ(errors_, "");
  EXPECT_TRUE(fs::exists(out_.path() / "one.png"));
}

TEST_F(TourOfOne, DialogThatIsLeftOpenIsClosedAndFails) {
  EXPECT_EQ(Play(&ShowBox, [](DialogDriver& user, const TourCamera&) { user.Wait(2); }),
            ExitStatus::Failed);
  EXPECT_THAT(printed_, HasSubstr("\"result\":-1"));
  EXPECT_THAT(errors_, StartsWith("quindle_dialogs: tour: sample scene: no step is left; still "
                                  "open was the message box "));
}

TEST_F(TourOfOne, PicturesShowTheInnermostDialog) {
  std::vector<std::string> ended;
  EXPECT_EQ(Play([&](SDL_Window* parent) { return ShowNestedBoxes(parent, &ended); },
                 [](DialogDriver& user, const TourCamera&) {
                   user.PressButton(1).Do([](SDL_Window* dialog) {
                     EXPECT_STREQ(SDL_GetWindowTitle(dialog), "Inner");
                   });
                   user.Close();
                 }),
            ExitStatus::Accepted);
  EXPECT_THAT(ended, ElementsAre("inner", "outer"));
}

TEST_F(TourOfOne, WindowThatHeedsNoEventIsBrokenOff) {
  EXPECT_EQ(Play(&ShowStubbornDialog, LookAndLeave("never")), ExitStatus::Failed);
  EXPECT_EQ(errors_,
            "quindle_dialogs: tour: sample scene: the driver found no dialog; it must be made "
            "before the dialog opens\n");
}

TEST_F(TourOfOne, DialogThatEndsBeforeItsStepsFails) {
  EXPECT_EQ(
      Play(&ShowBox, [](DialogDriver& user,
                        const TourCamera& camera) { user.PressEscape().Do(camera.Take("never")); }),
      ExitStatus::Failed);
  EXPECT_THAT(errors_, HasSubstr("no dialog was open any more"));
  EXPECT_FALSE(fs::exists(out_.path() / "never.png"));
}

TEST_F(TourOfOne, DialogThatCannotOpenFails) {
  const auto show_without_window = [](SDL_Window* parent) {
    Recorder().FailCall("SDL_CreateWindow", 1);
    return ShowBox(parent);
  };
  EXPECT_EQ(Play(show_without_window, LookAndLeave("never")), ExitStatus::Failed);
}

TEST_F(TourOfOne, PictureThatCannotBeSavedFails) {
  EXPECT_EQ(Play(&ShowBox, LookAndLeave("no/such/folder")), ExitStatus::Failed);
  EXPECT_THAT(errors_, HasSubstr("cannot save "));
}

TEST_F(TourOfOne, GoesOnBehindASceneThatFailed) {
  commands_.clear();
  commands_.push_back(std::make_unique<SampleCommand>(
      "first", TourScene{"first", [](SDL_Window*) -> Json { throw std::runtime_error("broken"); },
                         LookAndLeave("never")}));
  commands_.push_back(
      std::make_unique<SampleCommand>("second", TourScene{"second", &ShowBox, LookAndLeave("s")}));
  EXPECT_EQ(PlayAll(""), ExitStatus::Failed);
  EXPECT_EQ(errors_, "quindle_dialogs: tour: first: broken\n");
  EXPECT_TRUE(fs::exists(out_.path() / "s.png"));
}

TEST_F(TourOfOne, OnlyChoosesByName) {
  commands_.clear();
  for (const char* name : {"first", "second"}) {
    commands_.push_back(
        std::make_unique<SampleCommand>(name, TourScene{name, &ShowBox, LookAndLeave(name)}));
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
                LookAndLeave("samples")),
            ExitStatus::Accepted);
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
