// A picker under random input, frame by frame against a second telling of its rules.

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "dialogs/picker_view.h"
#include "frontend/gui/sdl_pickers.h"
#include "support/dialog_test.h"

namespace quindle::testing {
namespace {

namespace fs = std::filesystem;
using namespace frontend::gui;  // NOLINT(google-build-using-namespace)

constexpr int kEvents = 200000;
constexpr int kEventsPerFrame = 16;

// One input event, for the dialog and for the model.
struct Input {
  enum class Kind { Key, Wheel, Motion, Press, Release } kind = Kind::Key;
  SDL_Keycode key = 0;
  int notches = 0;
  int x = 0;
  int y = 0;
  Uint8 clicks = 1;
  Uint8 button = SDL_BUTTON_LEFT;
};

// The rules for a floppy picker in a window of any size.
class PickerModel {
 public:
  explicit PickerModel(const fs::path& dir) { Open(dir); }

  void Resize(int width, int height) {
    width_ = width;
    height_ = height;
  }

  void Apply(const Input& input) {
    if (done_) {
      return;
    }
    switch (input.kind) {
      case Input::Kind::Key:
        return Key(input.key);
      case Input::Kind::Wheel:
        scroll_ = scroll_ - input.notches < 0 ? 0 : scroll_ - input.notches;
        return;
      case Input::Kind::Motion:
        return Drag(input.y);
      case Input::Kind::Press:
      case Input::Kind::Release:
        return Button(input);
    }
  }

  void DrawFrame() { LimitScroll(); }

  bool done() const { return done_; }
  const std::string& result() const { return result_; }
  const std::string& directory() const { return dir_; }

  std::vector<std::string> LabelsInView() const {
    std::vector<std::string> labels;
    for (int i = scroll_; i < std::min(Count(), scroll_ + Visible()); ++i) {
      labels.push_back((Row(i).folder ? "[DIR] " : "[IMG] ") + Row(i).name);
    }
    return labels;
  }
  std::optional<int> SelectedInView() const {
    const bool in_view = selected_ >= scroll_ && selected_ < std::min(Count(), scroll_ + Visible());
    return in_view ? std::optional<int>(selected_ - scroll_) : std::nullopt;
  }

 private:
  struct ModelRow {
    std::string name;
    std::string path;
    bool folder = false;
  };
  struct Bar {
    int top = 0;     // Of the track.
    int length = 0;  // Of the track.
    int thumb_top = 0;
    int thumb_length = 0;
    int last = 0;  // Greatest scroll position.
  };

  const ModelRow& Row(int index) const { return rows_[static_cast<std::size_t>(index)]; }
  int Count() const { return static_cast<int>(rows_.size()); }
  int ListHeight() const { return std::max(1, height_ - 102); }
  int Visible() const { return std::max(1, ListHeight() / 24); }
  void LimitScroll() { scroll_ = std::clamp(scroll_, 0, std::max(0, Count() - Visible())); }

  Bar ScrollBar() const {
    Bar bar;
    bar.top = 58;
    bar.length = std::max(8, ListHeight() - 4);
    bar.last = std::max(0, Count() - Visible());
    bar.thumb_top = bar.top;
    bar.thumb_length = bar.length;
    if (bar.last > 0) {
      bar.thumb_length = std::max(24, bar.length * Visible() / Count());
      const float part =
          static_cast<float>(std::clamp(scroll_, 0, bar.last)) / static_cast<float>(bar.last);
      bar.thumb_top += static_cast<int>(part * static_cast<float>(Travel(bar)));
    }
    return bar;
  }
  static int Travel(const Bar& bar) { return std::max(1, bar.length - bar.thumb_length); }

  static std::string Lowered(std::string text) {
    for (char& c : text) {
      if (c >= 'A' && c <= 'Z') {
        c = static_cast<char>(c + 32);
      }
    }
    return text;
  }

  void Open(const fs::path& dir) {
    dir_ = dir.string();
    rows_.clear();
    if (dir.has_parent_path() && dir.parent_path() != dir) {
      rows_.push_back({"..", dir.parent_path().string(), true});
    }
    std::vector<ModelRow> found;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(dir, error)) {
      const std::string name = entry.path().filename().string();
      const std::string lowered = Lowered(name);
      const bool image =
          lowered.size() > 4 && (lowered.ends_with(".img") || lowered.ends_with(".ima"));
      if (fs::is_directory(entry.path(), error) || image) {
        found.push_back({name, entry.path().string(), fs::is_directory(entry.path(), error)});
      }
    }
    std::sort(found.begin(), found.end(), [](const ModelRow& a, const ModelRow& b) {
      return std::pair(!a.folder, Lowered(a.name)) < std::pair(!b.folder, Lowered(b.name));
    });
    rows_.insert(rows_.end(), found.begin(), found.end());
    selected_ = rows_.empty() ? -1 : 0;
    scroll_ = 0;
  }

  void Activate(int index) {
    const ModelRow row = Row(index);
    if (row.folder) {
      Open(row.path);
    } else {
      result_ = row.path;
      done_ = true;
    }
  }

