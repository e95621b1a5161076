#include "frontend/gui/settings_dialog.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "frontend/gui/open_dialog.h"
#include "frontend/gui/sdl_draw.h"
#include "frontend/gui/sdl_host_state.h"
#include "frontend/gui/sdl_modal_events.h"
#include "frontend/gui/sdl_modal_frame.h"
#include "frontend/gui/sdl_pickers.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "frontend/gui/settings_page.h"
#include "frontend/gui/settings_style.h"
#include "utils/path_text.h"

namespace quindle::frontend::gui {
namespace {

constexpr SDL_Color kCanvasFill{18, 21, 27, 255};
constexpr SDL_Color kListFill{24, 27, 34, 255};
constexpr SDL_Color kHeadingFill{20, 23, 30, 255};
constexpr SDL_Color kSelectedFill{44, 74, 128, 255};
constexpr SDL_Color kBarFill{22, 25, 32, 255};

constexpr int kCanvasWidth = 820;
constexpr int kCanvasHeight = 492;
constexpr int kListWidth = 224;
constexpr int kListTop = 10;
constexpr int kRowHeight = 30;
constexpr int kBarTop = 436;
constexpr SDL_Rect kRightArea{kListWidth + 1, 0, kCanvasWidth - kListWidth - 1, kBarTop};

constexpr int kFontSize = 15;
constexpr int kMissingTitleHeight = 17;

constexpr int kNavHeading = 0;
constexpr int kNavItem = 1;
constexpr int kNoPanel = -1;

using ApplyCallback = std::function<void(const SettingsDialogValues&)>;

// --- List ----------------------------------------------------------------------------------------

// The rectangle of row `index`, for drawing and for hit-testing.
SDL_Rect NavRowRect(int index) {
  return {0, kListTop + kRowHeight * index, kListWidth, kRowHeight};
}

int CentredTextTop(const SDL_Rect& row, TTF_Font* font) {
  return row.y + (row.h - FontHeightOr(font, kMissingFontHeight)) / 2;
}

void DrawNavHeading(SDL_Renderer* renderer, TTF_Font* font, const SDL_Rect& row,
                    const std::string& label) {
  FillRect(renderer, row, kHeadingFill);
  DrawText(renderer, font, label, 10, CentredTextTop(row, font), kColTextDim);
}

void DrawNavItem(SDL_Renderer* renderer, TTF_Font* font, const SDL_Rect& row,
                 const std::string& label, bool selected, bool hovered) {
  if (selected) {
    FillRect(renderer, row, kSelectedFill);
    FillRect(renderer, SDL_Rect{row.x, row.y, 3, row.h}, kSettingsAccent);
  } else if (hovered) {
    FillRect(renderer, row, kSettingsHover);
  }
  DrawText(renderer, font, label, 22, CentredTextTop(row, font),
           selected ? kColTextHi : kColTextMid);
}

// The page of the item row at a point; nothing for headings and elsewhere.
std::optional<int> FindNavPanelAt(const std::vector<NavItem>& nav_items, const SDL_Point& point) {
  int index = 0;
  for (const NavItem& item : nav_items) {
    if (item.kind == kNavItem && IsInRect(point.x, point.y, NavRowRect(index))) {
      return item.panel_id;
    }
    ++index;
  }
  return std::nullopt;
}

// --- Events --------------------------------------------------------------------------------------

// What one frame's events have come to.
struct FrameInput {
  bool page_clicked = false;  // A press on the page, whatever the later ones hit.
  bool closing = false;
};

bool IsInPageArea(int x, int y) {
  return x > kListWidth && y < kBarTop;
}

void HandleSettingsPress(const SDL_Point& point, const ApplyCallback& apply,
                         SettingsDialogSession* session, FrameInput* input) {
  if (IsInRect(point.x, point.y, session->cancel_button)) {
    input->closing = true;
    return;
  }
  if (IsInRect(point.x, point.y, session->apply_button)) {
    CallHost(apply, session->values);
    return;
  }
  if (const std::optional<int> panel_id = FindNavPanelAt(*session->nav_items, point)) {
    session->panel_id = *panel_id;
    return;
  }
  if (IsInPageArea(point.x, point.y)) {
    input->page_clicked = true;
  }
}

// Key and mouse events count only when they name the dialog's own window.
void HandleSettingsEvent(const SDL_Event& event, const ApplyCallback& apply,
                         SettingsDialogSession* session, FrameInput* input) {
  const Uint32 window_id = SDL_GetWindowID(session->window);
  if (IsModalCancelEvent(event)) {
    input->closing = true;
  } else if (event.type == SDL_KEYDOWN && event.key.windowID == window_id) {
    input->closing = event.key.keysym.sym == SDLK_ESCAPE;
  } else if (event.type == SDL_MOUSEBUTTONDOWN && event.button.windowID == window_id &&
             event.button.button == SDL_BUTTON_LEFT) {
    HandleSettingsPress(SDL_Point{event.button.x, event.button.y}, apply, session, input);
  }
}

FrameInput HandleSettingsEvents(const ApplyCallback& apply, ModalEventQueue* events,
                                SettingsDialogSession* session) {
  FrameInput input;
  SDL_Event event;
  while (!input.closing && events->Poll(&event)) {
    HandleSettingsEvent(event, apply, session, &input);
  }
  return input;
}

// --- Frame ---------------------------------------------------------------------------------------

RightPanelContext BuildRightPanelContext(const SettingsDialogSession& session,
                                         const ModalPointer& pointer, const FrameInput& input) {
  RightPanelContext ctx;
  ctx.renderer = session.renderer;
  ctx.bold_font = session.bold_font.get();
  ctx.regular_font = session.regular_font.get();
  ctx.panel_id = session.panel_id;
  ctx.mouse_x = pointer.x;
  ctx.mouse_y = pointer.y;
  ctx.clicked = input.page_clicked;
  ctx.mouse_down = pointer.left_down && IsInPageArea(pointer.x, pointer.y);
  ctx.values = &session.values;
  return ctx;
}

// Draws a frame. What the user did on the page changes the values afterwards, so that the next
// frame is the first to show it.
void RunSettingsFrame(const ModalPointer& pointer, const FrameInput& input,
                      SettingsDialogSession* session) {
  SDL_Renderer* renderer = session->renderer;
  ClearFrame(renderer, kCanvasFill);
  DrawLeftPanel(renderer, session->bold_font.get(), session->regular_font.get(),
                *session->nav_items, session->panel_id, pointer.x, pointer.y);
  FillRect(renderer, kRightArea, kCanvasFill);
  const RightPanelHitResult hit = DrawRightPanel(BuildRightPanelContext(*session, pointer, input));
  ApplySettingsHit(&session->values, hit);
  HandleSettingsFontPickerHit(&session->values, session->window, hit);
  DrawBottomBar(renderer, session->regular_font.get(), session->cancel_button,
                session->apply_button, pointer.x, pointer.y);
  PresentModalFrame(session->window, renderer, &session->shown);
}

// --- Opening -------------------------------------------------------------------------------------

// The fonts belong to the session; the window and the list are borrowed.
SettingsDialogSession BuildSettingsSession(const ModalWindowBundle& bundle,
                                           const std::vector<NavItem>& nav_items,
                                           const SettingsDialogValues& initial) {
  const SettingsDialogButtons buttons = BuildSettingsDialogButtons();
  SettingsDialogSession session;
  session.window = bundle.window.get();
  session.renderer = bundle.renderer.get();
  session.bold_font = OpenSdlUiFontHandle(kFontSize, true, SdlUiFontKind::Ui);
  session.regular_font = OpenSdlUiFontHandle(kFontSize, false, SdlUiFontKind::Ui);
  session.nav_items = &nav_items;
  session.cancel_button = buttons.cancel;
  session.apply_button = buttons.apply;
  session.values = initial;
  session.panel_id = FindInitialSettingsPanel(nav_items);
  return session;
}

}  // namespace

void ShowSettingsDialog(SDL_Window* parent, float /*scale*/, const SettingsDialogValues& initial,
                        std::function<void(const SettingsDialogValues&)> apply) {
  const ModalHostState host_state;
  // In front of the window, so that the dialog's window is gone when the parent gets the focus
  // back.
  std::optional<ModalParentFocus> parent_focus;
  const ModalWindowBundle bundle =
      CreateModalWindowBundle(parent, "Settings", 60, 50, kCanvasWidth, kCanvasHeight,
                              SDL_WINDOW_HIDDEN, ModalRendererMode::Software);
  if (bundle.window == nullptr || bundle.renderer == nullptr) {
    return;
  }
  const std::vector<NavItem> nav_items = BuildSettingsNavItems();
  SettingsDialogSession session = BuildSettingsSession(bundle, nav_items, initial);
  if (session.bold_font == nullptr || session.regular_font == nullptr) {
    SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_ERROR, "Settings", "Failed to load font.", parent);
    return;
  }
  parent_focus.emplace(parent, bundle.window.get());
  RunSettingsDialogLoop(&session, apply);
}

