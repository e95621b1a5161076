#pragma once

// A window to draw the two forms with text entry on, without a dialog around it, and what holds for
// the drawing of both.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "dialogs/form_checks.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "support/dialog_test.h"

namespace quindle::testing {

// Every text stands in the cached font of 16 points, which was asked for once.
inline void ExpectTextsInTheFormFont(const Frame& frame) {
  for (const DrawCall& text : frame.OfKind(DrawKind::Text)) {
    EXPECT_EQ(text.font.path, "./data/ttf/IBMPlexSans-SemiBold.ttf");
    EXPECT_EQ(text.font.size, 16);
    EXPECT_EQ(text.font.style, TTF_STYLE_NORMAL);
  }
  EXPECT_THAT(Recorder().font_requests(), ::testing::SizeIs(1));
}

// A text that is too wide is clipped to [left, right) and shows its end.
inline void ExpectEndShown(const Frame& frame, const std::string& wide, int left, int right) {
  const DrawCall* const text = frame.FindText(wide);
  ASSERT_NE(text, nullptr) << wide;
  ASSERT_TRUE(text->clip) << wide;
  EXPECT_EQ(text->clip->x, left) << wide;
  EXPECT_EQ(text->clip->x + text->clip->w, right) << wide;
  EXPECT_EQ(text->rect.x + text->rect.w, right) << wide;
}

class FormCanvas : public DialogTest {
 protected:
  FormCanvas(int width, int height) : width_(width), height_(height) {}

  void SetUp() override {
    DialogTest::SetUp();
    window_.reset(SDL_CreateWindow("Canvas", 0, 0, width_, height_, SDL_WINDOW_HIDDEN));
    renderer_.reset(SDL_CreateRenderer(window_.get(), -1, SDL_RENDERER_SOFTWARE));
    Recorder().ForgetDraws();
  }
  void TearDown() override {
    renderer_.reset();
    window_.reset();
    DialogTest::TearDown();
  }

  SDL_Renderer* renderer() const { return renderer_.get(); }

  // Of the function with which a form draws a text.
  void ExpectTextIsDrawnAndNullIsNot(void (*draw)(SDL_Renderer*, const char*, int, int,
                                                  SDL_Color)) {
    draw(nullptr, "text", 1, 2, kFocusedOutline);
    draw(renderer(), nullptr, 1, 2, kFocusedOutline);
    draw(renderer(), "", 1, 2, kFocusedOutline);
    EXPECT_THAT(Recorder().unpresented().draws, ::testing::IsEmpty());
    EXPECT_THAT(Recorder().font_requests(), ::testing::IsEmpty()) << "opened for nothing";
    draw(renderer(), "text", 1, 2, kFocusedOutline);
    EXPECT_THAT(DescribeFrame(Recorder().unpresented()),
                ::testing::ElementsAre("text 'text' at 1,2 in 160,176,210"));
  }

 private:
  int width_;
  int height_;
  frontend::gui::OwnedSdlWindow window_;
  frontend::gui::OwnedSdlRenderer renderer_;
};

}  // namespace quindle::testing
