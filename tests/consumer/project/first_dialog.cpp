#include <SDL.h>

#include <cstdio>

#include "frontend/gui/sdl_message_box.h"

using quindle::frontend::gui::SdlMessageBox;

// Start it where the folder data/ttf lies; the fonts are looked for there.
int main(int, char**) {
  SDL_Init(SDL_INIT_VIDEO);
  SDL_Window* window = SDL_CreateWindow("Host", 100, 100, 640, 400, SDL_WINDOW_SHOWN);

  SdlMessageBox::Config config;
  config.type = SdlMessageBox::Type::Warning;
  config.title = "Eject disk";
  config.message = "The guest is still writing to drive A:. Eject it all the same?";
  config.buttons = {{.id = 1, .label = "Eject"}, {.id = 2, .label = "Wait", .isCancel = true}};
  const int chosen = SdlMessageBox(config).Show(window, 1.0F);  // Blocks; -1 when closed.
  std::printf("chosen button: %d\n", chosen);

  SDL_DestroyWindow(window);
  SDL_Quit();
}
