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

/// Tells a format's row in the drop-down list.
/// @param format the format
/// @return the label, such as "PNG (*.png)"
QUINDLE_SDL_UI_EXPORT std::string FormatLabel(ScreenshotSaveFormat format);

/// Tells the label of a format's option.
/// @param format the format
/// @return the label, such as "JPEG quality (1-100):". Lifetime: static.
QUINDLE_SDL_UI_EXPORT const char* FormatValueLabel(ScreenshotSaveFormat format);

/// Tells a format's file extension.
/// @param format the format
/// @return the extension without its dot, such as "jpg". Lifetime: static.
QUINDLE_SDL_UI_EXPORT const char* ScreenshotSaveFormatExtension(ScreenshotSaveFormat format);

/// Reads a typed option.
/// @param format whose option it is
/// @param text the option; unusable when it is empty, holds anything but ASCII digits or does not
/// fit into an int, and always for Bmp, whose option is no number
/// @param fallback what an unusable text yields, as it stands
/// @return the number, clamped to 1 .. 100 for Jpeg and to 0 .. 9 for Png
QUINDLE_SDL_UI_EXPORT int ClampFormatValue(ScreenshotSaveFormat format, const std::string& text,
                                           int fallback);

/// Gives a file name the extension of a format.
/// @param name a file name, or a path, of which the last component counts
/// @param format whose extension it gets
/// @return the bare name with its last dot and what follows replaced by the extension; a name
/// without a usable stem becomes "quindle_capture"
QUINDLE_SDL_UI_EXPORT std::string ReplaceFilenameExtension(const std::string& name,
                                                           ScreenshotSaveFormat format);

/// Makes a file name of the local time. Two calls within a second give the same name.
/// @param format whose extension it gets
/// @return a bare file name, such as "quindle_capture_2026_11_14_23_05_09.png"
QUINDLE_SDL_UI_EXPORT std::string MakeDefaultScreenshotFilename(ScreenshotSaveFormat format);

/// Tells what may be typed into the file-name field; the rule of
/// quindle::utils::is_allowed_filename_char.
/// @param c one byte
/// @return whether it may be typed
QUINDLE_SDL_UI_EXPORT bool IsAllowedFilenameChar(char c);

/// Shortens a text from the left, so that its end stays readable; as
/// quindle::utils::ellipsize_left.
/// @param text UTF-8
/// @param maxChars the limit, in bytes
/// @return the text, shortened where it was longer
QUINDLE_SDL_UI_EXPORT std::string EllipsizeLeft(const std::string& text, std::size_t maxChars);

/// Tells whether a point lies in a rectangle; left and top edges inside, right and bottom outside.
/// @param rect the rectangle
/// @param x the point's column
/// @param y the point's row
/// @return true when it does
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

/// Computes the geometry. A field that a narrow window leaves no room for is 0 wide.
/// @param w client width in pixels; negative counts as 0
/// @param h client height in pixels; negative counts as 0
/// @return the rectangles
QUINDLE_SDL_UI_EXPORT ScreenshotSaveDialogLayout BuildScreenshotSaveDialogLayout(int w, int h);

/// Applies a key press. Escape closes the list or cancels, Return and keypad Enter commit while the
/// list is closed, Tab moves between the file-name and the option field, Backspace removes a byte.
/// @param state the dialog's state; null does nothing
/// @param sdl_keycode an SDL_Keycode; other keys do nothing
QUINDLE_SDL_UI_EXPORT void HandleScreenshotSaveDialogKey(ScreenshotSaveDialogState* state,
                                                         int sdl_keycode);

/// Types a text byte by byte into the field that has the focus: characters that file names may hold
/// into the name, digits into the options. Bytes that are refused or find no room are skipped.
/// @param state the dialog's state; null does nothing
/// @param utf8_text UTF-8; null does nothing
QUINDLE_SDL_UI_EXPORT void HandleScreenshotSaveDialogTextInput(ScreenshotSaveDialogState* state,
                                                               const char* utf8_text);

/// Applies a press or release of the left mouse button. A press moves the focus and closes the open
/// list unless it hits the list or its box; a release acts on what lies under it. The folder picker
/// runs inside this call, which may throw what its heartbeat throws.
/// @param state the dialog's state; null does nothing
/// @param window the dialog's window, whose size places the rectangles and which becomes the folder
/// picker's parent; null does nothing
/// @param event where the pointer was; pass none of another button
/// @param pressed true for a press, false for a release
QUINDLE_SDL_UI_EXPORT void HandleScreenshotSaveDialogMouseButton(ScreenshotSaveDialogState* state,
                                                                 SDL_Window* window,
                                                                 const SDL_MouseButtonEvent& event,
                                                                 bool pressed);

/// Turns the typed texts into the result and ends the loop. An option text that is no number keeps
/// the former number, an empty folder becomes the working directory, and the file name gets the
/// format's extension. Nothing is refused, and no file is looked at.
/// @param state the dialog's state; null does nothing
QUINDLE_SDL_UI_EXPORT void CommitScreenshotSaveDialogResult(ScreenshotSaveDialogState* state);

/// Takes the dialog's font (16 points) from the font cache.
/// Lifetime: owned by the font cache; dangles after ShutdownSdlUiCachedFonts().
/// @return the font; null when it could not be opened
QUINDLE_SDL_UI_EXPORT TTF_Font* EnsureScreenshotDialogFont();

/// Draws one line of text with the dialog's font. Does nothing when that is unavailable.
/// @param renderer null does nothing
/// @param text UTF-8; null or empty does nothing
/// @param x left edge of the text, in window pixels
/// @param y top edge of the text, in window pixels
/// @param color the text's colour
QUINDLE_SDL_UI_EXPORT void DrawScreenshotDialogText(SDL_Renderer* renderer, const char* text, int x,
                                                    int y, SDL_Color color);

/// Draws one frame without presenting it.
/// @param session what is drawn, and where to; without a renderer nothing is
/// @param layout the places
QUINDLE_SDL_UI_EXPORT void RenderScreenshotSaveDialog(const ScreenshotSaveDialogSession& session,
                                                      const ScreenshotSaveDialogLayout& layout);

/// Runs the folder picker. Throws std::filesystem::filesystem_error only when `folder` is empty and
/// the working directory cannot be determined.
/// @param parent the window to be modal for; may be null
/// @param folder shown first; replaced by the chosen folder, unchanged when the picker is cancelled
QUINDLE_SDL_UI_EXPORT void OpenFolderPicker(SDL_Window* parent, std::string& folder);

/// Shows the dialog and blocks until the user saves or cancels. SDL's text input is off afterwards.
/// @param parent the window to be modal for; may be null
/// @param initial_folder shown first; empty means the working directory
/// @param initial_file_name shown first, with the extension of `format`; empty means one made of
/// the local time
/// @param format selected first
/// @param jpeg_quality shown first, clamped to 1 .. 100
/// @param png_compression shown first, clamped to 0 .. 9
/// @param bmp_rle whether the check box is ticked first
/// @return the committed choice; a record with `accepted` false when the dialog was cancelled or no
/// window could be made
QUINDLE_SDL_UI_EXPORT ScreenshotSaveDialogResult ShowScreenshotSaveDialog(
    SDL_Window* parent, const std::string& initial_folder, const std::string& initial_file_name,
    ScreenshotSaveFormat format, int jpeg_quality, int png_compression, bool bmp_rle);

}  // namespace quindle::frontend::gui
