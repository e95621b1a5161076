// The rules of the HDD image dialog that need no window: keys, typing, parsing, paths, commit.

#include "frontend/gui/hdd_create_dialog.h"

#include <gtest/gtest.h>

#include <string>

#include "support/all_bytes.h"
#include "support/sdl_values.h"
#include "utils/path_utils.h"

namespace quindle::frontend::gui {
namespace {

using testing::AllBytes;

constexpr int kFocusSize = 0;
constexpr int kFocusName = 1;

HddCreateDialogState OpenState() {
  HddCreateDialogState state;
  state.size_mb = 10;
  state.folder = "/data";
  state.file_name = "disk.img";
  state.size_text = "10";
  state.folder_text = "/data";
  state.name_text = "disk.img";
  return state;
}

// --- Layout --------------------------------------------------------------------------------------

TEST(HddCreateDialogLayout, HasFixedRectangles) {
  const HddCreateDialogLayout layout = BuildHddCreateDialogLayout();
  EXPECT_EQ(layout.size_field, (SDL_Rect{250, 72, 210, 36}));
  EXPECT_EQ(layout.name_field, (SDL_Rect{250, 132, 530, 36}));
  EXPECT_EQ(layout.folder_field, (SDL_Rect{250, 192, 430, 36}));
  EXPECT_EQ(layout.choose_button, (SDL_Rect{690, 192, 90, 36}));
  EXPECT_EQ(layout.cancel_button, (SDL_Rect{620, 318, 110, 40}));
  EXPECT_EQ(layout.create_button, (SDL_Rect{740, 318, 110, 40}));
}

// --- Keys ----------------------------------------------------------------------------------------

TEST(HddCreateDialogKey, EscapeCancels) {
  HddCreateDialogState state = OpenState();
  HandleHddCreateDialogKey(&state, SDLK_ESCAPE);
  EXPECT_TRUE(state.done);
  EXPECT_FALSE(state.accepted);
}

TEST(HddCreateDialogKey, TabMovesFocusToNameAndBack) {
  HddCreateDialogState state = OpenState();
  HandleHddCreateDialogKey(&state, SDLK_TAB);
  EXPECT_EQ(state.focus, kFocusName);
  HandleHddCreateDialogKey(&state, SDLK_TAB);
  EXPECT_EQ(state.focus, kFocusSize);
}

TEST(HddCreateDialogKey, BackspaceTakesTheLastByteOfTheFocusedText) {
  HddCreateDialogState state = OpenState();
  HandleHddCreateDialogKey(&state, SDLK_BACKSPACE);
  EXPECT_EQ(state.size_text, "1");
  EXPECT_EQ(state.name_text, "disk.img");
  state.focus = kFocusName;
  HandleHddCreateDialogKey(&state, SDLK_BACKSPACE);
  EXPECT_EQ(state.size_text, "1");
  EXPECT_EQ(state.name_text, "disk.im");
  EXPECT_EQ(state.folder_text, "/data");
}

TEST(HddCreateDialogKey, BackspaceOnAnEmptyFieldDoesNothing) {
  for (const int focus : {kFocusSize, kFocusName}) {
    HddCreateDialogState state = OpenState();
    state.size_text.clear();
    state.name_text.clear();
    state.focus = focus;
    HandleHddCreateDialogKey(&state, SDLK_BACKSPACE);
    EXPECT_EQ(state.size_text, "");
    EXPECT_EQ(state.name_text, "");
    EXPECT_EQ(state.focus, focus);
  }
}

TEST(HddCreateDialogKey, ReturnAndKeypadEnterCommit) {
  for (const int key : {SDLK_RETURN, SDLK_KP_ENTER}) {
    HddCreateDialogState state = OpenState();
    state.size_text = "25";
    HandleHddCreateDialogKey(&state, key);
    EXPECT_TRUE(state.done);
    EXPECT_TRUE(state.accepted);
    EXPECT_EQ(state.size_mb, 25U);
  }
}

TEST(HddCreateDialogKey, OtherKeysDoNothing) {
  for (const int key : {SDLK_SPACE, SDLK_a, SDLK_UP, SDLK_DOWN, SDLK_DELETE, SDLK_RETURN2,
                        SDLK_HOME, SDLK_1, SDLK_KP_1, SDLK_LEFT, SDLK_F1}) {
    HddCreateDialogState state = OpenState();
    HandleHddCreateDialogKey(&state, key);
    EXPECT_FALSE(state.done);
    EXPECT_EQ(state.focus, kFocusSize);
    EXPECT_EQ(state.size_text, "10");
    EXPECT_EQ(state.name_text, "disk.img");
  }
}

TEST(HddCreateDialogKey, NullStateDoesNothing) {
  for (const int key : {SDLK_ESCAPE, SDLK_TAB, SDLK_BACKSPACE, SDLK_RETURN}) {
    HandleHddCreateDialogKey(nullptr, key);
  }
}

// --- Typing --------------------------------------------------------------------------------------

TEST(HddCreateDialogText, SizeTakesDigitsOnly) {
  HddCreateDialogState state = OpenState();
  state.size_text.clear();
  HandleHddCreateDialogTextInput(&state, "12a4");
  EXPECT_EQ(state.size_text, "124");
  state.size_text.clear();
  HandleHddCreateDialogTextInput(&state, AllBytes().c_str());
  EXPECT_EQ(state.size_text, "0123456789");
  EXPECT_EQ(state.name_text, "disk.img");
}

TEST(HddCreateDialogText, SizeHoldsTenDigits) {
  HddCreateDialogState state = OpenState();
  state.size_text = "123456789";
  HandleHddCreateDialogTextInput(&state, "01");
  EXPECT_EQ(state.size_text, "1234567890");
  HandleHddCreateDialogTextInput(&state, "1");
  EXPECT_EQ(state.size_text, "1234567890");
}

TEST(HddCreateDialogText, NameTakesWhatFileNamesMayHold) {
  HddCreateDialogState state = OpenState();
  state.focus = kFocusName;
  state.name_text.clear();
  const std::string typed = AllBytes();
  HandleHddCreateDialogTextInput(&state, typed.c_str());
  std::string expected;
  for (const char c : typed) {
    if (utils::is_allowed_filename_char(c)) {
      expected.push_back(c);
    }
  }
  EXPECT_EQ(state.name_text, expected);
  EXPECT_EQ(state.size_text, "10");

  state.name_text.clear();
  HandleHddCreateDialogTextInput(&state, "a/b");
  EXPECT_EQ(state.name_text, "ab");
}

TEST(HddCreateDialogText, NameHolds128Bytes) {
  HddCreateDialogState state = OpenState();
  state.focus = kFocusName;
  state.name_text = std::string(127, 'n');
  HandleHddCreateDialogTextInput(&state, "/xy");
  EXPECT_EQ(state.name_text, std::string(127, 'n') + "x");
  HandleHddCreateDialogTextInput(&state, "z");
  EXPECT_EQ(state.name_text, std::string(127, 'n') + "x");
}

TEST(HddCreateDialogText, LongerTextOfTheHostIsKept) {
  HddCreateDialogState state = OpenState();
  state.focus = kFocusName;
  state.name_text = std::string(200, 'n');
  HandleHddCreateDialogTextInput(&state, "z");
  EXPECT_EQ(state.name_text, std::string(200, 'n'));
}

TEST(HddCreateDialogText, OtherFocusTakesNothing) {
  for (const int focus : {-1, 2, 3}) {
    HddCreateDialogState state = OpenState();
    state.focus = focus;
    HandleHddCreateDialogTextInput(&state, "7");
    HandleHddCreateDialogKey(&state, SDLK_BACKSPACE);
    EXPECT_EQ(state.size_text, "10");
    EXPECT_EQ(state.name_text, "disk.img");
    EXPECT_EQ(state.folder_text, "/data");
    HandleHddCreateDialogKey(&state, SDLK_TAB);
    EXPECT_EQ(state.focus, kFocusSize);
  }
}

TEST(HddCreateDialogText, NullAndEmptyDoNothing) {
  HddCreateDialogState state = OpenState();
  HandleHddCreateDialogTextInput(&state, nullptr);
  HandleHddCreateDialogTextInput(&state, "");
  HandleHddCreateDialogTextInput(nullptr, "1");
  HandleHddCreateDialogTextInput(nullptr, nullptr);
  EXPECT_EQ(state.size_text, "10");
  EXPECT_EQ(state.name_text, "disk.img");
}

// --- Size ----------------------------------------------------------------------------------------

struct SizeCase {
  const char* text;
  unsigned int fallback;
  unsigned int size;
};

TEST(HddCreateDialogSize, IsParsedOrFallsBack) {
  constexpr unsigned int kMost = 4294967295U;
  constexpr SizeCase kCases[] = {
      {"", 7, 7},
      {"", 0, 0},
      {"abc", 7, 7},
      {"12a", 7, 7},
      {"-5", 7, 7},
      {"+5", 7, 7},
      {" 5", 7, 7},
      {"5 ", 7, 7},
      {"5M", 7, 7},
      {"1.5", 7, 7},
      {"0x10", 7, 7},
      {"\xD9\xA3", 7, 7},
      {"0", 7, 1},
      {"000", 7, 1},
      {"1", 7, 1},
      {"2", 7, 2},
      {"007", 9, 7},
      {"4294967294", 7, 4294967294U},
      {"4294967295", 7, kMost},
      {"4294967296", 7, kMost},
      {"9999999999", 7, kMost},
      {"99999999999", 7, kMost},
      {"18446744073709551615", 7, kMost},
      {"18446744073709551616", 7, 7},
      {"99999999999999999999999999", 0, 0},
      {"00000000000000000000000000000000012", 7, 12},
  };
  for (const SizeCase& c : kCases) {
    EXPECT_EQ(ParseHddCreateSizeMbOrDefault(c.text, c.fallback), c.size) << c.text;
  }
}

// --- Path ----------------------------------------------------------------------------------------

struct PathCase {
  const char* folder;
  const char* name;
  const char* path;
};

TEST(HddCreateDialogPath, JoinsFolderAndName) {
  constexpr PathCase kCases[] = {
      {"", "", "./disk.img"},
      {"", "x", "./x"},
      {"/data", "", "/data/disk.img"},
      {"/data", "x", "/data/x"},
      {"/data/", "x.img", "/data/x.img"},
      {"/data//", "x", "/data//x"},
      {"/", "x", "/x"},
      {"images", "x", "images/x"},
      {".", "disk.img", "./disk.img"},
      {"/data", "/else/x.img", "/else/x.img"},
      {"/data", "../x", "/data/../x"},
      {"/d\xC3\xA9", "\xFF", "/d\xC3\xA9/\xFF"},
  };
  for (const PathCase& c : kCases) {
    EXPECT_EQ(BuildHddCreateTargetPath(c.folder, c.name), c.path);
  }
}

// --- Commit --------------------------------------------------------------------------------------

TEST(HddCreateDialogCommit, TakesTheTypedTexts) {
  HddCreateDialogState state = OpenState();
  state.size_text = "512";
  state.folder_text = "/other";
  state.name_text = "c";
  CommitHddCreateDialogResult(&state);
  EXPECT_TRUE(state.accepted);
  EXPECT_TRUE(state.done);
  EXPECT_EQ(state.size_mb, 512U);
  EXPECT_EQ(state.folder, "/other");
  EXPECT_EQ(state.file_name, "c");
  EXPECT_FALSE(state.shown);
}

TEST(HddCreateDialogCommit, EmptyTextsGiveDefaultsAndKeepTheSize) {
  HddCreateDialogState state = OpenState();
  state.size_mb = 77;
  state.size_text.clear();
  state.folder_text.clear();
  state.name_text.clear();
  CommitHddCreateDialogResult(&state);
  EXPECT_TRUE(state.accepted);
  EXPECT_TRUE(state.done);
  EXPECT_EQ(state.size_mb, 77U);
  EXPECT_EQ(state.folder, ".");
  EXPECT_EQ(state.file_name, "disk.img");
}

TEST(HddCreateDialogCommit, SizeTextsAtTheEdges) {
  struct Case {
    const char* text;
    unsigned int size;
  };
  constexpr Case kCases[] = {{"0", 1U}, {"9999999999", 4294967295U}, {"bad", 10U}};
  for (const Case& c : kCases) {
    HddCreateDialogState state = OpenState();
    state.size_text = c.text;
    CommitHddCreateDialogResult(&state);
    EXPECT_EQ(state.size_mb, c.size) << c.text;
  }
}

TEST(HddCreateDialogCommit, NullStateDoesNothing) {
  CommitHddCreateDialogResult(nullptr);
}

}  // namespace
}  // namespace quindle::frontend::gui
