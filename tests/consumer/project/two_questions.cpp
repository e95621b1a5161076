// A host's test of a function that asks two questions in a row, with the installed dialog driver.
#include <SDL.h>

#include <cstdio>

#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/testing/dialog_driver.h"

namespace gui = quindle::frontend::gui;

int Ask(const char* title) {
  gui::SdlMessageBox::Config config;
  config.title = title;
  config.buttons = {{1, "Yes", true, false, {}}, {2, "No", false, true, {}}};
  return gui::SdlMessageBox(config).Show(nullptr, 1.0F);
}

int main(int, char**) {
  SDL_Init(SDL_INIT_VIDEO);
  gui::testing::DialogDriver driver;
  driver.PressButton(2).PressButton(1).PressButton(3);
  const int first = Ask("First");
  const int second = Ask("Second");
  const int third = Ask("Third");
  std::printf("%d %d %d %s\n", first, second, third, driver.failure().c_str());
}
