#pragma once

// The demo host's program, run in the test's own process.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "command_line.h"

namespace quindle::demo {

// How the program ended and what it printed.
struct Ended {
  int status = -1;
  std::string out;
  std::string err;
};

inline Ended RunProgramWith(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "quindle_dialogs");
  ::testing::internal::CaptureStdout();
  ::testing::internal::CaptureStderr();
  Ended ended;
  ended.status = RunDemo(static_cast<int>(arguments.size()), arguments.data());
  ended.out = ::testing::internal::GetCapturedStdout();
  ended.err = ::testing::internal::GetCapturedStderr();
  return ended;
}

}  // namespace quindle::demo
