#include "frontend/gui/shader_parameter_dialog.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

#include "frontend/gui/drawable_text.h"
#include "frontend/gui/float_text.h"
#include "frontend/gui/numbers.h"
#include "frontend/gui/open_dialog.h"
#include "frontend/gui/sdl_draw.h"
#include "frontend/gui/sdl_host_state.h"
#include "frontend/gui/sdl_modal_events.h"
#include "frontend/gui/sdl_modal_frame.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/sdl_text_fit.h"
#include "frontend/gui/sdl_ui_font_cache.h"

namespace quindle::frontend::gui {
namespace {

constexpr const char* kDialogTitle = "Shader Parameters";

constexpr int kHeaderHeight = 36;
constexpr int kBottomBarHeight = 52;
constexpr int kMarginX = 12;
constexpr int kLabelGap = 10;
constexpr int kScrollbarInset = 18;
constexpr int kScrollbarWidth = 14;
constexpr int kMinThumbHeight = 20;
constexpr int kCardMargin = 28;  // Both sides together, without the scroll bar.
constexpr int kCardGap = 6;
constexpr int kKnobWidth = 12;
constexpr int kKnobOverhang = 4;
constexpr float kLeastRange = 0.0001F;
constexpr float kContinuousStep = 0.02F;

constexpr SDL_Color kWindowFill{18, 20, 26, 255};
constexpr SDL_Color kHeaderFill{26, 28, 36, 255};
constexpr SDL_Color kSecondaryText{180, 188, 198, 255};
constexpr SDL_Color kPrimaryText{236, 241, 246, 255};
constexpr SDL_Color kCardFill{32, 36, 44, 200};
constexpr SDL_Color kCardBorder{58, 64, 74, 255};
constexpr SDL_Color kTrackFill{52, 56, 64, 255};
constexpr SDL_Color kTrackBorder{78, 86, 96, 255};
constexpr SDL_Color kFilledTrack{106, 156, 255, 255};
constexpr SDL_Color kKnobFill{126, 176, 255, 255};
constexpr SDL_Color kScrollTrackFill{30, 33, 40, 255};
constexpr SDL_Color kScrollThumbFill{72, 80, 94, 255};
constexpr SDL_Color kScrollThumbBorder{96, 108, 128, 255};
constexpr SDL_Color kBottomBarFill{26, 30, 38, 255};
constexpr SDL_Color kSeparator{60, 66, 78, 255};
constexpr SDL_Color kButtonFill{48, 52, 60, 255};
constexpr SDL_Color kButtonBorder{84, 92, 104, 255};

// --- Numbers -------------------------------------------------------------------------------------

// An undefined fraction counts as 0.
float ClampToUnit(float fraction) {
  return std::isnan(fraction) ? 0.0F : std::clamp(fraction, 0.0F, 1.0F);
}

// --- Geometry ------------------------------------------------------------------------------------

int ParamCount(const ShaderDialogSession& session) {
  return session.specs == nullptr ? 0 : ClampToInt(static_cast<long long>(session.specs->size()));
}

// Height of all rows, with the space above the first.
long long ListHeight(const ShaderDialogGeometry& geometry, int count) {
  return static_cast<long long>(count) * geometry.row_height + geometry.list_top;
}

// Distance that a thumb of `thumb_h` pixels can travel, at least 1.
float ThumbTravel(const ShaderDialogLayout& layout, int thumb_h) {
  return static_cast<float>(std::max(layout.view_h - thumb_h, 1));
}

SDL_Rect ThumbRect(const ShaderDialogLayout& layout, long long list_height, int scroll) {
  SDL_Rect thumb = layout.scroll_track;
  if (layout.max_scroll < 1) {
    return thumb;
  }
  const long long view_h = layout.view_h;
  thumb.h = ClampToInt(std::max<long long>(view_h * view_h / list_height, kMinThumbHeight));
  const float fraction = static_cast<float>(scroll) / static_cast<float>(layout.max_scroll);
  thumb.y = layout.view_top + TruncateToInt(fraction * ThumbTravel(layout, thumb.h));
  return thumb;
}

int RowTop(const ShaderDialogSession& session, int row) {
  const ShaderDialogGeometry& geometry = *session.geometry;
  return ClampToInt(static_cast<long long>(row) * geometry.row_height + geometry.list_top -
                    session.scroll);
}

// The slider's track, which is also the band that grabs it.
SDL_Rect SliderTrack(const ShaderDialogGeometry& geometry, int row_top) {
  const int hit_height = geometry.slider_hit_height;
  return {geometry.slider_x, row_top + geometry.row_height / 2 - hit_height / 2,
          geometry.slider_width, hit_height};
}

bool IsInListView(const ShaderDialogLayout& layout, int y) {
  return y >= layout.view_top && y < layout.view_top + layout.view_h;
}

ShaderDialogLayout LayOutForWindow(const ShaderDialogSession& session) {
  int width = 0;
  int height = 0;
  SDL_GetWindowSize(session.window, &width, &height);
  return BuildShaderDialogLayout(session, width, height);
}

// --- Editing -------------------------------------------------------------------------------------

// What the handling of an event means for the loop.
enum class Progress { Continue, Finished };

void ScrollTo(const ShaderDialogLayout& layout, long long scroll, ShaderDialogSession* session) {
  session->scroll = static_cast<int>(std::clamp<long long>(scroll, 0, layout.max_scroll));
}

int FindParamAtY(const ShaderDialogSession& session, int y) {
  return FindShaderDialogParamAtY(*session.geometry, y, session.scroll, ParamCount(session));
}

const ShaderParameterSpec& SpecOf(const ShaderDialogSession& session, int row) {
  return (*session.specs)[static_cast<std::size_t>(row)];
}

float& ValueOf(const ShaderDialogSession& session, int row) {
  return session.result->values[static_cast<std::size_t>(row)].value;
}

void MoveValueByOneStep(bool upward, int row, ShaderDialogSession* session) {
  const ShaderParameterSpec& spec = SpecOf(*session, row);
  const float step =
      spec.step > 0.0F ? spec.step : kContinuousStep * (spec.max_value - spec.min_value);
  float& value = ValueOf(*session, row);
  value = SnapToStep(spec, upward ? value + step : value - step);
}

void PullSliderTo(int x, ShaderDialogSession* session) {
  const int row = session->active_param;
  if (row < 0 || row >= ParamCount(*session)) {
    return;
  }
  ValueOf(*session, row) = ShaderDialogValueFromMouse(SpecOf(*session, row), *session->geometry, x);
}

void ApplyValues(ShaderDialogSession* session, const ShaderApplyCallback& on_apply) {
  session->result->applied = true;
  CallHost(on_apply, session->result->values);
}

Progress CancelDialog(ShaderDialogSession* session) {
  session->result->applied = false;
  return Progress::Finished;
}

// --- Events --------------------------------------------------------------------------------------

// A notch scrolls and, at the row that is then under the pointer, also adjusts.
void HandleWheel(int amount, const ShaderDialogLayout& layout, ShaderDialogSession* session) {
  const ModalPointer pointer = ReadModalPointer(session->window);
  if (amount == 0 || !IsInListView(layout, pointer.y)) {
    return;
  }
  const long long distance = static_cast<long long>(amount) * (session->geometry->row_height / 2);
  ScrollTo(layout, session->scroll - distance, session);
  const int row = FindParamAtY(*session, pointer.y);
  if (row >= 0) {
    MoveValueByOneStep(amount > 0, row, session);
  }
}

void GrabScrollbar(int y, ShaderDialogSession* session) {
  session->dragging_scrollbar = true;
  session->drag_start_y = y;
  session->drag_start_scroll = session->scroll;
}

void GrabSlider(int x, int row, ShaderDialogSession* session) {
  session->active_param = row;
  session->dragging_slider = true;
  PullSliderTo(x, session);
}

void HandlePress(int x, int y, const ShaderDialogLayout& layout, ShaderDialogSession* session) {
  if (layout.max_scroll > 0 && IsPointInside(layout.scroll_track, x, y)) {
    GrabScrollbar(y, session);
    return;
  }
  const int row = IsInListView(layout, y) ? FindParamAtY(*session, y) : -1;
  if (row >= 0 && IsPointInside(SliderTrack(*session->geometry, RowTop(*session, row)), x, y)) {
    GrabSlider(x, row, session);
  }
}

void DragScrollbarTo(int y, const ShaderDialogLayout& layout, ShaderDialogSession* session) {
  const float moved = static_cast<float>(static_cast<long long>(y) - session->drag_start_y);
  const float fraction = moved / ThumbTravel(layout, layout.scroll_thumb.h);
  const long long distance = TruncateToInt(fraction * static_cast<float>(layout.max_scroll));
  ScrollTo(layout, session->drag_start_scroll + distance, session);
}

void HandleMotion(int x, int y, const ShaderDialogLayout& layout, ShaderDialogSession* session) {
  if (session->dragging_slider) {
    PullSliderTo(x, session);
  }
  if (session->dragging_scrollbar && layout.max_scroll > 0) {
    DragScrollbarTo(y, layout, session);
  }
}

void EndDrag(ShaderDialogSession* session) {
  session->dragging_slider = false;
  session->dragging_scrollbar = false;
  session->active_param = -1;
}

Progress HandleRelease(int x, int y, const ShaderDialogLayout& layout, ShaderDialogSession* session,
                       const ShaderApplyCallback& on_apply) {
  if (IsPointInside(layout.cancel, x, y)) {
    return CancelDialog(session);
  }
  if (IsPointInside(layout.apply, x, y)) {
    ApplyValues(session, on_apply);
  }
  return Progress::Continue;
}

Progress HandleKey(SDL_Keycode key, ShaderDialogSession* session,
                   const ShaderApplyCallback& on_apply) {
  switch (key) {
    case SDLK_ESCAPE:
      return CancelDialog(session);
    case SDLK_RETURN:
    case SDLK_KP_ENTER:
      ApplyValues(session, on_apply);
      return Progress::Continue;
    default:
      return Progress::Continue;
  }
}

Progress HandleMouse(const SDL_Event& event, const ShaderDialogLayout& layout,
                     ShaderDialogSession* session, const ShaderApplyCallback& on_apply) {
  if (event.type == SDL_MOUSEWHEEL) {
    HandleWheel(event.wheel.y, layout, session);
  } else if (event.type == SDL_MOUSEMOTION) {
    HandleMotion(event.motion.x, event.motion.y, layout, session);
  } else if (IsLeftButtonEvent(event) && event.type == SDL_MOUSEBUTTONDOWN) {
    HandlePress(event.button.x, event.button.y, layout, session);
  } else if (IsLeftButtonEvent(event)) {
    return HandleRelease(event.button.x, event.button.y, layout, session, on_apply);
  }
  return Progress::Continue;
}

Progress HandleEvent(const SDL_Event& event, ShaderDialogLayout* layout,
                     ShaderDialogSession* session, const ShaderApplyCallback& on_apply) {
  if (IsModalCancelEvent(event)) {
    // What has been applied stays applied.
    return Progress::Finished;
  }
  if (event.type == SDL_WINDOWEVENT && event.window.event == SDL_WINDOWEVENT_RESIZED) {
    *layout = LayOutForWindow(*session);
    ScrollTo(*layout, session->scroll, session);
    return Progress::Continue;
  }
  if (IsLeftButtonEvent(event) && event.type == SDL_MOUSEBUTTONUP) {
    // The button is up, whichever window it was over.
    EndDrag(session);
  }
  if (IsInputOfOtherWindow(session->window, event)) {
    return Progress::Continue;
  }
  if (event.type == SDL_KEYDOWN) {
    return HandleKey(event.key.keysym.sym, session, on_apply);
  }
  return HandleMouse(event, *layout, session, on_apply);
}

Progress HandleEvents(ModalEventQueue* events, ShaderDialogSession* session,
                      const ShaderApplyCallback& on_apply) {
  ShaderDialogLayout layout = LayOutForWindow(*session);
  SDL_Event event;
  while (events->Poll(&event)) {
    if (events->MissedLeftRelease()) {
      EndDrag(session);
    }
    if (HandleEvent(event, &layout, session, on_apply) == Progress::Finished) {
      return Progress::Finished;
    }
  }
  return Progress::Continue;
}

void DrawFrame(ShaderDialogSession* session) {
  int width = 0;
  int height = 0;
  SDL_GetWindowSize(session->window, &width, &height);
  ScrollTo(BuildShaderDialogLayout(*session, width, height), session->scroll, session);
  // Again, because the thumb follows the clamped scroll.
  RenderShaderDialog(session, BuildShaderDialogLayout(*session, width, height), width, height);
}

bool IsComplete(const ShaderDialogSession* session) {
  return session != nullptr && session->window != nullptr && session->renderer != nullptr &&
         session->header_font != nullptr && session->detail_font != nullptr &&
         session->specs != nullptr && session->geometry != nullptr && session->result != nullptr &&
         session->result->values.size() >= session->specs->size();
}

// --- Drawing -------------------------------------------------------------------------------------

// Blends what is drawn while this lives.
class ScopedBlending {
 public:
  explicit ScopedBlending(SDL_Renderer* renderer) : renderer_(renderer) {
    SDL_GetRenderDrawBlendMode(renderer_, &former_);
    SDL_SetRenderDrawBlendMode(renderer_, SDL_BLENDMODE_BLEND);
  }
  ~ScopedBlending() { SDL_SetRenderDrawBlendMode(renderer_, former_); }
  ScopedBlending(const ScopedBlending&) = delete;
  ScopedBlending& operator=(const ScopedBlending&) = delete;
  ScopedBlending(ScopedBlending&&) = delete;
  ScopedBlending& operator=(ScopedBlending&&) = delete;

