#pragma once

/// The message box: a title, a wrapped message, a typed badge and a row of buttons.

#include <SDL.h>
#include <SDL_ttf.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "frontend/gui/export.h"
#include "frontend/gui/sdl_modal_runtime.h"

namespace quindle::frontend::gui {

/// A modal message box. May be shown more than once; nothing is kept between calls.
class QUINDLE_SDL_UI_EXPORT SdlMessageBox {
 public:
  /// What the box is about; decides the badge. Any other value is shown as Info.
  enum class Type : std::uint8_t {
    Info = 0,
    Question = 1,
    Warning = 2,
    Error = 3,
    Critical = 4,
    Success = 5,
  };

  /// One button of the row.
  struct Button {
    int id = 0;  ///< What Show returns when this button is chosen; -1 would read as "closed".
    std::string label{};     ///< Caption, UTF-8.
    bool isDefault = false;  ///< Carried for the host; neither drawn nor bound to a key.
    bool isCancel = false;   ///< Chosen by Escape; the first such button counts.
    /// Called when the button is chosen, while the box is still open; may be empty. May throw: the
    /// exception leaves Show, which releases what it made. May open another dialog.
    std::function<void()> onClick{};
  };

  /// What the box shows. A default-made record is valid.
  struct Config {
    std::string title;            ///< Window title and heading, UTF-8; empty: "Message".
    std::string message;          ///< UTF-8, wrapped at blanks; line feeds start new lines.
    Type type = Type::Info;       ///< Decides the badge.
    std::vector<Button> buttons;  ///< Left to right; empty: one button "OK" with id 1.
    int width = 420;              ///< Client width in pixels; less than 320 becomes 320.
    /// Least client height in pixels; less than 140 becomes 140, and the box is never lower than
    /// 160. It grows to fit the message.
    int height = 160;
    bool escapeEnabled = true;  ///< Whether Escape is handled.
  };

  /// Takes the record over and replaces what is empty or too small, as said at its fields.
  /// @param config what to show; moved in
  explicit SdlMessageBox(Config config);

  /// Shows the box and blocks, on the thread that owns SDL video, until a button is chosen or the
  /// box is closed.
  /// @param parent the window to be modal for; may be null
  /// @param scale accepted and not applied
  /// @return the chosen button's id; -1 when the box was closed without a choice, or when no
  /// window, renderer or font could be had (nothing is shown then)
  int Show(SDL_Window* parent, float scale);

