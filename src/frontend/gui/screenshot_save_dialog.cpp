#include "frontend/gui/screenshot_save_dialog.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "frontend/gui/form_draw.h"
#include "frontend/gui/form_folder.h"
#include "frontend/gui/open_dialog.h"
#include "frontend/gui/sdl_draw.h"
#include "frontend/gui/sdl_host_state.h"
#include "frontend/gui/sdl_modal_events.h"
#include "frontend/gui/sdl_modal_frame.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/text_entry.h"
#include "utils/ascii_text.h"
#include "utils/path_text.h"

namespace quindle::frontend::gui {
namespace {

constexpr int kWindowWidth = 900;
constexpr int kWindowHeight = 410;

constexpr int kFocusFileName = 0;
constexpr int kFocusJpegQuality = 1;
constexpr int kFocusPngCompression = 2;
constexpr int kFocusNone = 3;

constexpr std::size_t kMaxFileNameBytes = 180;
constexpr std::size_t kMaxJpegQualityDigits = 3;
constexpr std::size_t kMaxPngCompressionDigits = 1;
constexpr std::size_t kMaxShownFolderBytes = 70;
constexpr std::size_t kMaxShownPathBytes = 100;

// The formats in the order of the list's rows.
constexpr std::array kFormats{ScreenshotSaveFormat::Png, ScreenshotSaveFormat::Jpeg,
                              ScreenshotSaveFormat::Bmp};
constexpr int kListRowPitch = 34;

constexpr SDL_Color kHeaderFill{32, 36, 42, 255};
constexpr SDL_Color kCheckMarkFill{106, 166, 255, 255};
constexpr SDL_Color kListFill{28, 32, 38, 255};
constexpr SDL_Color kListOutline{95, 104, 116, 255};
constexpr SDL_Color kSelectedRowFill{52, 66, 90, 255};

constexpr int kHeaderHeight = 56;
constexpr int kTextDrop = 10;  // From the top of a field or button to its text.
constexpr int kCheckMarkSize = 12;
constexpr int kGapBeforeButton = 12;
constexpr int kRightMargin = 30;  // From the buttons to the window's edge.

// A value that names no format is shown, edited and listed as PNG.
ScreenshotSaveFormat KnownFormat(ScreenshotSaveFormat format) {
  const bool known = std::find(kFormats.begin(), kFormats.end(), format) != kFormats.end();
  return known ? format : ScreenshotSaveFormat::Png;
}

// A working directory that cannot be determined is still called ".".
std::string FolderOrWorkingDirectory(std::string_view folder) {
  if (!folder.empty()) {
    return std::string(folder);
  }
  std::error_code error;
  const std::filesystem::path current = std::filesystem::current_path(error);
  return error ? "." : utils::text_from_path(current);
}

// The focus of the format's option field.
int OptionFocus(ScreenshotSaveFormat format) {
  switch (KnownFormat(format)) {
    case ScreenshotSaveFormat::Jpeg:
      return kFocusJpegQuality;
    case ScreenshotSaveFormat::Bmp:
      return kFocusNone;
    case ScreenshotSaveFormat::Png:
    default:
      return kFocusPngCompression;
  }
}

bool IsBmp(ScreenshotSaveFormat format) {
  return format == ScreenshotSaveFormat::Bmp;
}

// --- Keys and typing -----------------------------------------------------------------------------

void HandleEscape(ScreenshotSaveDialogState* state) {
  if (state->format_list_open) {
    state->format_list_open = false;
  } else {
    state->done = true;
  }
}

void MoveFocus(ScreenshotSaveDialogState* state) {
  const bool leaves_name = state->focus == kFocusFileName && !IsBmp(state->format);
  state->focus = leaves_name ? OptionFocus(state->format) : kFocusFileName;
}

// The text that typing edits; null when no field has the focus.
std::string* FocusedText(ScreenshotSaveDialogState* state) {
  switch (state->focus) {
    case kFocusFileName:
      return &state->file_name_text;
    case kFocusJpegQuality:
      return &state->jpeg_quality_text;
    case kFocusPngCompression:
      return &state->png_compression_text;
    default:
      return nullptr;
  }
}

// --- Mouse ---------------------------------------------------------------------------------------

ScreenshotSaveDialogLayout LayoutOfWindow(SDL_Window* window) {
  int width = 0;
  int height = 0;
  SDL_GetWindowSize(window, &width, &height);
  return BuildScreenshotSaveDialogLayout(width, height);
}

int FocusAt(const ScreenshotSaveDialogLayout& layout, ScreenshotSaveFormat format, int x, int y) {
  if (IsInside(layout.file_name_field, x, y)) {
    return kFocusFileName;
  }
  return IsInside(layout.option_field, x, y) ? OptionFocus(format) : kFocusNone;
}

bool IsOnOpenList(const ScreenshotSaveDialogLayout& layout, const ScreenshotSaveDialogState& state,
                  int x, int y) {
  return state.format_list_open && IsInside(layout.format_list, x, y);
}

void HandlePress(const ScreenshotSaveDialogLayout& layout, int x, int y,
                 ScreenshotSaveDialogState* state) {
  state->focus = FocusAt(layout, state->format, x, y);
  if (!IsInside(layout.format_box, x, y) && !IsOnOpenList(layout, *state, x, y)) {
    state->format_list_open = false;
  }
}

void SelectFormatAt(const SDL_Rect& list, int y, ScreenshotSaveDialogState* state) {
  const auto row = static_cast<std::size_t>((y - list.y) / kListRowPitch);
  if (row < kFormats.size()) {
    state->format = kFormats[row];
    state->file_name_text = ReplaceFilenameExtension(state->file_name_text, state->format);
    state->focus = OptionFocus(state->format);
  }
  state->format_list_open = false;
}

void ToggleFormatList(ScreenshotSaveDialogState* state) {
  state->format_list_open = !state->format_list_open;
  state->focus = kFocusNone;
}

// The open list takes the release before anything that lies beneath it.
void HandleRelease(const ScreenshotSaveDialogLayout& layout, SDL_Window* window, int x, int y,
                   ScreenshotSaveDialogState* state) {
  if (IsOnOpenList(layout, *state, x, y)) {
    SelectFormatAt(layout.format_list, y, state);
  } else if (IsBmp(state->format) && IsInside(layout.rle_checkbox, x, y)) {
    state->result.bmp_rle = !state->result.bmp_rle;
  } else if (IsInside(layout.folder_field, x, y) || IsInside(layout.choose_button, x, y)) {
    OpenFolderPicker(window, state->folder_text);
    state->format_list_open = false;
  } else if (IsInside(layout.format_box, x, y)) {
    ToggleFormatList(state);
  } else if (IsInside(layout.cancel_button, x, y)) {
    state->done = true;
  } else if (IsInside(layout.save_button, x, y)) {
    CommitScreenshotSaveDialogResult(state);
  }
}

// --- Drawing -------------------------------------------------------------------------------------

// SDL draws stray lines for an outline without extent, so a box without room is left out.
void DrawBox(SDL_Renderer* renderer, const SDL_Rect& rect, SDL_Color fill, SDL_Color outline) {
  if (SDL_RectEmpty(&rect) == SDL_FALSE) {
    FillAndOutlineRect(renderer, rect, fill, outline);
  }
}

// The width of the window that the layout was computed for.
int LayoutWidth(const ScreenshotSaveDialogLayout& layout) {
  return layout.save_button.x + layout.save_button.w + kRightMargin;
}

void DrawHeader(SDL_Renderer* renderer, int width) {
  ClearFrame(renderer, kFormBackground);
  FillRect(renderer, SDL_Rect{0, 0, width, kHeaderHeight}, kHeaderFill);
  DrawFormText(renderer, "Save screenshot", 18, 14, kFormText);
  DrawFormText(renderer, "Export current guest output as PNG, JPEG or BMP", 18, 34, kFormDimText);
}

void DrawLabels(SDL_Renderer* renderer, ScreenshotSaveFormat format) {
  DrawFormText(renderer, "File name:", kFormLabelX, 92, kFormText);
  DrawFormText(renderer, "Folder:", kFormLabelX, 158, kFormText);
  DrawFormText(renderer, "Format:", kFormLabelX, 224, kFormText);
  DrawFormText(renderer, FormatValueLabel(format), kFormLabelX, 290, kFormText);
}

void DrawField(SDL_Renderer* renderer, const SDL_Rect& rect, bool focused) {
  DrawBox(renderer, rect, kFormFieldFill, focused ? kFormFocusedFieldOutline : kFormFieldOutline);
}

void DrawFields(const ScreenshotSaveDialogSession& session,
                const ScreenshotSaveDialogLayout& layout) {
  DrawField(session.renderer, layout.file_name_field, session.focus == kFocusFileName);
  DrawField(session.renderer, layout.folder_field, false);
  DrawField(session.renderer, layout.format_box, false);
  if (!IsBmp(session.format)) {
    DrawField(session.renderer, layout.option_field, session.focus == OptionFocus(session.format));
  }
}

void DrawButtons(SDL_Renderer* renderer, const ScreenshotSaveDialogLayout& layout) {
  for (const SDL_Rect& button : {layout.choose_button, layout.cancel_button, layout.save_button}) {
    DrawBox(renderer, button, kFormButtonFill, kFormButtonOutline);
  }
}

void DrawCaption(SDL_Renderer* renderer, const SDL_Rect& button, const char* text, int offset) {
  DrawFormText(renderer, text, button.x + offset, button.y + kTextDrop, kFormText);
}

void DrawTexts(const ScreenshotSaveDialogSession& session,
               const ScreenshotSaveDialogLayout& layout) {
  SDL_Renderer* renderer = session.renderer;
  DrawFormFieldText(renderer, layout.file_name_field, session.file_name_text, kTextDrop);
  DrawFormFieldText(renderer, layout.folder_field,
                    EllipsizeLeft(std::string(session.folder_text), kMaxShownFolderBytes),
                    kTextDrop);
  const SDL_Rect& box = layout.format_box;
  DrawCaption(renderer, box, FormatLabel(session.format).c_str(), kFormFieldPadding);
  DrawCaption(renderer, box, session.format_list_open ? "^" : "v", box.w - 18);
  DrawCaption(renderer, layout.choose_button, "Choose", 17);
  DrawCaption(renderer, layout.cancel_button, "Cancel", 22);
  DrawCaption(renderer, layout.save_button, "Save", 31);
}

void DrawRleCheckbox(const ScreenshotSaveDialogSession& session, const SDL_Rect& box) {
  DrawField(session.renderer, box, false);
  if (session.bmp_rle) {
    const SDL_Rect mark{box.x + (box.w - kCheckMarkSize) / 2, box.y + (box.h - kCheckMarkSize) / 2,
                        kCheckMarkSize, kCheckMarkSize};
    FillRect(session.renderer, mark, kCheckMarkFill);
  }
  DrawFormText(session.renderer, "Use RLE if possible (indexed BMP paths)", box.x + 34, box.y + 2,
               kFormText);
}

void DrawOption(const ScreenshotSaveDialogSession& session,
                const ScreenshotSaveDialogLayout& layout) {
  if (IsBmp(session.format)) {
    DrawRleCheckbox(session, layout.rle_checkbox);
  } else {
    DrawFormFieldText(session.renderer, layout.option_field, session.option_text, kTextDrop);
  }
}

void DrawTargetPath(const ScreenshotSaveDialogSession& session,
                    const ScreenshotSaveDialogLayout& layout) {
  DrawFormText(session.renderer, "Will be saved as:", kFormLabelX, layout.saved_as_y, kFormDimText);
  const std::string folder = FolderOrWorkingDirectory(session.folder_text);
  const std::string name =
      ReplaceFilenameExtension(std::string(session.file_name_text), session.format);
  DrawFormTextEnd(session.renderer,
                  EllipsizeLeft(utils::join_path_texts(folder, name), kMaxShownPathBytes),
                  kFormLabelX, layout.path_y, layout.cancel_button.x - kGapBeforeButton, kFormText);
}

void DrawListRow(SDL_Renderer* renderer, const SDL_Rect& row, ScreenshotSaveFormat format,
                 bool selected) {
  if (selected) {
    FillRect(renderer, row, kSelectedRowFill);
  }
  DrawFormText(renderer, FormatLabel(format).c_str(), row.x + kFormFieldPadding, row.y + 9,
               kFormText);
}

void DrawFormatList(SDL_Renderer* renderer, const SDL_Rect& list, ScreenshotSaveFormat selected) {
  DrawBox(renderer, list, kListFill, kListOutline);
  SDL_Rect row{list.x + 1, list.y + 1, list.w - 2, kListRowPitch - 1};
  for (const ScreenshotSaveFormat format : kFormats) {
    DrawListRow(renderer, row, format, format == KnownFormat(selected));
    row.y += kListRowPitch;
  }
}

// --- Loop ----------------------------------------------------------------------------------------

ScreenshotSaveDialogState MakeInitialState(const std::string& folder, const std::string& file_name,
                                           ScreenshotSaveFormat format) {
  ScreenshotSaveDialogState state;
  state.folder_text = FolderOrWorkingDirectory(folder);
  state.file_name_text = ReplaceFilenameExtension(
      file_name.empty() ? MakeDefaultScreenshotFilename(format) : file_name, format);
  state.format = format;
  state.result.format = format;
  return state;
}

void SetInitialOptions(int jpeg_quality, int png_compression, bool bmp_rle,
                       ScreenshotSaveDialogState* state) {
  state->result.jpeg_quality = std::clamp(jpeg_quality, 1, 100);
  state->result.png_compression = std::clamp(png_compression, 0, 9);
  state->result.bmp_rle = bmp_rle;
  state->jpeg_quality_text = std::to_string(state->result.jpeg_quality);
  state->png_compression_text = std::to_string(state->result.png_compression);
}

void HandleEvent(const SDL_Event& event, SDL_Window* window, ScreenshotSaveDialogState* state) {
  if (IsInputOfOtherWindow(window, event)) {
    return;
  }
  if (IsModalCancelEvent(event)) {
    state->done = true;
  } else if (event.type == SDL_KEYDOWN) {
    HandleScreenshotSaveDialogKey(state, event.key.keysym.sym);
  } else if (event.type == SDL_TEXTINPUT) {
    HandleScreenshotSaveDialogTextInput(state, static_cast<const char*>(event.text.text));
  } else if (IsLeftButtonEvent(event)) {
    HandleScreenshotSaveDialogMouseButton(state, window, event.button,
                                          event.type == SDL_MOUSEBUTTONDOWN);
  }
}

// The first event that decides wins; the rest of the queue is taken without effect.
void HandleEvents(SDL_Window* window, ModalEventQueue* events, ScreenshotSaveDialogState* state) {
  SDL_Event event;
  while (events->Poll(&event)) {
    if (!state->done) {
      HandleEvent(event, window, state);
    }
  }
}

ScreenshotSaveDialogSession SessionOf(const ScreenshotSaveDialogState& state,
                                      SDL_Renderer* renderer) {
  const std::string& option_text = state.format == ScreenshotSaveFormat::Jpeg
                                       ? state.jpeg_quality_text
                                       : state.png_compression_text;
  return {renderer,    state.folder_text, state.file_name_text,   state.format,
          option_text, state.focus,       state.format_list_open, state.result.bmp_rle};
}

void RunLoop(const ModalWindowBundle& bundle, ScreenshotSaveDialogState* state) {
  SDL_Window* window = bundle.window.get();
  SDL_Renderer* renderer = bundle.renderer.get();
  const FindableDialog findable(window, state);
  ModalEventQueue events(window);
  bool shown = false;
  while (!state->done) {
    PumpModalDialogHeartbeat();
    HandleEvents(window, &events, state);
    RenderScreenshotSaveDialog(SessionOf(*state, renderer), LayoutOfWindow(window));
    PresentModalFrame(window, renderer, &shown);
    SDL_Delay(kListFrameDelayMs);
  }
}

}  // namespace

ScreenshotSaveDialogLayout BuildScreenshotSaveDialogLayout(int w, int h) {
  const int width = std::max(w, 0);
  const int height = std::max(h, 0);
  ScreenshotSaveDialogLayout layout;
  layout.file_name_field = {250, 82, std::max(width - 280, 0), 38};
  layout.folder_field = {250, 148, std::max(width - 390, 0), 38};
  layout.choose_button = {width - 130, 148, 100, 38};
  layout.format_box = {250, 214, 220, 38};
  layout.format_list = {250, 252, 220, 102};
  layout.option_field = {250, 280, 160, 38};
  layout.rle_checkbox = {250, 286, 22, 22};
  layout.cancel_button = {width - 250, height - 58, 100, 38};
  layout.save_button = {width - 130, height - 58, 100, 38};
  layout.saved_as_y = 326;
  layout.path_y = 346;
  return layout;
}

void HandleScreenshotSaveDialogKey(ScreenshotSaveDialogState* state, int sdl_keycode) {
  if (state == nullptr) {
    return;
  }
  switch (sdl_keycode) {
    case SDLK_ESCAPE:
      HandleEscape(state);
      break;
    case SDLK_RETURN:
    case SDLK_KP_ENTER:
      if (!state->format_list_open) {
        CommitScreenshotSaveDialogResult(state);
      }
      break;
    case SDLK_BACKSPACE:
      RemoveLastByte(FocusedText(state));
      break;
    case SDLK_TAB:
      MoveFocus(state);
      break;
    default:
      break;
  }
}

void HandleScreenshotSaveDialogTextInput(ScreenshotSaveDialogState* state, const char* utf8_text) {
  if (state == nullptr || utf8_text == nullptr) {
    return;
  }
  switch (state->focus) {
    case kFocusFileName:
      TypeAcceptedBytes(utf8_text, IsAllowedFilenameChar, kMaxFileNameBytes,
                        &state->file_name_text);
      break;
    case kFocusJpegQuality:
      TypeAcceptedBytes(utf8_text, utils::is_ascii_digit, kMaxJpegQualityDigits,
                        &state->jpeg_quality_text);
      break;
    case kFocusPngCompression:
      TypeAcceptedBytes(utf8_text, utils::is_ascii_digit, kMaxPngCompressionDigits,
                        &state->png_compression_text);
      break;
    default:
      break;
  }
}

void HandleScreenshotSaveDialogMouseButton(ScreenshotSaveDialogState* state, SDL_Window* window,
                                           const SDL_MouseButtonEvent& event, bool pressed) {
  if (state == nullptr || window == nullptr) {
    return;
  }
  const ScreenshotSaveDialogLayout layout = LayoutOfWindow(window);
  if (pressed) {
    HandlePress(layout, event.x, event.y, state);
  } else {
    HandleRelease(layout, window, event.x, event.y, state);
  }
}

void CommitScreenshotSaveDialogResult(ScreenshotSaveDialogState* state) {
  if (state == nullptr) {
    return;
  }
  ScreenshotSaveDialogResult& result = state->result;
  result.accepted = true;
  result.folder = FolderOrWorkingDirectory(state->folder_text);
  result.format = state->format;
  result.jpeg_quality =
      ClampFormatValue(ScreenshotSaveFormat::Jpeg, state->jpeg_quality_text, result.jpeg_quality);
  result.png_compression = ClampFormatValue(ScreenshotSaveFormat::Png, state->png_compression_text,
                                            result.png_compression);
  result.file_name = ReplaceFilenameExtension(state->file_name_text, state->format);
  state->done = true;
}

TTF_Font* EnsureScreenshotDialogFont() {
  return FormFont();
}

void DrawScreenshotDialogText(SDL_Renderer* renderer, const char* text, int x, int y,
                              SDL_Color color) {
  DrawFormText(renderer, text, x, y, color);
}

void RenderScreenshotSaveDialog(const ScreenshotSaveDialogSession& session,
                                const ScreenshotSaveDialogLayout& layout) {
  if (session.renderer == nullptr) {
    return;
  }
  DrawHeader(session.renderer, LayoutWidth(layout));
  DrawLabels(session.renderer, session.format);
  DrawFields(session, layout);
  DrawButtons(session.renderer, layout);
  DrawTexts(session, layout);
  DrawOption(session, layout);
  DrawTargetPath(session, layout);
  if (session.format_list_open) {
    DrawFormatList(session.renderer, layout.format_list, session.format);
  }
}

void OpenFolderPicker(SDL_Window* parent, std::string& folder) {
  ChooseFormFolder(parent, "Select Screenshot Output Folder", "Choose folder for screenshot export",
                   &folder);
}

ScreenshotSaveDialogResult ShowScreenshotSaveDialog(SDL_Window* parent,
                                                    const std::string& initial_folder,
                                                    const std::string& initial_file_name,
                                                    ScreenshotSaveFormat format, int jpeg_quality,
                                                    int png_compression, bool bmp_rle) {
  const ModalHostState host_state;
  ScreenshotSaveDialogState state = MakeInitialState(initial_folder, initial_file_name, format);
  SetInitialOptions(jpeg_quality, png_compression, bmp_rle, &state);
  const ModalWindowBundle bundle = CreateModalWindowBundle(
      parent, "Save Screenshot", 80, 80, kWindowWidth, kWindowHeight,
      SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE, ModalRendererMode::Accelerated);
  if (bundle.window == nullptr || bundle.renderer == nullptr) {
    return state.result;
  }
  const ModalParentFocus parent_focus(parent, bundle.window.get());
  EnsureScreenshotDialogFont();  // Opened before the first frame; the dialog works without it.
  const ModalTextInput text_input;
  RunLoop(bundle, &state);
  return state.result;
}

}  // namespace quindle::frontend::gui
