#pragma once

// Records what the library asks of SDL and SDL_ttf. Link quindle_test_support and the functions
// named by WrappedFunctions() are defined in the test program itself; each writes down its call and
// then forwards to the real function. Nothing ever reaches the user's pointer, browser or screen:
// URLs and simple message boxes are recorded only, SDL_Delay does not sleep, the pointer is where
// the test puts it, a captured one too.
//
//   CallRecorder& recorder = Recorder();
//   recorder.FailCall("SDL_CreateRenderer", 2);                 // the second call from now
//   recorder.SetPointer(recorder.newest_window(), 30, 40);      // hover
//   ShowSimpleAboutDialog(nullptr, 1.0F);
//   EXPECT_EQ(recorder.windows().back().title, "About Quindle");
//   EXPECT_TRUE(recorder.last_frame().HasText("Close"));
//   EXPECT_THAT(recorder.CallsAmong({"SDL_DestroyRenderer", "SDL_DestroyWindow"}), ...);
//   recorder.ExpectNothingAlive();
//
// Call everything from the thread that runs the dialogs; nothing here is locked. Calls that SDL_ttf
// and SDL make among themselves are not recorded.

#include <SDL.h>
#include <SDL_ttf.h>

#include <cstddef>
#include <deque>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/recorded_frame.h"

namespace quindle::testing {

// One call, in the order made.
struct Call {
  std::string_view function;      // "SDL_ShowWindow"
  const void* subject = nullptr;  // The window, renderer, texture, surface or font; may be null.
  bool made_to_fail = false;
};

struct WindowRecord {
  SDL_Window* window = nullptr;  // Null when the creation failed.
  Uint32 id = 0;
  std::string title;
  int x = 0;
  int y = 0;
  int w = 0;
  int h = 0;
  Uint32 flags = 0;
  SDL_Window* modal_for = nullptr;  // Parent of the last SDL_SetWindowModalFor.
};

struct RendererRecord {
  SDL_Renderer* renderer = nullptr;  // Null when the creation failed.
  SDL_Window* window = nullptr;
  int index = 0;
  Uint32 flags = 0;
};

// One TTF_OpenFont, also a failed one.
struct FontRequest {
  std::string path;
  int size = 0;
  bool opened = false;
  int style = 0;  // As last set with TTF_SetFontStyle.

  bool operator==(const FontRequest&) const = default;
};

struct SimpleMessageBox {
  Uint32 flags = 0;
  std::string title;
  std::string text;
  SDL_Window* parent = nullptr;
};

// What has been made and not released, leaving out what existed at the last Reset or MarkBaseline.
struct AliveCounts {
  std::size_t windows = 0;
  std::size_t renderers = 0;
  std::size_t textures = 0;
  std::size_t surfaces = 0;
  std::size_t fonts = 0;
  std::size_t shared_objects = 0;
  bool text_input = false;

  bool operator==(const AliveCounts&) const = default;
};
void PrintTo(const AliveCounts& counts, std::ostream* out);
void PrintTo(const FontRequest& request, std::ostream* out);
void PrintTo(const SimpleMessageBox& box, std::ostream* out);

enum class DrawMode {
  Forwarded,  // Recorded and really drawn.
  Recorded,   // Recorded, not drawn: a frame costs microseconds.
  Counted,    // Neither; only CallCount() and presents() go on.
};

enum class MeasureMode {
  Real,        // SDL_ttf measures.
  Approximate  // 55 % of the font size for each character; needs no glyphs.
};

class CallRecorder {
 public:
  // Forgets all that was recorded, every fault, answer and mode; what is alive becomes the
  // baseline.
  void Reset();
  // What is alive now no longer counts in alive() and ExpectNothingAlive().
  void MarkBaseline();

  // --- What was called ---

  // At most the last 100,000 calls.
  const std::deque<Call>& calls() const;
  // Calls of a function since Reset, however many. A name that is not wrapped fails the test.
  long CallCount(std::string_view function) const;
  // The names of the recorded calls of these functions, in order; with a subject only those on it.
  std::vector<std::string> CallsAmong(std::initializer_list<std::string_view> functions,
                                      const void* subject = nullptr) const;
  // The names of all recorded calls in order, without those that only ask (SDL_Get...).
  std::vector<std::string> CallsButQuestions() const;
  void ForgetCalls();

