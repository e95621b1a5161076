// The rules of the screenshot dialog that need no window: layout, keys, typing, commit.

#include "frontend/gui/screenshot_save_dialog.h"

#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <string>
#include <vector>

#include "support/all_bytes.h"
#include "support/sdl_values.h"
#include "utils/path_utils.h"

namespace quindle::frontend::gui {
namespace {

using testing::AllBytes;

constexpr ScreenshotSaveFormat kPng = ScreenshotSaveFormat::Png;
constexpr ScreenshotSaveFormat kJpeg = ScreenshotSaveFormat::Jpeg;
constexpr ScreenshotSaveFormat kBmp = ScreenshotSaveFormat::Bmp;
constexpr auto kUnknown = static_cast<ScreenshotSaveFormat>(9);

constexpr int kFocusFileName = 0;
constexpr int kFocusJpeg = 1;
constexpr int kFocusPng = 2;
constexpr int kFocusNone = 3;

ScreenshotSaveDialogState OpenState(ScreenshotSaveFormat format = kPng, int focus = kFocusNone) {
  ScreenshotSaveDialogState state;
  state.folder_text = "/shots";
  state.file_name_text = "shot.png";
  state.format = format;
  state.jpeg_quality_text = "80";
  state.png_compression_text = "4";
  state.focus = focus;
  return state;
}

// The texts that typing may change.
std::string FieldsOf(const ScreenshotSaveDialogState& state) {
  return state.file_name_text + '|' + state.jpeg_quality_text + '|' + state.png_compression_text;
}

// --- Defaults ------------------------------------------------------------------------------------

TEST(ScreenshotSaveDialogResult, StartsWithTheDefaults) {
  const ScreenshotSaveDialogResult result;
  EXPECT_FALSE(result.accepted);
  EXPECT_EQ(result.folder, "");
  EXPECT_EQ(result.file_name, "");
  EXPECT_EQ(result.format, kPng);
  EXPECT_EQ(result.jpeg_quality, 90);
  EXPECT_EQ(result.png_compression, 2);
  EXPECT_TRUE(result.bmp_rle);
}

TEST(ScreenshotSaveDialogState, StartsWithoutFocusAndWithTheListClosed) {
  const ScreenshotSaveDialogState state;
  EXPECT_EQ(state.focus, kFocusNone);
  EXPECT_FALSE(state.format_list_open);
  EXPECT_FALSE(state.done);
}

// --- Layout --------------------------------------------------------------------------------------

TEST(ScreenshotSaveDialogLayout, FollowsTheWindowSize) {
  for (const SDL_Point size :
       {SDL_Point{900, 410}, SDL_Point{1280, 800}, SDL_Point{391, 60}, SDL_Point{16384, 16384}}) {
    const int w = size.x;
    const int h = size.y;
    const ScreenshotSaveDialogLayout layout = BuildScreenshotSaveDialogLayout(w, h);
    EXPECT_EQ(layout.file_name_field, (SDL_Rect{250, 82, w - 280, 38}));
    EXPECT_EQ(layout.folder_field, (SDL_Rect{250, 148, w - 390, 38}));
    EXPECT_EQ(layout.choose_button, (SDL_Rect{w - 130, 148, 100, 38}));
    EXPECT_EQ(layout.format_box, (SDL_Rect{250, 214, 220, 38}));
    EXPECT_EQ(layout.format_list, (SDL_Rect{250, 252, 220, 102}));
    EXPECT_EQ(layout.option_field, (SDL_Rect{250, 280, 160, 38}));
    EXPECT_EQ(layout.rle_checkbox, (SDL_Rect{250, 286, 22, 22}));
    EXPECT_EQ(layout.cancel_button, (SDL_Rect{w - 250, h - 58, 100, 38}));
    EXPECT_EQ(layout.save_button, (SDL_Rect{w - 130, h - 58, 100, 38}));
    EXPECT_EQ(layout.saved_as_y, 326);
    EXPECT_EQ(layout.path_y, 346);
  }
}

TEST(ScreenshotSaveDialogLayout, TakesANegativeSizeForNone) {
  const ScreenshotSaveDialogLayout layout = BuildScreenshotSaveDialogLayout(-1, -1);
  EXPECT_EQ(layout.choose_button, (SDL_Rect{-130, 148, 100, 38}));
  EXPECT_EQ(layout.cancel_button, (SDL_Rect{-250, -58, 100, 38}));
  EXPECT_EQ(layout.save_button, (SDL_Rect{-130, -58, 100, 38}));
}

TEST(ScreenshotSaveDialogLayout, NeverHasANegativeSize) {
  const std::vector<int> sizes = {INT_MIN, -1,  0,   1,   57,  129, 249,
                                  279,     280, 281, 389, 390, 391, INT_MAX};
  for (const int w : sizes) {
    for (const int h : sizes) {
      const ScreenshotSaveDialogLayout layout = BuildScreenshotSaveDialogLayout(w, h);
      for (const SDL_Rect& rect :
           {layout.file_name_field, layout.folder_field, layout.choose_button, layout.format_box,
            layout.format_list, layout.option_field, layout.rle_checkbox, layout.cancel_button,
            layout.save_button}) {
        EXPECT_GE(rect.w, 0) << w << " x " << h;
        EXPECT_GE(rect.h, 0) << w << " x " << h;
      }
    }
  }
  EXPECT_EQ(BuildScreenshotSaveDialogLayout(279, 0).file_name_field.w, 0);
  EXPECT_EQ(BuildScreenshotSaveDialogLayout(281, 0).file_name_field.w, 1);
  EXPECT_EQ(BuildScreenshotSaveDialogLayout(391, 0).folder_field.w, 1);
}

// --- Keys ----------------------------------------------------------------------------------------

TEST(ScreenshotSaveDialogKey, EscapeClosesTheListFirstThenCancels) {
  ScreenshotSaveDialogState state = OpenState();
  state.format_list_open = true;
  HandleScreenshotSaveDialogKey(&state, SDLK_ESCAPE);
  EXPECT_FALSE(state.format_list_open);
  EXPECT_FALSE(state.done);
  HandleScreenshotSaveDialogKey(&state, SDLK_ESCAPE);
  EXPECT_TRUE(state.done);
  EXPECT_FALSE(state.result.accepted);
}

TEST(ScreenshotSaveDialogKey, ReturnAndKeypadEnterCommitWhileTheListIsClosed) {
  for (const int key : {SDLK_RETURN, SDLK_KP_ENTER}) {
    ScreenshotSaveDialogState state = OpenState();
    state.format_list_open = true;
    HandleScreenshotSaveDialogKey(&state, key);
    EXPECT_TRUE(state.format_list_open);
    EXPECT_FALSE(state.done);
    EXPECT_FALSE(state.result.accepted);
    state.format_list_open = false;
    HandleScreenshotSaveDialogKey(&state, key);
    EXPECT_TRUE(state.done);
    EXPECT_TRUE(state.result.accepted);
    EXPECT_EQ(state.result.file_name, "shot.png");
  }
}

TEST(ScreenshotSaveDialogKey, BackspaceTakesTheLastByteOfTheFocusedField) {
  struct Case {
    int focus;
    const char* fields;
  };
  constexpr Case kCases[] = {
      {kFocusFileName, "shot.pn|80|4"}, {kFocusJpeg, "shot.png|8|4"}, {kFocusPng, "shot.png|80|"},
      {kFocusNone, "shot.png|80|4"},    {-1, "shot.png|80|4"},        {4, "shot.png|80|4"}};
  for (const Case& c : kCases) {
    // What is focused counts, whatever format is selected.
    for (const ScreenshotSaveFormat format : {kPng, kJpeg, kBmp}) {
      ScreenshotSaveDialogState state = OpenState(format, c.focus);
      HandleScreenshotSaveDialogKey(&state, SDLK_BACKSPACE);
      EXPECT_EQ(FieldsOf(state), c.fields) << c.focus;
      EXPECT_EQ(state.folder_text, "/shots");
    }
  }
}

TEST(ScreenshotSaveDialogKey, BackspaceOnAnEmptyFieldDoesNothing) {
  for (const int focus : {kFocusFileName, kFocusJpeg, kFocusPng, kFocusNone}) {
    ScreenshotSaveDialogState state = OpenState(kPng, focus);
    state.file_name_text = state.jpeg_quality_text = state.png_compression_text = "";
    HandleScreenshotSaveDialogKey(&state, SDLK_BACKSPACE);
    EXPECT_EQ(FieldsOf(state), "||");
  }
}

TEST(ScreenshotSaveDialogKey, TabMovesBetweenFileNameAndOption) {
  struct Case {
    ScreenshotSaveFormat format;
    int from;
    int to;
  };
  constexpr Case kCases[] = {{kJpeg, 0, 1},    {kJpeg, 1, 0},    {kJpeg, 2, 0},   {kJpeg, 3, 0},
                             {kPng, 0, 2},     {kPng, 1, 0},     {kPng, 2, 0},    {kPng, 3, 0},
                             {kBmp, 0, 0},     {kBmp, 1, 0},     {kBmp, 2, 0},    {kBmp, 3, 0},
                             {kUnknown, 0, 2}, {kUnknown, 2, 0}, {kUnknown, 3, 0}};
  for (const Case& c : kCases) {
    for (const bool open : {false, true}) {
      ScreenshotSaveDialogState state = OpenState(c.format, c.from);
      state.format_list_open = open;
      HandleScreenshotSaveDialogKey(&state, SDLK_TAB);
      EXPECT_EQ(state.focus, c.to) << static_cast<int>(c.format) << " from " << c.from;
      EXPECT_EQ(state.format_list_open, open);
    }
  }
}

TEST(ScreenshotSaveDialogKey, OtherKeysDoNothing) {
  for (const int key :
       {SDLK_SPACE, SDLK_UP, SDLK_DOWN, SDLK_a, SDLK_RETURN2, SDLK_DELETE, SDLK_F1}) {
    ScreenshotSaveDialogState state = OpenState(kPng, kFocusFileName);
    state.format_list_open = true;
    HandleScreenshotSaveDialogKey(&state, key);
    EXPECT_EQ(FieldsOf(state), "shot.png|80|4");
    EXPECT_EQ(state.focus, kFocusFileName);
    EXPECT_TRUE(state.format_list_open);
    EXPECT_FALSE(state.done);
  }
}

// --- Typing --------------------------------------------------------------------------------------

TEST(ScreenshotSaveDialogText, FileNameTakesWhatFileNamesMayHold) {
  ScreenshotSaveDialogState state = OpenState(kPng, kFocusFileName);
  state.file_name_text.clear();
  std::string expected;
  for (const char c : AllBytes()) {
    if (utils::is_allowed_filename_char(c)) {
      expected.push_back(c);
    }
  }
  HandleScreenshotSaveDialogTextInput(&state, AllBytes().c_str());
  EXPECT_EQ(state.file_name_text, expected);
}

TEST(ScreenshotSaveDialogText, FileNameHolds180Bytes) {
  ScreenshotSaveDialogState state = OpenState(kPng, kFocusFileName);
  state.file_name_text = std::string(178, 'n');
  HandleScreenshotSaveDialogTextInput(&state, "a/bc");
  EXPECT_EQ(state.file_name_text, std::string(178, 'n').append("ab"));
  HandleScreenshotSaveDialogTextInput(&state, "d");
  EXPECT_EQ(state.file_name_text.size(), 180U);
}

TEST(ScreenshotSaveDialogText, JpegQualityTakesThreeDigits) {
  ScreenshotSaveDialogState state = OpenState(kJpeg, kFocusJpeg);
  state.jpeg_quality_text.clear();
  HandleScreenshotSaveDialogTextInput(&state, "1x2-34");
  EXPECT_EQ(FieldsOf(state), "shot.png|123|4");
  HandleScreenshotSaveDialogTextInput(&state, "5");
  EXPECT_EQ(FieldsOf(state), "shot.png|123|4");
  CommitScreenshotSaveDialogResult(&state);
  EXPECT_EQ(state.result.jpeg_quality, 100);
}

TEST(ScreenshotSaveDialogText, PngCompressionTakesOneDigit) {
  ScreenshotSaveDialogState state = OpenState(kPng, kFocusPng);
  HandleScreenshotSaveDialogTextInput(&state, "5");
  EXPECT_EQ(FieldsOf(state), "shot.png|80|4");
  state.png_compression_text.clear();
  HandleScreenshotSaveDialogTextInput(&state, "a57");
  EXPECT_EQ(FieldsOf(state), "shot.png|80|5");
}

TEST(ScreenshotSaveDialogText, DigitsOnlyInTheOptions) {
  ScreenshotSaveDialogState jpeg = OpenState(kJpeg, kFocusJpeg);
  jpeg.jpeg_quality_text.clear();
  HandleScreenshotSaveDialogTextInput(&jpeg, AllBytes().c_str());
  EXPECT_EQ(jpeg.jpeg_quality_text, "012");
}

TEST(ScreenshotSaveDialogText, WithoutFocusNothingIsTyped) {
  for (const int focus : {kFocusNone, -1, 4}) {
    ScreenshotSaveDialogState state = OpenState(kJpeg, focus);
    state.png_compression_text.clear();
    HandleScreenshotSaveDialogTextInput(&state, "7");
    EXPECT_EQ(FieldsOf(state), "shot.png|80|");
    EXPECT_EQ(state.folder_text, "/shots");
  }
}

TEST(ScreenshotSaveDialogText, LongerTextsOfTheHostAreKept) {
  ScreenshotSaveDialogState state = OpenState(kPng, kFocusFileName);
  state.file_name_text = std::string(300, 'n');
  state.jpeg_quality_text = "12345";
  state.png_compression_text = "678";
  for (const int focus : {kFocusFileName, kFocusJpeg, kFocusPng}) {
    state.focus = focus;
    HandleScreenshotSaveDialogTextInput(&state, "9");
  }
  EXPECT_EQ(FieldsOf(state), std::string(300, 'n').append("|12345|678"));
}

// --- Commit --------------------------------------------------------------------------------------

TEST(ScreenshotSaveDialogCommit, TakesTheTypedTexts) {
  ScreenshotSaveDialogState state = OpenState(kJpeg);
  state.file_name_text = "game.v1";
  state.jpeg_quality_text = "0";
  state.png_compression_text = "9";
  state.result.bmp_rle = false;
  CommitScreenshotSaveDialogResult(&state);
  EXPECT_TRUE(state.done);
  EXPECT_TRUE(state.result.accepted);
  EXPECT_EQ(state.result.folder, "/shots");
  EXPECT_EQ(state.result.file_name, "game.jpg");
  EXPECT_EQ(state.result.format, kJpeg);
  EXPECT_EQ(state.result.jpeg_quality, 1);
  EXPECT_EQ(state.result.png_compression, 9);
  EXPECT_FALSE(state.result.bmp_rle);
}

TEST(ScreenshotSaveDialogCommit, BadNumbersKeepTheFormerOnes) {
  for (const char* const text : {"", "x", "-1", "99999999999"}) {
    ScreenshotSaveDialogState state = OpenState();
    state.result.jpeg_quality = 33;
    state.result.png_compression = 8;
    state.jpeg_quality_text = state.png_compression_text = text;
    CommitScreenshotSaveDialogResult(&state);
    EXPECT_EQ(state.result.jpeg_quality, 33) << text;
    EXPECT_EQ(state.result.png_compression, 8) << text;
  }
}

TEST(ScreenshotSaveDialogCommit, EmptyFolderAndNameHaveDefaults) {
  ScreenshotSaveDialogState state = OpenState(kBmp);
  state.folder_text.clear();
  state.file_name_text.clear();
  CommitScreenshotSaveDialogResult(&state);
  EXPECT_EQ(state.result.folder, std::filesystem::current_path().string());
  EXPECT_EQ(state.result.file_name, "quindle_capture.bmp");
}

TEST(ScreenshotSaveDialogCommit, FieldsAreLeftAsTheyStand) {
  ScreenshotSaveDialogState state = OpenState(kBmp);
  CommitScreenshotSaveDialogResult(&state);
  EXPECT_EQ(FieldsOf(state), "shot.png|80|4");
}

TEST(ScreenshotSaveDialogNull, DoesNothing) {
  ScreenshotSaveDialogState state = OpenState(kPng, kFocusFileName);
  HandleScreenshotSaveDialogTextInput(&state, nullptr);
  HandleScreenshotSaveDialogTextInput(&state, "");
  EXPECT_EQ(FieldsOf(state), "shot.png|80|4");
  HandleScreenshotSaveDialogTextInput(nullptr, "x");
  HandleScreenshotSaveDialogKey(nullptr, SDLK_RETURN);
  CommitScreenshotSaveDialogResult(nullptr);
}

}  // namespace
}  // namespace quindle::frontend::gui
