// SDL's functions as the library sees them in a test program: written down, then forwarded. Those
// that would reach the user (pointer, browser, message box, sleeping) are answered here.

#include <SDL.h>
#include <SDL_syswm.h>

#include <algorithm>
#include <memory>

#include "support/recorder_state.h"

// SDL's headers declare these functions with C linkage.
using quindle::testing::DrawCall;
using quindle::testing::DrawKind;
using quindle::testing::DrawMode;
using quindle::testing::EnterCall;
using quindle::testing::FakeTexture;
using quindle::testing::Frame;
using quindle::testing::InsideTtf;
using quindle::testing::RealFunction;
using quindle::testing::RecorderState;
using quindle::testing::RenderedText;
using quindle::testing::RendererState;
using quindle::testing::State;

namespace {

constexpr std::size_t kMaxDelays = 100'000;

bool IsDrawing() {
  return State().draw_mode == DrawMode::Forwarded;
}

RendererState* FindRenderer(SDL_Renderer* renderer) {
  const auto found = State().alive_renderers.find(renderer);
  return found == State().alive_renderers.end() ? nullptr : &found->second;
}

void AddViolation(const char* what) {
  State().violations.emplace_back(what);
}

// Asks SDL itself, so that the question is not taken for the library's.
SDL_Rect WholeWindow(SDL_Renderer* renderer) {
  static auto* const get_size = RealFunction<void(SDL_Window*, int*, int*)>("SDL_GetWindowSize");
  SDL_Rect whole{0, 0, 0, 0};
  if (const RendererState* found = FindRenderer(renderer)) {
    get_size(found->window, &whole.w, &whole.h);
  }
  return whole;
}

// Adds a draw call with the colour and clip rectangle in force to the frame in the making.
DrawCall* AddDraw(SDL_Renderer* renderer, DrawKind kind) {
  RecorderState& state = State();
  if (state.draw_mode == DrawMode::Counted) {
    return nullptr;
  }
  if (state.unpresented.renderer != renderer) {
    // Another renderer's unfinished frame is of no interest.
    state.unpresented = Frame{renderer, nullptr, {}};
  }
  DrawCall call;
  call.kind = kind;
  if (const RendererState* found = FindRenderer(renderer)) {
    state.unpresented.window = found->window;
    call.color = found->color;
    call.clip = found->clip;
  }
  state.unpresented.draws.push_back(std::move(call));
  return &state.unpresented.draws.back();
}

void AddRectDraw(SDL_Renderer* renderer, DrawKind kind, const SDL_Rect* rect) {
  if (DrawCall* call = AddDraw(renderer, kind)) {
    call->rect = rect == nullptr ? WholeWindow(renderer) : *rect;
  }
}

void FinishFrame(SDL_Renderer* renderer) {
  RecorderState& state = State();
  ++state.presents;
  if (state.draw_mode == DrawMode::Counted) {
    return;
  }
  if (state.unpresented.renderer != renderer) {
    state.unpresented = Frame{renderer, nullptr, {}};
  }
  state.frames.push_back(std::move(state.unpresented));
  state.unpresented = Frame{};
  while (state.frames.size() > state.kept_frames) {
    state.frames.pop_front();
  }
}

// The texture is recorded with the text that its surface was rendered from.
void AddTexture(SDL_Renderer* renderer, SDL_Texture* texture, SDL_Surface* surface) {
  RecorderState& state = State();
  const auto found = state.alive_surfaces.find(surface);
  state.alive_textures[texture] =
      found == state.alive_surfaces.end() ? std::optional<RenderedText>() : found->second;
  state.texture_owners[texture] = renderer;
  state.ended_with_renderer.erase(texture);
}

SDL_Texture* MakeFakeTexture() {
  auto fake = std::make_unique<FakeTexture>();
  auto* const texture = reinterpret_cast<SDL_Texture*>(fake.get());
  State().fake_textures[texture] = std::move(fake);
  return texture;
}

void ForgetTexture(SDL_Texture* texture) {
  State().alive_textures.erase(texture);
  State().texture_owners.erase(texture);
  State().fake_textures.erase(texture);
}

// SDL releases a renderer's textures with it.
void EndTexturesOf(SDL_Renderer* renderer) {
  RecorderState& state = State();
  std::erase_if(state.texture_owners, [&state, renderer](const auto& owned) {
    if (owned.second != renderer) {
      return false;
    }
    AddViolation("a renderer was destroyed before one of its textures");
    state.alive_textures.erase(owned.first);
    state.fake_textures.erase(owned.first);
    state.ended_with_renderer.insert(owned.first);
    return true;
  });
}

bool HasAliveRenderer(SDL_Window* window) {
  const auto& renderers = State().alive_renderers;
  return std::any_of(renderers.begin(), renderers.end(),
                     [window](const auto& entry) { return entry.second.window == window; });
}

void ForgetVideo() {
  RecorderState& state = State();
  state.alive_windows.clear();
  state.alive_renderers.clear();
  state.alive_textures.clear();
  state.texture_owners.clear();
  state.fake_textures.clear();
  state.text_input = false;
}

}  // namespace