void RunSettingsDialogLoop(SettingsDialogSession* session,
                           const std::function<void(const SettingsDialogValues&)>& apply) {
  if (session == nullptr || session->window == nullptr || session->renderer == nullptr ||
      session->nav_items == nullptr) {
    return;
  }
  const FindableDialog findable(session->window, session);
  ModalEventQueue events(session->window);
  while (true) {
    PumpModalDialogHeartbeat();
    // Before the events: "held" and "hovered" are as the frame found them. But not before the
    // pointer has come to where the next press was made.
    SDL_PumpEvents();
    const ModalPointer pointer = ReadModalPointer(session->window);
    const FrameInput input = HandleSettingsEvents(apply, &events, session);
    if (input.closing) {
      return;
    }
    RunSettingsFrame(pointer, input, session);
    SDL_Delay(kPanelFrameDelayMs);
  }
}

std::vector<NavItem> BuildSettingsNavItems() {
  return {
      {kNavHeading, "Display", kNoPanel}, {kNavItem, "Font Mode", 0},
      {kNavItem, "Target FPS", 1},        {kNavItem, "Renderer", 2},
      {kNavItem, "Screenshots", 7},       {kNavHeading, "Input", kNoPanel},
      {kNavItem, "Mouse Capture", 6},     {kNavHeading, "Performance", kNoPanel},
      {kNavItem, "CPU Speed", 3},         {kNavHeading, "Verbosity", kNoPanel},
      {kNavItem, "Logger Options", 4},    {kNavHeading, "Audio", kNoPanel},
      {kNavItem, "HDD Sounds", 5},
  };
}

