#include "support/plain_interposers.h"

#include <SDL_ttf.h>

#include "support/real_function.h"

namespace quindle::testing {
namespace {

PlainCounts g_alive;
SDL_Window* g_windows[64] = {};
int g_window_count = 0;

bool g_pointed = false;
int g_pointer_x = 0;
int g_pointer_y = 0;
bool g_left_down = false;

template <typename Handle>
Handle* Counted(Handle* handle, long* count) {
  *count += handle != nullptr ? 1 : 0;
  return handle;
}

}  // namespace

PlainCounts AliveNow() {
  return g_alive;
}

Uint32 NewestWindowId() {
  return g_window_count > 0 ? SDL_GetWindowID(g_windows[g_window_count - 1]) : 0;
}

void PointAtNewestWindow(int x, int y, bool left_down) {
  g_pointed = true;
  g_pointer_x = x;
  g_pointer_y = y;
  g_left_down = left_down;
}

void ForgetPointer() {
  g_pointed = false;
}

}  // namespace quindle::testing

using namespace quindle::testing;  // NOLINT(google-build-using-namespace)

extern "C" {

SDL_Window* SDL_CreateWindow(const char* title, int x, int y, int w, int h, Uint32 flags) {
  static auto* const real = RealFunction<decltype(SDL_CreateWindow)>("SDL_CreateWindow");
  SDL_Window* window = Counted(real(title, x, y, w, h, flags), &g_alive.windows);
  if (window != nullptr) {
    g_windows[g_window_count++] = window;
  }
  return window;
}

void SDL_DestroyWindow(SDL_Window* window) {
  static auto* const real = RealFunction<decltype(SDL_DestroyWindow)>("SDL_DestroyWindow");
  --g_alive.windows;
  --g_window_count;
  real(window);
}

SDL_Renderer* SDL_CreateRenderer(SDL_Window* window, int index, Uint32 flags) {
  static auto* const real = RealFunction<decltype(SDL_CreateRenderer)>("SDL_CreateRenderer");
  return Counted(real(window, index, flags), &g_alive.renderers);
}

void SDL_DestroyRenderer(SDL_Renderer* renderer) {
  static auto* const real = RealFunction<decltype(SDL_DestroyRenderer)>("SDL_DestroyRenderer");
  --g_alive.renderers;
  real(renderer);
}

SDL_Texture* SDL_CreateTextureFromSurface(SDL_Renderer* renderer, SDL_Surface* surface) {
  static auto* const real =
      RealFunction<decltype(SDL_CreateTextureFromSurface)>("SDL_CreateTextureFromSurface");
  return Counted(real(renderer, surface), &g_alive.textures);
}

void SDL_DestroyTexture(SDL_Texture* texture) {
  static auto* const real = RealFunction<decltype(SDL_DestroyTexture)>("SDL_DestroyTexture");
  --g_alive.textures;
  real(texture);
}

void SDL_FreeSurface(SDL_Surface* surface) {
  static auto* const real = RealFunction<decltype(SDL_FreeSurface)>("SDL_FreeSurface");
  --g_alive.surfaces;
  real(surface);
}

void SDL_StartTextInput(void) {
  static auto* const real = RealFunction<decltype(SDL_StartTextInput)>("SDL_StartTextInput");
  ++g_alive.text_input;
  real();
}

void SDL_StopTextInput(void) {
  static auto* const real = RealFunction<decltype(SDL_StopTextInput)>("SDL_StopTextInput");
  --g_alive.text_input;
  real();
}

SDL_Window* SDL_GetMouseFocus(void) {
  return g_pointed && g_window_count > 0 ? g_windows[g_window_count - 1] : nullptr;
}

Uint32 SDL_GetMouseState(int* x, int* y) {
  *x = g_pointer_x;
  *y = g_pointer_y;
  return g_left_down ? SDL_BUTTON_LMASK : 0U;
}

void SDL_Delay(Uint32) {}

int SDL_OpenURL(const char*) {
  return 0;
}

int SDL_ShowSimpleMessageBox(Uint32, const char*, const char*, SDL_Window*) {
  return 0;
}

// Drawing costs most of a frame and plays no part here.
int SDL_RenderClear(SDL_Renderer*) {
  return 0;
}
int SDL_RenderFillRect(SDL_Renderer*, const SDL_Rect*) {
  return 0;
}
int SDL_RenderDrawRect(SDL_Renderer*, const SDL_Rect*) {
  return 0;
}
int SDL_RenderDrawLine(SDL_Renderer*, int, int, int, int) {
  return 0;
}
int SDL_RenderDrawPoint(SDL_Renderer*, int, int) {
  return 0;
}
int SDL_RenderCopy(SDL_Renderer*, SDL_Texture*, const SDL_Rect*, const SDL_Rect*) {
  return 0;
}

TTF_Font* TTF_OpenFont(const char* file, int size) {
  static auto* const real = RealFunction<decltype(TTF_OpenFont)>("TTF_OpenFont");
  return Counted(real(file, size), &g_alive.fonts);
}

void TTF_CloseFont(TTF_Font* font) {
  static auto* const real = RealFunction<decltype(TTF_CloseFont)>("TTF_CloseFont");
  --g_alive.fonts;
  real(font);
}

SDL_Surface* TTF_RenderUTF8_Blended(TTF_Font* font, const char* text, SDL_Color color) {
  static auto* const real =
      RealFunction<decltype(TTF_RenderUTF8_Blended)>("TTF_RenderUTF8_Blended");
  return Counted(real(font, text, color), &g_alive.surfaces);
}

}  // extern "C"
