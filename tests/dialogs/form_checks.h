#pragma once

// What the tests of the two forms with text entry share: reading frames, using the mouse, and using
// the folder picker that both open.

#include <SDL.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "frontend/gui/sdl_ui_font_cache.h"
#include "support/dialog_test.h"

namespace quindle::testing {

// --- Frames --------------------------------------------------------------------------------------

// One draw call as a line, such as "fill (250, 72, 210, 36) 46,52,60" or
// "text 'Folder:' at 20,200 in 232,236,240".
inline std::string DescribeDraw(const DrawCall& call) {
  std::ostringstream line;
  const auto color = [&call] {
    std::ostringstream rgb;
    rgb << int{call.color.r} << ',' << int{call.color.g} << ',' << int{call.color.b};
    return rgb.str() + (call.color.a == 255 ? "" : " not opaque");
  };
  if (call.kind == DrawKind::Text) {
    line << "text '" << call.text << "' at " << call.rect.x << ',' << call.rect.y << " in "
         << color();
  } else if (call.kind == DrawKind::Clear) {
    line << "clear " << color();
  } else {
    line << (call.kind == DrawKind::Fill      ? "fill "
             : call.kind == DrawKind::Outline ? "outline "
                                              : "other ")
         << '(' << call.rect.x << ", " << call.rect.y << ", " << call.rect.w << ", " << call.rect.h
         << ") " << color();
  }
  return line.str();
}

inline std::vector<std::string> DescribeFrame(const Frame& frame) {
  std::vector<std::string> lines;
  std::transform(frame.draws.begin(), frame.draws.end(), std::back_inserter(lines), DescribeDraw);
  return lines;
}

// What shows of a text.
inline SDL_Rect VisiblePart(const DrawCall& text) {
  SDL_Rect visible = text.rect;
  if (text.clip && SDL_IntersectRect(&text.rect, &*text.clip, &visible) == SDL_FALSE) {
    return {0, 0, 0, 0};
  }
  return visible;
}

// Each text stands wholly inside a control or wholly outside of all of them, and inside the window.
inline void ExpectTextsKeepClearOfControls(const Frame& frame,
                                           const std::vector<SDL_Rect>& controls,
                                           const SDL_Rect& window) {
  for (const DrawCall& text : frame.OfKind(DrawKind::Text)) {
    const SDL_Rect visible = VisiblePart(text);
    for (const SDL_Rect& control : controls) {
      SDL_Rect common{0, 0, 0, 0};
      const bool touches = SDL_IntersectRect(&visible, &control, &common) == SDL_TRUE;
      EXPECT_TRUE(!touches || common == visible) << DescribeDraw(text);
    }
    SDL_Rect common{0, 0, 0, 0};
    SDL_IntersectRect(&visible, &window, &common);
    EXPECT_TRUE(common == visible) << DescribeDraw(text);
  }
}

// These texts of the dialog stand in the frame as they are, and nothing of them is clipped away.
inline void ExpectWholeTexts(const Frame& frame, const std::vector<std::string>& texts) {
  for (const std::string& text : texts) {
    const DrawCall* const drawn = frame.FindText(text);
    ASSERT_NE(drawn, nullptr) << text;
    EXPECT_TRUE(VisiblePart(*drawn) == drawn->rect) << DescribeDraw(*drawn);
  }
}

// Looks once with each font that a system without the library's own may have.
inline void InEachSystemFont(const std::function<void()>& look) {
  for (const std::string font : {"DejaVuSans.ttf", "DejaVuSansMono.ttf"}) {
    SCOPED_TRACE(font);
    frontend::gui::ShutdownSdlUiCachedFonts();
    Recorder().HideFonts([&font](const std::string& path) {
      return path != "/usr/share/fonts/truetype/dejavu/" + font;
    });
    look();
  }
}

inline constexpr SDL_Color kFocusedOutline{160, 176, 210, 255};

// --- Mouse ---------------------------------------------------------------------------------------

inline void ClickAt(SDL_Point at) {
  Click(at.x, at.y);
}

inline SDL_MouseButtonEvent ButtonAt(SDL_Point at) {
  SDL_MouseButtonEvent event{};
  event.button = SDL_BUTTON_LEFT;
  event.x = at.x;
  event.y = at.y;
  return event;
}

// Every way to leave the dialog that is open without a choice.
inline std::vector<std::function<void()>> WaysOut(SDL_Point cancel_button) {
  return {
      [] { KeyDown(SDLK_ESCAPE); },
      [cancel_button] { ClickAt(cancel_button); },
      [] { CloseWindow(WindowId()); },
      [] { Quit(); },
  };
}

// --- Folder picker -------------------------------------------------------------------------------

inline constexpr SDL_Point kPickerUseButton{719, 515};
inline constexpr SDL_Point kPickerCancelButton{623, 515};

inline std::string TitleOfNewestWindow() {
  SDL_Window* const window = Recorder().newest_window();
  return window == nullptr ? "" : SDL_GetWindowTitle(window);
}

// Folders in which every user finds the way: outer/one/two, each with nothing else in it.
class FolderTree {
 public:
  FolderTree() : deepest_(directory_.MakeFolder("outer/one/two")) {}
  [[nodiscard]] std::string outer() const { return (directory_.path() / "outer").string(); }
  [[nodiscard]] std::string one() const { return outer() + "/one"; }
  [[nodiscard]] std::string two() const { return deepest_.string(); }

 private:
  TemporaryDirectory directory_;
  std::filesystem::path deepest_;
};

}  // namespace quindle::testing