  void Key(SDL_Keycode key) {
    if (key == SDLK_ESCAPE) {
      done_ = true;
    } else if (key == SDLK_UP && selected_ > 0) {
      --selected_;
    } else if (key == SDLK_DOWN && selected_ + 1 < Count()) {
      ++selected_;
    } else if ((key == SDLK_RETURN || key == SDLK_KP_ENTER) && selected_ >= 0) {
      Activate(selected_);
    }
  }

  void Drag(int y) {
    const Bar bar = ScrollBar();
    if (dragging_ && bar.last > 0) {
      const float rows = static_cast<float>(y - drag_y_) / static_cast<float>(Travel(bar)) *
                         static_cast<float>(bar.last);
      scroll_ = drag_scroll_ + static_cast<int>(rows);
    }
  }

  void PressBar(const Bar& bar, int y) {
    if (y >= bar.thumb_top && y < bar.thumb_top + bar.thumb_length) {
      dragging_ = true;
      drag_y_ = y;
      drag_scroll_ = scroll_;
    } else {
      const bool forward = y >= bar.thumb_top + bar.thumb_length / 2;
      scroll_ = std::clamp(scroll_ + (forward ? Visible() : -Visible()), 0, bar.last);
    }
  }

  void ClickList(const Input& input) {
    const int row = scroll_ + (input.y - 56) / 24;
    if (row < 0) {
      return;
    }
    if (row < Count()) {
      if (input.kind == Input::Kind::Press && input.clicks > 1) {
        Activate(row);
      } else {
        selected_ = row;
      }
    }
    LimitScroll();
  }

  void ReleaseButtons(int x, int y) {
    const int top = height_ - 46 + 8;
    if (y < top || y >= top + 30) {
      return;
    }
    if (x >= width_ - 168 && x < width_ - 98) {
      done_ = true;
    } else if (x >= width_ - 88 && x < width_ - 18 && selected_ >= 0) {
      Activate(selected_);
    }
  }

  void Button(const Input& input) {
    if (input.button != SDL_BUTTON_LEFT) {
      return;
    }
    const bool release = input.kind == Input::Kind::Release;
    dragging_ = dragging_ && !release;
    const Bar bar = ScrollBar();
    const int bar_left = width_ - 22;
    const bool on_bar = input.x >= bar_left && input.x < bar_left + 12 && input.y >= bar.top &&
                        input.y < bar.top + bar.length;
    if (on_bar && bar.last > 0) {
      if (!release) {
        PressBar(bar, input.y);
      }
    } else if (input.y > 55 && input.y <= 55 + ListHeight()) {
      ClickList(input);
    } else if (release) {
      ReleaseButtons(input.x, input.y);
    }
  }

  int width_ = 760;
  int height_ = 520;
  std::string dir_;
  std::vector<ModelRow> rows_;
  int selected_ = -1;
  int scroll_ = 0;
  bool dragging_ = false;
  int drag_y_ = 0;
  int drag_scroll_ = 0;
  bool done_ = false;
  std::string result_;
};

// Folders of many rows, of few and of none, one in another, whose files come and go. They are the
// working directory's: from a relative start nothing leads out of them.
class ChangingFolders {
 public:
  ChangingFolders() {
    for (const char* dir : {"many", "many/deep", "few", "none", "few/deep"}) {
      fs::create_directories(fs::path(kTop) / dir);
    }
    for (int i = 0; i < 60; ++i) {
      Write(fs::path("many") / FileName(i));
      Write(fs::path("few/deep") / FileName(2 * i));
    }
    Write(FileName(1));
    Write("notes.txt");
  }

  static constexpr const char* kTop = "floppies";

  void Change(std::mt19937* random) {
    constexpr std::array<const char*, 6> kDirs = {"",    "many", "many/deep",
                                                  "few", "none", "few/deep"};
    const fs::path name =
        fs::path(kDirs[(*random)() % kDirs.size()]) / FileName(static_cast<int>((*random)() % 120));
    std::error_code ignored;
    if (!fs::remove(kTop / name, ignored)) {
      Write(name);
    }
    if ((*random)() % 8 == 0) {
      // Folders come and go too, with the one that may be shown among them.
      const fs::path folder = fs::path(kTop) / "many" / "deep";
      fs::remove_all(folder);
      if ((*random)() % 2 == 0) {
        fs::create_directories(folder);
      }
    }
  }

 private:
  static std::string FileName(int number) {
    return (number % 2 == 0 ? "disk " : "Disk ") + std::to_string(number) +
           (number % 3 == 0 ? ".IMA" : ".img");
  }

  void Write(const fs::path& name) const { root_.Write(kTop / name, ""); }

  TemporaryDirectory root_;
  ScopedWorkingDirectory here_{root_.path()};
};

class RandomInput {
 public:
  explicit RandomInput(unsigned seed) : random_(seed) {}

  int Below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
  std::mt19937* generator() { return &random_; }

