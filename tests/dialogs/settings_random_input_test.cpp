// The settings dialog under random input, against a model of its rules. The model knows where the
// controls stand and what they do; it shares no code with the library.

#include <algorithm>
#include <fstream>
#include <functional>
#include <optional>
#include <random>
#include <stdexcept>

#include "dialogs/settings_canvas.h"

namespace quindle::frontend::gui {
namespace {

using testing::DialogTest;
using testing::Fields;
using testing::FlushEvents;
using testing::Recorder;
using testing::TemporaryDirectory;

constexpr int kEvents = 200'000;
constexpr unsigned kSeed = 20'240'613;

constexpr int kFontMode = 0;
constexpr int kTargetFps = 1;
constexpr int kRenderer = 2;
constexpr int kHddSounds = 5;
constexpr int kMouseCapture = 6;
constexpr int kScreenshots = 7;
// The page of each row of the list; -1 for headings.
constexpr int kRowPages[] = {-1, 0, 1, 2, 7, -1, 6, -1, 3, -1, 4, -1, 5};

bool Within(const SDL_Point& p, int x, int y, int w, int h) {
  return p.x >= x && p.x <= x + w - 1 && p.y >= y && p.y <= y + h - 1;
}

struct ApplyFailed : std::runtime_error {
  ApplyFailed() : std::runtime_error("apply failed") {}
};

// What the dialog must be after each frame.
class SettingsModel {
 public:
  SettingsModel(SettingsDialogValues initial, int top, int row_height, std::string chosen_font)
      : values(std::move(initial)),
        top_(top),
        row_height_(row_height),
        chosen_font_(std::move(chosen_font)) {}

  void BeginFrame(std::optional<SDL_Point> pointer, bool left_held) {
    pointer_ = pointer.value_or(SDL_Point{-1, -1});
    held_ = pointer.has_value() && left_held;
    clicked_ = false;
  }

  // False when the frame is over with this press.
  bool Press(const SDL_Point& p, bool apply_throws) {
    if (Within(p, 618, 449, 90, 30)) {
      closed = true;
    } else if (Within(p, 718, 449, 90, 30)) {
      expected_applies.push_back(values);
      ++applies;
      thrown = apply_throws;
    } else if (const int row = RowAt(p); row >= 0) {
      page = kRowPages[row];
    } else if (p.x > 224 && p.y < 436) {
      clicked_ = true;
    }
    return !closed && !thrown;
  }

  void EndFrame() {
    const bool held = held_ && pointer_.x > 224 && pointer_.y < 436;
    if (clicked_) {
      ClickPage();
    }
    if (held) {
      DragPage();
    }
  }

  void ChooseFont() {
    values.custom_font_path = chosen_font_;
    values.font_mode = "ttf-custom";
  }

  SettingsDialogValues values;
  int page = 0;
  long applies = 0;
  std::vector<SettingsDialogValues> expected_applies;  // Not yet seen.
  bool closed = false;
  bool thrown = false;
  bool picker_due = false;

 private:
  static int RowAt(const SDL_Point& p) {
    for (int row = 0; row < 13; ++row) {
      if (kRowPages[row] >= 0 && Within(p, 0, 10 + 30 * row, 224, 30)) {
        return row;
      }
    }
    return -1;
  }

  std::optional<std::size_t> Choice(int below_top, std::size_t options) const {
    for (std::size_t i = 0; i < options; ++i) {
      if (Within(pointer_, 247, top_ + below_top + 34 * static_cast<int>(i), 561, 34)) {
        return i;
      }
    }
    return std::nullopt;
  }

  bool OverCheckbox(int below_top) const {
    return Within(pointer_, 243, top_ + below_top - 5, 583, row_height_);
  }

  void ClickPage() {
    if (page == kFontMode) {
      const bool browse =
          values.font_mode == "ttf-custom" && Within(pointer_, 712, top_ + 144, 96, 28);
      if (const auto i = Choice(0, 4)) {
        values.font_mode = std::vector{"pixel", "ttf", "ttf-hires", "ttf-custom"}[*i];
      }
      picker_due = browse;
    } else if (page == kTargetFps) {
      if (const auto i = Choice(0, 4)) {
        values.target_fps = std::vector{25, 30, 50, 60}[*i];
      }
    } else if (page == kRenderer) {
      if (const auto i = Choice(0, 2)) {
        values.renderer_mode = *i == 0 ? "hardware" : "software";
      }
    } else if (page == kScreenshots) {
      if (const auto i = Choice(146, 2)) {
        values.screenshot_capture_size_mode = static_cast<int>(*i);
      }
      values.screenshot_capture_with_opengl_shaders ^= OverCheckbox(86);
    } else if (page == kHddSounds) {
      values.hdd_sounds_enabled ^= OverCheckbox(0);
    } else if (page == kMouseCapture) {
      values.allow_mouse_capture_in_text_mode ^= OverCheckbox(78);
    }
  }

