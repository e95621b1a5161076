#pragma once

/// Shader parameters: the `#pragma parameter` declarations of a GLSL source, the values that a
/// preset stores for them, and the dialog in which the user tunes them while the host shows the
/// effect. The parsers may be called from any thread, the dialog from the thread that owns SDL
/// video. Numbers are read and shown with a decimal point, whatever the process locale is.

#include <SDL.h>
#include <SDL_ttf.h>

#include <functional>
#include <string>
#include <vector>

#include "frontend/gui/export.h"

namespace quindle::frontend::gui {

/// One declaration: `#pragma parameter NAME "Label" default min max step`.
struct ShaderParameterSpec {
  std::string name;            ///< Identifier of the uniform, as written behind "parameter".
  std::string label;           ///< Text between the quotes, verbatim; bytes of any encoding.
  float default_value = 0.0F;  ///< As declared; may lie outside min_value .. max_value.
  float min_value = 0.0F;      ///< Lower bound; never above `max_value` when parsed.
  float max_value = 0.0F;      ///< Upper bound.
  float step = 0.0F;           ///< Distance of the grid's values; 0 means a continuous value.
};

/// A parameter's value.
struct ShaderParameterValue {
  std::string name;    ///< Identifier of the uniform; compared byte by byte.
  float value = 0.0F;  ///< The value, in the units of its declaration.
};

/// What the shader dialog edits and returns.
struct ShaderDialogResult {
  bool applied = false;  ///< The user applied the values at least once and did not cancel later.
  std::vector<ShaderParameterValue> values;  ///< One per declaration, in declaration order.
};

/// Finds the file in which the declarations stand. Whether it exists is not checked.
/// @param path a shader, or a preset, which is a path whose extension is ".glslp" in any case
/// @return the source of a preset's first pass, empty when it has no usable one; otherwise `path`
QUINDLE_SDL_UI_EXPORT std::string ResolveShaderGlslPath(const std::string& path);

/// Reads the declarations of a shader.
///
/// Malformed lines are skipped; swapped bounds are put in order, a step that is not greater than 0
/// becomes 0, and duplicates are kept. Throws nothing but std::bad_alloc.
/// @param path a shader, or a preset, whose first pass is read
/// @return the declarations in file order; empty when the file cannot be read or declares nothing
QUINDLE_SDL_UI_EXPORT std::vector<ShaderParameterSpec> ParseShaderParameterSpecs(
    const std::string& path);

/// Reads the values that a preset stores.
///
/// Only the names of its first "parameters" list count; values that are no number or out of a
/// float's range are skipped; nothing is clamped. Throws nothing but std::bad_alloc.
/// @param preset_path a path whose extension is ".glslp" in any case; others store nothing
/// @return the values in file order, duplicates included; empty when the file cannot be read or has
/// no list
QUINDLE_SDL_UI_EXPORT std::vector<ShaderParameterValue> ParseGlslpParameterOverrides(
    const std::string& preset_path);

/// Clamps a value to its bounds and moves it to the nearest value of the grid that starts at
/// `min_value`, halfway cases away from it; a bound wins over the grid.
/// @param spec bounds and step
/// @param v any value; a NaN counts as `min_value`
/// @return the value clamped and snapped
QUINDLE_SDL_UI_EXPORT float SnapToStep(const ShaderParameterSpec& spec, float v);

/// Makes the values with which the dialog starts, not applied.
/// @param specs the declarations
/// @param current the values in force; those that belong to no declaration are dropped
/// @return for each declaration, in order, the first of `current` with its name, or else its
/// default, clamped and snapped
QUINDLE_SDL_UI_EXPORT ShaderDialogResult
InitializeShaderDialogResult(const std::vector<ShaderParameterSpec>& specs,
                             const std::vector<ShaderParameterValue>& current);

/// Called with the dialog's values when the user applies them, while the dialog is open. The vector
/// is the dialog's own: copy what is to be kept. May throw (the exception leaves the dialog, which
/// releases what it made) and may open another dialog. May be empty.
using ShaderApplyCallback = std::function<void(const std::vector<ShaderParameterValue>&)>;

/// The fixed measures of the shader dialog, in window pixels.
struct ShaderDialogGeometry {
  int list_top = 20;           ///< Top of row 0 when nothing is scrolled off.
  int row_height = 80;         ///< Height of a row; one wheel notch scrolls by half of it.
  int slider_x = 260;          ///< Left edge of every slider track.
  int slider_width = 275;      ///< Width of every slider track.
  int slider_hit_height = 13;  ///< Height of the track, centred on the row; it grabs the slider.
  int label_x = 14;            ///< Left edge of every label.
  int detail_x = 545;          ///< Left edge of every value and range text.
  int reserved_width = 72;     ///< Carried for the host; not used.
  int button_width = 78;       ///< Width of the bottom buttons.
  int button_height = 26;      ///< Height of the bottom buttons.
  int window_width = 900;      ///< Initial client width.
  int window_height = 280;     ///< Initial client height, 280 .. 500.
  int content_height = 90;     ///< `window_height` unclamped; all rows fit from 18 pixels more.
};

/// Computes the measures.
/// @param count number of parameters
/// @param scale accepted and not applied
/// @return the measures
QUINDLE_SDL_UI_EXPORT ShaderDialogGeometry BuildShaderDialogGeometry(int count, float scale);

/// What the dialog's loop works on. All handles and records are borrowed and must outlive the run.
struct ShaderDialogSession {
  SDL_Window* window = nullptr;                             ///< The dialog's window.
  SDL_Renderer* renderer = nullptr;                         ///< The renderer of `window`.
  TTF_Font* header_font = nullptr;                          ///< Font of the heading.
  TTF_Font* detail_font = nullptr;                          ///< Font of all other texts.
  std::string shader_path;                                  ///< The path in the heading, as given.
  const std::vector<ShaderParameterSpec>* specs = nullptr;  ///< The declarations.
  const ShaderDialogGeometry* geometry = nullptr;           ///< The measures.
  ShaderDialogResult* result = nullptr;  ///< Edited in place; one value per declaration.
  bool dragging_slider = false;          ///< The slider of `active_param` follows the pointer.
  int active_param = -1;                 ///< Row whose slider is dragged; -1 for none.
  bool dragging_scrollbar = false;       ///< The scroll bar follows the pointer.
  int drag_start_y = 0;                  ///< Pointer's y when the scroll bar was grabbed.
  int drag_start_scroll = 0;             ///< `scroll` when the scroll bar was grabbed.
  int scroll = 0;                        ///< Pixels scrolled off the top, 0 .. max_scroll.
  bool shown = false;                    ///< The window has been shown.
};

/// The places that follow the window's size, in window pixels.
struct ShaderDialogLayout {
  int view_top = 36;                  ///< Top of the list view.
  int view_h = 1;                     ///< Height of the list view, at least 1.
  int max_scroll = 0;                 ///< Greatest `scroll`, at least 0.
  SDL_Rect cancel{0, 0, 0, 0};        ///< The button "Cancel".
  SDL_Rect apply{0, 0, 0, 0};         ///< The button "Apply".
  SDL_Rect scroll_track{0, 0, 0, 0};  ///< The whole scroll bar; not drawn when all rows fit.
  SDL_Rect scroll_thumb{0, 0, 0, 0};  ///< Its thumb; equal to `scroll_track` when all rows fit.
};

/// Computes the places for a window's size.
/// @param session gives the number of declarations and the scroll
/// @param width client width in pixels
/// @param height client height in pixels
/// @return the places
QUINDLE_SDL_UI_EXPORT ShaderDialogLayout BuildShaderDialogLayout(const ShaderDialogSession& session,
                                                                 int width, int height);

/// Finds the row at a height.
/// @param geometry the measures
/// @param y in window pixels
/// @param scroll pixels that have gone off the top
/// @param count number of rows
/// @return the row; -1 above the first and below the last
QUINDLE_SDL_UI_EXPORT int FindShaderDialogParamAtY(const ShaderDialogGeometry& geometry, int y,
                                                   int scroll, int count);

/// Tells the value of a slider that is pulled to a place.
/// @param spec the parameter
/// @param geometry the measures
/// @param x in window pixels; beside the track the bound at that end counts
/// @return the value, clamped and snapped
QUINDLE_SDL_UI_EXPORT float ShaderDialogValueFromMouse(const ShaderParameterSpec& spec,
                                                       const ShaderDialogGeometry& geometry, int x);

/// Draws one line of text.
/// @param renderer null does nothing
/// @param font null does nothing
/// @param text UTF-8; empty does nothing
/// @param x left edge of the text, in window pixels
/// @param y top edge of the text, in window pixels
/// @param color the text's colour
QUINDLE_SDL_UI_EXPORT void DrawShaderDialogText(SDL_Renderer* renderer, TTF_Font* font,
                                                const std::string& text, int x, int y,
                                                SDL_Color color);

/// Draws and presents one frame; the first one also shows, raises and focuses the window.
/// @param session what is drawn, and where to; must be complete, as for the loop
/// @param layout the places
/// @param width client width in pixels
/// @param height client height in pixels
QUINDLE_SDL_UI_EXPORT void RenderShaderDialog(ShaderDialogSession* session,
                                              const ShaderDialogLayout& layout, int width,
                                              int height);

/// Runs the dialog in a window that is there already, until the user ends it. Exceptions of
/// `on_apply` and of the heartbeat pass through.
/// @param session what the loop works on. Nothing happens when it is null, when its window,
/// renderer, a font, specs, geometry or result is, and when the result has fewer values than there
/// are specs.
/// @param on_apply called for every Apply; may be empty
QUINDLE_SDL_UI_EXPORT void RunShaderParameterDialog(ShaderDialogSession* session,
                                                    const ShaderApplyCallback& on_apply);

/// Lets the user tune the parameters of a shader; blocks until the dialog ends. Apply and Return
/// hand the values to `on_apply` and leave the dialog open. Without declarations, and without a
/// font, a message is shown instead of the dialog; without a window nothing is shown.
/// @param parent the window to be modal for; may be null
/// @param shader_path a shader or a preset
/// @param scale accepted and not applied
/// @param on_apply called for every Apply; may be empty
/// @param current the values in force, as for InitializeShaderDialogResult
/// @return the values last shown; `applied` is true when the user applied and then closed the
/// window, false after Cancel or Escape. The starting values, not applied, when there was no
/// dialog.
QUINDLE_SDL_UI_EXPORT ShaderDialogResult ShowShaderParameterDialog(
    SDL_Window* parent, const std::string& shader_path, float scale, ShaderApplyCallback on_apply,
    const std::vector<ShaderParameterValue>& current);

}  // namespace quindle::frontend::gui
