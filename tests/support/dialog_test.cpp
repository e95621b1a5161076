#include "support/dialog_test.h"

#include <cstdlib>

#include "frontend/gui/sdl_ui_font_cache.h"

namespace quindle::testing {

ScopedWorkingDirectory::ScopedWorkingDirectory(const std::filesystem::path& directory)
    : former_(std::filesystem::current_path()) {
  std::filesystem::current_path(directory);
}

ScopedWorkingDirectory::~ScopedWorkingDirectory() {
  std::error_code ignored;
  std::filesystem::current_path(former_, ignored);
}

std::filesystem::path SourceDirectory() {
  return QUINDLE_SOURCE_DIRECTORY;
}

void DialogTest::SetUp() {
  setenv("SDL_VIDEODRIVER", "dummy", 0);
  std::filesystem::current_path(SourceDirectory());
  ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0) << SDL_GetError();
  SDL_StopTextInput();  // SDL starts with text input on.
  frontend::gui::SetModalDialogHeartbeat({});
  frontend::gui::ShutdownSdlUiCachedFonts();
  FlushEvents();
  Recorder().Reset();
}

void DialogTest::TearDown() {
  frontend::gui::SetModalDialogHeartbeat({});
  Recorder().ClearFaults();
  frontend::gui::ShutdownSdlUiCachedFonts();
  parent_.reset();
  Recorder().ExpectNothingAlive();
  while (TTF_WasInit() != 0) {
    TTF_Quit();
  }
  SDL_Quit();
}

SDL_Window* DialogTest::MakeParent() {
  if (parent_ == nullptr) {
    parent_.reset(SDL_CreateWindow("Host", 100, 100, 640, 480, 0));
    Recorder().MarkBaseline();
    FlushEvents();
  }
  return parent_.get();
}

}  // namespace quindle::testing
