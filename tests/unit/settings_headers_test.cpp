// The settings headers behind a header that has defined macros for some of their words, as
// <windows.h> does. The library can neither prevent that nor repair it; it must compile all the
// same and leave the host's macros as they are.

#include <SDL.h>
#include <SDL_ttf.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#define DrawText DrawTextA
#define CreateWindow(title, width) CreateWindowExA(0, title, width)
#define GetMessage GetMessageA
#define LoadImage LoadImageA
#define MessageBox MessageBoxA
#define RGB(r, g, b) ((r) | ((g) << 8) | ((b) << 16))
#define min(a, b) (((a) < (b)) ? (a) : (b))
#define max(a, b) (((a) > (b)) ? (a) : (b))
#define ERROR 0
#define IN
#define OUT
#define far
#define near
#define interface struct
#define small char

#include "frontend/gui/settings_dialog.h"
#include "frontend/gui/settings_widgets.h"

#define QUINDLE_TEXT_OF_EXPANDED(x) #x
#define QUINDLE_TEXT_OF(x) QUINDLE_TEXT_OF_EXPANDED(x)

namespace quindle::frontend::gui {
namespace {

TEST(SettingsHeaders, LeaveTheHostsMacrosAsTheyWere) {
  EXPECT_STREQ(QUINDLE_TEXT_OF(DrawText), "DrawTextA");
  EXPECT_STREQ(QUINDLE_TEXT_OF(GetMessage), "GetMessageA");
  EXPECT_STREQ(QUINDLE_TEXT_OF(CreateWindow("t", 1)), "CreateWindowExA(0, \"t\", 1)");
  EXPECT_EQ(max(2, 3) + min(2, 3), 5);
  EXPECT_EQ(sizeof(small), 1U);
}

// The host's macro renames the declaration and the call alike, so such a host still compiles; to
// link it must undefine the macro before it includes the header.
TEST(SettingsHeaders, DeclareWhatTheMacroMakesOfTheName) {
  EXPECT_TRUE((std::is_same_v<decltype(DrawTextA), void(SDL_Renderer*, TTF_Font*,
                                                        const std::string&, int, int, SDL_Color)>));
}

#undef DrawText

// Names that no macro touches are the library's as ever.
TEST(SettingsHeaders, OtherNamesStillLink) {
  EXPECT_TRUE(IsInRect(1, 2, SDL_Rect{0, 0, 2, 3}));
  EXPECT_EQ(HitTestRadioGroup(300, 120, 247, 80, 2), 1);
  EXPECT_EQ(BuildSettingsNavItems().size(), 13U);
}

}  // namespace
}  // namespace quindle::frontend::gui
