#pragma once

// What the tests of the settings dialog's pieces share: a window to draw on without a dialog around
// it, the dialog's fonts, and words for what was drawn there.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "frontend/gui/settings_dialog.h"
#include "support/call_recorder.h"
#include "support/dialog_test.h"
#include "support/sdl_values.h"

namespace quindle::testing {

using frontend::gui::ModalRendererMode;
using frontend::gui::ModalWindowBundle;
using frontend::gui::OwnedTtfFont;

using PointSet = std::set<std::pair<int, int>>;

// The colours that more than one piece of the dialog draws in.
namespace settings_colors {

inline constexpr SDL_Color kBright{232, 237, 244, 255};
inline constexpr SDL_Color kMiddle{170, 178, 192, 255};
inline constexpr SDL_Color kDim{100, 108, 122, 255};
inline constexpr SDL_Color kListFill{24, 27, 34, 255};
inline constexpr SDL_Color kHover{40, 46, 60, 255};
inline constexpr SDL_Color kAccent{106, 166, 255, 255};
inline constexpr SDL_Color kTrack{52, 58, 70, 255};
inline constexpr SDL_Color kButtonFace{48, 54, 68, 255};
inline constexpr SDL_Color kButtonHovered{68, 76, 92, 255};

}  // namespace settings_colors

// A text with where and how it stands.
struct PlacedText {
  std::string text;
  int x = 0;
  int y = 0;
  SDL_Color color{0, 0, 0, 0};
  bool bold = false;

  bool operator==(const PlacedText& other) const {
    return text == other.text && x == other.x && y == other.y && color == other.color &&
           bold == other.bold;
  }
};

inline void PrintTo(const PlacedText& placed, std::ostream* out) {
  *out << '"' << placed.text << "\" at (" << placed.x << ", " << placed.y << ") ";
  PrintTo(placed.color, out);
  *out << (placed.bold ? " bold" : "");
}

inline std::vector<PlacedText> PlacedTexts(const Frame& frame) {
  std::vector<PlacedText> texts;
  for (const DrawCall& call : frame.OfKind(DrawKind::Text)) {
    texts.push_back(
        {call.text, call.rect.x, call.rect.y, call.color, (call.font.style & TTF_STYLE_BOLD) != 0});
  }
  return texts;
}

// The points of a colour; each may be drawn only once.
inline PointSet PointsIn(const Frame& frame, SDL_Color color) {
  PointSet points;
  for (const DrawCall& call : frame.OfKind(DrawKind::Point)) {
    if (call.color == color) {
      EXPECT_TRUE(points.emplace(call.from.x, call.from.y).second)
          << "drawn twice: " << call.from.x << ", " << call.from.y;
    }
  }
  return points;
}

// All points whose squared distance from (cx, cy) is above `above` and at most `most`.
inline PointSet PointsAround(int cx, int cy, int above, int most) {
  PointSet points;
  for (int dy = -20; dy <= 20; ++dy) {
    for (int dx = -20; dx <= 20; ++dx) {
      if (dx * dx + dy * dy > above && dx * dx + dy * dy <= most) {
        points.emplace(cx + dx, cy + dy);
      }
    }
  }
  return points;
}

// The fields of the record in their order, to compare and to print.
inline auto Fields(const frontend::gui::SettingsDialogValues& values) {
  return std::make_tuple(values.target_fps, values.font_mode, values.renderer_mode, values.cpu_mhz,
                         values.mouse_capture_gain, values.allow_mouse_capture_in_text_mode,
                         values.hdd_sounds_enabled, values.hdd_sounds_volume,
                         values.custom_font_path, values.screenshot_capture_with_opengl_shaders,
                         values.screenshot_capture_size_mode);
}

// The rectangle of row k of the list.
inline SDL_Rect NavRow(int k) {
  return {0, 10 + 30 * k, 224, 30};
}

// Values of which none is a default.
inline frontend::gui::SettingsDialogValues SampleValues() {
  frontend::gui::SettingsDialogValues values;
  values.target_fps = 50;
  values.font_mode = "ttf";
  values.renderer_mode = "software";
  values.cpu_mhz = 12.5;
  values.mouse_capture_gain = 1.75;
  values.allow_mouse_capture_in_text_mode = true;
  values.hdd_sounds_enabled = true;
  values.hdd_sounds_volume = 0.25;
  values.custom_font_path = "/fonts/vga.ttf";
  values.screenshot_capture_with_opengl_shaders = true;
  values.screenshot_capture_size_mode = 0;
  return values;
}

inline void Merge(PointSet more, PointSet* points) {
  points->merge(std::move(more));
}

// A hidden window with the dialog's renderer; draws are recorded, not made.
class SettingsCanvas : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    bundle_ = frontend::gui::CreateModalWindowBundle(
        nullptr, "canvas", 0, 0, 820, 492, SDL_WINDOW_HIDDEN, ModalRendererMode::Software);
    ASSERT_NE(bundle_.renderer, nullptr) << SDL_GetError();
    bold_ = frontend::gui::OpenSdlUiFontHandle(15, true, frontend::gui::SdlUiFontKind::Ui);
    regular_ = frontend::gui::OpenSdlUiFontHandle(15, false, frontend::gui::SdlUiFontKind::Ui);
    ASSERT_NE(bold_, nullptr);
    ASSERT_NE(regular_, nullptr);
    Recorder().MarkBaseline();
    Recorder().ForgetDraws();
    Recorder().SetDrawMode(DrawMode::Recorded);
  }

  void TearDown() override {
    Recorder().ExpectNothingAlive();
    regular_.reset();
    bold_.reset();
    bundle_ = ModalWindowBundle();
    DialogTest::TearDown();
  }

  SDL_Renderer* renderer() const { return bundle_.renderer.get(); }
  TTF_Font* bold() const { return bold_.get(); }
  TTF_Font* regular() const { return regular_.get(); }

  // What was drawn since the last call.
  static Frame TakeDraws() {
    Frame drawn = Recorder().unpresented();
    Recorder().ForgetDraws();
    return drawn;
  }

 private:
  ModalWindowBundle bundle_;
  OwnedTtfFont bold_;
  OwnedTtfFont regular_;
};

}  // namespace quindle::testing
