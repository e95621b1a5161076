// The screenshot dialog against a model of its rules, with random input.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "dialogs/random_user.h"
#include "frontend/gui/screenshot_save_dialog.h"
#include "utils/path_utils.h"
#include "utils/string_utils.h"

namespace quindle::testing {
namespace {

using frontend::gui::ScreenshotSaveDialogResult;
using frontend::gui::ScreenshotSaveFormat;
using frontend::gui::ShowScreenshotSaveDialog;

constexpr SDL_Rect kWindow{0, 0, 900, 410};
constexpr SDL_Rect kName{250, 82, 620, 38};
constexpr SDL_Rect kFolder{250, 148, 510, 38};
constexpr SDL_Rect kChoose{770, 148, 100, 38};
constexpr SDL_Rect kBox{250, 214, 220, 38};
constexpr SDL_Rect kList{250, 252, 220, 102};
constexpr SDL_Rect kOption{250, 280, 160, 38};
constexpr SDL_Rect kCheckBox{250, 286, 22, 22};
constexpr SDL_Rect kCancel{650, 352, 100, 38};
constexpr SDL_Rect kSave{770, 352, 100, 38};

// What each format says and does; the index is the format's value and the list's row.
struct FormatFacts {
  std::string label;
  std::string extension;
  std::string option_label;
  int focus;
};
const std::vector<FormatFacts>& Formats() {
  static const std::vector<FormatFacts> kFormats = {
      {"PNG (*.png)", "png", "PNG compression (0-9):", 2},
      {"JPEG (*.jpg)", "jpg", "JPEG quality (1-100):", 1},
      {"BMP (*.bmp)", "bmp", "BMP options:", 3}};
  return kFormats;
}

// The rules, said once more and as plainly as possible.
struct ScreenshotModel {
  std::size_t start_format = 0;
  int start_quality = 0;
  int start_compression = 0;
  std::size_t format = 0;
  std::string folder;
  std::map<int, std::string> fields;  // By focus.
  int focus = 3;
  bool rle = false;
  bool open = false;
  bool done = false;
  bool accepted = false;

  std::string Renamed() const {
    return utils::stem_or_filename_from_path(fields.at(0), "quindle_capture") + "." +
           Formats()[format].extension;
  }
  void Key(SDL_Keycode key) {
    if (key == SDLK_ESCAPE) {
      done = !open;
      open = false;
    } else if (key == SDLK_RETURN || key == SDLK_KP_ENTER) {
      done = accepted = !open;
    } else if (key == SDLK_TAB) {
      focus = focus != 0 || format == 2 ? 0 : Formats()[format].focus;
    } else if (key == SDLK_BACKSPACE && focus < 3 && !fields[focus].empty()) {
      fields[focus].pop_back();
    }
  }
  void Text(const std::string& typed) {
    const std::map<int, std::size_t> limits = {{0, 180}, {1, 3}, {2, 1}, {3, 0}};
    for (const char c : typed) {
      const bool taken = focus == 0 ? utils::is_allowed_filename_char(c) : c >= '0' && c <= '9';
      if (taken && fields[focus].size() < limits.at(focus)) {
        fields[focus] += c;
      }
    }
  }
  void Press(SDL_Point at) {
    focus = Holds(kName, at) ? 0 : Holds(kOption, at) ? Formats()[format].focus : 3;
    open = open && (Holds(kBox, at) || Holds(kList, at));
  }
  // True when the release opens the picker.
  bool Release(SDL_Point at) {
    if (open && Holds(kList, at)) {
      format = static_cast<std::size_t>(at.y - kList.y) / 34;
      fields[0] = Renamed();
      focus = Formats()[format].focus;
      open = false;
      return false;
    }
    if (format == 2 && Holds(kCheckBox, at)) {
      rle = !rle;
      return false;
    }
    if (Holds(kFolder, at) || Holds(kChoose, at)) {
      open = false;
      return true;
    }
    if (Holds(kBox, at)) {
      open = !open;
      focus = 3;
    }
    accepted = Holds(kSave, at);
    done = accepted || Holds(kCancel, at);
    return false;
  }
  static int Number(const std::string& text, int start, int least, int most) {
    return text.empty() ? start : std::clamp(std::stoi(text), least, most);
  }
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts = {"Save screenshot",
                                      "Export current guest output as PNG, JPEG or BMP",
                                      "File name:",
                                      "Folder:",
                                      "Format:",
                                      Formats()[format].option_label,
                                      fields.at(0),
                                      utils::ellipsize_left(folder, 70),
                                      Formats()[format].label,
                                      open ? "^" : "v",
                                      "Choose",
                                      "Cancel",
                                      "Save",
                                      format == 2 ? "Use RLE if possible (indexed BMP paths)"
                                                  : fields.at(Formats()[format].focus),
                                      "Will be saved as:",
                                      utils::ellipsize_left(folder + "/" + Renamed(), 100)};
    if (open) {
      texts.insert(texts.end(), {"PNG (*.png)", "JPEG (*.jpg)", "BMP (*.bmp)"});
    }
    std::erase(texts, "");
    return texts;
  }
  std::vector<SDL_Rect> FocusedOutlines() const {
    if (focus == 0) {
      return {kName};
    }
    return focus != 3 && focus == Formats()[format].focus ? std::vector<SDL_Rect>{kOption}
                                                          : std::vector<SDL_Rect>{};
  }
};

RandomFormHabits Habits() {
  return {
      .window = kWindow,
      .often = {kName, kBox, kBox, kList, kOption, kCheckBox},
      .seldom = {kFolder, kChoose, kCancel, kSave},
      .cancel = kCancel,
      .deciding_key_one_in = 20,
      .typed = {"0", "1", "7", "42", "9999", "a", "x.img", "a/b", "\xC3\xA9", "no 1", "-", "\\:*",
                "..", "abcdefghijklmnopqrstuvwxyz01"},
      .own_noise = [] { Click(kSave.x + 5, kSave.y + 5, SDL_BUTTON_LEFT, 1, WindowId() + 1000); }};
}

class RandomScreenshotUser : public ModelledFormUser<ScreenshotModel> {
 public:
  explicit RandomScreenshotUser(unsigned int seed) : ModelledFormUser(seed, Habits()) {}

