#pragma once

// A user without a plan: many sessions of one dialog, a batch of random events in every frame, the
// frame compared with what a model of the dialog's rules expects. The seed is fixed, so a failure
// repeats itself.

#include <SDL.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "dialogs/form_checks.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "support/dialog_test.h"

namespace quindle::testing {

inline bool Holds(const SDL_Rect& rect, SDL_Point at) {
  return SDL_PointInRect(&at, &rect) == SDL_TRUE;
}

class RandomSource {
 public:
  explicit RandomSource(unsigned int seed) : engine_(seed) {}

  // A number from 0 up to but not including `end`.
  int Below(int end) { return static_cast<int>(engine_() % static_cast<unsigned int>(end)); }
  bool OneIn(int times) { return Below(times) == 0; }
  template <typename T>
  const T& OneOf(const std::vector<T>& choices) {
    return choices[static_cast<std::size_t>(Below(static_cast<int>(choices.size())))];
  }
  // Points in, at and around the rectangles matter; any other is as good as another.
  SDL_Point PointNear(const std::vector<SDL_Rect>& rects, const SDL_Rect& window) {
    if (OneIn(6)) {
      return {Below(window.w), Below(window.h)};
    }
    const SDL_Rect& rect = OneOf(rects);
    const std::vector<int> xs = {rect.x - 1, rect.x, rect.x + rect.w / 2, rect.x + rect.w - 1,
                                 rect.x + rect.w};
    const std::vector<int> ys = {rect.y - 1, rect.y, rect.y + rect.h / 2, rect.y + rect.h - 1,
                                 rect.y + rect.h};
    return {OneOf(xs), OneOf(ys)};
  }

 private:
  std::mt19937 engine_;
};

// The folder picker in the hands of such a user, in a FolderTree: one key or click in each frame.
class RandomPickerUser {
 public:
  RandomPickerUser(const FolderTree& tree, RandomSource* random) : tree_(tree), random_(random) {}

  void Open(const std::string& folder) {
    open_ = true;
    folder_ = chosen_ = folder;
  }
  bool IsOpen() const { return open_; }
  // The folder when the picker has closed.
  const std::string& chosen() const { return chosen_; }

  // Pushes the events of one frame; returns how many.
  int Act() {
    switch (random_->Below(6)) {
      case 0:
        return Leave([] { KeyDown(SDLK_ESCAPE); });
      case 1:
        return Leave([] { Quit(); });
      case 2:
        chosen_ = folder_;
        return Leave([] { MouseUp(kPickerUseButton.x, kPickerUseButton.y); });
      case 3:
        return GoUp();
      case 4:
        return GoDown();
      default:
        TextInput("9");
        return 1;
    }
  }

 private:
  int Leave(const std::function<void()>& act) {
    act();
    open_ = false;
    return 1;
  }
  int GoUp() {
    if (folder_ == tree_.outer()) {
      return 0;
    }
    folder_ = folder_ == tree_.two() ? tree_.one() : tree_.outer();
    KeyDown(SDLK_RETURN);
    return 1;
  }
  int GoDown() {
    if (folder_ == tree_.two()) {
      return 0;
    }
    folder_ = folder_ == tree_.outer() ? tree_.one() : tree_.two();
    KeyDown(SDLK_DOWN);
    KeyDown(SDLK_RETURN);
    return 2;
  }

  const FolderTree& tree_;
  RandomSource* random_;
  bool open_ = false;
  std::string folder_;
  std::string chosen_;
};

// The frame loop of such a test.
class RandomFormUser {
 public:
  explicit RandomFormUser(unsigned int seed) : random_(seed) {}
  RandomFormUser(const RandomFormUser&) = delete;
  RandomFormUser& operator=(const RandomFormUser&) = delete;
  virtual ~RandomFormUser() = default;

  // Runs sessions until `events` events have been pushed, or the first difference.
  void Run(long events) {
    Recorder().SetDrawMode(DrawMode::Recorded);
    Recorder().SetMeasureMode(MeasureMode::Approximate);
    Recorder().KeepFrames(1);
    frontend::gui::SetModalDialogHeartbeat([this] { Beat(); });
    while (events_ < events && !::testing::Test::HasFailure()) {
      frames_to_rest_ = 1;
      Session();
      FlushEvents();
      ++sessions_;
    }
    frontend::gui::SetModalDialogHeartbeat({});
    // A user who never gets anywhere tests nothing.
    EXPECT_GE(events_, events);
    EXPECT_GE(sessions_, events / 1000);
    EXPECT_GE(pickers_, events / 1000);
  }

 protected:
  static constexpr int kBatch = 20;

