// The driver in a program without a test framework. Exits with the number of what went wrong. With
// "lacks a button" it runs the test that fails, for report_in_words.sh, else all others.

#include <SDL.h>

#include <cstdio>
#include <string>

#include "asked_twice.h"
#include "frontend/gui/settings_dialog.h"
#include "frontend/gui/testing/dialog_driver.h"

namespace {

namespace gui = quindle::frontend::gui;
using gui::testing::DialogDriver;

int g_wrong = 0;

void Expect(bool right, const std::string& what) {
  if (!right) {
    ++g_wrong;
    std::fprintf(stderr, "%s\n", what.c_str());
  }
}

void IsAnswered() {
  DialogDriver user;
  user.PressButton(1).PressButton(2);
  Expect(quindle::testing::AskTwice(), "both answers");
  Expect(user.failure().empty(), user.failure());
}

void LacksAButton() {
  DialogDriver user;
  user.PressButton(1).PressButton(7);
  Expect(!quindle::testing::AskTwice(), "answer without a button");
  Expect(user.failure().empty(), user.failure());
}

// The dummy driver has no pointer of its own.
void Settings() {
  int fps = 0;
  DialogDriver driver;
  driver.OpenPage("Target FPS").Choose("60 FPS").Apply().PressEscape();
  gui::ShowSettingsDialog(nullptr, 1.0F, {}, [&fps](const gui::SettingsDialogValues& values) {
    fps = values.target_fps;
  });
  Expect(fps == 60, "the chosen rate");
  Expect(driver.failure().empty(), driver.failure());
}

}  // namespace

int main(int argc, char** argv) {
  const quindle::testing::TestVideo video;
  if (argc > 1 && std::string(argv[1]) == "lacks a button") {
    LacksAButton();
  } else {
    IsAnswered();
    Settings();
  }
  return g_wrong;
}
