#pragma once

/// The dialog that asks for size, file name and folder of a new hard-disk image. It creates no
/// image: the host acts on the result. Call from the thread that owns SDL video.

#include <SDL.h>

#include <cstdint>
#include <string>

#include "frontend/gui/export.h"

namespace quindle::frontend::gui {

/// What the user decided.
struct HddCreateDialogResult {
  bool accepted = false;      ///< False when cancelled or when no window could be made.
  std::uint32_t size_mb = 0;  ///< Image size in MB, at least 1; the start value unless accepted.
  std::string folder;         ///< Output folder, never empty; the start value unless accepted.
  std::string file_name;      ///< As typed, never empty; "disk.img" unless accepted.
};

/// Everything the open dialog knows. Plain data: any combination of values is valid.
struct HddCreateDialogState {
  bool accepted = false;      ///< Set by CommitHddCreateDialogResult alone.
  std::uint32_t size_mb = 0;  ///< Image size in MB; replaced at commit.
  std::string folder;         ///< Output folder; replaced at commit.
  std::string file_name;      ///< Output file name; replaced at commit.
  std::string size_text;      ///< Text of the size field; typing admits 10 digits.
  std::string folder_text;    ///< Text of the folder field; only the folder picker changes it.
  std::string name_text;      ///< Text of the file-name field; typing admits 128 bytes.
  int focus = 0;              ///< Field that takes typing: 0 size, 1 file name.
  bool done = false;          ///< The loop ends when set.
  bool shown = false;         ///< The window has been shown, after its first frame.
};

/// The geometry of the dialog, in window pixels.
struct HddCreateDialogLayout {
  SDL_Rect size_field{0, 0, 0, 0};     ///< Size in MB.
  SDL_Rect name_field{0, 0, 0, 0};     ///< File name.
  SDL_Rect folder_field{0, 0, 0, 0};   ///< Output folder; a click opens the folder picker.
  SDL_Rect choose_button{0, 0, 0, 0};  ///< "Choose": opens the folder picker.
  SDL_Rect cancel_button{0, 0, 0, 0};  ///< "Cancel".
  SDL_Rect create_button{0, 0, 0, 0};  ///< "Create".
};

/// Returns the geometry, which is the same for every window: the dialog has a fixed size.
/// @return the rectangles
QUINDLE_SDL_UI_EXPORT HddCreateDialogLayout BuildHddCreateDialogLayout();

/// Applies a key press; `key` is an SDL_Keycode. Escape cancels, Tab moves between the size and the
/// file-name field, Backspace removes a byte, Return and keypad Enter commit. Does nothing for
/// other keys and when `state` is null.
/// @param state the dialog's state; null does nothing
/// @param key an SDL_Keycode
QUINDLE_SDL_UI_EXPORT void HandleHddCreateDialogKey(HddCreateDialogState* state, int key);

/// Types `text` (UTF-8) byte by byte into the field that has the focus: digits into the size,
/// characters that file names may hold into the name. Bytes that are refused or find no room are
/// skipped. Does nothing when `state` is null or `text` is null or empty.
/// @param state the dialog's state; null does nothing
/// @param text UTF-8; null or empty does nothing
QUINDLE_SDL_UI_EXPORT void HandleHddCreateDialogTextInput(HddCreateDialogState* state,
                                                          const char* text);

/// Applies a press (`pressed`) or release of the left mouse button; pass no other button. A press
/// moves the focus, a release acts on what lies under it. `window` is the dialog's own and becomes
/// the folder picker's parent; that picker runs inside this call, which may throw what its
/// heartbeat throws. Does nothing when `state` or `window` is null.
/// @param state the dialog's state; null does nothing
/// @param window the dialog's window; null does nothing
/// @param event where the pointer was
/// @param pressed true for a press, false for a release
QUINDLE_SDL_UI_EXPORT void HandleHddCreateDialogMouseButton(HddCreateDialogState* state,
                                                            SDL_Window* window,
                                                            const SDL_MouseButtonEvent& event,
                                                            bool pressed);

/// Returns the size in MB that `text` states, between 1 and 4294967295; larger numbers become the
/// greatest size, 0 becomes 1. Returns `fallback`, as it stands, for a text that is empty, holds
/// anything but ASCII digits, or does not fit into 64 bits.
/// @param text the typed size
/// @param fallback what an unusable text yields
/// @return the size in MB
QUINDLE_SDL_UI_EXPORT unsigned int ParseHddCreateSizeMbOrDefault(const std::string& text,
                                                                 unsigned int fallback);

/// Returns the path of the image: `folder` (empty: ".") joined with `fileName` (empty: "disk.img").
/// No extension is added. An absolute `fileName` stands alone.
/// @param folder the folder, as its bytes
/// @param fileName the file's name, as its bytes
/// @return the path, as its bytes
QUINDLE_SDL_UI_EXPORT std::string BuildHddCreateTargetPath(const std::string& folder,
                                                           const std::string& fileName);

/// Turns the typed texts into the result and ends the loop. A size text that is no number keeps the
/// former size. Nothing is refused, and no file is looked at. Does nothing when `state` is null.
/// @param state the dialog's state; null does nothing
QUINDLE_SDL_UI_EXPORT void CommitHddCreateDialogResult(HddCreateDialogState* state);

/// Draws one line of UTF-8 `text` with the dialog's font (16 points) at (`x`, `y`), in window
/// pixels. Does nothing when `renderer` is null, `text` is null or empty, or the font is
/// unavailable.
/// @param renderer null does nothing
/// @param text UTF-8; null or empty does nothing
/// @param x left edge of the text, in window pixels
/// @param y top edge of the text, in window pixels
/// @param colour the text's colour
QUINDLE_SDL_UI_EXPORT void DrawHddCreateDialogText(SDL_Renderer* renderer, const char* text, int x,
                                                   int y, SDL_Color colour);

/// Draws one frame without presenting it. `renderer` is borrowed; does nothing when it is null.
/// @param renderer the target; null does nothing
/// @param state what is drawn
QUINDLE_SDL_UI_EXPORT void RenderHddCreateDialog(SDL_Renderer* renderer,
                                                 const HddCreateDialogState& state);

/// Runs the folder picker over `parent` (may be null), starting in `folder`, and stores the chosen
/// folder there; a cancelled picker leaves it unchanged. Throws std::filesystem::filesystem_error
/// only when `folder` is empty and the working directory cannot be determined.
/// @param parent the window to be modal for; may be null
/// @param folder shown first; replaced by the chosen folder
QUINDLE_SDL_UI_EXPORT void OpenHddCreateFolderPicker(SDL_Window* parent, std::string& folder);

/// Shows the dialog over `parent` (may be null) and blocks until the user creates or cancels.
///
/// `folder` is the folder shown first (empty: "."), `defaultSizeMb` the size shown first, in MB (0:
/// 10). Returns the start values with `accepted` false when the dialog was cancelled, whatever was
/// typed, and when no window could be made. The path that the dialog showed is
/// BuildHddCreateTargetPath(result.folder, result.file_name).
/// @param parent the window to be modal for; may be null
/// @param folder shown first; empty means "."
/// @param defaultSizeMb shown first, in MB; 0 means 10
/// @return the committed values, or the start values with `accepted` false
QUINDLE_SDL_UI_EXPORT HddCreateDialogResult ShowSimpleHddCreateDialog(SDL_Window* parent,
                                                                      const std::string& folder,
                                                                      unsigned int defaultSizeMb);

}  // namespace quindle::frontend::gui
