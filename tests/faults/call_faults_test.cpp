// Every call of every wrapped SDL and SDL_ttf function is made to fail once, in every scenario. No
// dialog prints anything, whatever fails.

#include <gtest/gtest.h>

#include <cstdio>
#include <map>

#include "faults/fault_scenarios.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "frontend/gui/testing/push_event.h"
#include "support/dialog_test.h"

namespace quindle::testing {
namespace {

void PointAtDialog(int x, int y, bool left_down) {
  Recorder().SetPointer(Recorder().newest_window(), x, y, left_down ? SDL_BUTTON_LMASK : 0U);
}

class CallFaults : public DialogTest, public ::testing::WithParamInterface<FaultScenario> {
 protected:
  CallFaults() : samples_(SourceDirectory()) {}

  void SetUp() override {
    const std::filesystem::path samples = std::filesystem::current_path();
    DialogTest::SetUp();
    std::filesystem::current_path(samples);
    parent_ = MakeParent();
    // Asks the queue once in a process, which must not count as a call of the first run.
    frontend::gui::testing::IsTextQueuedByAddress();
  }

  // One run from a clean start; `arm` sets the fault.
  void Run(const std::function<void()>& arm) {
    FlushEvents();
    // Each run starts SDL_ttf itself, as the first one does.
    while (TTF_WasInit() != 0) {
      TTF_Quit();
    }
    Recorder().Reset();
    Recorder().SetDrawMode(DrawMode::Recorded);
    Recorder().KeepFrames(1);
    arm();
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    const bool ended = PlayScenario(GetParam(), parent_, PointAtDialog);
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    EXPECT_TRUE(ended) << "does not end";
    frontend::gui::ShutdownSdlUiCachedFonts();
    EXPECT_EQ(Recorder().alive(), AliveCounts{});
    EXPECT_TRUE(Recorder().violations().empty());
  }

  // How often each function that can fail is called when none does.
  std::map<std::string, long> CountCalls() {
    // The first dialog takes the focus from the parent, which some versions of SDL tell by events;
    // the runs behind it are alike.
    Run([] {});
    Run([] {});
    EXPECT_EQ(Recorder().CallCount("SDL_CreateWindow"), GetParam().windows);
    EXPECT_GE(FramesPlayed(), GetParam().steps.size()) << "a step was not reached";
    std::map<std::string, long> counts;
    for (const std::string& function : WrappedFunctions(true)) {
      counts[function] = Recorder().CallCount(function);
    }
    return counts;
  }

 private:
  FaultSamples samples_;
  SDL_Window* parent_ = nullptr;
};

TEST_P(CallFaults, EveryFailingCallEndsWell) {
  long tried = 0;
  long hit = 0;
  for (const auto& [function, count] : CountCalls()) {
    for (long nth = 1; nth <= count && !HasFailure(); ++nth) {
      Run([&function = function, nth] { Recorder().FailCall(function, nth); });
      ++tried;
      // A fault that is never reached tests nothing.
      EXPECT_EQ(Recorder().faults_hit(), 1) << "call " << nth << " of " << function;
      hit += Recorder().faults_hit();
      ASSERT_FALSE(HasFailure()) << "call " << nth << " of " << function;
    }
  }
  EXPECT_GT(tried, 0);
  std::printf("%s: %ld faults tried, %ld survived\n", GetParam().name, tried, hit);
  RecordProperty("faults", static_cast<int>(tried));
}

TEST_P(CallFaults, EveryFunctionThatAlwaysFailsEndsWell) {
  for (const auto& [function, count] : CountCalls()) {
    // A dialog that never hears an event cannot be told to end.
    if (function != "SDL_PollEvent") {
      Run([&function = function] { Recorder().FailAlways(function); });
      ASSERT_FALSE(HasFailure()) << function;
    }
  }
}

std::string ParameterName(const ::testing::TestParamInfo<FaultScenario>& info) {
  std::string name;
  for (const char c : std::string(info.param.name)) {
    name += std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(Dialogs, CallFaults, ::testing::ValuesIn(FaultScenarios()), ParameterName);

}  // namespace
}  // namespace quindle::testing
