#pragma once

// Each of the library's dialogs, for rules that all of them keep. Needs the source folder as
// working directory; opens no window by itself.

#include <SDL.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace quindle::testing {

struct NamedDialog {
  const char* name;   // For the test's name.
  const char* title;  // Of the window.
  void (*show)(SDL_Window* parent);
};
void PrintTo(const NamedDialog& dialog, std::ostream* out);

const std::vector<NamedDialog>& EveryDialog();

// The name of a test with a dialog as its parameter.
std::string NameOfDialogTest(const ::testing::TestParamInfo<NamedDialog>& test);

}  // namespace quindle::testing
