#pragma once

/// File and folder pickers. Each Show function blocks, on the thread that owns SDL video, until the
/// user accepts or cancels. A path as text is the file system's bytes; on Windows it is UTF-8, with
/// "/" or "\" as the start directory has it, and what has no such text is not listed.

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
  std::string name;            ///< Last component of `path`, as text; or "..".
  std::filesystem::path path;  ///< The listed directory joined with `name`; for "..", its parent.
  bool is_directory = false;   ///< True for directories (links to them included) and for "..".
};

/// Compares the extension of a path, its ASCII letters lowered. A name whose only dot comes first
/// has none.
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

/// Orders rows by their names as byte strings, ASCII letters lowered. Names that differ only in the
/// case of ASCII letters are equivalent.
/// @param a a row
/// @param b another row
/// @return whether `a` comes before `b`
QUINDLE_SDL_UI_EXPORT bool PickerEntryNameLess(const PickerEntry& a, const PickerEntry& b);

/// Lists the folders of a directory. Errors end the listing early and are not reported.
/// @param dir the directory
/// @return the row ".." (unless `dir` has no other parent), then its sub-directories, sorted; what
/// was gathered when there was an error
QUINDLE_SDL_UI_EXPORT std::vector<PickerEntry> ReadFolderPickerEntries(
    const std::filesystem::path& dir);

/// Lists folders and files of a directory. Errors as in ReadFolderPickerEntries.
/// @param dir the directory
/// @param accept takes or refuses a regular file by its path; null refuses all
/// @return the rows of ReadFolderPickerEntries, then the accepted files, sorted
QUINDLE_SDL_UI_EXPORT std::vector<PickerEntry> ReadFilteredPickerEntries(
    const std::filesystem::path& dir, bool (*accept)(const std::filesystem::path&));

/// What the generic picker shows and how. Lifetime: the strings behind `title`, `accept_label` and
/// `cancel_label` must outlive the run; null counts as empty text.
struct SdlPickerDialogOptions {
  const char* title = nullptr;  ///< Window title, UTF-8.
  std::string hint;             ///< First header line, UTF-8.
  /// Directory shown first. One that does not exist becomes the working directory; a file, the
  /// directory that it lies in.
  std::filesystem::path start_dir;
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

/// Runs the generic picker.
/// @param parent the window to be modal for; may be null
/// @param options what the picker shows
/// @return the chosen file, or in folder mode the directory shown, as text and in the form
/// that the start directory had; empty when cancelled or when no window could be made
QUINDLE_SDL_UI_EXPORT std::string RunSimplePickerDialog(SDL_Window* parent,
                                                        const SdlPickerDialogOptions& options);

/// A vertical scroll bar, in window pixels.
struct SimpleScrollbarLayout {
  SDL_Rect track{0, 0, 0, 0};  ///< The whole bar.
  SDL_Rect thumb{0, 0, 0, 0};  ///< The part that is dragged; equal to `track` when all rows fit.
  int max_scroll = 0;          ///< Greatest index of the first visible row, at least 0.
};

/// Computes the scroll bar at the right edge of a list.
/// @param list the list box, in window pixels
/// @param totalRows rows there are
/// @param visibleRows rows that fit
/// @param scroll rows that have gone off the top; limited to 0 .. max_scroll
/// @return the scroll bar
QUINDLE_SDL_UI_EXPORT SimpleScrollbarLayout BuildSimpleScrollbarLayout(const SDL_Rect& list,
                                                                       int totalRows,
                                                                       int visibleRows, int scroll);
/// Draws a scroll bar.
/// @param renderer the target; null does nothing
/// @param layout the scroll bar
QUINDLE_SDL_UI_EXPORT void DrawSimpleScrollbar(SDL_Renderer* renderer,
                                               const SimpleScrollbarLayout& layout);
/// Tells whether a point lies in a rectangle; left and top edges inside, right and bottom outside.
/// @param r the rectangle
/// @param x the point's column
/// @param y the point's row
/// @return true when it does
QUINDLE_SDL_UI_EXPORT bool IsPointInRect(const SDL_Rect& r, int x, int y);

/// Draws one line of text with the pickers' font (15 points). Does nothing when that is
/// unavailable.
/// @param renderer null does nothing
/// @param text UTF-8; null or empty does nothing
/// @param x left edge of the text, in window pixels
/// @param y top edge of the text, in window pixels
/// @param colour the text's colour
QUINDLE_SDL_UI_EXPORT void DrawSimpleModalText(SDL_Renderer* renderer, const char* text, int x,
                                               int y, SDL_Color colour);

/// Lets the user choose a floppy image (".ima", ".img").
/// @param parent the window to be modal for; may be null
/// @param startDir shown first, as SdlPickerDialogOptions::start_dir; empty means "floppies"
/// @return the chosen path, as text, relative when `startDir` is; empty when cancelled or when
/// no window could be made
QUINDLE_SDL_UI_EXPORT std::string ShowSimpleFloppyFilePicker(SDL_Window* parent,
                                                             const std::string& startDir);
/// Lets the user choose a shader or shader preset (see IsShaderPickerEntry).
/// @param parent the window to be modal for; may be null
/// @param startDir shown first; empty means "."
/// @return as ShowSimpleFloppyFilePicker
QUINDLE_SDL_UI_EXPORT std::string ShowSimpleShaderFilePicker(SDL_Window* parent,
                                                             const std::string& startDir);
/// Lets the user choose a font (".ttf", ".otf").
/// @param parent the window to be modal for; may be null
/// @param startDir shown first; empty means "data/ttf"
/// @return as ShowSimpleFloppyFilePicker
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

/// Lets the user choose a folder. Throws std::filesystem::filesystem_error only when `start_dir` is
/// empty and the working directory cannot be determined.
/// @param parent the window to be modal for; may be null
/// @param options texts and start folder
/// @return the folder that was shown when the accept button was pressed, as text; empty when
/// cancelled or when no window could be made
QUINDLE_SDL_UI_EXPORT std::string ShowSimpleFolderPicker(SDL_Window* parent,
                                                         const FolderPickerOptions& options);

}  // namespace quindle::frontend::gui