int FindInitialSettingsPanel(const std::vector<NavItem>& nav_items) {
  const auto item = std::find_if(nav_items.begin(), nav_items.end(),
                                 [](const NavItem& row) { return row.kind == kNavItem; });
  return item == nav_items.end() ? kNoPanel : item->panel_id;
}

SettingsDialogButtons BuildSettingsDialogButtons() {
  return {SDL_Rect{618, 449, 90, 30}, SDL_Rect{718, 449, 90, 30}};
}

void DrawLeftPanel(SDL_Renderer* renderer, TTF_Font* bold_font, TTF_Font* regular_font,
                   const std::vector<NavItem>& nav_items, int selected_panel_id, int mouse_x,
                   int mouse_y) {
  FillRect(renderer, SDL_Rect{0, 0, kListWidth, kBarTop}, kListFill);
  int index = 0;
  for (const NavItem& item : nav_items) {
    const SDL_Rect row = NavRowRect(index);
    if (item.kind == kNavHeading) {
      DrawNavHeading(renderer, bold_font, row, item.label);
    } else {
      DrawNavItem(renderer, regular_font, row, item.label, item.panel_id == selected_panel_id,
                  IsInRect(mouse_x, mouse_y, row));
    }
    ++index;
  }
  DrawLine(renderer, kListWidth, 0, kListWidth, kBarTop, kSettingsGroove);
}