  const std::vector<WindowRecord>& windows() const;
  const std::vector<RendererRecord>& renderers() const;
  const std::vector<FontRequest>& font_requests() const;
  const std::vector<std::string>& urls() const;
  const std::vector<SimpleMessageBox>& simple_message_boxes() const;
  // Milliseconds of each SDL_Delay; at most the last 100,000.
  const std::deque<Uint32>& delays() const;

  // --- What was drawn ---

  // Presents of all renderers since Reset.
  long presents() const;
  // The frame of the latest present; empty before the first one.
  const Frame& last_frame() const;
  // The last frames, oldest first; by default at most 64 are kept.
  const std::deque<Frame>& frames() const;
  void KeepFrames(std::size_t count);
  // What was drawn since the last present.
  const Frame& unpresented() const;
  void ForgetDraws();

  // --- What is there ---

  // The window or renderer made last and still alive; null when there is none. While a dialog is
  // open these are the dialog's.
  SDL_Window* newest_window() const;
  Uint32 newest_window_id() const;  // 0 when there is none.
  SDL_Renderer* newest_renderer() const;
  SDL_Window* WindowOf(SDL_Renderer* renderer) const;
  AliveCounts alive() const;
  // Fails the test when something is alive beyond the baseline, or when a handle was released twice
  // or in an order that SDL does not allow. Empty the font cache first.
  void ExpectNothingAlive() const;
  // Misuse seen so far: handles released twice, a window before its renderer, ...
  const std::vector<std::string>& violations() const;

  // --- Faults ---

  // The `nth` call from now (1 is the next) returns the function's failure value and does nothing
  // else. Several faults may wait at once. A function that cannot fail fails the test.
  void FailCall(std::string_view function, long nth = 1);
  void FailAlways(std::string_view function);
  void ClearFaults();
  // How many calls were made to fail since Reset.
  long faults_hit() const;
  // Fonts for whose path `hidden` returns true do not open; an empty function hides none.
  void HideFonts(std::function<bool(const std::string& path)> hidden);
  void HideAllFonts();
  // Hides fonts at absolute paths, also Windows' own.
  void HideSystemFonts();
  // Opens `file` instead when the library asks for `path`, whether that exists or not.
  void RedirectFont(std::string path, std::string file);

  // --- Answers ---

  // Answers SDL_GetMouseFocus and SDL_GetMouseState. `buttons` is a mask such as SDL_BUTTON_LMASK.
  void SetPointer(SDL_Window* focus, int x, int y, Uint32 buttons = 0);
  // No window has the mouse: the state after Reset.
  void ClearPointer();
  // Ask SDL for the pointer: for tests on a display of their own.
  void UseRealPointer();
  // From now on there is an OpenGL, answered here as well, and the context that is returned is
  // current on `window`. Every renderer made from now on works with a context of its own, as SDL's
  // do: it is current once the renderer is made or presents, and none is once the renderer is gone.
  // Making one leaves another kind of context asked for, and all swap intervals at 0.
  SDL_GLContext StartOpenGl(SDL_Window* window);
  void SetDrawMode(DrawMode mode);
  void SetMeasureMode(MeasureMode mode);
  // Answers SDL_GetCurrentVideoDriver, for what the library does on one system and not on another;
  // nothing else is as on that system.
  void SetVideoDriver(std::string name);
  // Whether SDL_Delay really sleeps; off after Reset.
  void SleepInDelay(bool sleep);
  // Called in SDL_Delay, the end of each frame; for tests that act without a heartbeat.
  void OnDelay(std::function<void(Uint32 milliseconds)> action);
  // Called before SDL_PeepEvents adds events, which is when another thread may add its own.
  void OnAddEvents(std::function<void(int count)> action);
};

// The one recorder of the test program.
CallRecorder& Recorder();

// Names of all wrapped functions, sorted; with `failing_only` those that FailCall accepts.
std::vector<std::string> WrappedFunctions(bool failing_only = false);

}  // namespace quindle::testing