  // Shows the dialog once and compares its result with the model's.
  virtual void Session() = 0;
  // Compares the frame with the model.
  virtual void CheckFrame() = 0;
  // Pushes one event and applies it to the model.
  virtual void PushEvent() = 0;
  virtual void StoreChosenFolder(const std::string& folder) = 0;

  // To be called by PushEvent when the event opens the picker.
  void PickerOpens(const std::string& folder) {
    picker_.Open(folder);
    ++pickers_;
  }

  FolderTree tree_;
  RandomSource random_;

 private:
  void Beat() {
    if (::testing::Test::HasFailure()) {
      Quit();
      return;
    }
    // SDL may end a drain early: a frame counts when all that was pushed has been read.
    if (!QueuedEvents().empty() || frames_to_rest_ > 0) {
      --frames_to_rest_;
      return;
    }
    if (picker_.IsOpen()) {
      BeatPicker();
      return;
    }
    CheckFrame();
    PushBatch();
  }

  void BeatPicker() {
    events_ += picker_.Act();
    if (!picker_.IsOpen()) {
      StoreChosenFolder(picker_.chosen());
      frames_to_rest_ = 1;
    }
  }

  // Events behind one that opens the picker would be the picker's.
  void PushBatch() {
    for (int i = 0; i < kBatch && !picker_.IsOpen(); ++i) {
      PushEvent();
      ++events_;
    }
    frames_to_rest_ = picker_.IsOpen() ? 1 : 0;
  }

  RandomPickerUser picker_{tree_, &random_};
  long events_ = 0;
  long sessions_ = 0;
  long pickers_ = 0;
  int frames_to_rest_ = 0;
};

// What such a user does in one form.
struct RandomFormHabits {
  SDL_Rect window;
  std::vector<SDL_Rect> often;   // Where the mouse mostly is.
  std::vector<SDL_Rect> seldom;  // Where it ends the dialog or opens another.
  SDL_Rect cancel;
  int deciding_key_one_in;
  std::vector<std::string> typed;   // Pieces of text.
  std::function<void()> own_noise;  // An event that this form in particular ignores.
};

// The user of a form whose rules `Model` says: Key, Text, Press and Release, which returns true
// when the release opens the picker, and the fields `done` and `folder`.
template <typename Model>
class ModelledFormUser : public RandomFormUser {
 protected:
  ModelledFormUser(unsigned int seed, RandomFormHabits habits)
      : RandomFormUser(seed), habits_(std::move(habits)) {}

  void PushEvent() final {
    switch (random_.Below(10)) {
      case 0:
      case 1:
        PushKey();
        break;
      case 2:
      case 3:
      case 4:
        PushText();
        break;
      case 5:
        PushNoise();
        break;
      default:
        PushButton();
        break;
    }
  }
  void StoreChosenFolder(const std::string& folder) final { model_.folder = folder; }

  Model model_;

 private:
  void PushKey() {
    const std::vector<SDL_Keycode> harmless = {
        SDLK_TAB, SDLK_BACKSPACE, SDLK_BACKSPACE, SDLK_BACKSPACE, SDLK_a, SDLK_DELETE, SDLK_UP};
    const std::vector<SDL_Keycode> deciding = {SDLK_ESCAPE, SDLK_RETURN, SDLK_KP_ENTER};
    const bool decides = random_.OneIn(habits_.deciding_key_one_in);
    const SDL_Keycode key = random_.OneOf(decides ? deciding : harmless);
    KeyDown(key);
    if (!model_.done) {
      model_.Key(key);
    }
  }
  void PushText() {
    const std::string& typed = random_.OneOf(habits_.typed);
    TextInput(typed);
    if (!model_.done) {
      model_.Text(typed);
    }
  }
  void PushNoise() {
    switch (random_.Below(5)) {
      case 0:
        CloseWindow(WindowId() + 1000);
        break;
      case 1:
        KeyUp(SDLK_ESCAPE);
        break;
      case 2:
        MouseUp(habits_.cancel.x + 5, habits_.cancel.y + 5, SDL_BUTTON_RIGHT);
        break;
      case 3:
        habits_.own_noise();
        break;
      default:
        Wheel(1);
        break;
    }
  }
  void PushButton() {
    const bool pressed = random_.OneIn(2);
    const bool is_seldom = random_.OneIn(pressed ? 3 : 15);
    const SDL_Point at =
        random_.PointNear(is_seldom ? habits_.seldom : habits_.often, habits_.window);
    if (pressed) {
      MouseDown(at.x, at.y);
    } else {
      MouseUp(at.x, at.y);
    }
    if (model_.done) {
      return;
    }
    if (pressed) {
      model_.Press(at);
    } else if (model_.Release(at)) {
      PickerOpens(model_.folder);
    }
  }

  RandomFormHabits habits_;
};

}  // namespace quindle::testing
