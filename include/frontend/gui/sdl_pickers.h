#pragma once

/// File and folder pickers. Each Show function blocks, on the thread that owns SDL video, until the
/// user accepts or cancels.

#include <SDL.h>

#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <vector>

#include "frontend/gui/export.h"

namespace quindle::frontend::gui {

/// One row of a picker.
struct PickerEntry {
  std::string name;  ///< Last component of `path`, bytes as the file system gives them; or "..".
  std::filesystem::path path;  ///< The listed directory joined with `name`; for "..", its parent.
  bool is_directory = false;   ///< True for directories (links to them included) and for "..".
};

/// True when the ASCII-lower-cased extension of `p` (dot included) equals one of `extensions`,
/// which are given in lower case with their dot. A name whose only dot comes first has no
/// extension.
/// @param p the path
/// @param extensions in lower case, dots included
/// @return whether one of them is the path's
QUINDLE_SDL_UI_EXPORT bool HasAnyExtension(const std::filesystem::path& p,
                                           std::initializer_list<const char*> extensions);
/// True for floppy images: ".ima", ".img".
/// @param p the path
/// @return whether the floppy picker lists it
QUINDLE_SDL_UI_EXPORT bool IsAllowedImagePickerEntry(const std::filesystem::path& p);
/// True for shaders and presets: ".glsl", ".glslp", ".frag", ".vert", ".fs", ".vs".
/// @param p the path
/// @return whether the shader picker lists it
QUINDLE_SDL_UI_EXPORT bool IsShaderPickerEntry(const std::filesystem::path& p);
/// True for fonts: ".ttf", ".otf".
/// @param p the path
/// @return whether the font picker lists it
QUINDLE_SDL_UI_EXPORT bool IsFontPickerEntry(const std::filesystem::path& p);

/// Orders rows by their names as byte strings, ASCII letters lower-cased. Names that differ only in
/// the case of ASCII letters are equivalent.
/// @param a a row
/// @param b another row
/// @return whether `a` comes before `b`
QUINDLE_SDL_UI_EXPORT bool PickerEntryNameLess(const PickerEntry& a, const PickerEntry& b);

/// Lists `dir`: the row ".." (unless `dir` has no other parent), then its sub-directories, sorted.
/// Errors end the listing early and are not reported; what was gathered is returned.
/// @param dir the directory
/// @return its rows
QUINDLE_SDL_UI_EXPORT std::vector<PickerEntry> ReadFolderPickerEntries(
    const std::filesystem::path& dir);

/// Lists `dir`: the row "..", then its sub-directories, then the regular files that `accept` takes
/// by their path (none when it is null), each group sorted. Errors as in ReadFolderPickerEntries.
/// @param dir the directory
/// @param accept takes or refuses a file by its path
/// @return its rows
QUINDLE_SDL_UI_EXPORT std::vector<PickerEntry> ReadFilteredPickerEntries(
    const std::filesystem::path& dir, bool (*accept)(const std::filesystem::path&));

/// What the generic picker shows and how. Lifetime: the strings behind `title`, `accept_label` and
/// `cancel_label` must outlive the run; null counts as empty text.
struct SdlPickerDialogOptions {
  const char* title = nullptr;      ///< Window title, UTF-8.
  std::string hint;                 ///< First header line, UTF-8.
  std::filesystem::path start_dir;  ///< Directory shown first; see RunSimplePickerDialog.
  /// Lists a directory; null leaves the list empty.
  std::vector<PickerEntry> (*load_entries)(const std::filesystem::path&) = nullptr;
  /// Text of a row; null shows the bare name.
  std::string (*label_entry)(const PickerEntry&) = nullptr;
  const char* accept_label = nullptr;  ///< Caption of the right-hand button, UTF-8.
  const char* cancel_label = nullptr;  ///< Caption of the left-hand button, UTF-8.
  int width = 760;                     ///< Initial client width in pixels.
  int height = 520;                    ///< Initial client height in pixels.
  int footer_height = 46;              ///< Height of the button strip in pixels.
  int button_width = 70;               ///< Width of each button in pixels.
  int button_height = 30;              ///< Height of each button in pixels.
  int mode = 0;                        ///< 0 picks a file; 1 picks the directory that is shown.
  std::uint32_t window_flags = SDL_WINDOW_HIDDEN;  ///< SDL_WindowFlags; keep SDL_WINDOW_HIDDEN.
};

/// Runs the generic picker over `parent` (may be null). A start directory that does not exist
/// becomes the working directory; one that names a file, that file's directory. Returns the chosen
/// file, or in folder mode the directory shown, in the form that the start directory had; empty
/// when cancelled or when no window could be made.
/// @param parent the window to be modal for; may be null
/// @param options what the picker shows
/// @return the chosen path, as its bytes; empty when cancelled or when no window could be made
QUINDLE_SDL_UI_EXPORT std::string RunSimplePickerDialog(SDL_Window* parent,
                                                        const SdlPickerDialogOptions& options);

/// A vertical scroll bar, in window pixels.
struct SimpleScrollbarLayout {
  SDL_Rect track{0, 0, 0, 0};  ///< The whole bar.
  SDL_Rect thumb{0, 0, 0, 0};  ///< The part that is dragged; equal to `track` when all rows fit.
  int max_scroll = 0;          ///< Greatest index of the first visible row, at least 0.
};

/// Computes the scroll bar at the right edge of `list`, for `totalRows` rows of which `visibleRows`
/// fit, when `scroll` rows have gone off the top (clamped to 0 .. max_scroll).
/// @param list the list box, in window pixels
/// @param totalRows rows there are
/// @param visibleRows rows that fit
/// @param scroll rows that have gone off the top
/// @return the scroll bar
QUINDLE_SDL_UI_EXPORT SimpleScrollbarLayout BuildSimpleScrollbarLayout(const SDL_Rect& list,
                                                                       int totalRows,
                                                                       int visibleRows, int scroll);
/// Draws a scroll bar. Does nothing when `renderer` is null.
/// @param renderer the target; null does nothing
/// @param layout the scroll bar
QUINDLE_SDL_UI_EXPORT void DrawSimpleScrollbar(SDL_Renderer* renderer,
                                               const SimpleScrollbarLayout& layout);
/// True when (`x`, `y`) lies in `r`; left and top edges inside, right and bottom edges outside.
/// @param r the rectangle
/// @param x the point
/// @param y the point
/// @return whether the point is inside
QUINDLE_SDL_UI_EXPORT bool IsPointInRect(const SDL_Rect& r, int x, int y);

/// Draws one line of UTF-8 `text` with the pickers' font (15 points) at (`x`, `y`), in window
/// pixels. Does nothing when `renderer` is null, `text` is null or empty, or the font is
/// unavailable.
/// @param renderer null does nothing
/// @param text UTF-8; null or empty does nothing
/// @param x left edge of the text, in window pixels
/// @param y top edge of the text, in window pixels
/// @param colour the text's colour
QUINDLE_SDL_UI_EXPORT void DrawSimpleModalText(SDL_Renderer* renderer, const char* text, int x,
                                               int y, SDL_Color colour);

/// Lets the user choose a floppy image (".ima", ".img"). `parent` may be null; an empty `startDir`
/// means "floppies". Returns the file's path, relative when `startDir` is; empty when cancelled or
/// when no window could be made.
/// @param parent the window to be modal for; may be null
/// @param startDir shown first; empty means "floppies"
/// @return the chosen path, as its bytes; empty when cancelled
QUINDLE_SDL_UI_EXPORT std::string ShowSimpleFloppyFilePicker(SDL_Window* parent,
                                                             const std::string& startDir);
/// Lets the user choose a shader or shader preset; an empty `startDir` means ".". Otherwise as
/// ShowSimpleFloppyFilePicker.
/// @param parent the window to be modal for; may be null
/// @param startDir shown first; empty means "."
/// @return the chosen path, as its bytes; empty when cancelled
QUINDLE_SDL_UI_EXPORT std::string ShowSimpleShaderFilePicker(SDL_Window* parent,
                                                             const std::string& startDir);
/// Lets the user choose a font (".ttf", ".otf"); an empty `startDir` means "data/ttf". Otherwise as
/// ShowSimpleFloppyFilePicker.
/// @param parent the window to be modal for; may be null
/// @param startDir shown first; empty means "data/ttf"
/// @return the chosen path, as its bytes; empty when cancelled
QUINDLE_SDL_UI_EXPORT std::string ShowSimpleTtfFilePicker(SDL_Window* parent,
                                                          const std::string& startDir);

/// What the folder picker shows; set only what differs. An empty field counts as its default.
struct FolderPickerOptions {
  std::string title = "Select Folder";             ///< Window title, UTF-8.
  std::string hint = "Select destination folder";  ///< First header line, UTF-8.
  std::string accept_label = "Select";             ///< Caption of the accept button, UTF-8.
  std::string cancel_label = "Cancel";             ///< Caption of the cancel button, UTF-8.
  std::string start_dir;  ///< Directory shown first; empty: the working directory.
};

/// Lets the user choose a folder: the one shown when the accept button is pressed. `parent` may be
/// null. Returns its path; empty when cancelled or when no window could be made. Throws
/// std::filesystem::filesystem_error only when `start_dir` is empty and the working directory
/// cannot be determined.
/// @param parent the window to be modal for; may be null
/// @param options texts and start folder
/// @return the folder shown when it was accepted, as its bytes; empty when cancelled
QUINDLE_SDL_UI_EXPORT std::string ShowSimpleFolderPicker(SDL_Window* parent,
                                                         const FolderPickerOptions& options);

}  // namespace quindle::frontend::gui
