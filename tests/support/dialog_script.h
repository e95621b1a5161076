#pragma once

// Plays the user of a dialog whose Show function blocks: one step in each frame, first thing in it,
// as the installed heartbeat.
//
//   DialogScript script;
//   script.Step([] { TextInput("disk2"); })
//       .Step([] { EXPECT_TRUE(Recorder().last_frame().HasText("disk2")); KeyDown(SDLK_RETURN); });
//   const auto result = ShowSimpleHddCreateDialog(...);
//   EXPECT_TRUE(script.IsFinished());
//
// A step sees the frame that the step before it caused. Leave one Wait() behind a step whose event
// opens a nested dialog: SDL's poll sentinel may keep the nested dialog from reading what the next
// step pushes in its first frame. When the dialog is still open after the last step and the frame
// budget is used up, the script fails the test and pushes a quit in each frame, so that the dialog
// ends; one that ignores 50 of them is left by an exception. It also fails the test when the dialog
// ended before the last step.

#include <SDL.h>

#include <functional>
#include <memory>

#include "support/call_recorder.h"
#include "support/push_events.h"
#include "support/sdl_values.h"

namespace quindle::testing {

class DialogScript {
 public:
  static constexpr int kDefaultBudget = 200;

  // Installs itself as the heartbeat. `budget` is the most frames, of all dialogs together.
  explicit DialogScript(int budget = kDefaultBudget);
  // Takes the heartbeat away and reports steps that did not run.
  ~DialogScript();
  DialogScript(const DialogScript&) = delete;
  DialogScript& operator=(const DialogScript&) = delete;
  DialogScript(DialogScript&&) = delete;
  DialogScript& operator=(DialogScript&&) = delete;

  // A step may throw, open a dialog (the nested loop goes on with the steps behind it) or replace
  // the heartbeat.
  DialogScript& Step(std::function<void()> action);
  // Frames in which nothing happens.
  DialogScript& Wait(int frames = 1);
  // The same action in a number of frames.
  DialogScript& Repeat(int frames, const std::function<void()>& action);
  // Runs in every frame, before its step.
  DialogScript& EachFrame(std::function<void()> action);
  // The dialog may end before the last step.
  DialogScript& MayEndEarly();

  bool IsFinished() const;
  // Heartbeats so far.
  int frames() const;

 private:
  struct Shared;
  std::shared_ptr<Shared> shared_;
};

// The pixel of the last presented frame of a renderer, by default of the dialog that is open.
SDL_Color PixelAt(int x, int y, SDL_Renderer* renderer = nullptr);

}  // namespace quindle::testing
