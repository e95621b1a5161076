// The HDD image dialog against a model of its rules, with random input.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dialogs/random_user.h"
#include "frontend/gui/hdd_create_dialog.h"
#include "utils/path_utils.h"
#include "utils/string_utils.h"

namespace quindle::testing {
namespace {

using frontend::gui::HddCreateDialogResult;
using frontend::gui::ShowSimpleHddCreateDialog;

constexpr SDL_Rect kWindow{0, 0, 860, 390};
constexpr SDL_Rect kSize{250, 72, 210, 36};
constexpr SDL_Rect kName{250, 132, 530, 36};
constexpr SDL_Rect kFolder{250, 192, 430, 36};
constexpr SDL_Rect kChoose{690, 192, 90, 36};
constexpr SDL_Rect kCancel{620, 318, 110, 40};
constexpr SDL_Rect kCreate{740, 318, 110, 40};

// The rules, said once more and as plainly as possible.
struct HddModel {
  unsigned int size_mb = 0;
  std::string start_folder;
  std::string size_text;
  std::string name_text = "disk.img";
  std::string folder;
  bool name_has_focus = false;
  bool done = false;
  bool accepted = false;

  void Key(SDL_Keycode key) {
    std::string& text = name_has_focus ? name_text : size_text;
    if (key == SDLK_ESCAPE) {
      done = true;
    } else if (key == SDLK_TAB) {
      name_has_focus = !name_has_focus;
    } else if (key == SDLK_BACKSPACE) {
      text = text.substr(0, text.empty() ? 0 : text.size() - 1);
    } else if (key == SDLK_RETURN || key == SDLK_KP_ENTER) {
      done = accepted = true;
    }
  }
  void Text(const std::string& typed) {
    for (const char c : typed) {
      if (name_has_focus) {
        name_text += name_text.size() < 128 && utils::is_allowed_filename_char(c)
                         ? std::string(1, c)
                         : std::string();
      } else if (size_text.size() < 10 && c >= '0' && c <= '9') {
        size_text += c;
      }
    }
  }
  void Press(SDL_Point at) {
    name_has_focus = (name_has_focus || Holds(kName, at)) && !Holds(kSize, at);
  }
  // True when the release opens the picker.
  bool Release(SDL_Point at) {
    accepted = Holds(kCreate, at);
    done = accepted || Holds(kCancel, at);
    return Holds(kFolder, at) || Holds(kChoose, at);
  }
  unsigned int Size() const {
    if (!accepted || size_text.empty()) {
      return size_mb;
    }
    const unsigned long long size = std::stoull(size_text);
    return static_cast<unsigned int>(std::clamp(size, 1ULL, 4294967295ULL));
  }
  std::string Path() const { return folder + "/" + (name_text.empty() ? "disk.img" : name_text); }
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts = {"Create new HDD image (.img)",
                                      "Size (MB):", "File name:", "Folder:"};
    for (const std::string& text : {size_text, name_text, utils::ellipsize_left(folder, 58)}) {
      if (!text.empty()) {
        texts.push_back(text);
      }
    }
    texts.insert(texts.end(), {"Choose", "Cancel", "Create",
                               "Will be saved as:", utils::ellipsize_left(Path(), 95)});
    return texts;
  }
};

RandomFormHabits Habits() {
  return {.window = kWindow,
          .often = {kSize, kName},
          .seldom = {kFolder, kChoose, kCancel, kCreate},
          .cancel = kCancel,
          .deciding_key_one_in = 30,
          .typed = {"0", "1", "7", "42", "9999999999", "a", "x.img", "a/b", "\xC3\xA9", "no 1", "-",
                    "\\:*", "abcdefghijklmnopqrstuvwxyz01"},
          .own_noise = [] { Motion(kCreate.x + 5, kCreate.y + 5); }};
}

class RandomHddUser : public ModelledFormUser<HddModel> {
 public:
  explicit RandomHddUser(unsigned int seed) : ModelledFormUser(seed, Habits()) {}

 protected:
  void Session() override {
    const std::vector<unsigned int> sizes = {1, 10, 64, 4294967295U};
    model_ = HddModel{};
    model_.size_mb = random_.OneOf(sizes);
    model_.size_text = std::to_string(model_.size_mb);
    model_.start_folder = model_.folder = random_.OneIn(2) ? tree_.one() : tree_.two();
    const HddCreateDialogResult result =
        ShowSimpleHddCreateDialog(nullptr, model_.start_folder, model_.size_mb);
    const std::string name = model_.name_text.empty() ? "disk.img" : model_.name_text;
    EXPECT_TRUE(model_.done);
    EXPECT_EQ(result.accepted, model_.accepted);
    EXPECT_EQ(result.size_mb, model_.Size());
    EXPECT_EQ(result.folder, model_.accepted ? model_.folder : model_.start_folder);
    EXPECT_EQ(result.file_name, model_.accepted ? name : "disk.img");
  }
  void CheckFrame() override {
    const Frame& frame = Recorder().last_frame();
    ASSERT_THAT(frame.Texts(), ::testing::ElementsAreArray(model_.Texts()));
    ASSERT_THAT(frame.Outlines({160, 176, 210, 255}),
                ::testing::ElementsAre(model_.name_has_focus ? kName : kSize));
  }
};

class HddCreateDialogRandomInput : public DialogTest {};

TEST_F(HddCreateDialogRandomInput, FollowsTheModel) {
  RandomHddUser user(20261121);
  user.Run(200000);
}

}  // namespace
}  // namespace quindle::testing