  void DragPage() {
    const double fraction = std::clamp((pointer_.x - 247) / 280.0, 0.0, 1.0);
    if (page == kHddSounds && Within(pointer_, 239, top_ + 58, 296, 20)) {
      values.hdd_sounds_volume = fraction;
    } else if (page == kMouseCapture && Within(pointer_, 239, top_ + 20, 296, 20)) {
      values.mouse_capture_gain = 0.25 + fraction * 2.75;
    }
  }

  int top_;
  int row_height_;
  std::string chosen_font_;
  SDL_Point pointer_{-1, -1};
  bool held_ = false;
  bool clicked_ = false;
};

class SettingsRandomInput : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    MakeParent();
    std::ofstream(folder_.path() / "alpha.ttf") << "font";
    std::ofstream(folder_.path() / "beta.ttf") << "font";
    bundle_ = CreateModalWindowBundle(nullptr, "Settings", 60, 50, 820, 492, SDL_WINDOW_HIDDEN,
                                      ModalRendererMode::Software);
    session_.window = bundle_.window.get();
    session_.renderer = bundle_.renderer.get();
    session_.bold_font = OpenSdlUiFontHandle(15, true, SdlUiFontKind::Ui);
    session_.regular_font = OpenSdlUiFontHandle(15, false, SdlUiFontKind::Ui);
    session_.nav_items = &nav_items_;
    session_.cancel_button = {618, 449, 90, 30};
    session_.apply_button = {718, 449, 90, 30};
    session_.values.custom_font_path = (folder_.path() / "alpha.ttf").string();
    session_.panel_id = 0;
    Recorder().SetMeasureMode(testing::MeasureMode::Approximate);
    const int bold_height = TTF_FontHeight(session_.bold_font.get());
    const int height = TTF_FontHeight(session_.regular_font.get());
    top_ = 20 + bold_height + 6 + height + 20;
    model_.emplace(session_.values, top_, std::max(height, 16) + 10,
                   (folder_.path() / "beta.ttf").string());
    Recorder().SetDrawMode(testing::DrawMode::Counted);
  }

  void TearDown() override {
    session_ = SettingsDialogSession();
    bundle_ = ModalWindowBundle();
    DialogTest::TearDown();
  }

  int Below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
  bool OneIn(int chance) { return Below(chance) == 0; }

  // Often on or beside something that reacts.
  SDL_Point RandomPoint() {
    switch (Below(8)) {
      case 0:
        return {Below(840) - 10, Below(512) - 10};
      case 1:
        return {Below(232) - 2, 4 + Below(400)};
      case 2:
        return {712 + Below(104) - 4, top_ + 144 + Below(36) - 4};
      case 3:
        return {239 + Below(304) - 4, top_ + 18 + Below(66)};
      case 4:
        return {610 + Below(204), 444 + Below(40)};
      case 5:
        return {220 + Below(10), 425 + Below(20)};
      default:
        return {243 + Below(590) - 4, top_ - 10 + Below(240)};
    }
  }

  Uint32 RandomWindowId() {
    return OneIn(10) ? (OneIn(2) ? 0 : SDL_GetWindowID(MakeParent()))
                     : SDL_GetWindowID(session_.window);
  }

  // Pushes a left press and tells the model; false when the frame is over with it.
  bool PushPress() {
    SDL_Point point = RandomPoint();
    if (Within(point, 618, 449, 90, 30) && !OneIn(20)) {
      point.x += 100;  // Cancel would end most frames.
    }
    const Uint32 id = RandomWindowId();
    testing::MouseDown(point.x, point.y, SDL_BUTTON_LEFT, 1, id);
    return id != SDL_GetWindowID(session_.window) || model_->Press(point, OneIn(50));
  }

  bool PushEnding() {
    const Uint32 own = SDL_GetWindowID(session_.window);
    const Uint32 id = RandomWindowId();
    switch (Below(3)) {
      case 0:
        testing::KeyDown(SDLK_ESCAPE, id);
        model_->closed = id == own;
        break;
      case 1:
        testing::CloseWindow(id);
        model_->closed = id == own;
        break;
      default:
        testing::Quit();
        model_->closed = true;
    }
    return !model_->closed;
  }

  void PushNoise() {
    const SDL_Point point = RandomPoint();
    const Uint32 id = RandomWindowId();
    switch (Below(6)) {
      case 0:
        testing::MouseUp(point.x, point.y, SDL_BUTTON_LEFT, 1, id);
        break;
      case 1:
        testing::MouseDown(point.x, point.y, SDL_BUTTON_RIGHT, 1, id);
        break;
      case 2:
        testing::KeyDown(OneIn(2) ? SDLK_RETURN : SDLK_TAB, id);
        break;
      case 3:
        testing::KeyUp(SDLK_ESCAPE, id);
        break;
      case 4:
        testing::Wheel(Below(7) - 3, 0, point, id);
        break;
      default:
        testing::WindowEvent(id, SDL_WINDOWEVENT_FOCUS_LOST);
    }
  }

