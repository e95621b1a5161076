// The driver in a program without a test framework. Exits with the number of what went wrong.

#include <SDL.h>
#include <SDL_ttf.h>

#include <cstdio>
#include <string>

#include "driven_hosts.h"
#include "frontend/gui/sdl_ui_font_cache.h"
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

void TwoQuestions() {
  DialogDriver driver;
  driver.PressButton(1).PressButton(2);
  Expect(quindle::testing::Ask("First") == 1, "first answer");
  Expect(quindle::testing::Ask("Second") == 2, "second answer");
  Expect(driver.failure().empty(), driver.failure());
}

void MissingButton() {
  DialogDriver driver;
  driver.PressButton(3);
  Expect(quindle::testing::Ask("Box") == -1, "answer without a button");
  Expect(!driver.failure().empty(), "a missing button was not told");
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

int main(int /*argc*/, char** /*argv*/) {
  if (SDL_Init(SDL_INIT_VIDEO) != 0) {
    return 100;
  }
  TwoQuestions();
  MissingButton();
  Settings();
  gui::ShutdownSdlUiCachedFonts();
  TTF_Quit();
  SDL_Quit();
  return g_wrong;
}
