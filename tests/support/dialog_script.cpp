#include "support/dialog_script.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <utility>
#include <vector>

#include "frontend/gui/sdl_modal_runtime.h"

namespace quindle::testing {
namespace {

// Nested dialogs need one quit each; beyond this many, only an exception gets the test out.
constexpr int kMaxIgnoredQuits = 50;

}  // namespace

// Shared with the installed heartbeat, of which the library may hold a copy.
struct DialogScript::Shared {
  std::vector<std::function<void()>> steps;
  std::function<void()> each_frame;
  std::size_t next = 0;
  int frames = 0;
  int budget = 0;
  bool over_budget = false;
  bool may_end_early = false;

  void Beat();
};

void DialogScript::Shared::Beat() {
  ++frames;
  if (frames > budget) {
    if (!std::exchange(over_budget, true)) {
      ADD_FAILURE() << "the dialog was still open after " << budget << " frames, with " << next
                    << " of " << steps.size() << " steps done";
    }
    if (frames > budget + kMaxIgnoredQuits) {
      throw std::runtime_error("the dialog ignores a quit");
    }
    Quit();
    return;
  }
  if (each_frame) {
    each_frame();
  }
  if (next < steps.size()) {
    // A copy: the step may add steps, and counts as done even when it throws or opens a dialog.
    const std::function<void()> step = steps[next++];
    if (step) {
      step();
    }
  }
}

DialogScript::DialogScript(int budget) : shared_(std::make_shared<Shared>()) {
  shared_->budget = budget;
  frontend::gui::SetModalDialogHeartbeat([shared = shared_] { shared->Beat(); });
}

DialogScript::~DialogScript() {
  frontend::gui::SetModalDialogHeartbeat({});
  if (!shared_->may_end_early && !shared_->over_budget && !IsFinished()) {
    ADD_FAILURE() << "the dialog ended after " << shared_->next << " of " << shared_->steps.size()
                  << " steps";
  }
}

DialogScript& DialogScript::Step(std::function<void()> action) {
  shared_->steps.push_back(std::move(action));
  return *this;
}

DialogScript& DialogScript::Wait(int frames) {
  return Repeat(frames, {});
}

DialogScript& DialogScript::Repeat(int frames, const std::function<void()>& action) {
  for (int i = 0; i < frames; ++i) {
    Step(action);
  }
  return *this;
}

DialogScript& DialogScript::EachFrame(std::function<void()> action) {
  shared_->each_frame = std::move(action);
  return *this;
}

DialogScript& DialogScript::MayEndEarly() {
  shared_->may_end_early = true;
  return *this;
}

bool DialogScript::IsFinished() const {
  return shared_->next == shared_->steps.size();
}

int DialogScript::frames() const {
  return shared_->frames;
}

SDL_Color PixelAt(int x, int y, SDL_Renderer* renderer) {
  const SDL_Rect one{x, y, 1, 1};
  std::array<Uint8, 4> rgba{};
  SDL_Renderer* const source = renderer == nullptr ? Recorder().newest_renderer() : renderer;
  EXPECT_EQ(SDL_RenderReadPixels(source, &one, SDL_PIXELFORMAT_RGBA32, rgba.data(), 4), 0)
      << SDL_GetError();
  return {rgba[0], rgba[1], rgba[2], rgba[3]};
}

}  // namespace quindle::testing