  bool PushEvent() {
    ++events_;
    if (OneIn(400)) {
      return PushEnding();
    }
    if (OneIn(3)) {
      PushNoise();
      return true;
    }
    return PushPress();
  }

  void SetRandomPointer() {
    const bool browse = model_->page == kFontMode && OneIn(2);
    const SDL_Point point = browse ? SDL_Point{760, top_ + 160} : RandomPoint();
    const bool left = OneIn(2);
    const Uint32 buttons = (left ? SDL_BUTTON_LMASK : 0U) | (OneIn(4) ? SDL_BUTTON_RMASK : 0U);
    std::optional<SDL_Point> seen;
    if (OneIn(8)) {
      Recorder().SetPointer(OneIn(2) ? MakeParent() : nullptr, point.x, point.y, buttons);
    } else {
      Recorder().SetPointer(session_.window, point.x, point.y, buttons);
      seen = point;
    }
    model_->BeginFrame(seen, left);
  }

  // The user of the nested font picker.
  void UsePicker() {
    ASSERT_TRUE(model_->picker_due) << "a picker that nobody asked for";
    model_->picker_due = false;
    ++pickers_;
    if (OneIn(2)) {
      testing::KeyDown(SDLK_ESCAPE);
    } else {
      testing::KeyDown(SDLK_END);  // Not a key of the picker.
      testing::KeyDown(SDLK_DOWN);
      testing::KeyDown(SDLK_DOWN);
      testing::KeyDown(SDLK_RETURN);
      model_->ChooseFont();
    }
    resting_ = 1;
  }

  void CheckAgainstModel() {
    ASSERT_EQ(Fields(session_.values), Fields(model_->values)) << "after event " << events_;
    ASSERT_EQ(session_.panel_id, model_->page) << "after event " << events_;
    ASSERT_EQ(applies_, model_->applies) << "after event " << events_;
  }

  // One frame of the user; the heartbeat.
  void PlayFrame() {
    if (Recorder().newest_window() != session_.window) {
      UsePicker();
      return;
    }
    CheckAgainstModel();
    ASSERT_FALSE(model_->picker_due) << "no picker after event " << events_;
    if (HasFatalFailure() || events_ >= kEvents) {
      testing::Quit();
      model_->closed = true;
      return;
    }
    SetRandomPointer();
    // A sentinel of the picker's last poll may hide what is pushed now.
    bool goes_on = true;
    if (resting_ > 0) {
      --resting_;
    } else {
      for (int left = Below(24); left > 0 && goes_on; --left) {
        goes_on = PushEvent();
      }
    }
    if (goes_on) {
      model_->EndFrame();
    } else if (OneIn(2)) {
      PushNoise();  // Stays unread.
    }
  }

  void ExpectApplied(const SettingsDialogValues& values) {
    ++applies_;
    ASSERT_FALSE(model_->expected_applies.empty());
    EXPECT_EQ(Fields(values), Fields(model_->expected_applies.front()));
    model_->expected_applies.erase(model_->expected_applies.begin());
    if (model_->thrown && model_->expected_applies.empty()) {
      throw ApplyFailed();
    }
  }

  // Until the model says that it closes; false when apply threw.
  bool RunOnce() {
    try {
      RunSettingsDialogLoop(&session_,
                            [this](const SettingsDialogValues& values) { ExpectApplied(values); });
    } catch (const ApplyFailed&) {
      return false;
    }
    return true;
  }

  std::mt19937 random_{kSeed};
  TemporaryDirectory folder_;
  ModalWindowBundle bundle_;
  std::vector<NavItem> nav_items_ = BuildSettingsNavItems();
  SettingsDialogSession session_;
  std::optional<SettingsModel> model_;
  int top_ = 0;
  int resting_ = 0;
  int events_ = 0;
  long applies_ = 0;
  long pickers_ = 0;
};

TEST_F(SettingsRandomInput, DialogFollowsTheModel) {
  int openings = 0;
  int failed_applies = 0;
  while (events_ < kEvents && !HasFailure()) {
    FlushEvents();
    model_->closed = false;
    model_->thrown = false;
    resting_ = 0;
    SetModalDialogHeartbeat([this] {
      PlayFrame();
      if (HasFatalFailure()) {
        testing::Quit();
      }
    });
    const bool ended = RunOnce();
    ++openings;
    failed_applies += ended ? 0 : 1;
    if (!HasFailure()) {
      EXPECT_EQ(ended, model_->closed);
      EXPECT_EQ(!ended, model_->thrown);
      CheckAgainstModel();
    }
  }
  SetModalDialogHeartbeat({});
  EXPECT_GE(events_, kEvents);
  // The run is worth something only when it comes everywhere.
  EXPECT_GT(openings, 500);
  EXPECT_GT(failed_applies, 50);
  EXPECT_GT(applies_, 5000);
  EXPECT_GT(pickers_, 50);
  std::cout << events_ << " events, " << openings << " openings, " << applies_ << " applies, "
            << failed_applies << " of them failed, " << pickers_ << " pickers\n";
}

}  // namespace
}  // namespace quindle::frontend::gui
