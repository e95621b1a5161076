// A host that ends without emptying the font cache. A program of its own: the cache must not have
// been used before the child process starts, so that what happens at exit can be watched.

#include <gmock/gmock.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "frontend/gui/sdl_ui_font_cache.h"
#include "support/dialog_test.h"

namespace quindle::frontend::gui {
namespace {

// Registered before the cache exists, and so run after its destructor.
void ReportFontsAtExit() {
  std::fprintf(stderr, "closed %ld, open %zu, violations %zu\n",
               testing::Recorder().CallCount("TTF_CloseFont"), testing::Recorder().alive().fonts,
               testing::Recorder().violations().size());
}

[[noreturn]] void ExitWithCachedFonts(void (*before_exit)()) {
  std::filesystem::current_path(testing::SourceDirectory());
  std::atexit(ReportFontsAtExit);
  GetCachedSdlUiFont(15, false, SdlUiFontKind::Ui);
  GetCachedSdlUiFont(0, false, SdlUiFontKind::Ui);
  GetCachedSdlUiFont(16, true, SdlUiFontKind::Ui);
  before_exit();
  std::exit(0);
}

TEST(UiFontCacheAtExit, ClosesWhatIsStillOpen) {
  EXPECT_EXIT(ExitWithCachedFonts([] {}), ::testing::ExitedWithCode(0),
              "closed 2, open 0, violations 0");
}

TEST(UiFontCacheAtExit, ClosesWhatIsStillOpenAfterSdlIsDown) {
  EXPECT_EXIT(ExitWithCachedFonts([] { SDL_Quit(); }), ::testing::ExitedWithCode(0),
              "closed 2, open 0, violations 0");
}

TEST(UiFontCacheAtExit, HasNothingToCloseOnceEmptied) {
  EXPECT_EXIT(ExitWithCachedFonts([] {
                ShutdownSdlUiCachedFonts();
                TTF_Quit();
              }),
              ::testing::ExitedWithCode(0), "closed 2, open 0, violations 0");
}

// SDL_ttf has taken its font engine away: closing a font now would crash, leaking it is harmless.
TEST(UiFontCacheAtExit, LeavesFontsAloneOnceSdlTtfIsDown) {
  EXPECT_EXIT(ExitWithCachedFonts(TTF_Quit), ::testing::ExitedWithCode(0),
              "closed 0, open 2, violations 0");
}

}  // namespace
}  // namespace quindle::frontend::gui
