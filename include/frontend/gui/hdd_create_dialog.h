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

/// Applies a key press. Escape cancels, Tab moves between the size and the file-name field,
/// Backspace removes a byte, Return and keypad Enter commit.
/// @param state the dialog's state; null does nothing
/// @param key an SDL_Keycode; other keys do nothing
QUINDLE_SDL_UI_EXPORT void HandleHddCreateDialogKey(HddCreateDialogState* state, int key);

/// Types a text byte by byte into the field that has the focus: digits into the size, characters
/// that file names may hold into the name. Bytes that are refused or find no room are skipped.
/// @param state the dialog's state; null does nothing
/// @param text UTF-8; null or empty does nothing
QUINDLE_SDL_UI_EXPORT void HandleHddCreateDialogTextInput(HddCreateDialogState* state,
                                                          const char* text);

/// Applies a press or release of the left mouse button. A press moves the focus, a release acts on
/// what lies under it. The folder picker runs inside this call, which may throw what its heartbeat
/// throws.
/// @param state the dialog's state; null does nothing
/// @param window the dialog's window, which becomes the folder picker's parent; null does nothing
/// @param event where the pointer was; pass none of another button
/// @param pressed true for a press, false for a release
QUINDLE_SDL_UI_EXPORT void HandleHddCreateDialogMouseButton(HddCreateDialogState* state,
                                                            SDL_Window* window,
                                                            const SDL_MouseButtonEvent& event,
                                                            bool pressed);

/// Reads a typed size.
/// @param text the size in MB; unusable when it is empty, holds anything but ASCII digits, or does
/// not fit into 64 bits
/// @param fallback what an unusable text yields, as it stands
/// @return the size in MB; 0 becomes 1, and more than 4294967295 that number
QUINDLE_SDL_UI_EXPORT unsigned int ParseHddCreateSizeMbOrDefault(const std::string& text,
                                                                 unsigned int fallback);

/// Joins folder and file name of an image. No extension is added.
/// @param folder the folder, as text: its bytes, on Windows UTF-8; empty counts as "."
/// @param fileName the file's name, as text; empty counts as "disk.img"
/// @return the path, as text with the folder's separators; `fileName` alone when that is absolute
QUINDLE_SDL_UI_EXPORT std::string BuildHddCreateTargetPath(const std::string& folder,
                                                           const std::string& fileName);

/// Turns the typed texts into the result and ends the loop. A size text that is no number keeps the
/// former size. Nothing is refused, and no file is looked at.
/// @param state the dialog's state; null does nothing
QUINDLE_SDL_UI_EXPORT void CommitHddCreateDialogResult(HddCreateDialogState* state);

/// Draws one line of text with the dialog's font (16 points). Does nothing when that is
/// unavailable.
/// @param renderer null does nothing
/// @param text UTF-8; null or empty does nothing
/// @param x left edge of the text, in window pixels
/// @param y top edge of the text, in window pixels
/// @param colour the text's colour
QUINDLE_SDL_UI_EXPORT void DrawHddCreateDialogText(SDL_Renderer* renderer, const char* text, int x,
                                                   int y, SDL_Color colour);

/// Draws one frame without presenting it.
/// @param renderer the target; borrowed; null does nothing
/// @param state what is drawn
QUINDLE_SDL_UI_EXPORT void RenderHddCreateDialog(SDL_Renderer* renderer,
                                                 const HddCreateDialogState& state);

/// Runs the folder picker. Throws std::filesystem::filesystem_error only when `folder` is empty and
/// the working directory cannot be determined.
/// @param parent the window to be modal for; may be null
/// @param folder shown first; replaced by the chosen folder, unchanged when the picker is cancelled
QUINDLE_SDL_UI_EXPORT void OpenHddCreateFolderPicker(SDL_Window* parent, std::string& folder);

/// Shows the dialog and blocks until the user creates or cancels. The path that it shows is
/// BuildHddCreateTargetPath(result.folder, result.file_name). SDL's text input is off afterwards.
/// @param parent the window to be modal for; may be null
/// @param folder shown first; empty means "."
/// @param defaultSizeMb shown first, in MB; 0 means 10
/// @return the committed values; the start values with `accepted` false when the dialog was
/// cancelled, whatever was typed, or no window could be made
QUINDLE_SDL_UI_EXPORT HddCreateDialogResult ShowSimpleHddCreateDialog(SDL_Window* parent,
                                                                      const std::string& folder,
                                                                      unsigned int defaultSizeMb);

}  // namespace quindle::frontend::gui