int DrawPanelHeader(SDL_Renderer* renderer, TTF_Font* bold_font, TTF_Font* regular_font, int x,
                    int y, const std::string& title, const std::string& subtitle) {
  constexpr int kSubtitleGap = 6;
  constexpr int kContentGap = 20;
  DrawText(renderer, bold_font, title, x, y, kColTextHi);
  int bottom = y + FontHeightOr(bold_font, kMissingTitleHeight);
  if (!subtitle.empty()) {
    DrawText(renderer, regular_font, subtitle, x, bottom + kSubtitleGap, kColTextDim);
    bottom += kSubtitleGap + FontHeightOr(regular_font, kMissingFontHeight);
  }
  return bottom + kContentGap;
}

void DrawBottomBar(SDL_Renderer* renderer, TTF_Font* regular_font, const SDL_Rect& cancel,
                   const SDL_Rect& apply, int mouse_x, int mouse_y) {
  FillRect(renderer, SDL_Rect{0, kBarTop, kCanvasWidth, kCanvasHeight - kBarTop}, kBarFill);
  DrawLine(renderer, 0, kBarTop, kCanvasWidth, kBarTop, kSettingsGroove);
  DrawButton(renderer, regular_font, cancel, "Cancel", IsInRect(mouse_x, mouse_y, cancel));
  DrawButton(renderer, regular_font, apply, "Apply", IsInRect(mouse_x, mouse_y, apply));
}

RightPanelHitResult DrawRightPanel(const RightPanelContext& ctx) {
  RightPanelHitResult hit;
  if (ctx.panel_id < 0) {
    DrawText(ctx.renderer, ctx.regular_font, "Select an item on the left to see options.",
             kSettingsContentX, 80, kColTextDim);
  } else if (!DrawSettingsDisplayPanel(ctx, &hit) && !DrawSettingsRuntimePanel(ctx, &hit)) {
    DrawText(ctx.renderer, ctx.regular_font, "No options for this item.", kSettingsContentX, 60,
             kColTextDim);
  }
  return hit;
}

void ApplySettingsHit(SettingsDialogValues* values, const RightPanelHitResult& hit) {
  if (values == nullptr || !hit.changed) {
    return;
  }
  if (hit.key == "fps") {
    values->target_fps = std::stoi(hit.text);
  } else if (hit.key == "font_mode") {
    values->font_mode = hit.text;
  } else if (hit.key == "renderer_mode") {
    values->renderer_mode = hit.text;
  } else if (hit.key == "mouse_capture_gain") {
    values->mouse_capture_gain = hit.number;
  } else if (hit.key == "hdd_sounds_enabled") {
    values->hdd_sounds_enabled = hit.text == "1";
  } else if (hit.key == "hdd_sounds_volume") {
    values->hdd_sounds_volume = hit.number;
  } else if (hit.key == "screenshot_capture_size_mode") {
    values->screenshot_capture_size_mode = std::stoi(hit.text);
  } else if (hit.key == "screenshot_capture_with_opengl_shaders") {
    values->screenshot_capture_with_opengl_shaders = hit.flag;
  } else if (hit.key == "allow_mouse_capture_in_text_mode") {
    values->allow_mouse_capture_in_text_mode = hit.flag;
  }
}

void HandleSettingsFontPickerHit(SettingsDialogValues* values, SDL_Window* dialog_window,
                                 const RightPanelHitResult& hit) {
  if (values == nullptr || !hit.browse_font) {
    return;
  }
  const std::string start_folder =
      utils::text_from_path(utils::path_from_text(values->custom_font_path).parent_path());
  std::string chosen = ShowSimpleTtfFilePicker(dialog_window, start_folder);
  if (!chosen.empty()) {
    values->custom_font_path = std::move(chosen);
    values->font_mode = "ttf-custom";
  }
}

}  // namespace quindle::frontend::gui
