#include <algorithm>
#include <string_view>
#include <system_error>
#include <utility>

#include "frontend/gui/drawable_text.h"
#include "frontend/gui/numbers.h"
#include "frontend/gui/open_dialog.h"
#include "frontend/gui/picker_files.h"
#include "frontend/gui/sdl_draw.h"
#include "frontend/gui/sdl_host_state.h"
#include "frontend/gui/sdl_modal_events.h"
#include "frontend/gui/sdl_modal_frame.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/sdl_pickers.h"
#include "frontend/gui/sdl_text_fit.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "utils/path_text.h"

namespace quindle::frontend::gui {
namespace {

namespace fs = std::filesystem;

constexpr int kWindowOffset = 60;
constexpr int kFontSize = 15;
constexpr int kFolderMode = 1;
constexpr int kNoRow = -1;

// Geometry in window pixels.
constexpr int kHeaderHeight = 56;
constexpr int kHeaderMargin = 10;
constexpr int kHintY = 8;
constexpr int kDirectoryY = 30;
constexpr int kListMargin = 8;
constexpr int kRowPitch = 24;
constexpr int kRowHeight = 23;
constexpr SDL_Point kRowTextOffset{8, 4};
constexpr int kButtonMargin = 18;
constexpr int kButtonGap = 10;
constexpr SDL_Point kButtonTextOffset{10, 7};
constexpr int kTrackWidth = 12;
constexpr int kTrackInset = 2;
constexpr int kMinTrackHeight = 8;
constexpr int kMinThumbHeight = 24;

constexpr SDL_Color kBackground{20, 23, 27, 255};
constexpr SDL_Color kHeaderFill{32, 36, 42, 255};
constexpr SDL_Color kListFill{12, 14, 18, 255};
constexpr SDL_Color kListOutline{80, 88, 98, 255};
constexpr SDL_Color kSelectedFill{52, 66, 90, 255};
constexpr SDL_Color kText{232, 236, 240, 255};
constexpr SDL_Color kFooterFill{28, 32, 38, 255};
constexpr SDL_Color kButtonFill{70, 76, 84, 255};
constexpr SDL_Color kTrackFill = kFooterFill;
constexpr SDL_Color kTrackOutline = kButtonFill;
constexpr SDL_Color kThumbFill{92, 102, 116, 255};
constexpr SDL_Color kThumbOutline{140, 150, 166, 255};

struct PickerLayout {
  SDL_Rect header{0, 0, 0, 0};
  SDL_Rect list{0, 0, 0, 0};
  SDL_Rect footer{0, 0, 0, 0};
  SDL_Rect cancel{0, 0, 0, 0};
  SDL_Rect accept{0, 0, 0, 0};
  int visible_rows = 1;
};

// The state of one run.
struct PickerState {
  fs::path dir;                   // Shown now, in the form that the start directory had.
  std::vector<PickerEntry> rows;  // Of `dir`, as they were when it was opened.
  int selected = kNoRow;          // Index of a row; -1 while there is none.
  // Index of the first visible row. Each frame brings it back into its range before it draws;
  // between two events of one frame it may lie outside.
  int scroll = 0;
  bool dragging = false;
  int drag_start_y = 0;
  int drag_start_scroll = 0;
  bool done = false;
  bool shown = false;
  std::string result;  // Empty until a selection is accepted.
};

PickerLayout BuildPickerLayout(const SdlPickerDialogOptions& options, int width, int height) {
  const int footer_y = height - options.footer_height;
  const int button_y = footer_y + (options.footer_height - options.button_height) / 2;
  const int accept_x = width - kButtonMargin - options.button_width;
  const int cancel_x = accept_x - kButtonGap - options.button_width;
  const int list_height = std::max(1, footer_y - kHeaderHeight);
  PickerLayout layout;
  layout.header = {0, 0, width, kHeaderHeight};
  layout.list = {kListMargin, kHeaderHeight, width - 2 * kListMargin, list_height};
  layout.footer = {0, footer_y, width, options.footer_height};
  layout.cancel = {cancel_x, button_y, options.button_width, options.button_height};
  layout.accept = {accept_x, button_y, options.button_width, options.button_height};
  layout.visible_rows = std::max(1, list_height / kRowPitch);
  return layout;
}

PickerLayout LayOutForWindow(SDL_Window* window, const SdlPickerDialogOptions& options) {
  int width = 0;
  int height = 0;
  SDL_GetWindowSize(window, &width, &height);
  return BuildPickerLayout(options, width, height);
}

SDL_Rect AcceptButton(SDL_Window* window, const SdlPickerDialogOptions& options) {
  return LayOutForWindow(window, options).accept;
}

int RowCount(const PickerState& state) {
  return static_cast<int>(state.rows.size());
}

bool IsRow(const std::vector<PickerEntry>& rows, long long index) {
  return index >= 0 && index < static_cast<long long>(rows.size());
}

bool IsDirectoryRow(const std::vector<PickerEntry>& rows, int index) {
  return IsRow(rows, index) && rows[static_cast<std::size_t>(index)].is_directory;
}

void ClampScroll(PickerState* state, int visible_rows) {
  state->scroll = std::clamp(state->scroll, 0, std::max(0, RowCount(*state) - visible_rows));
}

SimpleScrollbarLayout BuildScrollbar(const PickerLayout& layout, const PickerState& state) {
  return BuildSimpleScrollbarLayout(layout.list, RowCount(state), layout.visible_rows,
                                    state.scroll);
}

fs::path ResolveStartDirectory(const fs::path& requested) {
  std::error_code error;
  const fs::file_type type = FindFileType(requested);
  fs::path dir = requested;
  if (type == fs::file_type::none || type == fs::file_type::not_found ||
      !utils::has_text(requested)) {
    dir = fs::current_path(error);
  } else if (type != fs::file_type::directory) {
    dir = requested.parent_path();
  }
  return dir.empty() ? fs::current_path(error) : dir;
}

// By value: the path may belong to a row of the listing that is replaced.
void OpenDirectory(const SdlPickerDialogOptions& options, fs::path dir, PickerState* state) {
  state->dir = std::move(dir);
  state->rows.clear();
  if (options.load_entries != nullptr) {
    state->rows = options.load_entries(state->dir);
  }
  state->selected = state->rows.empty() ? kNoRow : 0;
  state->scroll = 0;
}

// In folder mode the answer is the directory shown, whatever row is selected.
bool TryAcceptPickerSelection(const SdlPickerDialogOptions& options, const fs::path& currentDir,
                              const std::vector<PickerEntry>& rows, int selected,
                              std::string* result) {
  if (options.mode == kFolderMode) {
    *result = utils::text_from_path(currentDir);
    return true;
  }
  if (!IsRow(rows, selected) || IsDirectoryRow(rows, selected)) {
    return false;
  }
  *result = utils::text_from_path(rows[static_cast<std::size_t>(selected)].path);
  return true;
}

void AcceptRow(const SdlPickerDialogOptions& options, int row, PickerState* state) {
  if (TryAcceptPickerSelection(options, state->dir, state->rows, row, &state->result)) {
    state->done = true;
  }
}

void OpenOrAcceptRow(const SdlPickerDialogOptions& options, int row, PickerState* state) {
  if (IsDirectoryRow(state->rows, row)) {
    OpenDirectory(options, state->rows[static_cast<std::size_t>(row)].path, state);
  } else {
    AcceptRow(options, row, state);
  }
}

void PressAcceptButton(const SdlPickerDialogOptions& options, PickerState* state) {
  if (options.mode == kFolderMode) {
    AcceptRow(options, state->selected, state);
  } else {
    OpenOrAcceptRow(options, state->selected, state);
  }
}

void HandleKey(const SdlPickerDialogOptions& options, SDL_Keycode key, PickerState* state) {
  switch (key) {
    case SDLK_ESCAPE:
      state->done = true;
      break;
    case SDLK_UP:
      state->selected -= state->selected > 0 ? 1 : 0;
      break;
    case SDLK_DOWN:
      state->selected += state->selected + 1 < RowCount(*state) ? 1 : 0;
      break;
    case SDLK_RETURN:
    case SDLK_KP_ENTER:
      OpenOrAcceptRow(options, state->selected, state);
      break;
    default:
      break;
  }
}

void HandleWheel(int notches, PickerState* state) {
  state->scroll = std::max(0, ClampToInt(static_cast<long long>(state->scroll) - notches));
}

// The pixels that the thumb can travel.
int TravelOf(const SimpleScrollbarLayout& bar) {
  return std::max(1, bar.track.h - bar.thumb.h);
}

// How many rows a drag of `distance` pixels scrolls by.
long long RowsDragged(const SimpleScrollbarLayout& bar, long long distance) {
  return TruncateToInt(static_cast<float>(distance) / static_cast<float>(TravelOf(bar)) *
                       static_cast<float>(bar.max_scroll));
}

void DragThumb(const SimpleScrollbarLayout& bar, int y, PickerState* state) {
  if (!state->dragging || bar.max_scroll < 1) {
    return;
  }
  const long long distance = static_cast<long long>(y) - state->drag_start_y;
  state->scroll = ClampToInt(state->drag_start_scroll + RowsDragged(bar, distance));
}

void PressScrollbar(const SimpleScrollbarLayout& bar, int visible_rows, SDL_Point at,
                    PickerState* state) {
  if (IsPointInside(bar.thumb, at.x, at.y)) {
    state->dragging = true;
    state->drag_start_y = at.y;
    state->drag_start_scroll = state->scroll;
    return;
  }
  const int page = at.y >= bar.thumb.y + bar.thumb.h / 2 ? visible_rows : -visible_rows;
  const long long target = static_cast<long long>(state->scroll) + page;
  state->scroll = static_cast<int>(std::clamp<long long>(target, 0, bar.max_scroll));
}

// The rows react across the whole width of the window, beside the list box too.
bool IsBesideRows(const SDL_Rect& list, int y) {
  return y >= list.y && y - list.y < list.h;
}

void ClickRow(const SdlPickerDialogOptions& options, const SDL_MouseButtonEvent& button,
              const PickerLayout& layout, PickerState* state) {
  const long long row =
      static_cast<long long>(state->scroll) + (button.y - layout.list.y) / kRowPitch;
  if (row < 0) {
    return;
  }
  if (IsRow(state->rows, row)) {
    const int index = static_cast<int>(row);
    if (button.type == SDL_MOUSEBUTTONDOWN && button.clicks >= 2) {
      OpenOrAcceptRow(options, index, state);
    } else {
      state->selected = index;
    }
  }
  ClampScroll(state, layout.visible_rows);
}

void ReleaseOverFooter(const SdlPickerDialogOptions& options, const PickerLayout& layout,
                       SDL_Point at, PickerState* state) {
  if (IsPointInside(layout.cancel, at.x, at.y)) {
    state->done = true;
  } else if (IsPointInside(layout.accept, at.x, at.y)) {
    PressAcceptButton(options, state);
  }
}

// A press or a release of the left button. Rows react to both, the buttons to releases alone.
void HandleClick(const SdlPickerDialogOptions& options, const SDL_MouseButtonEvent& button,
                 const PickerLayout& layout, PickerState* state) {
  const bool pressed = button.type == SDL_MOUSEBUTTONDOWN;
  const SDL_Point at{button.x, button.y};
  const SimpleScrollbarLayout bar = BuildScrollbar(layout, *state);
  if (bar.max_scroll > 0 && IsPointInside(bar.track, at.x, at.y)) {
    if (pressed) {
      PressScrollbar(bar, layout.visible_rows, at, state);
    }
  } else if (IsBesideRows(layout.list, at.y)) {
    ClickRow(options, button, layout, state);
  } else if (!pressed) {
    ReleaseOverFooter(options, layout, at, state);
  }
}

// A drag ends with any release of the left button; for all else the pointer must be on the dialog.
void HandlePointerEvent(SDL_Window* window, const SdlPickerDialogOptions& options,
                        const SDL_Event& event, PickerState* state) {
  if (IsLeftButtonEvent(event) && event.type == SDL_MOUSEBUTTONUP) {
    state->dragging = false;
  }
  if (IsInputOfOtherWindow(window, event)) {
    return;
  }
  const PickerLayout layout = LayOutForWindow(window, options);
  if (event.type == SDL_MOUSEMOTION) {
    DragThumb(BuildScrollbar(layout, *state), event.motion.y, state);
  } else if (IsLeftButtonEvent(event)) {
    HandleClick(options, event.button, layout, state);
  }
}

void HandleEvent(SDL_Window* window, const SdlPickerDialogOptions& options, const SDL_Event& event,
                 PickerState* state) {
  if (IsModalCancelEvent(event)) {
    state->done = true;
    return;
  }
  switch (event.type) {
    case SDL_KEYDOWN:
      HandleKey(options, event.key.keysym.sym, state);
      break;
    case SDL_MOUSEWHEEL:
      HandleWheel(event.wheel.y, state);
      break;
    case SDL_MOUSEMOTION:
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
      HandlePointerEvent(window, options, event, state);
      break;
    default:
      break;
  }
}

// Empties the queue; nothing behind the event that decides changes the outcome.
void HandleEvents(SDL_Window* window, const SdlPickerDialogOptions& options,
                  ModalEventQueue* events, PickerState* state) {
  SDL_Event event;
  while (events->Poll(&event)) {
    if (events->MissedLeftRelease()) {
      state->dragging = false;
    }
    if (!state->done) {
      HandleEvent(window, options, event, state);
    }
  }
}

TTF_Font* PickerFont() {
  return GetCachedSdlUiFont(kFontSize, false, SdlUiFontKind::Ui);
}

void DrawText(SDL_Renderer* renderer, const std::string& text, int x, int y) {
  DrawSimpleModalText(renderer, text.c_str(), x, y, kText);
}

// A long hint keeps its beginning, a long path its end, where directories differ.
void DrawHeader(SDL_Renderer* renderer, const SdlPickerDialogOptions& options,
                const PickerState& state, const SDL_Rect& header) {
  const int room = header.w - 2 * kHeaderMargin;
  const std::string hint = FitTextLeft(PickerFont(), DrawableText(options.hint), room);
  const std::string dir =
      FitTextRight(PickerFont(), DrawableText(utils::text_from_path(state.dir)), room);
  FillRect(renderer, header, kHeaderFill);
  DrawText(renderer, hint, kHeaderMargin, kHintY);
  DrawText(renderer, dir, kHeaderMargin, kDirectoryY);
}

void DrawRow(SDL_Renderer* renderer, const SdlPickerDialogOptions& options,
             const PickerEntry& entry, bool selected, const SDL_Rect& row, int text_right) {
  if (selected) {
    FillRect(renderer, row, kSelectedFill);
  }
  const std::string label = options.label_entry ? options.label_entry(entry) : entry.name;
  const int x = row.x + kRowTextOffset.x;
  DrawText(renderer, FitTextLeft(PickerFont(), DrawableText(label), text_right - x), x,
           row.y + kRowTextOffset.y);
}

void DrawRows(SDL_Renderer* renderer, const SdlPickerDialogOptions& options,
              const PickerState& state, const PickerLayout& layout, int text_right) {
  const int end = std::min(RowCount(state), state.scroll + layout.visible_rows);
  SDL_Rect row{layout.list.x + 1, layout.list.y + 1, layout.list.w - 2, kRowHeight};
  for (int index = state.scroll; index < end; ++index) {
    DrawRow(renderer, options, state.rows[static_cast<std::size_t>(index)], index == state.selected,
            row, text_right);
    row.y += kRowPitch;
  }
}

// A caption wider than its button ends a pixel before the button does.
void DrawButtonText(SDL_Renderer* renderer, const char* text, const SDL_Rect& button) {
  const ScopedClip clip(renderer, SDL_Rect{button.x + 1, button.y, button.w - 2, button.h});
  DrawText(renderer, DrawableText(text == nullptr ? "" : text), button.x + kButtonTextOffset.x,
           button.y + kButtonTextOffset.y);
}

void DrawFooter(SDL_Renderer* renderer, const SdlPickerDialogOptions& options,
                const PickerLayout& layout) {
  FillRect(renderer, layout.footer, kFooterFill);
  FillRect(renderer, layout.cancel, kButtonFill);
  FillRect(renderer, layout.accept, kButtonFill);
  DrawButtonText(renderer, options.cancel_label, layout.cancel);
  DrawButtonText(renderer, options.accept_label, layout.accept);
}

void DrawPickerFrame(SDL_Renderer* renderer, const SdlPickerDialogOptions& options,
                     const PickerState& state, const PickerLayout& layout) {
  const SimpleScrollbarLayout bar = BuildScrollbar(layout, state);
  ClearFrame(renderer, kBackground);
  DrawHeader(renderer, options, state, layout.header);
  FillAndOutlineRect(renderer, layout.list, kListFill, kListOutline);
  DrawRows(renderer, options, state, layout, bar.track.x);
  DrawSimpleScrollbar(renderer, bar);
  DrawFooter(renderer, options, layout);
}

void RunPickerLoop(const ModalWindowBundle& bundle, const SdlPickerDialogOptions& options,
                   PickerState* state) {
  SDL_Window* window = bundle.window.get();
  const FindableDialog findable(
      window, OpenPicker{&options, &state->dir, &state->rows, &state->selected, AcceptButton});
  ModalEventQueue events(window);
  while (!state->done) {
    PumpModalDialogHeartbeat();
    HandleEvents(window, options, &events, state);
    const PickerLayout layout = LayOutForWindow(window, options);
    ClampScroll(state, layout.visible_rows);
    DrawPickerFrame(bundle.renderer.get(), options, *state, layout);
    PresentModalFrame(window, bundle.renderer.get(), &state->shown);
    SDL_Delay(kListFrameDelayMs);
  }
}

}  // namespace

std::string RunSimplePickerDialog(SDL_Window* parent, const SdlPickerDialogOptions& options) {
  const ModalHostState host_state;
  fs::path start_dir = ResolveStartDirectory(options.start_dir);
  const ModalWindowBundle bundle = CreateModalWindowBundle(
      parent, options.title == nullptr ? "" : options.title, kWindowOffset, kWindowOffset,
      options.width, options.height, options.window_flags, ModalRendererMode::Accelerated);
  if (bundle.window == nullptr || bundle.renderer == nullptr) {
    return {};
  }
  const ModalParentFocus parent_focus(parent, bundle.window.get());
  PickerFont();  // Opened before the first frame; without it only the texts are missing.
  PickerState state;
  OpenDirectory(options, std::move(start_dir), &state);
  RunPickerLoop(bundle, options, &state);
  return std::move(state.result);
}

SimpleScrollbarLayout BuildSimpleScrollbarLayout(const SDL_Rect& list, int totalRows,
                                                 int visibleRows, int scroll) {
  SimpleScrollbarLayout bar;
  bar.track = {list.x + list.w - kTrackWidth - kTrackInset, list.y + kTrackInset, kTrackWidth,
               std::max(kMinTrackHeight, list.h - 2 * kTrackInset)};
  bar.max_scroll = std::max(0, ClampToInt(static_cast<long long>(totalRows) - visibleRows));
  bar.thumb = bar.track;
  if (bar.max_scroll < 1) {
    return bar;
  }
  const long long rows = std::max({1, visibleRows, totalRows});
  const long long share = static_cast<long long>(bar.track.h) * visibleRows / rows;
  bar.thumb.h = std::max(kMinThumbHeight, ClampToInt(share));
  const float part = static_cast<float>(std::clamp(scroll, 0, bar.max_scroll)) /
                     static_cast<float>(bar.max_scroll);
  bar.thumb.y = bar.track.y + TruncateToInt(part * static_cast<float>(TravelOf(bar)));
  return bar;
}

void DrawSimpleScrollbar(SDL_Renderer* renderer, const SimpleScrollbarLayout& layout) {
  if (renderer == nullptr) {
    return;
  }
  FillAndOutlineRect(renderer, layout.track, kTrackFill, kTrackOutline);
  FillAndOutlineRect(renderer, layout.thumb, kThumbFill, kThumbOutline);
}

bool IsPointInRect(const SDL_Rect& r, int x, int y) {
  return IsPointInside(r, x, y);
}

void DrawSimpleModalText(SDL_Renderer* renderer, const char* text, int x, int y, SDL_Color colour) {
  if (renderer == nullptr || text == nullptr || *text == '\0') {
    return;
  }
  DrawSdlUiText(renderer, PickerFont(), text, x, y, colour, nullptr);
}

}  // namespace quindle::frontend::gui
