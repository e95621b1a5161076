#pragma once

// Private. The driver's list of steps, and the heartbeat that does them.

#include <SDL.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "frontend/gui/sdl_modal_frame.h"
#include "frontend/gui/testing/dialog_driver.h"
#include "frontend/gui/testing/driven_dialog.h"

namespace quindle::frontend::gui::testing {

class DialogDriver::Script : public std::enable_shared_from_this<DialogDriver::Script> {
 public:
  explicit Script(std::function<void()> host_heartbeat);
  ~Script();
  Script(const Script&) = delete;
  Script& operator=(const Script&) = delete;
  Script(Script&&) = delete;
  Script& operator=(Script&&) = delete;

  // `words` name the step in a failure. The actions are done in frames of their own, at least one
  // whole frame of the dialog apart.
  void AddStep(const std::string& words, std::vector<DriverAction> actions);
  // The modal heartbeat.
  void Beat();

  [[nodiscard]] std::string Failure() const;
  [[nodiscard]] const std::function<void()>& HostHeartbeat() const { return host_heartbeat_; }

  // Puts the pointer that settings read on their page; it stays there.
  void PutPointer(SDL_Window* window, const ModalPointer& pointer);

 private:
  struct Part {
    std::size_t step = 0;  // Number of the step, from 1.
    std::string words;
    DriverAction action;
  };

  static int SDLCALL WatchShownWindows(void* self, SDL_Event* event);
  // Whether the host has installed another heartbeat. The installed one is an owner of this.
  [[nodiscard]] bool LostHeartbeat() const;
  void SeeShownWindow(Uint32 id);
  [[nodiscard]] std::optional<DrivenDialog> Innermost() const;
  void DoNextPart();
  void Fail(const std::string& failure);
  void CloseDialogs();

  std::function<void()> host_heartbeat_;
  std::vector<Part> parts_;
  std::vector<Uint32> shown_windows_;
  ModalPointer pointer_;
  std::string failure_;
  std::size_t steps_ = 0;
  std::size_t next_ = 0;       // The part that is due.
  int free_frames_ = 0;        // Frames before it is done.
  int frames_without_ = 0;     // Frames in a row in which no dialog was found.
  int frames_behind_end_ = 0;  // Frames with a dialog behind the last part.
  int closing_frames_ = 0;     // Frames since the failure.
};

}  // namespace quindle::frontend::gui::testing
