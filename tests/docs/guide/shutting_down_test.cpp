#include "guide/shutting_down.inc"

#include "block_test.h"

namespace quindle::testing {
namespace {

TEST(GuideShutDown, LeavesNothing) {
  using frontend::gui::GetCachedSdlUiFont;
  Recorder().Reset();
  ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0) << SDL_GetError();
  SDL_Window* window = SDL_CreateWindow("Host", 0, 0, 640, 480, 0);
  int beats = 0;
  frontend::gui::SetModalDialogHeartbeat([&beats] { ++beats; });
  ASSERT_NE(GetCachedSdlUiFont(15, false, frontend::gui::SdlUiFontKind::Ui), nullptr);

  ShutDown(window);

  Recorder().ExpectNothingAlive();
  EXPECT_EQ(TTF_WasInit(), 0);
  EXPECT_EQ(SDL_WasInit(0), 0U);
  frontend::gui::PumpModalDialogHeartbeat();
  EXPECT_EQ(beats, 0);
}

}  // namespace
}  // namespace quindle::testing
