#include "guide/fonts_and_the_working_directory.inc"

#include "block_test.h"
#include "frontend/gui/sdl_ui_font_cache.h"

namespace quindle::testing {
namespace {

class GuideFonts : public DialogTest {};

TEST_F(GuideFonts, AreFoundBelowTheFolder) {
  using frontend::gui::OpenSdlUiFontHandle;
  using frontend::gui::SdlUiFontKind;
  const ScopedEmptyWorkingDirectory elsewhere;
  Recorder().HideSystemFonts();
  EXPECT_EQ(OpenSdlUiFontHandle(14, false, SdlUiFontKind::Ui), nullptr);
  UseFontsBelow(SourceDirectory());
  EXPECT_NE(OpenSdlUiFontHandle(14, false, SdlUiFontKind::Ui), nullptr);
}

}  // namespace
}  // namespace quindle::testing
