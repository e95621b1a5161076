#pragma once

/// The dialog that asks where and how to save a screenshot, and the rules of formats and file names
/// behind it. It writes no file: the host acts on the result. Functions that take or make a window,
/// renderer or font are called from the thread that owns SDL video; the others from any thread.

#include <SDL.h>
#include <SDL_ttf.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "frontend/gui/export.h"

namespace quindle::frontend::gui {

/// An image format. Everywhere a value that is none of these counts as Png.
enum class ScreenshotSaveFormat : std::uint8_t {
  Png = 0,   ///< "png"; option: compression level.
  Jpeg = 1,  ///< "jpg"; option: quality.
  Bmp = 2,   ///< "bmp"; option: run-length encoding.
};

/// Returns the format's row in the drop-down list, such as "PNG (*.png)".
/// @param format a value that names no format counts as Png
/// @return the label
QUINDLE_SDL_UI_EXPORT std::string FormatLabel(ScreenshotSaveFormat format);

/// Returns the label of the format's option, such as "JPEG quality (1-100):". Lifetime: static.
/// @param format a value that names no format counts as Png
/// @return the label
QUINDLE_SDL_UI_EXPORT const char* FormatValueLabel(ScreenshotSaveFormat format);

/// Returns the file extension without its dot, such as "jpg". Lifetime: static.
/// @param format a value that names no format counts as Png
/// @return the extension
QUINDLE_SDL_UI_EXPORT const char* ScreenshotSaveFormatExtension(ScreenshotSaveFormat format);

/// Returns the number that `text` states, clamped to the option's range: 1 to 100 for Jpeg, 0 to 9
/// for Png. Returns `fallback`, as it stands, for a text that is empty, holds anything but ASCII
/// digits or does not fit into an int, and always for Bmp, whose option is no number.
/// @param format whose option it is
/// @param text the typed option
/// @param fallback what an unusable text yields
/// @return the option
QUINDLE_SDL_UI_EXPORT int ClampFormatValue(ScreenshotSaveFormat format, const std::string& text,
                                           int fallback);

/// Returns the last component of `name` with its last dot and what follows replaced by the format's
/// extension, or added to a name without one. A name without a usable stem becomes
/// "quindle_capture".
/// @param name a file name or path
/// @param format whose extension it gets
/// @return a bare file name
QUINDLE_SDL_UI_EXPORT std::string ReplaceFilenameExtension(const std::string& name,
                                                           ScreenshotSaveFormat format);

/// Returns a file name made of the local time, such as
/// "quindle_capture_2026_11_14_23_05_09.png". Two calls within a second give the same name.
/// @param format whose extension it gets
/// @return a bare file name
QUINDLE_SDL_UI_EXPORT std::string MakeDefaultScreenshotFilename(ScreenshotSaveFormat format);

/// True when the byte `c` may be typed into a file-name field.
/// @param c the byte
/// @return whether it may be typed
QUINDLE_SDL_UI_EXPORT bool IsAllowedFilenameChar(char c);

/// Shortens `text` to at most `maxChars` bytes from the left, so that its end stays readable.
/// @param text UTF-8
/// @param maxChars the limit, in bytes
/// @return the text, shortened where it was longer
QUINDLE_SDL_UI_EXPORT std::string EllipsizeLeft(const std::string& text, std::size_t maxChars);

/// True when (`x`, `y`) lies in `rect`; left and top edges inside, right and bottom edges outside.
/// @param rect the rectangle
/// @param x the point
/// @param y the point
/// @return whether the point is inside
QUINDLE_SDL_UI_EXPORT bool IsInside(const SDL_Rect& rect, int x, int y);

/// What the user decided. A cancelled dialog leaves the folder and the file name empty, the format
/// and the numbers as they came in, and the RLE flag as its box last stood.
struct ScreenshotSaveDialogResult {
  bool accepted = false;  ///< True only when the user saved.
  std::string folder;     ///< Output folder.
  std::string file_name;  ///< Bare file name, always with the extension of `format`.
  ScreenshotSaveFormat format = ScreenshotSaveFormat::Png;  ///< Chosen format.
  int jpeg_quality = 90;                                    ///< 1 (smallest file) to 100 (best).
  int png_compression = 2;                                  ///< 0 (none) to 9 (smallest file).
  bool bmp_rle = true;  ///< Whether a BMP is to be run-length encoded where that is possible.
};

/// Everything the open dialog knows. Plain data: any combination of values is valid.
struct ScreenshotSaveDialogState {
  ScreenshotSaveDialogResult result;  ///< Filled at commit; the check box toggles `bmp_rle` in it.
  std::string folder_text;            ///< Text of the folder field; only the picker changes it.
  std::string file_name_text;         ///< Text of the file-name field; typing admits 180 bytes.
  ScreenshotSaveFormat format = ScreenshotSaveFormat::Png;  ///< Selected in the list.
  std::string jpeg_quality_text;     ///< Text of the JPEG option; typing admits 3 digits.
  std::string png_compression_text;  ///< Text of the PNG option; typing admits 1 digit.
  bool format_list_open = false;     ///< Whether the drop-down list is open.
  bool done = false;                 ///< The loop ends when set.
  int focus = 3;  ///< Takes typing: 0 file name, 1 JPEG quality, 2 PNG compression, 3 none.
};

/// What one frame of drawing needs. Lifetime: the renderer and the texts are borrowed for the call.
struct ScreenshotSaveDialogSession {
  SDL_Renderer* renderer = nullptr;  ///< Null: nothing is drawn.
  std::string_view folder_text;      ///< Folder, UTF-8; empty: the working directory.
  std::string_view file_name_text;   ///< File name as typed, UTF-8.
  ScreenshotSaveFormat format = ScreenshotSaveFormat::Png;  ///< Selected format.
  std::string_view option_text;   ///< Text of the selected format's option; unused for Bmp.
  int focus = 3;                  ///< As in ScreenshotSaveDialogState.
  bool format_list_open = false;  ///< Whether the drop-down list is open.
  bool bmp_rle = false;           ///< Whether the check box is ticked.
};

/// The geometry of the dialog, in window pixels. Widths and heights are never negative.
struct ScreenshotSaveDialogLayout {
  SDL_Rect file_name_field{0, 0, 0, 0};  ///< File name.
  SDL_Rect folder_field{0, 0, 0, 0};     ///< Output folder; a click opens the folder picker.
  SDL_Rect choose_button{0, 0, 0, 0};    ///< "Choose": opens the folder picker.
  SDL_Rect format_box{0, 0, 0, 0};       ///< Selected format; a click opens or closes the list.
  SDL_Rect format_list{0, 0, 0, 0};      ///< The open list; it covers the option field.
  SDL_Rect option_field{0, 0, 0, 0};     ///< Option of Png and Jpeg.
  SDL_Rect rle_checkbox{0, 0, 0, 0};     ///< Option of Bmp.
  SDL_Rect cancel_button{0, 0, 0, 0};    ///< "Cancel".
  SDL_Rect save_button{0, 0, 0, 0};      ///< "Save".
  int saved_as_y = 0;                    ///< Top of the row "Will be saved as:".
  int path_y = 0;                        ///< Top of the row with the full path.
};

/// Computes the geometry for a client size of `w` x `h` pixels. Negative sizes count as 0; a field
/// that a narrow window leaves no room for is 0 wide.
/// @param w client width in pixels
/// @param h client height in pixels
/// @return the rectangles
QUINDLE_SDL_UI_EXPORT ScreenshotSaveDialogLayout BuildScreenshotSaveDialogLayout(int w, int h);

/// Applies a key press. Escape closes the list or cancels, Return and keypad Enter commit while the
/// list is closed, Tab moves between the file-name and the option field, Backspace removes a byte.
/// Does nothing for other keys and when `state` is null.
/// @param state the dialog's state; null does nothing
/// @param sdl_keycode an SDL_Keycode
QUINDLE_SDL_UI_EXPORT void HandleScreenshotSaveDialogKey(ScreenshotSaveDialogState* state,
                                                         int sdl_keycode);

/// Types `utf8_text` byte by byte into the field that has the focus: characters that file names may
/// hold into the name, digits into the options. Bytes that are refused or find no room are skipped.
/// Does nothing when `state` or `utf8_text` is null.
/// @param state the dialog's state; null does nothing
/// @param utf8_text UTF-8; null does nothing
QUINDLE_SDL_UI_EXPORT void HandleScreenshotSaveDialogTextInput(ScreenshotSaveDialogState* state,
                                                               const char* utf8_text);

/// Applies a press (`pressed`) or release of the left mouse button; pass no other button. A press
/// moves the focus and closes the open list unless it hits the list or its box; a release acts on
/// what lies under it. `window` is the dialog's own: its size places the rectangles, and it becomes
/// the folder picker's parent. That picker runs inside this call, which may throw what its
/// heartbeat throws. Does nothing when `state` or `window` is null.
/// @param state the dialog's state; null does nothing
/// @param window the dialog's window; null does nothing
/// @param event where the pointer was
/// @param pressed true for a press, false for a release
QUINDLE_SDL_UI_EXPORT void HandleScreenshotSaveDialogMouseButton(ScreenshotSaveDialogState* state,
                                                                 SDL_Window* window,
                                                                 const SDL_MouseButtonEvent& event,
                                                                 bool pressed);

/// Turns the typed texts into the result and ends the loop. An option text that is no number keeps
/// the former number, an empty folder becomes the working directory, and the file name gets the
/// format's extension. Nothing is refused, and no file is looked at. Does nothing when `state` is
/// null.
/// @param state the dialog's state; null does nothing
QUINDLE_SDL_UI_EXPORT void CommitScreenshotSaveDialogResult(ScreenshotSaveDialogState* state);

/// Returns the dialog's font (16 points); null when it could not be opened.
/// Lifetime: owned by the font cache; dangles after ShutdownSdlUiCachedFonts().
/// @return the font, or null
QUINDLE_SDL_UI_EXPORT TTF_Font* EnsureScreenshotDialogFont();

/// Draws one line of UTF-8 `text` with the dialog's font at (`x`, `y`), in window pixels. Does
/// nothing when `renderer` is null, `text` is null or empty, or the font is unavailable.
/// @param renderer null does nothing
/// @param text UTF-8; null or empty does nothing
/// @param x left edge of the text, in window pixels
/// @param y top edge of the text, in window pixels
/// @param color the text's colour
QUINDLE_SDL_UI_EXPORT void DrawScreenshotDialogText(SDL_Renderer* renderer, const char* text, int x,
                                                    int y, SDL_Color color);

/// Draws one frame without presenting it. Does nothing when the session has no renderer.
/// @param session what is drawn, and where to
/// @param layout the places
QUINDLE_SDL_UI_EXPORT void RenderScreenshotSaveDialog(const ScreenshotSaveDialogSession& session,
                                                      const ScreenshotSaveDialogLayout& layout);

/// Runs the folder picker over `parent` (may be null), starting in `folder`, and stores the chosen
/// folder there; a cancelled picker leaves it unchanged. Throws std::filesystem::filesystem_error
/// only when `folder` is empty and the working directory cannot be determined.
/// @param parent the window to be modal for; may be null
/// @param folder shown first; replaced by the chosen folder
QUINDLE_SDL_UI_EXPORT void OpenFolderPicker(SDL_Window* parent, std::string& folder);

/// Shows the dialog over `parent` (may be null) and blocks until the user saves or cancels.
///
/// `initial_folder` is the folder shown first (empty: the working directory), `initial_file_name`
/// the file name shown first (empty: one made of the local time), whose extension is replaced by
/// that of `format`. `jpeg_quality` and `png_compression` are clamped to their ranges. Returns a
/// record with `accepted` false when the dialog was cancelled or no window could be made.
/// @param parent the window to be modal for; may be null
/// @param initial_folder shown first; empty means the working directory
/// @param initial_file_name shown first; empty means one made of the local time
/// @param format selected first
/// @param jpeg_quality shown first, clamped to 1 .. 100
/// @param png_compression shown first, clamped to 0 .. 9
/// @param bmp_rle whether the check box is ticked first
/// @return the committed choice, or a record with `accepted` false
QUINDLE_SDL_UI_EXPORT ScreenshotSaveDialogResult ShowScreenshotSaveDialog(
    SDL_Window* parent, const std::string& initial_folder, const std::string& initial_file_name,
    ScreenshotSaveFormat format, int jpeg_quality, int png_compression, bool bmp_rle);

}  // namespace quindle::frontend::gui
