// Every allocation and every file-system call is made to fail once, in every scenario.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <cstdio>
#include <filesystem>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "faults/fault_scenarios.h"
#include "faults/resource_interposers.h"
#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "support/plain_interposers.h"

namespace quindle::testing {
namespace {

enum class Ending { Normal, OutOfMemory, NoWorkingDirectory };

class ResourceFaults : public ::testing::TestWithParam<FaultScenario> {
 protected:
  void SetUp() override {
    ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0) << SDL_GetError();
    samples_.emplace(std::filesystem::current_path());
    parent_ = SDL_CreateWindow("Host", 100, 100, 640, 480, SDL_WINDOW_HIDDEN);
    ASSERT_NE(parent_, nullptr);
  }

  void TearDown() override {
    SDL_DestroyWindow(parent_);
    samples_.reset();
    SDL_Quit();
  }

  struct Outcome {
    Ending ending = Ending::Normal;
    bool ended = true;
    long calls = 0;
  };

  // One run from a clean start; the `nth` call of `kind` fails (0: none).
  Outcome Run(FaultKind kind, long nth) {
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    while (TTF_WasInit() != 0) {
      TTF_Quit();
    }
    ForgetPointer();
    const PlainCounts before = AliveNow();
    const long descriptors_before = OpenDescriptors();
    Outcome outcome;
    try {
      ArmFault(kind, nth);
      outcome.ended = PlayScenario(GetParam(), parent_, PointAtNewestWindow);
    } catch (const std::bad_alloc&) {
      outcome.ending = Ending::OutOfMemory;
    } catch (const std::filesystem::filesystem_error&) {
      outcome.ending = Ending::NoWorkingDirectory;
    }
    outcome.calls = DisarmFault();
    frontend::gui::ShutdownSdlUiCachedFonts();
    EXPECT_EQ(AliveNow(), before);
    EXPECT_EQ(OpenDescriptors(), descriptors_before);
    EXPECT_TRUE(outcome.ended) << "does not end";
    return outcome;
  }

  void Report(const char* what, long tried, long raised) {
    std::printf("%s: %ld %s made to fail, %ld of them raised\n", GetParam().name, tried, what,
                raised);
  }

