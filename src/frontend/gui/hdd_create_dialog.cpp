#include "frontend/gui/hdd_create_dialog.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

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
#include "utils/path_utils.h"
#include "utils/string_utils.h"

namespace quindle::frontend::gui {
namespace {

constexpr int kWindowWidth = 860;
constexpr int kWindowHeight = 390;
constexpr unsigned int kInitialSizeMb = 10;
constexpr const char* kInitialFolder = ".";
constexpr const char* kInitialFileName = "disk.img";

constexpr int kFocusSize = 0;
constexpr int kFocusName = 1;

constexpr std::size_t kMaxSizeDigits = 10;
constexpr std::size_t kMaxNameBytes = 128;
constexpr std::size_t kMaxShownFolderBytes = 58;
constexpr std::size_t kMaxShownPathBytes = 95;

constexpr SDL_Color kPathColor{214, 221, 230, 255};

constexpr int kFieldTextDrop = 9;  // From the top of a field to its text.

// --- Input ---------------------------------------------------------------------------------------

// The text that typing edits; null when no field has the focus.
std::string* FocusedText(HddCreateDialogState* state) {
  switch (state->focus) {
    case kFocusSize:
      return &state->size_text;
    case kFocusName:
      return &state->name_text;
    default:
      return nullptr;
  }
}

void HandlePress(const HddCreateDialogLayout& layout, int x, int y, HddCreateDialogState* state) {
  if (IsPointInside(layout.size_field, x, y)) {
    state->focus = kFocusSize;
  } else if (IsPointInside(layout.name_field, x, y)) {
    state->focus = kFocusName;
  }
}

void HandleRelease(const HddCreateDialogLayout& layout, SDL_Window* window, int x, int y,
                   HddCreateDialogState* state) {
  if (IsPointInside(layout.folder_field, x, y) || IsPointInside(layout.choose_button, x, y)) {
    OpenHddCreateFolderPicker(window, state->folder_text);
  } else if (IsPointInside(layout.cancel_button, x, y)) {
    state->done = true;
  } else if (IsPointInside(layout.create_button, x, y)) {
    CommitHddCreateDialogResult(state);
  }
}

// --- Drawing -------------------------------------------------------------------------------------

void DrawLabels(SDL_Renderer* renderer) {
  DrawFormText(renderer, "Create new HDD image (.img)", kFormLabelX, 16, kFormText);
  DrawFormText(renderer, "Size (MB):", kFormLabelX, 80, kFormText);
  DrawFormText(renderer, "File name:", kFormLabelX, 140, kFormText);
  DrawFormText(renderer, "Folder:", kFormLabelX, 200, kFormText);
}

void DrawFields(SDL_Renderer* renderer, const HddCreateDialogLayout& layout, int focus) {
  for (const SDL_Rect& field : {layout.size_field, layout.name_field, layout.folder_field}) {
    FillRect(renderer, field, kFormFieldFill);
  }
  for (const SDL_Rect& field : {layout.size_field, layout.name_field, layout.folder_field}) {
    OutlineRect(renderer, field, kFormFieldOutline);
  }
  if (focus == kFocusSize) {
    OutlineRect(renderer, layout.size_field, kFormFocusedFieldOutline);
  } else if (focus == kFocusName) {
    OutlineRect(renderer, layout.name_field, kFormFocusedFieldOutline);
  }
}

void DrawButtons(SDL_Renderer* renderer, const HddCreateDialogLayout& layout) {
  for (const SDL_Rect& button :
       {layout.choose_button, layout.cancel_button, layout.create_button}) {
    FillRect(renderer, button, kFormButtonFill);
  }
  for (const SDL_Rect& button :
       {layout.choose_button, layout.cancel_button, layout.create_button}) {
    OutlineRect(renderer, button, kFormButtonOutline);
  }
}

void DrawFieldTexts(SDL_Renderer* renderer, const HddCreateDialogLayout& layout,
                    const HddCreateDialogState& state) {
  DrawFormFieldText(renderer, layout.size_field, state.size_text, kFieldTextDrop);
  DrawFormFieldText(renderer, layout.name_field, state.name_text, kFieldTextDrop);
  DrawFormFieldText(renderer, layout.folder_field,
                    utils::ellipsize_left(state.folder_text, kMaxShownFolderBytes), kFieldTextDrop);
}

void DrawCaptions(SDL_Renderer* renderer, const HddCreateDialogLayout& layout) {
  const SDL_Rect& choose = layout.choose_button;
  const SDL_Rect& cancel = layout.cancel_button;
  const SDL_Rect& create = layout.create_button;
  DrawFormText(renderer, "Choose", choose.x + 13, choose.y + 9, kFormText);
  DrawFormText(renderer, "Cancel", cancel.x + 23, cancel.y + 11, kFormText);
  DrawFormText(renderer, "Create", create.x + 31, create.y + 11, kFormText);
}

void DrawTargetPath(SDL_Renderer* renderer, const HddCreateDialogState& state) {
  DrawFormText(renderer, "Will be saved as:", kFormLabelX, 258, kFormDimText);
  const std::string target = BuildHddCreateTargetPath(state.folder_text, state.name_text);
  DrawFormTextEnd(renderer, utils::ellipsize_left(target, kMaxShownPathBytes), kFormLabelX, 280,
                  kWindowWidth - kFormLabelX, kPathColor);
}

// --- Loop ----------------------------------------------------------------------------------------

HddCreateDialogState MakeInitialState(const std::string& folder, unsigned int default_size_mb) {
  HddCreateDialogState state;
  state.size_mb = default_size_mb == 0 ? kInitialSizeMb : default_size_mb;
  state.folder = TextOr(folder, kInitialFolder);
  state.file_name = kInitialFileName;
  state.size_text = std::to_string(state.size_mb);
  state.folder_text = state.folder;
  state.name_text = state.file_name;
  state.focus = kFocusSize;
  return state;
}

// Key, text and mouse events count whatever window they name.
void HandleEvent(const SDL_Event& event, SDL_Window* window, HddCreateDialogState* state) {
  if (IsModalCancelEvent(event)) {
    state->done = true;
  } else if (event.type == SDL_KEYDOWN) {
    HandleHddCreateDialogKey(state, event.key.keysym.sym);
  } else if (event.type == SDL_TEXTINPUT) {
    HandleHddCreateDialogTextInput(state, static_cast<const char*>(event.text.text));
  } else if (IsLeftButtonEvent(event)) {
    HandleHddCreateDialogMouseButton(state, window, event.button,
                                     event.type == SDL_MOUSEBUTTONDOWN);
  }
}

// The first event that decides wins; the rest of the queue is taken without effect.
void HandleEvents(SDL_Window* window, ModalEventQueue* events, HddCreateDialogState* state) {
  SDL_Event event;
  while (events->Poll(&event)) {
    if (!state->done) {
      HandleEvent(event, window, state);
    }
  }
}

void RunLoop(const ModalWindowBundle& bundle, HddCreateDialogState* state) {
  const FindableDialog findable(bundle.window.get(), state);
  ModalEventQueue events(bundle.window.get());
  while (!state->done) {
    PumpModalDialogHeartbeat();
    HandleEvents(bundle.window.get(), &events, state);
    RenderHddCreateDialog(bundle.renderer.get(), *state);
    PresentModalFrame(bundle.window.get(), bundle.renderer.get(), &state->shown);
    SDL_Delay(kListFrameDelayMs);
  }
}

HddCreateDialogResult ResultOf(const HddCreateDialogState& state) {
  return {state.accepted, state.size_mb, state.folder, state.file_name};
}

}  // namespace

HddCreateDialogLayout BuildHddCreateDialogLayout() {
  return {{250, 72, 210, 36}, {250, 132, 530, 36}, {250, 192, 430, 36},
          {690, 192, 90, 36}, {620, 318, 110, 40}, {740, 318, 110, 40}};
}

void HandleHddCreateDialogKey(HddCreateDialogState* state, int key) {
  if (state == nullptr) {
    return;
  }
  switch (key) {
    case SDLK_ESCAPE:
      state->done = true;
      break;
    case SDLK_TAB:
      state->focus = state->focus == kFocusSize ? kFocusName : kFocusSize;
      break;
    case SDLK_BACKSPACE:
      RemoveLastByte(FocusedText(state));
      break;
    case SDLK_RETURN:
    case SDLK_KP_ENTER:
      CommitHddCreateDialogResult(state);
      break;
    default:
      break;
  }
}

void HandleHddCreateDialogTextInput(HddCreateDialogState* state, const char* text) {
  if (state == nullptr || text == nullptr) {
    return;
  }
  if (state->focus == kFocusSize) {
    TypeAcceptedBytes(text, utils::is_ascii_digit, kMaxSizeDigits, &state->size_text);
  } else if (state->focus == kFocusName) {
    TypeAcceptedBytes(text, utils::is_allowed_filename_char, kMaxNameBytes, &state->name_text);
  }
}

void HandleHddCreateDialogMouseButton(HddCreateDialogState* state, SDL_Window* window,
                                      const SDL_MouseButtonEvent& event, bool pressed) {
  if (state == nullptr || window == nullptr) {
    return;
  }
  const HddCreateDialogLayout layout = BuildHddCreateDialogLayout();
  if (pressed) {
    HandlePress(layout, event.x, event.y, state);
  } else {
    HandleRelease(layout, window, event.x, event.y, state);
  }
}

unsigned int ParseHddCreateSizeMbOrDefault(const std::string& text, unsigned int fallback) {
  if (!IsDigitString(text)) {
    return fallback;
  }
  try {
    constexpr unsigned long long kMaxSizeMb = std::numeric_limits<std::uint32_t>::max();
    return static_cast<unsigned int>(std::clamp(std::stoull(text), 1ULL, kMaxSizeMb));
  } catch (const std::out_of_range&) {
    return fallback;
  }
}

std::string BuildHddCreateTargetPath(const std::string& folder, const std::string& fileName) {
  return utils::join_path_texts(TextOr(folder, kInitialFolder), TextOr(fileName, kInitialFileName));
}

void CommitHddCreateDialogResult(HddCreateDialogState* state) {
  if (state == nullptr) {
    return;
  }
  state->accepted = true;
  state->size_mb = ParseHddCreateSizeMbOrDefault(state->size_text, state->size_mb);
  state->folder = TextOr(state->folder_text, kInitialFolder);
  state->file_name = TextOr(state->name_text, kInitialFileName);
  state->done = true;
}

void DrawHddCreateDialogText(SDL_Renderer* renderer, const char* text, int x, int y,
                             SDL_Color colour) {
  DrawFormText(renderer, text, x, y, colour);
}

void RenderHddCreateDialog(SDL_Renderer* renderer, const HddCreateDialogState& state) {
  if (renderer == nullptr) {
    return;
  }
  const HddCreateDialogLayout layout = BuildHddCreateDialogLayout();
  ClearFrame(renderer, kFormBackground);
  DrawLabels(renderer);
  DrawFields(renderer, layout, state.focus);
  DrawButtons(renderer, layout);
  DrawFieldTexts(renderer, layout, state);
  DrawCaptions(renderer, layout);
  DrawTargetPath(renderer, state);
}

void OpenHddCreateFolderPicker(SDL_Window* parent, std::string& folder) {
  ChooseFormFolder(parent, "Select HDD Output Folder", "Choose folder for new HDD image", &folder);
}

HddCreateDialogResult ShowSimpleHddCreateDialog(SDL_Window* parent, const std::string& folder,
                                                unsigned int defaultSizeMb) {
  const ModalHostState host_state;
  HddCreateDialogState state = MakeInitialState(folder, defaultSizeMb);
  const ModalWindowBundle bundle =
      CreateModalWindowBundle(parent, "Create HDD Image", 80, 80, kWindowWidth, kWindowHeight,
                              SDL_WINDOW_HIDDEN, ModalRendererMode::Accelerated);
  if (bundle.window == nullptr || bundle.renderer == nullptr) {
    return ResultOf(state);
  }
  const ModalParentFocus parent_focus(parent, bundle.window.get());
  FormFont();  // Opened before the first frame; without it only the texts are missing.
  const ModalTextInput text_input;
  RunLoop(bundle, &state);
  return ResultOf(state);
}

}  // namespace quindle::frontend::gui