extern "C" {

// --- Windows -------------------------------------------------------------------------------------

QUINDLE_WRAP_SLOT(SDL_CreateWindow, true)
SDL_Window* SDL_CreateWindow(const char* title, int x, int y, int w, int h, Uint32 flags) {
  QUINDLE_REAL(SDL_CreateWindow);
  SDL_Window* window = EnterCall(slot, nullptr) ? nullptr : real(title, x, y, w, h, flags);
  RecorderState& state = State();
  state.windows.push_back({window, 0, title == nullptr ? "" : title, x, y, w, h, flags, nullptr});
  if (window != nullptr) {
    static auto* const get_id = RealFunction<Uint32(SDL_Window*)>("SDL_GetWindowID");
    state.windows.back().id = get_id(window);
    state.alive_windows[window] = {get_id(window), ++state.creations};
    state.calls.back().subject = window;
  }
  return window;
}

QUINDLE_WRAP_SLOT(SDL_DestroyWindow, false)
void SDL_DestroyWindow(SDL_Window* window) {
  QUINDLE_REAL(SDL_DestroyWindow);
  EnterCall(slot, window);
  if (State().alive_windows.erase(window) == 0) {
    AddViolation("SDL_DestroyWindow of no window");
    return;
  }
  if (HasAliveRenderer(window)) {
    AddViolation("a window was destroyed before its renderer");
  }
  State().baseline.erase(window);
  State().opengl.WindowEnds(window);
  real(window);
}

QUINDLE_WRAP_SLOT(SDL_SetWindowModalFor, true)
int SDL_SetWindowModalFor(SDL_Window* window, SDL_Window* parent) {
  QUINDLE_REAL(SDL_SetWindowModalFor);
  const bool fails = EnterCall(slot, window);
  auto& windows = State().windows;
  const auto found = std::find_if(windows.rbegin(), windows.rend(),
                                  [window](const auto& record) { return record.window == window; });
  if (found != windows.rend()) {
    found->modal_for = parent;
  }
  return fails ? -1 : real(window, parent);
}

QUINDLE_WRAP_SLOT(SDL_GetWindowID, true)
Uint32 SDL_GetWindowID(SDL_Window* window) {
  QUINDLE_REAL(SDL_GetWindowID);
  return EnterCall(slot, window) ? 0 : real(window);
}

QUINDLE_WRAP_SLOT(SDL_GetWindowPosition, false)
void SDL_GetWindowPosition(SDL_Window* window, int* x, int* y) {
  QUINDLE_REAL(SDL_GetWindowPosition);
  EnterCall(slot, window);
  real(window, x, y);
}

QUINDLE_WRAP_SLOT(SDL_SetWindowPosition, false)
void SDL_SetWindowPosition(SDL_Window* window, int x, int y) {
  QUINDLE_REAL(SDL_SetWindowPosition);
  EnterCall(slot, window);
  real(window, x, y);
}

QUINDLE_WRAP_SLOT(SDL_GetWindowSize, false)
void SDL_GetWindowSize(SDL_Window* window, int* w, int* h) {
  QUINDLE_REAL(SDL_GetWindowSize);
  EnterCall(slot, window);
  real(window, w, h);
}

QUINDLE_WRAP_SLOT(SDL_SetWindowSize, false)
void SDL_SetWindowSize(SDL_Window* window, int w, int h) {
  QUINDLE_REAL(SDL_SetWindowSize);
  EnterCall(slot, window);
  real(window, w, h);
}

QUINDLE_WRAP_SLOT(SDL_SetWindowMinimumSize, false)
void SDL_SetWindowMinimumSize(SDL_Window* window, int w, int h) {
  QUINDLE_REAL(SDL_SetWindowMinimumSize);
  EnterCall(slot, window);
  real(window, w, h);
}

QUINDLE_WRAP_SLOT(SDL_ShowWindow, false)
void SDL_ShowWindow(SDL_Window* window) {
  QUINDLE_REAL(SDL_ShowWindow);
  EnterCall(slot, window);
  real(window);
}

QUINDLE_WRAP_SLOT(SDL_RaiseWindow, false)
void SDL_RaiseWindow(SDL_Window* window) {
  QUINDLE_REAL(SDL_RaiseWindow);
  EnterCall(slot, window);
  real(window);
}

QUINDLE_WRAP_SLOT(SDL_SetWindowInputFocus, true)
int SDL_SetWindowInputFocus(SDL_Window* window) {
  QUINDLE_REAL(SDL_SetWindowInputFocus);
  return EnterCall(slot, window) ? -1 : real(window);
}

QUINDLE_WRAP_SLOT(SDL_GetWindowWMInfo, true)
SDL_bool SDL_GetWindowWMInfo(SDL_Window* window, SDL_SysWMinfo* info) {
  QUINDLE_REAL(SDL_GetWindowWMInfo);
  return EnterCall(slot, window) ? SDL_FALSE : real(window, info);
}

QUINDLE_WRAP_SLOT(SDL_GetWindowData, false)
void* SDL_GetWindowData(SDL_Window* window, const char* name) {
  QUINDLE_REAL(SDL_GetWindowData);
  EnterCall(slot, window);
  return real(window, name);
}

QUINDLE_WRAP_SLOT(SDL_SetWindowData, true)
void* SDL_SetWindowData(SDL_Window* window, const char* name, void* data) {
  QUINDLE_REAL(SDL_SetWindowData);
  return EnterCall(slot, window) ? nullptr : real(window, name, data);
}

QUINDLE_WRAP_SLOT(SDL_GetKeyboardFocus, false)
SDL_Window* SDL_GetKeyboardFocus() {
  QUINDLE_REAL(SDL_GetKeyboardFocus);
  EnterCall(slot, nullptr);
  return real();
}

QUINDLE_WRAP_SLOT(SDL_GetWindowDisplayIndex, true)
int SDL_GetWindowDisplayIndex(SDL_Window* window) {
  QUINDLE_REAL(SDL_GetWindowDisplayIndex);
  return EnterCall(slot, window) ? -1 : real(window);
}

QUINDLE_WRAP_SLOT(SDL_GetDisplayUsableBounds, true)
int SDL_GetDisplayUsableBounds(int display, SDL_Rect* bounds) {
  QUINDLE_REAL(SDL_GetDisplayUsableBounds);
  return EnterCall(slot, nullptr) ? -1 : real(display, bounds);
}

QUINDLE_WRAP_SLOT(SDL_GetWindowBordersSize, true)
int SDL_GetWindowBordersSize(SDL_Window* window, int* top, int* left, int* bottom, int* right) {
  QUINDLE_REAL(SDL_GetWindowBordersSize);
  return EnterCall(slot, window) ? -1 : real(window, top, left, bottom, right);
}

// --- Renderers -----------------------------------------------------------------------------------

QUINDLE_WRAP_SLOT(SDL_CreateRenderer, true)
SDL_Renderer* SDL_CreateRenderer(SDL_Window* window, int index, Uint32 flags) {
  QUINDLE_REAL(SDL_CreateRenderer);
  SDL_Renderer* renderer = EnterCall(slot, window) ? nullptr : real(window, index, flags);
  RecorderState& state = State();
  state.renderers.push_back({renderer, window, index, flags});
  if (renderer != nullptr) {
    RendererState made;
    made.window = window;
    made.order = ++state.creations;
    state.alive_renderers[renderer] = made;
  }
  if (state.opengl.IsThere()) {
    state.opengl.RendererMade(window, renderer);
  }
  return renderer;
}

QUINDLE_WRAP_SLOT(SDL_DestroyRenderer, false)
void SDL_DestroyRenderer(SDL_Renderer* renderer) {
  QUINDLE_REAL(SDL_DestroyRenderer);
  EnterCall(slot, renderer);
  RendererState* const found = FindRenderer(renderer);
  if (found == nullptr) {
    AddViolation("SDL_DestroyRenderer of no renderer");
    return;
  }
  EndTexturesOf(renderer);
  State().alive_renderers.erase(renderer);
  State().baseline.erase(renderer);
  if (State().unpresented.renderer == renderer) {
    State().unpresented = Frame{};
  }
  State().opengl.RendererEnds();
  real(renderer);
}

QUINDLE_WRAP_SLOT(SDL_SetRenderDrawColor, true)
int SDL_SetRenderDrawColor(SDL_Renderer* renderer, Uint8 r, Uint8 g, Uint8 b, Uint8 a) {
  QUINDLE_REAL(SDL_SetRenderDrawColor);
  if (EnterCall(slot, renderer)) {
    return -1;
  }
  if (RendererState* found = FindRenderer(renderer)) {
    found->color = {r, g, b, a};
  }
  return real(renderer, r, g, b, a);
}

QUINDLE_WRAP_SLOT(SDL_SetRenderDrawBlendMode, true)
int SDL_SetRenderDrawBlendMode(SDL_Renderer* renderer, SDL_BlendMode mode) {
  QUINDLE_REAL(SDL_SetRenderDrawBlendMode);
  return EnterCall(slot, renderer) ? -1 : real(renderer, mode);
}

QUINDLE_WRAP_SLOT(SDL_GetRenderDrawBlendMode, true)
int SDL_GetRenderDrawBlendMode(SDL_Renderer* renderer, SDL_BlendMode* mode) {
  QUINDLE_REAL(SDL_GetRenderDrawBlendMode);
  return EnterCall(slot, renderer) ? -1 : real(renderer, mode);
}

QUINDLE_WRAP_SLOT(SDL_RenderSetClipRect, true)
int SDL_RenderSetClipRect(SDL_Renderer* renderer, const SDL_Rect* rect) {
  QUINDLE_REAL(SDL_RenderSetClipRect);
  if (EnterCall(slot, renderer)) {
    return -1;
  }
  if (RendererState* found = FindRenderer(renderer)) {
    found->clip = rect == nullptr ? std::optional<SDL_Rect>() : *rect;
  }
  return IsDrawing() ? real(renderer, rect) : 0;
}

QUINDLE_WRAP_SLOT(SDL_RenderGetClipRect, false)
void SDL_RenderGetClipRect(SDL_Renderer* renderer, SDL_Rect* rect) {
  QUINDLE_REAL(SDL_RenderGetClipRect);
  EnterCall(slot, renderer);
  if (const RendererState* found = FindRenderer(renderer)) {
    *rect = found->clip.value_or(SDL_Rect{0, 0, 0, 0});
  } else {
    real(renderer, rect);
  }
}

QUINDLE_WRAP_SLOT(SDL_RenderIsClipEnabled, false)
SDL_bool SDL_RenderIsClipEnabled(SDL_Renderer* renderer) {
  QUINDLE_REAL(SDL_RenderIsClipEnabled);
  EnterCall(slot, renderer);
  if (const RendererState* found = FindRenderer(renderer)) {
    return found->clip ? SDL_TRUE : SDL_FALSE;
  }
  return real(renderer);
}

QUINDLE_WRAP_SLOT(SDL_GetRendererOutputSize, true)
int SDL_GetRendererOutputSize(SDL_Renderer* renderer, int* w, int* h) {
  QUINDLE_REAL(SDL_GetRendererOutputSize);
  return EnterCall(slot, renderer) ? -1 : real(renderer, w, h);
}

// --- Drawing -------------------------------------------------------------------------------------

QUINDLE_WRAP_SLOT(SDL_RenderClear, true)
int SDL_RenderClear(SDL_Renderer* renderer) {
  QUINDLE_REAL(SDL_RenderClear);
  if (EnterCall(slot, renderer)) {
    return -1;
  }
  AddRectDraw(renderer, DrawKind::Clear, nullptr);
  return IsDrawing() ? real(renderer) : 0;
}

QUINDLE_WRAP_SLOT(SDL_RenderFillRect, true)
int SDL_RenderFillRect(SDL_Renderer* renderer, const SDL_Rect* rect) {
  QUINDLE_REAL(SDL_RenderFillRect);
  if (EnterCall(slot, renderer)) {
    return -1;
  }
  AddRectDraw(renderer, DrawKind::Fill, rect);
  return IsDrawing() ? real(renderer, rect) : 0;
}

QUINDLE_WRAP_SLOT(SDL_RenderDrawRect, true)
int SDL_RenderDrawRect(SDL_Renderer* renderer, const SDL_Rect* rect) {
  QUINDLE_REAL(SDL_RenderDrawRect);
  if (EnterCall(slot, renderer)) {
    return -1;
  }
  AddRectDraw(renderer, DrawKind::Outline, rect);
  return IsDrawing() ? real(renderer, rect) : 0;
}

QUINDLE_WRAP_SLOT(SDL_RenderDrawLine, true)
int SDL_RenderDrawLine(SDL_Renderer* renderer, int x1, int y1, int x2, int y2) {
  QUINDLE_REAL(SDL_RenderDrawLine);
  if (EnterCall(slot, renderer)) {
    return -1;
  }
  if (DrawCall* call = AddDraw(renderer, DrawKind::Line)) {
    call->from = {x1, y1};
    call->to = {x2, y2};
  }
  return IsDrawing() ? real(renderer, x1, y1, x2, y2) : 0;
}

QUINDLE_WRAP_SLOT(SDL_RenderDrawPoint, true)
int SDL_RenderDrawPoint(SDL_Renderer* renderer, int x, int y) {
  QUINDLE_REAL(SDL_RenderDrawPoint);
  if (EnterCall(slot, renderer)) {
    return -1;
  }
  if (DrawCall* call = AddDraw(renderer, DrawKind::Point)) {
    call->from = {x, y};
    call->to = {x, y};
  }
  return IsDrawing() ? real(renderer, x, y) : 0;
}

QUINDLE_WRAP_SLOT(SDL_RenderCopy, true)
int SDL_RenderCopy(SDL_Renderer* renderer, SDL_Texture* texture, const SDL_Rect* source,
                   const SDL_Rect* target) {
  QUINDLE_REAL(SDL_RenderCopy);
  if (EnterCall(slot, renderer)) {
    return -1;
  }
  AddRectDraw(renderer, DrawKind::Copy, target);
  const auto found = State().alive_textures.find(texture);
  if (found == State().alive_textures.end()) {
    AddViolation("SDL_RenderCopy of no texture");
    return -1;
  }
  if (State().draw_mode != DrawMode::Counted && found->second) {
    DrawCall& call = State().unpresented.draws.back();
    call.kind = DrawKind::Text;
    call.text = found->second->text;
    call.font = found->second->font;
    call.color = found->second->color;
  }
  if (State().draw_mode != DrawMode::Counted && source != nullptr) {
    State().unpresented.draws.back().source = *source;
  }
  const bool fake = State().fake_textures.count(texture) != 0;
  return IsDrawing() && !fake ? real(renderer, texture, source, target) : 0;
}

QUINDLE_WRAP_SLOT(SDL_RenderPresent, false)
void SDL_RenderPresent(SDL_Renderer* renderer) {
  QUINDLE_REAL(SDL_RenderPresent);
  EnterCall(slot, renderer);
  FinishFrame(renderer);
  const RendererState* const found = FindRenderer(renderer);
  if (found != nullptr && State().opengl.IsThere()) {
    State().opengl.RendererPresents(found->window, renderer);
  }
  if (IsDrawing()) {
    real(renderer);
  }
}

// --- Textures and surfaces -----------------------------------------------------------------------

QUINDLE_WRAP_SLOT(SDL_CreateTextureFromSurface, true)
SDL_Texture* SDL_CreateTextureFromSurface(SDL_Renderer* renderer, SDL_Surface* surface) {
  QUINDLE_REAL(SDL_CreateTextureFromSurface);
  if (EnterCall(slot, renderer)) {
    return nullptr;
  }
  SDL_Texture* texture = IsDrawing() ? real(renderer, surface) : MakeFakeTexture();
  if (texture != nullptr) {
    AddTexture(renderer, texture, surface);
  }
  return texture;
}

QUINDLE_WRAP_SLOT(SDL_DestroyTexture, false)
void SDL_DestroyTexture(SDL_Texture* texture) {
  QUINDLE_REAL(SDL_DestroyTexture);
  EnterCall(slot, texture);
  RecorderState& state = State();
  if (state.alive_textures.count(texture) == 0) {
    if (state.ended_with_renderer.count(texture) == 0) {
      AddViolation("SDL_DestroyTexture of no texture");
    }
    return;
  }
  const bool fake = state.fake_textures.count(texture) != 0;
  ForgetTexture(texture);
  state.baseline.erase(texture);
  if (!fake) {
    real(texture);
  }
}

QUINDLE_WRAP_SLOT(SDL_FreeSurface, false)
void SDL_FreeSurface(SDL_Surface* surface) {
  QUINDLE_REAL(SDL_FreeSurface);
  if (!InsideTtf::IsActive()) {
    EnterCall(slot, surface);
    // Surfaces that the test made itself, of a screenshot for example, are not followed.
    State().alive_surfaces.erase(surface);
    State().baseline.erase(surface);
  }
  real(surface);
}

// --- Events and input ----------------------------------------------------------------------------

QUINDLE_WRAP_SLOT(SDL_PollEvent, true)
int SDL_PollEvent(SDL_Event* event) {
  QUINDLE_REAL(SDL_PollEvent);
  return EnterCall(slot, nullptr) ? 0 : real(event);
}

QUINDLE_WRAP_SLOT(SDL_PumpEvents, false)
void SDL_PumpEvents() {
  QUINDLE_REAL(SDL_PumpEvents);
  EnterCall(slot, nullptr);
  real();
}

QUINDLE_WRAP_SLOT(SDL_StartTextInput, false)
void SDL_StartTextInput() {
  QUINDLE_REAL(SDL_StartTextInput);
  EnterCall(slot, nullptr);
  State().text_input = true;
  real();
}

QUINDLE_WRAP_SLOT(SDL_StopTextInput, false)
void SDL_StopTextInput() {
  QUINDLE_REAL(SDL_StopTextInput);
  EnterCall(slot, nullptr);
  State().text_input = false;
  real();
}

QUINDLE_WRAP_SLOT(SDL_GetMouseFocus, true)
SDL_Window* SDL_GetMouseFocus() {
  QUINDLE_REAL(SDL_GetMouseFocus);
  if (EnterCall(slot, nullptr)) {
    return nullptr;
  }
  return State().real_pointer ? real() : State().pointer_focus;
}

QUINDLE_WRAP_SLOT(SDL_GetMouseState, false)
Uint32 SDL_GetMouseState(int* x, int* y) {
  QUINDLE_REAL(SDL_GetMouseState);
  EnterCall(slot, nullptr);
  const RecorderState& state = State();
  if (state.real_pointer) {
    return real(x, y);
  }
  if (x != nullptr) {
    *x = state.pointer.x;
  }
  if (y != nullptr) {
    *y = state.pointer.y;
  }
  return state.pointer_buttons;
}

// --- Beyond the dialog ---------------------------------------------------------------------------

QUINDLE_WRAP_SLOT(SDL_OpenURL, true)
int SDL_OpenURL(const char* url) {
  auto& slot = g_slot_SDL_OpenURL;
  const bool fails = EnterCall(slot, nullptr);
  State().urls.emplace_back(url == nullptr ? "" : url);
  return fails ? -1 : 0;
}

QUINDLE_WRAP_SLOT(SDL_ShowSimpleMessageBox, true)
int SDL_ShowSimpleMessageBox(Uint32 flags, const char* title, const char* message,
                             SDL_Window* window) {
  auto& slot = g_slot_SDL_ShowSimpleMessageBox;
  const bool fails = EnterCall(slot, window);
  State().simple_message_boxes.push_back(
      {flags, title == nullptr ? "" : title, message == nullptr ? "" : message, window});
  return fails ? -1 : 0;
}

QUINDLE_WRAP_SLOT(SDL_Delay, false)
void SDL_Delay(Uint32 milliseconds) {
  QUINDLE_REAL(SDL_Delay);
  EnterCall(slot, nullptr);
  RecorderState& state = State();
  state.delays.push_back(milliseconds);
  if (state.delays.size() > kMaxDelays) {
    state.delays.pop_front();
  }
  if (state.sleep_in_delay) {
    real(milliseconds);
  }
  if (const auto action = state.on_delay) {
    action(milliseconds);
  }
}

QUINDLE_WRAP_SLOT(SDL_GetCurrentVideoDriver, true)
const char* SDL_GetCurrentVideoDriver() {
  QUINDLE_REAL(SDL_GetCurrentVideoDriver);
  if (EnterCall(slot, nullptr)) {
    return nullptr;
  }
  const std::optional<std::string>& answer = State().video_driver;
  return answer ? answer->c_str() : real();
}

QUINDLE_WRAP_SLOT(SDL_GetHint, true)
const char* SDL_GetHint(const char* name) {
  QUINDLE_REAL(SDL_GetHint);
  return EnterCall(slot, nullptr) ? nullptr : real(name);
}

QUINDLE_WRAP_SLOT(SDL_SetHint, true)
SDL_bool SDL_SetHint(const char* name, const char* value) {
  QUINDLE_REAL(SDL_SetHint);
  return EnterCall(slot, nullptr) ? SDL_FALSE : real(name, value);
}

QUINDLE_WRAP_SLOT(SDL_LoadObject, true)
void* SDL_LoadObject(const char* file) {
  QUINDLE_REAL(SDL_LoadObject);
  void* object = EnterCall(slot, nullptr) ? nullptr : real(file);
  if (object != nullptr) {
    State().alive_objects.insert(object);
  }
  return object;
}

QUINDLE_WRAP_SLOT(SDL_LoadFunction, true)
void* SDL_LoadFunction(void* object, const char* name) {
  QUINDLE_REAL(SDL_LoadFunction);
  return EnterCall(slot, object) ? nullptr : real(object, name);
}

QUINDLE_WRAP_SLOT(SDL_UnloadObject, false)
void SDL_UnloadObject(void* object) {
  QUINDLE_REAL(SDL_UnloadObject);
  EnterCall(slot, object);
  const auto found = State().alive_objects.find(object);
  if (found == State().alive_objects.end()) {
    AddViolation("SDL_UnloadObject of no object");
    return;
  }
  State().alive_objects.erase(found);
  real(object);
}

QUINDLE_WRAP_SLOT(SDL_Quit, false)
void SDL_Quit() {
  QUINDLE_REAL(SDL_Quit);
  EnterCall(slot, nullptr);
  ForgetVideo();
  real();
}

}  // extern "C"
