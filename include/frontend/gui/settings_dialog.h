#pragma once

/// The settings dialog: a list of pages on the left, the selected page's options on the right,
/// "Cancel" and "Apply" below, on a canvas of 820 x 492 pixels. Call from the thread that owns SDL
/// video.

#include <SDL.h>
#include <SDL_ttf.h>

#include <functional>
#include <string>
#include <vector>

#include "frontend/gui/export.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/settings_widgets.h"

namespace quindle::frontend::gui {

/// The settings that the dialog shows and edits. The dialog checks none of them: a value that no
/// control offers is shown as well as can be and stays until the user changes it.
struct SettingsDialogValues {
  int target_fps = 0;                      ///< Display refresh rate; offered are 25, 30, 50, 60.
  std::string font_mode = "pixel";         ///< "pixel", "ttf", "ttf-hires" or "ttf-custom".
  std::string renderer_mode = "hardware";  ///< "hardware" or "software".
  double cpu_mhz = 30.0;                   ///< Emulated CPU clock in MHz; shown only.
  double mouse_capture_gain = 1.0;         ///< Relative mouse gain; the slider gives 0.25 .. 3.0.
  bool allow_mouse_capture_in_text_mode = false;  ///< Capture while the guest is in text mode.
  bool hdd_sounds_enabled = false;                ///< Simulated hard-disk sounds.
  double hdd_sounds_volume = 0.5;                 ///< Fraction, 1.0 shown as 100%.
  std::string custom_font_path;  ///< Font file for "ttf-custom"; empty: none chosen yet.
  bool screenshot_capture_with_opengl_shaders = false;  ///< Captures pass the active shader.
  /// Capture size: 0 original resolution, 1 resolution of the emulator's viewport.
  int screenshot_capture_size_mode = 1;
};

/// One row of the list on the left.
struct NavItem {
  int kind = 0;       ///< 0 section heading, 1 selectable item.
  std::string label;  ///< Text of the row, UTF-8.
  int panel_id = -1;  ///< Number of the options page; -1 for headings.
};

/// The rectangles of the two buttons, in window pixels.
struct SettingsDialogButtons {
  SDL_Rect cancel{0, 0, 0, 0};  ///< "Cancel".
  SDL_Rect apply{0, 0, 0, 0};   ///< "Apply".
};

/// What the dialog's loop works on.
struct SettingsDialogSession {
  /// The dialog's window. Lifetime: owned by the ModalWindowBundle it was made with.
  SDL_Window* window = nullptr;
  /// The window's renderer. Lifetime: as `window`.
  SDL_Renderer* renderer = nullptr;
  OwnedTtfFont bold_font;     ///< Headings and titles, 15 points; without it they are missing.
  OwnedTtfFont regular_font;  ///< All other text, 15 points; without it that is missing.
  /// Rows of the list. Lifetime: borrowed; must outlive the loop.
  const std::vector<NavItem>* nav_items = nullptr;
  SDL_Rect cancel_button{0, 0, 0, 0};  ///< Closes the dialog.
  SDL_Rect apply_button{0, 0, 0, 0};   ///< Hands `values` to the host.
  SettingsDialogValues values;         ///< The working copy.
  int panel_id = -1;                   ///< The selected page; -1 for none.
  bool shown = false;                  ///< Set once the first frame has been presented.
};

/// What a page gets in each frame.
struct RightPanelContext {
  SDL_Renderer* renderer = nullptr;  ///< Borrowed.
  TTF_Font* bold_font = nullptr;     ///< Borrowed; may be null.
  TTF_Font* regular_font = nullptr;  ///< Borrowed; may be null.
  int panel_id = -1;                 ///< The selected page; negative for none.
  int mouse_x = -1;                  ///< Pointer in window pixels; -1 while it is elsewhere.
  int mouse_y = -1;                  ///< Pointer in window pixels; -1 while it is elsewhere.
  /// In this frame the left button was pressed in the right area (x from 225, y below 436). The
  /// press decides whether a control acts, the pointer (`mouse_x`, `mouse_y`) decides which.
  bool clicked = false;
  bool mouse_down = false;  ///< The left button is held with the pointer in the right area.
  /// The working values, read only. Borrowed; without them no page is drawn.
  const SettingsDialogValues* values = nullptr;
};

/// What a page reports in each frame; at most one change.
struct RightPanelHitResult {
  bool changed = false;  ///< A control asks for the change that the next fields name.
  std::string key;       ///< Configuration key of the change; see ApplySettingsHit.
  std::string text;      ///< New value of a text or integer setting, and of "hdd_sounds_enabled".
  double number = 0.0;   ///< New value of a slider.
  bool flag = false;     ///< New value of a checkbox, but for "hdd_sounds_enabled".
  bool browse_font = false;  ///< The user asks for the font picker.
};

/// Shows the settings dialog and blocks until the user closes it. Each press of "Apply" hands the
/// values over as they stand and leaves the dialog open; closing it hands over nothing, so that
/// what was changed since is dropped. Returns at once when no window could be made, and after a
/// message to the user when no font could be opened.
/// @param parent the window to be modal for; may be null
/// @param scale accepted and not applied
/// @param initial the values to start with; copied
/// @param apply called with the values at each "Apply"; may be empty. It may open another dialog,
///              and may throw: the exception leaves this function, which releases what it made.
QUINDLE_SDL_UI_EXPORT void ShowSettingsDialog(
    SDL_Window* parent, float scale, const SettingsDialogValues& initial,
    std::function<void(const SettingsDialogValues&)> apply);

/// Runs the dialog in a window that is there already, which is shown after the first frame, until
/// the user closes it.
/// @param session what to work on; nothing happens when it or its window, renderer or list is null
/// @param apply as with ShowSettingsDialog
QUINDLE_SDL_UI_EXPORT void RunSettingsDialogLoop(
    SettingsDialogSession* session, const std::function<void(const SettingsDialogValues&)>& apply);

/// Lists the rows on the left: five headings and eight items.
/// @return the rows from top to bottom
QUINDLE_SDL_UI_EXPORT std::vector<NavItem> BuildSettingsNavItems();

/// Finds the page that is shown first.
/// @param nav_items the rows on the left
/// @return the page of the first selectable item; -1 when there is none
QUINDLE_SDL_UI_EXPORT int FindInitialSettingsPanel(const std::vector<NavItem>& nav_items);

/// Tells where the two buttons stand.
/// @return their rectangles, in window pixels
QUINDLE_SDL_UI_EXPORT SettingsDialogButtons BuildSettingsDialogButtons();

/// Draws the list, 224 pixels wide with a row of 30 pixels for each item, and the line to its
/// right.
/// @param renderer the target; borrowed
/// @param bold_font font of the headings; borrowed; null leaves them out
/// @param regular_font font of the items; borrowed; null leaves them out
/// @param nav_items the rows from top to bottom
/// @param selected_panel_id the items of this page show as selected
/// @param mouse_x pointer in window pixels; -1 while it is elsewhere
/// @param mouse_y pointer in window pixels; -1 while it is elsewhere
QUINDLE_SDL_UI_EXPORT void DrawLeftPanel(SDL_Renderer* renderer, TTF_Font* bold_font,
                                         TTF_Font* regular_font,
                                         const std::vector<NavItem>& nav_items,
                                         int selected_panel_id, int mouse_x, int mouse_y);

/// Draws the head of a page: its title and below that its subtitle.
/// @param renderer the target; borrowed
/// @param bold_font font of the title; borrowed; null leaves it out
/// @param regular_font font of the subtitle; borrowed; null leaves it out
/// @param x left edge of both
/// @param y top of the title
/// @param title UTF-8
/// @param subtitle UTF-8; empty when the page has none
/// @return the y at which the page's content starts
QUINDLE_SDL_UI_EXPORT int DrawPanelHeader(SDL_Renderer* renderer, TTF_Font* bold_font,
                                          TTF_Font* regular_font, int x, int y,
                                          const std::string& title, const std::string& subtitle);

/// Draws the strip with the two buttons; the one under the pointer is highlighted.
/// @param renderer the target; borrowed
/// @param regular_font font of the captions; borrowed; null leaves them out
/// @param cancel rectangle of "Cancel"
/// @param apply rectangle of "Apply"
/// @param mouse_x pointer in window pixels; -1 while it is elsewhere
/// @param mouse_y pointer in window pixels; -1 while it is elsewhere
QUINDLE_SDL_UI_EXPORT void DrawBottomBar(SDL_Renderer* renderer, TTF_Font* regular_font,
                                         const SDL_Rect& cancel, const SDL_Rect& apply, int mouse_x,
                                         int mouse_y);

/// Draws the selected page, or a line of text when there is none.
/// @param ctx what the page needs
/// @return what the user did on the page
QUINDLE_SDL_UI_EXPORT RightPanelHitResult DrawRightPanel(const RightPanelContext& ctx);

/// Draws the page "Font Mode" (0), "Target FPS" (1), "Renderer" (2) or "Screenshots" (7).
/// @param ctx what the page needs
/// @param hit receives what the user did there; may be null
/// @return false, and nothing drawn, when another page is selected or `hit` is null
QUINDLE_SDL_UI_EXPORT bool DrawSettingsDisplayPanel(const RightPanelContext& ctx,
                                                    RightPanelHitResult* hit);

/// Draws the page "CPU Speed" (3), "Logger Options" (4), "HDD Sounds" (5) or "Mouse Capture" (6).
/// @param ctx what the page needs
/// @param hit receives what the user did there; may be null
/// @return false, and nothing drawn, when another page is selected or `hit` is null
QUINDLE_SDL_UI_EXPORT bool DrawSettingsRuntimePanel(const RightPanelContext& ctx,
                                                    RightPanelHitResult* hit);

/// Makes a reported change. An unknown key changes nothing.
///
/// | Key | Changes | Taken from |
/// |---|---|---|
/// | "fps" | `target_fps` | `text`, an integer |
/// | "font_mode" | `font_mode` | `text` |
/// | "renderer_mode" | `renderer_mode` | `text` |
/// | "mouse_capture_gain" | `mouse_capture_gain` | `number` |
/// | "allow_mouse_capture_in_text_mode" | `allow_mouse_capture_in_text_mode` | `flag` |
/// | "hdd_sounds_enabled" | `hdd_sounds_enabled` | `text`, "1" for true and all else for false |
/// | "hdd_sounds_volume" | `hdd_sounds_volume` | `number` |
/// | "screenshot_capture_size_mode" | `screenshot_capture_size_mode` | `text`, an integer |
/// | "screenshot_capture_with_opengl_shaders" | the member of that name | `flag` |
///
/// Of an integer's text, blanks before the number and all behind it are ignored. Throws
/// std::invalid_argument or std::out_of_range, and changes nothing, when it holds no int.
/// @param values what to change; null does nothing
/// @param hit what a page reported
QUINDLE_SDL_UI_EXPORT void ApplySettingsHit(SettingsDialogValues* values,
                                            const RightPanelHitResult& hit);

/// Runs the font picker when a page asks for it, first in the folder of the present custom font. A
/// chosen file becomes the custom font and "ttf-custom" the font mode; a cancelled picker changes
/// nothing.
/// @param values what to change; null does nothing
/// @param dialog_window the window that the picker is modal for; may be null
/// @param hit what a page reported
QUINDLE_SDL_UI_EXPORT void HandleSettingsFontPickerHit(SettingsDialogValues* values,
                                                       SDL_Window* dialog_window,
                                                       const RightPanelHitResult& hit);

}  // namespace quindle::frontend::gui
