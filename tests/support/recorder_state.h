#pragma once

// Private to the recorder: what the wrapped functions write and CallRecorder reads.

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <set>
#include <type_traits>

#include "support/call_recorder.h"
#include "support/fake_opengl.h"

namespace quindle::testing {

// One wrapped function; made by the QUINDLE_WRAP macros, linked into a list at start-up. Trivially
// destructible, because the library's own statics call SDL_ttf while the process exits.
struct FunctionSlot {
  FunctionSlot(const char* function_name, bool may_fail);

  const char* name;
  bool can_fail;
  long count = 0;
  bool fail_always = false;
  FunctionSlot* next;
};

FunctionSlot* FirstSlot();
FunctionSlot* FindSlot(std::string_view name);

// A text on its way from SDL_ttf to the renderer.
struct RenderedText {
  std::string text;
  FontUse font;
  SDL_Color color{0, 0, 0, 0};
};

struct WindowState {
  Uint32 id = 0;
  long order = 0;
};

struct RendererState {
  SDL_Window* window = nullptr;
  SDL_Color color{0, 0, 0, 255};
  std::optional<SDL_Rect> clip;
  long order = 0;
};

struct FontState {
  FontUse use;
  std::optional<std::size_t> request;  // Index into font_requests; nothing after a Reset.
};

// Stands in for a texture while nothing is really drawn. Zeros, so that SDL refuses it.
struct FakeTexture {
  unsigned char bytes[512] = {};
};

struct RecorderState {
  std::deque<Call> calls;
  std::vector<WindowRecord> windows;
  std::vector<RendererRecord> renderers;
  std::vector<FontRequest> font_requests;
  std::vector<std::string> urls;
  std::vector<SimpleMessageBox> simple_message_boxes;
  std::deque<Uint32> delays;
  std::vector<std::string> violations;

  std::map<SDL_Window*, WindowState> alive_windows;
  std::map<SDL_Renderer*, RendererState> alive_renderers;
  std::map<SDL_Texture*, std::optional<RenderedText>> alive_textures;
  std::map<SDL_Surface*, std::optional<RenderedText>> alive_surfaces;
  std::map<TTF_Font*, FontState> alive_fonts;
  std::map<SDL_Texture*, SDL_Renderer*> texture_owners;
  std::map<SDL_Texture*, std::unique_ptr<FakeTexture>> fake_textures;
  std::multiset<void*> alive_objects;
  bool text_input = false;
  long creations = 0;

  std::set<const void*> baseline;
  std::set<const void*> ended_with_renderer;  // Textures that their renderer took along.

  Frame unpresented;
  std::deque<Frame> frames;
  std::size_t kept_frames = 64;
  long presents = 0;

  std::multimap<const FunctionSlot*, long> faults;  // To the count at which to fail.
  long faults_hit = 0;
  std::function<bool(const std::string&)> hidden_fonts;
  std::map<std::string, std::string> font_redirects;

  bool real_pointer = false;
  SDL_Window* pointer_focus = nullptr;
  SDL_Point pointer{0, 0};
  Uint32 pointer_buttons = 0;
  DrawMode draw_mode = DrawMode::Forwarded;
  MeasureMode measure_mode = MeasureMode::Real;
  FakeOpenGl opengl;
  bool relative_mouse = false;
  bool sleep_in_delay = false;
  std::optional<std::string> video_driver;
  std::function<void(Uint32)> on_delay;
  std::function<void(int)> on_add_events;
};

// Never destroyed: calls come in until the very end of the process.
RecorderState& State();

// Counts and writes down a call; true when it has to fail.
bool EnterCall(FunctionSlot& slot, const void* subject);

// More than zero while a call of SDL_ttf runs: what that calls itself is not the library's doing.
class InsideTtf {
 public:
  InsideTtf() { ++depth_; }
  ~InsideTtf() { --depth_; }
  InsideTtf(const InsideTtf&) = delete;
  InsideTtf& operator=(const InsideTtf&) = delete;
  InsideTtf(InsideTtf&&) = delete;
  InsideTtf& operator=(InsideTtf&&) = delete;
  static bool IsActive() { return depth_ > 0; }

 private:
  static thread_local int depth_;
};

// The function of that name in the libraries behind the test program.
template <typename Function>
Function* RealFunction(const char* name) {
  void* address = dlsym(RTLD_NEXT, name);
  if (address == nullptr) {
    std::fprintf(stderr, "call recorder: %s is not in the libraries\n", name);
    std::abort();
  }
  return reinterpret_cast<Function*>(address);
}

}  // namespace quindle::testing

// Opens a wrapped function's body: `real` is the function it hides, `slot` its place in the list.
#define QUINDLE_WRAP_SLOT(function, can_fail)                              \
  namespace {                                                              \
  ::quindle::testing::FunctionSlot g_slot_##function{#function, can_fail}; \
  }
#define QUINDLE_REAL(function)                                                                    \
  static auto* const real =                                                                       \
      ::quindle::testing::RealFunction<std::remove_reference_t<decltype(::function)>>(#function); \
  ::quindle::testing::FunctionSlot& slot = g_slot_##function