  Input Next(int width, int height) {
    Input input;
    switch (Below(10)) {
      case 0:
      case 1:
      case 2:
        input.kind = Input::Kind::Key;
        input.key = NextKey();
        break;
      case 3:
      case 4:
        input.kind = Input::Kind::Wheel;
        input.notches = Below(13) - 6;
        break;
      case 5:
      case 6:
        input.kind = Input::Kind::Motion;
        break;
      default:
        input.kind = Below(2) == 0 ? Input::Kind::Press : Input::Kind::Release;
        break;
    }
    PlacePointer(width, height, &input);
    return input;
  }

 private:
  SDL_Keycode NextKey() {
    const int choice = Below(100);
    if (choice < 10) {
      return choice == 0 ? SDLK_ESCAPE : choice < 6 ? SDLK_RETURN : SDLK_KP_ENTER;
    }
    if (choice < 20) {
      return choice < 15 ? SDLK_PAGEDOWN : SDLK_BACKSPACE;
    }
    return choice < 70 ? SDLK_DOWN : SDLK_UP;
  }

  void PlacePointer(int width, int height, Input* input) {
    input->clicks = static_cast<Uint8>(Below(25) == 0 ? 2 : 1);
    input->button = Below(10) == 0 ? Uint8{SDL_BUTTON_RIGHT} : Uint8{SDL_BUTTON_LEFT};
    input->x = Below(width + 40) - 20;
    input->y = Below(height + 40) - 20;
    if (Below(3) == 0) {
      input->x = width - 24 + Below(16);  // The scroll bar and its edges.
    } else if (Below(12) == 0) {
      input->x = width - 100 + Below(90);  // The accept button and its edges.
      input->y = height - 40 + Below(36);
    }
  }

  std::mt19937 random_;
};

void PushInput(const Input& input) {
  switch (input.kind) {
    case Input::Kind::Key:
      return KeyDown(input.key);
    case Input::Kind::Wheel:
      return Wheel(input.notches);
    case Input::Kind::Motion:
      return Motion(input.x, input.y);
    case Input::Kind::Press:
      return MouseDown(input.x, input.y, input.button, input.clicks);
    case Input::Kind::Release:
      return MouseUp(input.x, input.y, input.button, input.clicks);
  }
}

// One dialog after another until the events are used up.
class RandomSession {
 public:
  explicit RandomSession(unsigned seed) : input_(seed) {}

  void Run() {
    while (events_ < kEvents && !::testing::Test::HasFailure()) {
      RunOneDialog();
    }
    EXPECT_GT(accepted_, 50);
    EXPECT_GT(frames_, 5000);
  }

 private:
  void RunOneDialog() {
    FlushEvents();
    PickerModel model(ChangingFolders::kTop);
    width_ = 760;
    height_ = 520;
    bool first_frame = true;
    SetModalDialogHeartbeat([this, &model, &first_frame] { Step(&model, &first_frame); });
    const std::string result = ShowSimpleFloppyFilePicker(nullptr, ChangingFolders::kTop);
    SetModalDialogHeartbeat({});
    EXPECT_EQ(result, model.result());
    accepted_ += result.empty() ? 0 : 1;
  }

  void Step(PickerModel* model, bool* first_frame) {
    if (*first_frame) {
      *first_frame = false;
      return;
    }
    ++frames_;
    model->DrawFrame();
    Compare(*model);
    if (::testing::Test::HasFailure() || events_ >= kEvents) {
      Quit();
      return;
    }
    ChangeWorld(model);
    for (int i = 0; i < kEventsPerFrame; ++i, ++events_) {
      const Input input = input_.Next(width_, height_);
      PushInput(input);
      model->Apply(input);
    }
  }

  void Compare(const PickerModel& model) const {
    const PickerView view = LookAtPicker();
    ASSERT_EQ(view.labels, model.LabelsInView()) << "after " << events_ << " events";
    ASSERT_EQ(view.selected_on_screen, model.SelectedInView()) << "after " << events_ << " events";
    // In a narrow window the line is cut at its left.
    const bool cut = view.directory.starts_with("...");
    ASSERT_TRUE(model.directory().ends_with(view.directory.substr(cut ? 3 : 0)));
    ASSERT_TRUE(cut || view.directory == model.directory());
  }

  void ChangeWorld(PickerModel* model) {
    if (input_.Below(20) == 0) {
      folders_.Change(input_.generator());
    }
    if (input_.Below(30) == 0) {
      width_ = 400 + input_.Below(600);
      height_ = input_.Below(6) == 0 ? 60 + input_.Below(100) : 200 + input_.Below(700);
      SDL_SetWindowSize(Recorder().newest_window(), width_, height_);
      model->Resize(width_, height_);
    }
  }

  RandomInput input_;
  ChangingFolders folders_;
  int width_ = 760;
  int height_ = 520;
  int events_ = 0;
  int frames_ = 0;
  int accepted_ = 0;
};

class PickerRandomTest : public DialogTest {};

TEST_F(PickerRandomTest, DialogFollowsTheModel) {
  Recorder().SetDrawMode(DrawMode::Recorded);
  Recorder().SetMeasureMode(MeasureMode::Approximate);
  RandomSession(20240531).Run();
}

}  // namespace
}  // namespace quindle::testing