 private:
  std::optional<FaultSamples> samples_;
  SDL_Window* parent_ = nullptr;
};

TEST_P(ResourceFaults, EveryFailingAllocationEndsWell) {
  // Twice, so that what is made once in a process is there in both kinds of run.
  Run(FaultKind::Allocation, 0);
  const long count = Run(FaultKind::Allocation, 0).calls;
  ASSERT_GT(count, 0);
  EXPECT_GE(FramesPlayed(), GetParam().steps.size()) << "a step was not reached";
  const long spared_before = SparedAllocations();
  long raised = 0;
  for (long nth = 1; nth <= count; ++nth) {
    const Outcome outcome = Run(FaultKind::Allocation, nth);
    EXPECT_GE(outcome.calls, nth) << "a fault that is never reached tests nothing";
    EXPECT_NE(outcome.ending, Ending::NoWorkingDirectory);
    raised += outcome.ending == Ending::OutOfMemory ? 1 : 0;
    ASSERT_FALSE(HasFailure()) << "allocation " << nth << " of " << count;
  }
  const long spared = SparedAllocations() - spared_before;
  // What is caught on the way out would be lost; a dialog has no use for half its memory.
  EXPECT_EQ(raised, count - spared);
  Report("allocations", count - spared, raised);
  std::printf("  (and %ld inside the standard library's directory iterator, spared)\n", spared);
}

TEST_P(ResourceFaults, EveryFailingFileSystemCallEndsWell) {
  const long count = Run(FaultKind::FileSystem, 0).calls;
  long raised = 0;
  for (long nth = 1; nth <= count; ++nth) {
    const Outcome outcome = Run(FaultKind::FileSystem, nth);
    // Without a start folder the folder picker and the screenshot dialog need the working
    // directory; nothing else may raise.
    const std::string name = GetParam().name;
    const bool may_raise = name == "folder picker" || name == "screenshot dialog";
    EXPECT_TRUE(outcome.ending == Ending::Normal ||
                (may_raise && outcome.ending == Ending::NoWorkingDirectory));
    raised += outcome.ending == Ending::Normal ? 0 : 1;
    ASSERT_FALSE(HasFailure()) << "file-system call " << nth << " of " << count;
  }
  Report("file-system calls", count, raised);
}

// False when memory ran out.
bool CanCacheFont(int size) {
  try {
    return frontend::gui::GetCachedSdlUiFont(size, false, frontend::gui::SdlUiFontKind::Ui) !=
           nullptr;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

// The scenarios' dialogs share one font each; here the cache grows beyond what it has room for.
TEST(FontCacheFaults, FailingAllocationsLoseNoFont) {
  constexpr int kFonts = 12;
  const long before = AliveNow().fonts;
  int failed = 0;
  for (int size = 1; size <= kFonts; ++size) {
    ArmFault(FaultKind::Allocation, 1);
    const bool cached = CanCacheFont(size);
    DisarmFault();
    EXPECT_EQ(AliveNow().fonts, before + size - (cached ? 0 : 1)) << "size " << size;
    failed += cached ? 0 : 1;
    EXPECT_TRUE(CanCacheFont(size));
    EXPECT_EQ(AliveNow().fonts, before + size) << "size " << size;
  }
  EXPECT_GT(failed, 0) << "a fault that is never reached tests nothing";
  frontend::gui::ShutdownSdlUiCachedFonts();
  EXPECT_EQ(AliveNow().fonts, before);
}

void PushUserEvent(int code) {
  SDL_Event event{};
  event.type = SDL_USEREVENT;
  event.user.code = code;
  ASSERT_EQ(SDL_PushEvent(&event), 1);
}

// The codes of the user events that stand in the queue, which is emptied.
std::vector<int> TakeUserEvents() {
  std::vector<int> codes;
  SDL_Event event;
  while (SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_USEREVENT, SDL_USEREVENT) == 1) {
    codes.push_back(event.user.code);
  }
  SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
  return codes;
}

// A message box that keeps one of the host's events and leaves one unread; the `nth` allocation
// after that fails. Returns how many there were.
long ShowKeepingEvents(long nth) {
  int frame = 0;
  frontend::gui::SetModalDialogHeartbeat([&frame, nth] {
    ++frame;
    if (frame == 1) {
      PushUserEvent(1);
    } else if (frame == 3) {
      SDL_Event quit{};
      quit.type = SDL_QUIT;
      SDL_PushEvent(&quit);
      PushUserEvent(2);
      ArmFault(FaultKind::Allocation, nth);
    }
  });
  try {
    frontend::gui::SdlMessageBox({}).Show(nullptr, 1.0F);
  } catch (const std::bad_alloc&) {
  }
  const long count = DisarmFault();
  frontend::gui::SetModalDialogHeartbeat(nullptr);
  return count;
}

TEST(EventFaults, FailingAllocationsLoseNoneOfTheHostsEvents) {
  ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0) << SDL_GetError();
  const long count = ShowKeepingEvents(0);
  EXPECT_THAT(TakeUserEvents(), ::testing::ElementsAre(1, 2));
  ASSERT_GT(count, 0) << "a fault that is never reached tests nothing";
  for (long nth = 1; nth <= count; ++nth) {
    ShowKeepingEvents(nth);
    EXPECT_THAT(TakeUserEvents(), ::testing::UnorderedElementsAre(1, 2)) << "allocation " << nth;
  }
  frontend::gui::ShutdownSdlUiCachedFonts();
  SDL_Quit();
}

std::string ParameterName(const ::testing::TestParamInfo<FaultScenario>& info) {
  std::string name;
  for (const char c : std::string(info.param.name)) {
    name += std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_';
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(Dialogs, ResourceFaults, ::testing::ValuesIn(FaultScenarios()),
                         ParameterName);

}  // namespace
}  // namespace quindle::testing