 private:
  Config config_;
};

/// The accent colour and the glyph of a message type.
struct MessageBoxTypeVisual {
  SDL_Color accent;   ///< Colour of the badge's bar and glyph.
  const char* glyph;  ///< UTF-8, one character. Lifetime: static.
};

/// Tells how a message type looks.
/// @param type a value that names no type counts as Info
/// @return its colour and glyph
QUINDLE_SDL_UI_EXPORT MessageBoxTypeVisual VisualForMessageBoxType(SdlMessageBox::Type type);

/// The fonts of a message box, each empty when it could not be opened.
struct SdlMessageBoxFonts {
  OwnedTtfFont iconFont;    ///< The badge's glyph.
  OwnedTtfFont titleFont;   ///< The heading.
  OwnedTtfFont bodyFont;    ///< The message.
  OwnedTtfFont buttonFont;  ///< The buttons' captions.
};

/// Opens the four fonts for a scale factor (1.0 is 18 points for the icon and 14 for the rest).
/// @param scale multiplies the sizes
/// @return the fonts; those that could not be opened are empty
QUINDLE_SDL_UI_EXPORT SdlMessageBoxFonts OpenSdlMessageBoxFonts(float scale);

/// The geometry of a message box, in window pixels.
struct SdlMessageBoxLayout {
  int pad = 0;                     ///< From the window's edge to the frame.
  int margin = 0;                  ///< From the frame to what stands in it.
  int gap = 0;                     ///< Between badge, title and message.
  int iconW = 0;                   ///< Width of the badge.
  int iconH = 0;                   ///< Height of the badge.
  int buttonH = 0;                 ///< Height of each button.
  int buttonGap = 0;               ///< Between two buttons.
  int buttonW = 0;                 ///< Width of each button.
  int footerH = 0;                 ///< Height of the button strip.
  int buttonsX = 0;                ///< Left edge of the first button.
  int buttonsY = 0;                ///< Top of all buttons.
  SDL_Rect frame{0, 0, 0, 0};      ///< Outline around everything.
  SDL_Rect content{0, 0, 0, 0};    ///< Panel of badge, title and message.
  SDL_Rect footer{0, 0, 0, 0};     ///< Panel of the buttons.
  int titleY = 0;                  ///< Top of the title's row.
  SDL_Rect icon{0, 0, 0, 0};       ///< The badge.
  int textX = 0;                   ///< Left edge of the title.
  int textW = 0;                   ///< Room for the title, at least 40.
  int titleH = 0;                  ///< Height of the title, at least 16.
  int bodyX = 0;                   ///< Left edge of the message.
  int bodyY = 0;                   ///< Top of the message.
  int bodyW = 0;                   ///< Width at which the message is wrapped, at least 40.
  int bodyH = 0;                   ///< Room for the message, at least 40.
  int lineH = 0;                   ///< From one line of the message to the next, at least 14.
  int contentHeight = 0;           ///< Window height at which title and message fit.
  int minHeight = 0;               ///< Config::height, at least 160; grows with a scale above 1.
  int targetHeight = 0;            ///< Window height that the box asks for: the greater of the two.
  std::vector<std::string> lines;  ///< The message as wrapped.
};

/// Computes the geometry of a box.
/// @param config gives title, message, number of buttons and least height
/// @param scale multiplies the measures; the box itself runs at 1.0
/// @param width client width in pixels
/// @param height client height in pixels
/// @param titleFont measures the title; must not be null
/// @param bodyFont measures the message; null leaves it without lines
/// @return the geometry and the wrapped lines
QUINDLE_SDL_UI_EXPORT SdlMessageBoxLayout
BuildSdlMessageBoxLayout(const SdlMessageBox::Config& config, float scale, int width, int height,
                         TTF_Font* titleFont, TTF_Font* bodyFont);

/// Runs the box in a window that is there already, and shows it after the first frame.
/// @param window the box's window; borrowed
/// @param renderer its renderer; borrowed
/// @param config what the box shows
/// @param scale multiplies the measures
/// @param visual colour and glyph of the badge
/// @param fonts all four must be open
/// @return the chosen button's id; -1 when the box was closed without a choice
QUINDLE_SDL_UI_EXPORT int RunSdlMessageBoxLoop(SDL_Window* window, SDL_Renderer* renderer,
                                               const SdlMessageBox::Config& config, float scale,
                                               const MessageBoxTypeVisual& visual,
                                               const SdlMessageBoxFonts& fonts);

/// Draws one frame without presenting it. The fonts are borrowed. Only the loop looks for another
/// font or glyph where `iconFont` lacks the badge's.
/// @param renderer the target; borrowed
/// @param config what the box shows
/// @param visual colour and glyph of the badge, drawn as it stands
/// @param layout the geometry
/// @param iconFont font of the glyph; null leaves it out
/// @param titleFont font of the title; null leaves it out
/// @param bodyFont font of the message; null leaves it out
/// @param buttonFont font of the captions; null leaves them out
/// @param mouseX pointer in window pixels; -1 while it is elsewhere
/// @param mouseY pointer in window pixels; -1 while it is elsewhere
QUINDLE_SDL_UI_EXPORT void RenderSdlMessageBoxFrame(
    SDL_Renderer* renderer, const SdlMessageBox::Config& config, const MessageBoxTypeVisual& visual,
    const SdlMessageBoxLayout& layout, TTF_Font* iconFont, TTF_Font* titleFont, TTF_Font* bodyFont,
    TTF_Font* buttonFont, int mouseX, int mouseY);

/// Draws one button with its caption centred, or 6 pixels from the left, cut at the right edge,
/// when it is too wide for that.
/// @param renderer the target; borrowed
/// @param font font of the caption; null leaves it out
/// @param rect the button, in window pixels
/// @param label the caption, UTF-8
/// @param hovered whether the pointer is over it
QUINDLE_SDL_UI_EXPORT void DrawSdlMessageBoxButton(SDL_Renderer* renderer, TTF_Font* font,
                                                   const SDL_Rect& rect, const std::string& label,
                                                   bool hovered);

}  // namespace quindle::frontend::gui
