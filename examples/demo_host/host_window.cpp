#include "host_window.h"

#include <SDL_ttf.h>

#include <algorithm>
#include <exception>

#include "frontend/gui/sdl_ui_font_cache.h"
#include "gl_context_guard.h"
#include "json_output.h"
#include "sdl_session.h"
#include "shader_view.h"

namespace quindle::demo {
namespace {

using frontend::gui::DrawSdlUiText;
using frontend::gui::GetCachedSdlUiFont;
using frontend::gui::SdlUiFontKind;

constexpr int kInitialWidth = 900;
constexpr int kInitialHeight = 760;
constexpr int kLongestPauseMs = 10;  // Input waits no longer than this.
constexpr SDL_Color kBackground{14, 16, 20, 255};
constexpr SDL_Color kButtonFill{48, 54, 68, 255};
constexpr SDL_Color kButtonHoverFill{68, 76, 92, 255};
constexpr SDL_Color kButtonOffFill{28, 31, 38, 255};
constexpr SDL_Color kButtonBorder{84, 92, 108, 255};

TTF_Font* HostFont() {
  return GetCachedSdlUiFont(15, false, SdlUiFontKind::Ui);
}

void SetColour(SDL_Renderer* renderer, SDL_Color colour) {
  SDL_SetRenderDrawColor(renderer, colour.r, colour.g, colour.b, colour.a);
}

// The number key of a command: 1 to 9, then 0; 0 for none.
char NumberKey(size_t index) {
  return index < 10 ? "1234567890"[index] : '\0';
}

int CommandOfKey(SDL_Keycode key) {
  if (key < SDLK_0 || key > SDLK_9) {
    return -1;
  }
  return key == SDLK_0 ? 9 : key - SDLK_1;
}

frontend::gui::ModalWindowBundle OpenHostWindow() {
  frontend::gui::ModalWindowBundle bundle;
  bundle.window.reset(SDL_CreateWindow("Quindle demo host", SDL_WINDOWPOS_CENTERED,
                                       SDL_WINDOWPOS_CENTERED, kInitialWidth, kInitialHeight,
                                       SDL_WINDOW_RESIZABLE));
  if (bundle.window != nullptr) {
    bundle.renderer.reset(SDL_CreateRenderer(bundle.window.get(), -1, SDL_RENDERER_SOFTWARE));
  }
  if (bundle.renderer == nullptr) {
    throw NothingShownError(std::string("no window: ") + SDL_GetError());
  }
  SDL_SetWindowMinimumSize(bundle.window.get(), 480, 420);
  // SDL starts with it on, and the key that opens a dialog would be typed into it.
  SDL_StopTextInput();
  return bundle;
}

std::vector<std::string> MakeCaptions(const DemoCommands& commands) {
  std::vector<std::string> captions;
  for (size_t i = 0; i < commands.size(); ++i) {
    const std::string label = commands[i]->ButtonLabel();
    captions.push_back(NumberKey(i) == '\0' ? label : NumberKey(i) + ("  " + label));
  }
  return captions;
}

void ToggleFullScreen(SDL_Window* window) {
  const bool is_full = (SDL_GetWindowFlags(window) & SDL_WINDOW_FULLSCREEN) != 0;
  SDL_SetWindowFullscreen(window, is_full ? 0 : SDL_WINDOW_FULLSCREEN_DESKTOP);
}

// Draws text that never leaves `area`: broken into lines there, and cut at its edges.
void DrawWrappedText(SDL_Renderer* renderer, const std::string& text, const SDL_Rect& area) {
  if (text.empty()) {
    return;
  }
  const frontend::gui::OwnedSdlSurface surface(TTF_RenderUTF8_Blended_Wrapped(
      HostFont(), text.c_str(), frontend::gui::kColTextHi, static_cast<Uint32>(area.w)));
  const frontend::gui::OwnedSdlTexture texture(
      SDL_CreateTextureFromSurface(renderer, surface.get()));
  if (texture == nullptr) {
    return;
  }
  const SDL_Rect target{area.x, area.y, surface->w, surface->h};
  SDL_RenderSetClipRect(renderer, &area);
  SDL_RenderCopy(renderer, texture.get(), nullptr, &target);
  SDL_RenderSetClipRect(renderer, nullptr);
}

// The pointer in the window's pixels; (-1, -1) while another window has it.
SDL_Point PointerIn(SDL_Window* window) {
  SDL_Point pointer{-1, -1};
  if (SDL_GetMouseFocus() == window) {
    SDL_GetMouseState(&pointer.x, &pointer.y);
  }
  return pointer;
}

}  // namespace

HostWindow::HostWindow(const DemoCommands& commands)
    : commands_(commands), bundle_(OpenHostWindow()), captions_(MakeCaptions(commands)) {
  session_.host = Window();
  for (const auto& command : commands_) {
    command->AttachToSession(session_);
  }
  SDL_AddEventWatch(&WatchForQuit, this);
}

HostWindow::~HostWindow() {
  SDL_DelEventWatch(&WatchForQuit, this);
}

// A dialog consumes the quit that ends it, so the loop below would not see that one.
int HostWindow::WatchForQuit(void* self, SDL_Event* event) {
  if (event->type == SDL_QUIT) {
    static_cast<HostWindow*>(self)->closing_ = true;
  }
  return 0;
}

void HostWindow::Run() {
  frontend::gui::SetModalDialogHeartbeat([this] { Tick(); });
  while (!closing_) {
    Tick();
    SDL_Event event;
    while (!closing_ && SDL_PollEvent(&event) != 0) {
      HandleEvent(event);
    }
    // Not SDL_WaitEventTimeout: on X11 it may wake a window that is destroyed meanwhile, and the
    // error ends the program with status 1.
    SDL_Delay(static_cast<Uint32>(std::clamp(MillisecondsToNextFrame(), 1, kLongestPauseMs)));
  }
  frontend::gui::SetModalDialogHeartbeat({});
}

int HostWindow::MillisecondsToNextFrame() const {
  const Uint64 now = SDL_GetTicks64();
  return now >= next_frame_ms_ ? 0 : static_cast<int>(next_frame_ms_ - now);
}

void HostWindow::Tick() {
  if (MillisecondsToNextFrame() > 0) {
    return;
  }
  const auto period = static_cast<Uint64>(1000 / std::clamp(session_.target_fps, 1, 250));
  // After a long pause the animation goes on from here; it does not catch up.
  next_frame_ms_ = std::max(next_frame_ms_ + period, SDL_GetTicks64());
  session_.guest.Advance();
  lost_contexts_ += session_.view->IsReady() ? 0 : 1;
  Draw();
}

void HostWindow::HandleEvent(const SDL_Event& event) {
  switch (event.type) {
    case SDL_WINDOWEVENT:
      closing_ = closing_ || (event.window.event == SDL_WINDOWEVENT_CLOSE &&
                              event.window.windowID == SDL_GetWindowID(Window()));
      break;
    case SDL_KEYDOWN:
      if (event.key.repeat == 0) {
        HandleKey(event.key.keysym.sym);
      }
      break;
    case SDL_MOUSEBUTTONDOWN:
      if (event.button.button == SDL_BUTTON_LEFT) {
        pressed_button_ = FindHostButton(Layout(), event.button.x, event.button.y);
      }
      break;
    case SDL_MOUSEBUTTONUP:
      HandleMouseRelease(event.button);
      break;
    default:
      break;
  }
}

void HostWindow::HandleKey(SDL_Keycode key) {
  switch (key) {
    case SDLK_g:
      ToggleShaderView(session_);
      break;
    case SDLK_m:
      SDL_SetRelativeMouseMode(SDL_GetRelativeMouseMode() == SDL_TRUE ? SDL_FALSE : SDL_TRUE);
      break;
    case SDLK_F11:
      ToggleFullScreen(Window());
      break;
    default:
      RunCommand(CommandOfKey(key));
  }
}

void HostWindow::HandleMouseRelease(const SDL_MouseButtonEvent& event) {
  if (event.button != SDL_BUTTON_LEFT) {
    return;
  }
  const int pressed = std::exchange(pressed_button_, -1);
  if (pressed == FindHostButton(Layout(), event.x, event.y)) {
    RunCommand(pressed);
  }
}

void HostWindow::RunCommand(int index) {
  if (index < 0 || index >= static_cast<int>(commands_.size())) {
    return;
  }
  DemoCommand& command = *commands_[static_cast<size_t>(index)];
  result_text_ = command.ButtonLabel() + ": open";
  dialog_open_ = true;
  Draw();
  try {
    Json result = command.ShowInHost(session_);
    if (result.is_object()) {
      result.erase("dialog");  // The label says it.
    }
    result_text_ = command.ButtonLabel() + ": " + JsonLine(result);
  } catch (const std::exception& error) {
    result_text_ = command.ButtonLabel() + " failed: " + error.what();
  }
  dialog_open_ = false;
}

HostLayout HostWindow::Layout() const {
  int width = 0;
  int height = 0;
  SDL_GetWindowSize(Window(), &width, &height);
  return BuildHostLayout(width, height, CaptionWidths());
}

std::vector<int> HostWindow::CaptionWidths() const {
  std::vector<int> widths;
  for (const std::string& caption : captions_) {
    int width = 0;
    TTF_SizeUTF8(HostFont(), caption.c_str(), &width, nullptr);
    widths.push_back(width);
  }
  return widths;
}

std::string HostWindow::StatusText() const {
  std::string text = "guest: " + std::to_string(session_.target_fps) + " fps";
  const auto add = [&text](const std::string& part) { text.append("   |   ").append(part); };
  for (const auto& [key, value] : session_.status) {
    add(std::string(key).append(": ").append(value));
  }
  if (!session_.view->Describe().empty()) {
    add(session_.view->Describe());
  }
  if (lost_contexts_ > 0) {
    add("OpenGL contexts lost: " + std::to_string(lost_contexts_));
  }
  if (SDL_GetRelativeMouseMode() == SDL_TRUE) {
    add("mouse captured, M frees it");
  }
  if (!session_.last_folder.empty()) {
    add("folder: " + session_.last_folder);
  }
  return text;
}

void HostWindow::Draw() {
  // SDL's renderer may work with OpenGL as well.
  const GlContextGuard guests_context;
  SDL_Renderer* renderer = bundle_.renderer.get();
  const HostLayout layout = Layout();
  SetColour(renderer, kBackground);
  SDL_RenderClear(renderer);
  session_.view->Draw(renderer, session_.guest, layout.picture);
  DrawButtons(layout);
  DrawWrappedText(renderer, result_text_, layout.result);
  SDL_RenderSetClipRect(renderer, &layout.status);
  DrawSdlUiText(renderer, HostFont(), StatusText(), layout.status.x, layout.status.y,
                frontend::gui::kColTextMid, nullptr);
  SDL_RenderSetClipRect(renderer, nullptr);
  SDL_RenderPresent(renderer);
}

void HostWindow::DrawButtons(const HostLayout& layout) const {
  SDL_Renderer* renderer = bundle_.renderer.get();
  const SDL_Point pointer = PointerIn(Window());
  const int hovered = FindHostButton(layout, pointer.x, pointer.y);
  const int text_height = TTF_FontHeight(HostFont());
  for (size_t i = 0; i < captions_.size(); ++i) {
    const SDL_Rect& button = layout.buttons[i];
    SetColour(renderer, dialog_open_                     ? kButtonOffFill
                        : hovered == static_cast<int>(i) ? kButtonHoverFill
                                                         : kButtonFill);
    SDL_RenderFillRect(renderer, &button);
    SetColour(renderer, kButtonBorder);
    SDL_RenderDrawRect(renderer, &button);
    DrawSdlUiText(renderer, HostFont(), captions_[i], button.x + kHostButtonPadding,
                  button.y + (button.h - text_height) / 2,
                  dialog_open_ ? frontend::gui::kColTextDim : frontend::gui::kColTextHi, nullptr);
  }
}

}  // namespace quindle::demo
