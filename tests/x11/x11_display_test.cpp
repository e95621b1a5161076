// The real-window fixture itself: what it starts, ends and reports.

#include "support/x11_display.h"

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace quindle::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::ThrowsMessage;

bool IsAlive(pid_t id) {
  return kill(id, 0) == 0;
}

// Ended, though perhaps not reaped yet by whoever has inherited it.
bool HasEnded(pid_t id) {
  std::ifstream file("/proc/" + std::to_string(id) + "/stat");
  const std::string line{std::istreambuf_iterator<char>(file), {}};
  const std::size_t name_end = line.rfind(") ");
  return name_end == std::string::npos || line.compare(name_end + 2, 1, "Z") == 0;
}

TEST(ChildProcess, ReportsOutputAndExitStatus) {
  const ProgramResult result = RunProgram({"sh", "-c", "echo out; echo err >&2; exit 3"});
  EXPECT_EQ(result.exit_status, 3);
  EXPECT_EQ(result.out, "out\n");
  EXPECT_EQ(result.err, "err\n");
}

TEST(ChildProcess, ReportsTheSignalThatEndedIt) {
  EXPECT_EQ(RunProgram({"sh", "-c", "kill -9 $$"}).exit_status, 128 + SIGKILL);
}

TEST(ChildProcess, MissingProgramIsNamed) {
  EXPECT_THAT([] { RunProgram({"no-such-program-of-quindle"}); },
              ThrowsMessage<std::runtime_error>(
                  HasSubstr("cannot start \"no-such-program-of-quindle\": No such file")));
}

TEST(ChildProcess, ProgramThatDoesNotEndIsReportedAndEnded) {
  EXPECT_THROW(RunProgram({"sleep", "60"}, std::chrono::milliseconds(50)), std::runtime_error);
}

TEST(ChildProcess, DestructorEndsAProgramThatIgnoresPoliteRequests) {
  pid_t id = -1;
  {
    ChildProcess program({"sh", "-c", "trap '' TERM; echo ready; while :; do sleep 0.05; done"});
    id = program.Id();
    ASSERT_TRUE(WaitUntil([&] { return program.Output().out == "ready\n"; }));
    EXPECT_TRUE(program.IsRunning());
  }
  EXPECT_FALSE(IsAlive(id));
}

TEST(ChildProcess, DiesWithTheProgramThatStartedIt) {
  // The death test's process is killed with its child still running.
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  EXPECT_EXIT(
      {
        const ChildProcess program({"sleep", "60"});
        const pid_t id = program.Id();
        [[maybe_unused]] const ssize_t written = write(ends[1], &id, sizeof(id));
        raise(SIGKILL);
      },
      ::testing::KilledBySignal(SIGKILL), "");
  pid_t id = -1;
  ASSERT_EQ(read(ends[0], &id, sizeof(id)), static_cast<ssize_t>(sizeof(id)));
  close(ends[0]);
  close(ends[1]);
  EXPECT_TRUE(WaitUntil([id] { return HasEnded(id); }));
}

using X11DisplayFixture = X11DialogTest;

TEST_F(X11DisplayFixture, FailedStepFailsTheTest) {
  EXPECT_NONFATAL_FAILURE_ON_ALL_THREADS(
      WhileShowing([] {}, [] { throw X11StepError("no such window"); }), "no such window");
}

TEST_F(X11DisplayFixture, ToolThatFailsIsReportedWithItsCommand) {
  EXPECT_THAT(
      [] {
        RunX11Tool({"xprop", "-id", "1", "WM_NAME"});
      },
      ThrowsMessage<X11StepError>(HasSubstr("\"xprop -id 1 WM_NAME\" failed")));
}

TEST_F(X11DisplayFixture, TypedTextArrives) {
  std::string text;
  const X11Hands hands([] { TypeText("Disk 2.img"); });
  PumpX11Until("the text arrives", [&text] {
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0) {
      if (event.type == SDL_TEXTINPUT) {
        text += event.text.text;
      }
    }
    return text == "Disk 2.img";
  });
}

TEST_F(X11DisplayFixture, MouseActionsArriveWhereTheyAreAimed) {
  const X11WindowId host = ParentId();
  const X11Hands hands([host] {
    TurnWheelAt(host, 50, 60, -2);
    DragFromTo(host, 10, 20, 110, 220);
    DoubleClickAt(host, 300, 200);
  });
  int wheel = 0;
  SDL_Point pressed{0, 0};
  SDL_Point released{0, 0};
  SDL_Point double_clicked{0, 0};
  PumpX11Until("all of it arrives", [&] {
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0) {
      if (event.type == SDL_MOUSEWHEEL) {
        wheel += event.wheel.y;
      } else if (event.type == SDL_MOUSEBUTTONDOWN && event.button.clicks == 2) {
        double_clicked = {event.button.x, event.button.y};
      } else if (event.type == SDL_MOUSEBUTTONDOWN && pressed.x == 0) {
        pressed = {event.button.x, event.button.y};
      } else if (event.type == SDL_MOUSEBUTTONUP && released.x == 0) {
        released = {event.button.x, event.button.y};
      }
    }
    return double_clicked.x != 0;
  });
  EXPECT_EQ(wheel, -2);
  EXPECT_TRUE(pressed.x == 10 && pressed.y == 20);
  EXPECT_TRUE(released.x == 110 && released.y == 220);
  EXPECT_TRUE(double_clicked.x == 300 && double_clicked.y == 200);
}

TEST_F(X11DisplayFixture, ProgramsRunOnTheDisplay) {
  ChildProcess program({"xprop", "-root", "_NET_SUPPORTING_WM_CHECK"});
  const ProgramResult result = WaitForProgram(&program);
  EXPECT_EQ(result.exit_status, 0);
  EXPECT_THAT(result.out, HasSubstr("window id # 0x"));
}

}  // namespace
}  // namespace quindle::testing