 protected:
  void Session() override {
    model_ = ScreenshotModel{};
    model_.format = model_.start_format = static_cast<std::size_t>(random_.Below(3));
    model_.start_quality = 1 + random_.Below(100);
    model_.start_compression = random_.Below(10);
    model_.folder = random_.OneIn(2) ? tree_.one() : tree_.two();
    model_.rle = random_.OneIn(2);
    // Now and then a name that typing can bring to its limit.
    const std::string name = random_.OneIn(4) ? std::string(170, 'n') : "shot";
    model_.fields = {{0, name},
                     {1, std::to_string(model_.start_quality)},
                     {2, std::to_string(model_.start_compression)}};
    model_.fields[0] = model_.Renamed();
    CheckResult(ShowScreenshotSaveDialog(
        nullptr, model_.folder, name + ".xyz", static_cast<ScreenshotSaveFormat>(model_.format),
        model_.start_quality, model_.start_compression, model_.rle));
  }
  void CheckFrame() override {
    const Frame& frame = Recorder().last_frame();
    ASSERT_THAT(frame.Texts(), ::testing::ElementsAreArray(model_.Texts()));
    ASSERT_THAT(frame.Outlines({160, 176, 210, 255}),
                ::testing::ElementsAreArray(model_.FocusedOutlines()));
    ASSERT_EQ(frame.Fills({106, 166, 255, 255}).size(), model_.format == 2 && model_.rle ? 1U : 0U);
  }

 private:
  void CheckResult(const ScreenshotSaveDialogResult& result) {
    EXPECT_TRUE(model_.done);
    EXPECT_EQ(result.accepted, model_.accepted);
    EXPECT_EQ(result.bmp_rle, model_.rle);
    if (!model_.accepted) {
      EXPECT_EQ(result.folder, "");
      EXPECT_EQ(result.file_name, "");
      EXPECT_EQ(static_cast<std::size_t>(result.format), model_.start_format);
      EXPECT_EQ(result.jpeg_quality, model_.start_quality);
      EXPECT_EQ(result.png_compression, model_.start_compression);
      return;
    }
    EXPECT_EQ(result.folder, model_.folder);
    EXPECT_EQ(result.file_name, model_.Renamed());
    EXPECT_EQ(static_cast<std::size_t>(result.format), model_.format);
    EXPECT_EQ(result.jpeg_quality,
              ScreenshotModel::Number(model_.fields[1], model_.start_quality, 1, 100));
    EXPECT_EQ(result.png_compression,
              ScreenshotModel::Number(model_.fields[2], model_.start_compression, 0, 9));
  }
};

class ScreenshotSaveDialogRandomInput : public DialogTest {};

TEST_F(ScreenshotSaveDialogRandomInput, FollowsTheModel) {
  RandomScreenshotUser user(20261121);
  user.Run(200000);
}

}  // namespace
}  // namespace quindle::testing