 private:
  SDL_Renderer* renderer_;
  SDL_BlendMode former_ = SDL_BLENDMODE_NONE;
};

// Bytes of a file as text. A file may hold a label of megabytes: no window has room for so much.
std::string ShownText(std::string_view bytes) {
  constexpr std::size_t kMostBytes = 4096;
  return DrawableText(bytes.substr(0, kMostBytes));
}

void DrawHeader(const ShaderDialogSession& session, int width) {
  FillRect(session.renderer, SDL_Rect{0, 0, width, kHeaderHeight}, kHeaderFill);
  DrawShaderDialogText(session.renderer, session.header_font, "Shader parameters:", kMarginX, 4,
                       kSecondaryText);
  DrawTextStartVisible(session.renderer, session.detail_font, ShownText(session.shader_path),
                       kMarginX, 18, width, kPrimaryText);
}

void DrawCard(SDL_Renderer* renderer, const SDL_Rect& card) {
  const ScopedBlending blending(renderer);
  FillAndOutlineRect(renderer, card, kCardFill, kCardBorder);
}

// Width of the filled part of a track of `track_width` pixels.
int FilledWidth(const ShaderParameterSpec& spec, float value, int track_width) {
  const float range = spec.max_value - spec.min_value;
  const float divisor = range > kLeastRange ? range : kLeastRange;
  const float fraction = ClampToUnit((value - spec.min_value) / divisor);
  return std::min(TruncateToInt(std::round(static_cast<float>(track_width) * fraction)),
                  track_width);
}

void DrawSlider(SDL_Renderer* renderer, const SDL_Rect& track, int filled_width) {
  FillAndOutlineRect(renderer, track, kTrackFill, kTrackBorder);
  FillRect(renderer, SDL_Rect{track.x, track.y, filled_width, track.h}, kFilledTrack);
  FillRect(renderer,
           SDL_Rect{track.x + filled_width - kKnobWidth / 2, track.y - kKnobOverhang, kKnobWidth,
                    track.h + 2 * kKnobOverhang},
           kKnobFill);
}

std::string RangeText(const ShaderParameterSpec& spec) {
  std::string text =
      "min " + FormatFixed(spec.min_value, 6) + "  max " + FormatFixed(spec.max_value, 6);
  if (spec.step > 0.0F) {
    text += "  step " + FormatFixed(spec.step, 6);
  }
  return text;
}

// A text that ends with the card, however long it is, and not on the scroll bar.
void DrawCardText(const ShaderDialogSession& session, const SDL_Rect& card, const std::string& text,
                  int x, int offset_y, SDL_Color color) {
  const ScopedClip clip(session.renderer, card);
  DrawShaderDialogText(session.renderer, session.detail_font, text, x, card.y + offset_y, color);
}

// A cut label keeps its distance from the value, whose digits it would seem to continue.
void DrawLabel(const ShaderDialogSession& session, const SDL_Rect& card, const std::string& label) {
  const ShaderDialogGeometry& geometry = *session.geometry;
  const int right = std::min(geometry.detail_x - kLabelGap, card.x + card.w);
  DrawTextStartVisible(session.renderer, session.detail_font, ShownText(label), geometry.label_x,
                       card.y + 5, right, kPrimaryText);
}

void DrawRow(const ShaderDialogSession& session, int row, int width) {
  const ShaderDialogGeometry& geometry = *session.geometry;
  const ShaderParameterSpec& spec = SpecOf(session, row);
  const float value = ValueOf(session, row);
  const int top = RowTop(session, row);
  const SDL_Rect card{kMarginX, top, std::max(width - kScrollbarWidth - kCardMargin, 0),
                      geometry.row_height - kCardGap};
  const SDL_Rect track = SliderTrack(geometry, top);
  DrawCard(session.renderer, card);
  DrawLabel(session, card, spec.label);
  DrawSlider(session.renderer, track, FilledWidth(spec, value, track.w));
  DrawCardText(session, card, FormatFixed(value, 3), geometry.detail_x, 4, kPrimaryText);
  DrawCardText(session, card, RangeText(spec), geometry.detail_x, 19, kSecondaryText);
}

void DrawScrollbar(SDL_Renderer* renderer, const ShaderDialogLayout& layout) {
  FillRect(renderer, layout.scroll_track, kScrollTrackFill);
  FillAndOutlineRect(renderer, layout.scroll_thumb, kScrollThumbFill, kScrollThumbBorder);
}

// The first row whose bottom lies below the top of the view; there may be no such row.
int FirstRowInView(const ShaderDialogSession& session, const ShaderDialogLayout& layout) {
  const ShaderDialogGeometry& geometry = *session.geometry;
  const long long above =
      static_cast<long long>(layout.view_top) + session.scroll - geometry.list_top;
  return ClampToInt(std::max<long long>(above, 0) / std::max(geometry.row_height, 1));
}

// Only the rows that meet the view cost anything.
void DrawList(const ShaderDialogSession& session, const ShaderDialogLayout& layout, int width) {
  const ScopedClip clip(session.renderer, SDL_Rect{0, layout.view_top, width, layout.view_h});
  const int view_bottom = layout.view_top + layout.view_h;
  const int count = ParamCount(session);
  for (int row = FirstRowInView(session, layout); row < count && RowTop(session, row) < view_bottom;
       ++row) {
    DrawRow(session, row, width);
  }
  if (layout.max_scroll > 0) {
    DrawScrollbar(session.renderer, layout);
  }
}

void DrawButton(const ShaderDialogSession& session, const SDL_Rect& rect, const char* caption) {
  FillAndOutlineRect(session.renderer, rect, kButtonFill, kButtonBorder);
  DrawShaderDialogText(session.renderer, session.detail_font, caption, rect.x + 10, rect.y + 6,
                       kPrimaryText);
}

void DrawBottomBar(const ShaderDialogSession& session, const ShaderDialogLayout& layout, int width,
                   int height) {
  const int top = height - kBottomBarHeight;
  FillRect(session.renderer, SDL_Rect{0, top, width, kBottomBarHeight}, kBottomBarFill);
  DrawLine(session.renderer, 0, top, width - 1, top, kSeparator);
  DrawButton(session, layout.cancel, "Cancel");
  DrawButton(session, layout.apply, "Apply");
}

// --- Opening -------------------------------------------------------------------------------------

void ShowNotice(SDL_Window* parent, Uint32 flags, const char* text) {
  SDL_ShowSimpleMessageBox(flags, kDialogTitle, text, parent);
}

ModalWindowBundle OpenDialogWindow(SDL_Window* parent, const ShaderDialogGeometry& geometry) {
  return CreateModalWindowBundle(parent, kDialogTitle, 60, 60, geometry.window_width,
                                 geometry.window_height, SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE,
                                 ModalRendererMode::Software);
}

// Opens the dialog for `specs`, which are not empty, and runs it on `result`.
void EditValues(SDL_Window* parent, const std::string& shader_path,
                const std::vector<ShaderParameterSpec>& specs, const ShaderApplyCallback& on_apply,
                ShaderDialogResult* result) {
  const ModalHostState host_state;
  // In front of the window, so that the dialog's window is gone when the parent gets the focus
  // back.
  std::optional<ModalParentFocus> parent_focus;
  const ShaderDialogGeometry geometry =
      BuildShaderDialogGeometry(ClampToInt(static_cast<long long>(specs.size())), 1.0F);
  const ModalWindowBundle bundle = OpenDialogWindow(parent, geometry);
  if (bundle.window == nullptr || bundle.renderer == nullptr) {
    return;
  }
  const OwnedTtfFont header_font = OpenSdlUiFontHandle(16, true, SdlUiFontKind::Ui);
  const OwnedTtfFont detail_font = OpenSdlUiFontHandle(15, false, SdlUiFontKind::Body);
  if (header_font == nullptr || detail_font == nullptr) {
    ShowNotice(parent, SDL_MESSAGEBOX_ERROR, "Unable to load a font via SDL_ttf.");
    return;
  }
  parent_focus.emplace(parent, bundle.window.get());
  ShaderDialogSession session;
  session.window = bundle.window.get();
  session.renderer = bundle.renderer.get();
  session.header_font = header_font.get();
  session.detail_font = detail_font.get();
  session.shader_path = shader_path;
  session.specs = &specs;
  session.geometry = &geometry;
  session.result = result;
  RunShaderParameterDialog(&session, on_apply);
}

}  // namespace

ShaderDialogGeometry BuildShaderDialogGeometry(int count, float /*scale*/) {
  ShaderDialogGeometry geometry;
  geometry.content_height = ClampToInt(static_cast<long long>(count) * geometry.row_height + 90);
  geometry.window_height = std::clamp(geometry.content_height, 280, 500);
  return geometry;
}

ShaderDialogLayout BuildShaderDialogLayout(const ShaderDialogSession& session, int width,
                                           int height) {
  const ShaderDialogGeometry geometry =
      session.geometry == nullptr ? ShaderDialogGeometry{} : *session.geometry;
  const long long list_height = ListHeight(geometry, ParamCount(session));
  ShaderDialogLayout layout;
  layout.view_h = std::max(height - kHeaderHeight - kBottomBarHeight, 1);
  layout.max_scroll = ClampToInt(std::max<long long>(list_height - layout.view_h, 0));
  layout.cancel = {width - 192, height - 39, geometry.button_width, geometry.button_height};
  layout.apply = {width - 98, height - 39, geometry.button_width, geometry.button_height};
  layout.scroll_track = {width - kScrollbarInset, layout.view_top, kScrollbarWidth, layout.view_h};
  layout.scroll_thumb = ThumbRect(layout, list_height, session.scroll);
  return layout;
}

int FindShaderDialogParamAtY(const ShaderDialogGeometry& geometry, int y, int scroll, int count) {
  const long long offset = static_cast<long long>(y) + scroll - geometry.list_top;
  const long long row = offset / std::max(geometry.row_height, 1);
  return offset < 0 || row >= count ? -1 : static_cast<int>(row);
}

float ShaderDialogValueFromMouse(const ShaderParameterSpec& spec,
                                 const ShaderDialogGeometry& geometry, int x) {
  if (geometry.slider_width < 1 || spec.min_value >= spec.max_value) {
    return spec.min_value;
  }
  const long long offset = static_cast<long long>(x) - geometry.slider_x;
  const float t =
      ClampToUnit(static_cast<float>(offset) / static_cast<float>(geometry.slider_width));
  return SnapToStep(spec, spec.min_value + (spec.max_value - spec.min_value) * t);
}

void DrawShaderDialogText(SDL_Renderer* renderer, TTF_Font* font, const std::string& text, int x,
                          int y, SDL_Color color) {
  DrawSdlUiText(renderer, font, text, x, y, color, nullptr);
}

void RenderShaderDialog(ShaderDialogSession* session, const ShaderDialogLayout& layout, int width,
                        int height) {
  ClearFrame(session->renderer, kWindowFill);
  DrawHeader(*session, width);
  DrawList(*session, layout, width);
  DrawBottomBar(*session, layout, width, height);
  PresentModalFrame(session->window, session->renderer, &session->shown);
}

void RunShaderParameterDialog(ShaderDialogSession* session, const ShaderApplyCallback& on_apply) {
  if (!IsComplete(session)) {
    return;
  }
  const FindableDialog findable(session->window, session);
  ModalEventQueue events(session->window);
  while (true) {
    PumpModalDialogHeartbeat();
    if (HandleEvents(&events, session, on_apply) == Progress::Finished) {
      return;
    }
    DrawFrame(session);
    SDL_Delay(kPanelFrameDelayMs);
  }
}

ShaderDialogResult ShowShaderParameterDialog(SDL_Window* parent, const std::string& shader_path,
                                             float /*scale*/, ShaderApplyCallback on_apply,
                                             const std::vector<ShaderParameterValue>& current) {
  const std::vector<ShaderParameterSpec> specs = ParseShaderParameterSpecs(shader_path);
  ShaderDialogResult result = InitializeShaderDialogResult(specs, current);
  if (specs.empty()) {
    ShowNotice(parent, SDL_MESSAGEBOX_INFORMATION,
               "No #pragma parameter lines were found in the selected shader file.");
    return result;
  }
  EditValues(parent, shader_path, specs, on_apply, &result);
  return result;
}

}  // namespace quindle::frontend::gui
