#include "frontend/gui/testing/driver_script.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "frontend/gui/testing/user_input.h"

namespace quindle::frontend::gui::testing {
namespace {

// A dialog that a step opens shows its window in the frame behind, one that it closes is gone.
constexpr int kFreeFrames = 1;
// A window that is none of the library's dialogs never becomes one.
constexpr int kMostFramesWithoutDialog = 50;
// As many as a dialog may need to end after the last step.
constexpr int kMostFramesBehindEnd = 3;
// Beyond this, a dialog ignores its close event, or the host asks again and again.
constexpr int kMostClosingFrames = 200;

// Identifies the driver that was made last; it never calls.
const void* g_newest_script = nullptr;

std::string StepWords(std::size_t step, const std::string& words) {
  return "step " + std::to_string(step) + " (" + words + ")";
}

}  // namespace

DialogDriver::Script::Script(std::function<void()> host_heartbeat)
    : host_heartbeat_(std::move(host_heartbeat)) {
  g_newest_script = this;
  SDL_AddEventWatch(&WatchShownWindows, this);
}

DialogDriver::Script::~Script() {
  SDL_DelEventWatch(&WatchShownWindows, this);
  for (const Uint32 id : shown_windows_) {
    if (SDL_Window* window = SDL_GetWindowFromID(id)) {
      SDL_SetWindowData(window, kDrivenPointerKey, nullptr);
    }
  }
}

int DialogDriver::Script::WatchShownWindows(void* self, SDL_Event* event) {
  if (event->type == SDL_WINDOWEVENT && event->window.event == SDL_WINDOWEVENT_SHOWN) {
    static_cast<Script*>(self)->SeeShownWindow(event->window.windowID);
  }
  return 0;
}

// A newer driver has taken over by right.
bool DialogDriver::Script::LostHeartbeat() const {
  return g_newest_script == this && weak_from_this().use_count() < 2;
}

// Without the heartbeat nobody would ever close a dialog, and the test would hang.
void DialogDriver::Script::SeeShownWindow(Uint32 id) {
  shown_windows_.push_back(id);
  const std::optional<DrivenDialog> dialog = Innermost();
  if (LostHeartbeat() && dialog && SDL_GetWindowID(dialog->window) == id) {
    if (failure_.empty()) {
      failure_ =
          "the heartbeat was taken from the driver, which wants the host's as its argument; "
          "open was " +
          DescribeDialog(*dialog);
    }
    PushClose(dialog->window);
  }
}

std::optional<DrivenDialog> DialogDriver::Script::Innermost() const {
  const auto open = [](Uint32 id) {
    SDL_Window* const window = SDL_GetWindowFromID(id);
    return window != nullptr && SDL_GetWindowData(window, kOpenDialogKey) != nullptr;
  };
  const auto id = std::find_if(shown_windows_.rbegin(), shown_windows_.rend(), open);
  if (id == shown_windows_.rend()) {
    return std::nullopt;
  }
  SDL_Window* const window = SDL_GetWindowFromID(*id);
  return DrivenDialog{window,
                      *static_cast<const OpenDialog*>(SDL_GetWindowData(window, kOpenDialogKey))};
}

void DialogDriver::Script::AddStep(const std::string& words, std::vector<DriverAction> actions) {
  ++steps_;
  for (DriverAction& action : actions) {
    parts_.push_back({steps_, words, std::move(action)});
  }
}

void DialogDriver::Script::Beat() {
  if (host_heartbeat_) {
    host_heartbeat_();
  }
  if (!failure_.empty()) {
    CloseDialogs();
  } else if (free_frames_ > 0) {
    --free_frames_;
  } else {
    DoNextPart();
  }
}

void DialogDriver::Script::DoNextPart() {
  const std::optional<DrivenDialog> dialog = Innermost();
  if (!dialog) {
    if (++frames_without_ > kMostFramesWithoutDialog) {
      Fail("the driver found no dialog; it must be made before the dialog opens");
    }
    return;
  }
  frames_without_ = 0;
  if (next_ == parts_.size()) {
    if (++frames_behind_end_ > kMostFramesBehindEnd) {
      Fail("no step is left; still open was " + DescribeDialog(*dialog));
    }
    return;
  }
  // A copy, and counted first: the action may throw, or open a dialog that goes on with the next.
  const Part part = parts_[next_++];
  free_frames_ = kFreeFrames;
  frames_behind_end_ = 0;
  const std::string problem = part.action(*dialog);
  if (!problem.empty()) {
    Fail(StepWords(part.step, part.words) + ": " + problem + "; open was " +
         DescribeDialog(*dialog));
  }
}

void DialogDriver::Script::Fail(const std::string& failure) {
  failure_ = failure;
  CloseDialogs();
}

void DialogDriver::Script::CloseDialogs() {
  if (++closing_frames_ > kMostClosingFrames) {
    throw std::runtime_error(failure_);
  }
  if (const std::optional<DrivenDialog> dialog = Innermost()) {
    PushClose(dialog->window);
  } else {
    PushQuit();
  }
}

std::string DialogDriver::Script::Failure() const {
  if (!failure_.empty() || next_ == parts_.size()) {
    return failure_;
  }
  const Part& part = parts_[next_];
  return StepWords(part.step, part.words) + ": no dialog was open any more";
}

void DialogDriver::Script::PutPointer(SDL_Window* window, const ModalPointer& pointer) {
  pointer_ = pointer;
  SDL_SetWindowData(window, kDrivenPointerKey, &pointer_);
}

DialogDriver::DialogDriver(std::function<void()> host_heartbeat)
    : script_(std::make_shared<Script>(std::move(host_heartbeat))) {
  SetModalDialogHeartbeat([script = script_] { script->Beat(); });
}

DialogDriver::~DialogDriver() {
  SetModalDialogHeartbeat(script_->HostHeartbeat());
}

std::string DialogDriver::failure() const {
  return script_->Failure();
}

}  // namespace quindle::frontend::gui::testing
