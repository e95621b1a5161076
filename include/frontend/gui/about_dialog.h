#pragma once

/// The About dialog: product name, contact, two links and the build information.

#include <SDL.h>
#include <SDL_ttf.h>

#include <string>

#include "frontend/gui/export.h"
#include "frontend/gui/sdl_modal_runtime.h"

namespace quindle::frontend::gui {

/// Shows the About dialog and blocks, on the thread that owns SDL video, until it is closed. A
/// click on a link opens it with SDL_OpenURL and leaves the dialog open. Returns at once when no
/// window could be made; without fonts the dialog works, its texts are missing.
/// @param parent the window to be modal for; may be null
/// @param scale accepted and not applied
QUINDLE_SDL_UI_EXPORT void ShowSimpleAboutDialog(SDL_Window* parent, float scale);

/// The fonts of the dialog, each empty when it could not be opened. Sizes are in points at scale 1.
struct AboutDialogFonts {
  OwnedTtfFont nameFont;       ///< The product's name: 20, bold.
  OwnedTtfFont textFont;       ///< The contact and author lines: 14.
  OwnedTtfFont smallBoldFont;  ///< The links' labels and the block's heading: 13, bold.
  OwnedTtfFont rowFont;        ///< The rows of the build information: 14.
  OwnedTtfFont boldFont;       ///< The links' addresses: 14, bold.
  OwnedTtfFont footerFont;     ///< The line in the footer: 13.
};

/// Opens the six fonts, in the order of the record.
/// @param scale multiplies the sizes; the dialog uses 1.2
/// @return the fonts; those that could not be opened are empty
QUINDLE_SDL_UI_EXPORT AboutDialogFonts OpenAboutDialogFonts(float scale);

/// The measures of the dialog, in pixels.
struct AboutDialogMetrics {
  int pad = 0;           ///< From the window's edge to the frame.
  int sideMargin = 0;    ///< From the content's left and right edges to what stands in it.
  int nameTop = 0;       ///< From the content's top to the product's name.
  int nameH = 0;         ///< Height of the product's name.
  int lineGap = 0;       ///< Between the name and the contact line.
  int textH = 0;         ///< Height of the contact and author lines.
  int smallGap = 0;      ///< Between the contact and author lines.
  int headerGap = 0;     ///< From the author line to the separator.
  int sectionGap = 0;    ///< From the separator to the first link.
  int linkGap = 0;       ///< Between the links.
  int infoGap = 0;       ///< From the second link to the build information.
  int infoPadX = 0;      ///< Inside the build information's panel, left and right.
  int infoPadY = 0;      ///< Inside the build information's panel, top and bottom.
  int infoTitleGap = 0;  ///< From the panel's heading to its first row.
  int infoRowGap = 0;    ///< Between the panel's rows.
  int smallBoldH = 0;    ///< Height of the panel's heading.
  int rowH = 0;          ///< Height of a row's text.
  int boldH = 0;         ///< Height of a link's address.
  int footerTextH = 0;   ///< Height of the footer's text.
  int linkRowH = 0;      ///< Height of a link's box.
  int infoPanelH = 0;    ///< Height of the build information's panel.
  int footerH = 0;       ///< Height of the footer.
  float scale = 1.0F;    ///< The factor that the measures were made with.
};

/// Computes the measures from the fonts' heights.
/// @param fonts a missing font counts with a fixed height
/// @param scale multiplies the measures; the dialog uses 1.2
/// @return the measures, in pixels
QUINDLE_SDL_UI_EXPORT AboutDialogMetrics BuildAboutDialogMetrics(const AboutDialogFonts& fonts,
                                                                 float scale);

/// Adds up the height of a window.
/// @param metrics the measures of the dialog
/// @return client height in pixels
QUINDLE_SDL_UI_EXPORT int AboutDialogWindowHeight(const AboutDialogMetrics& metrics);

/// The values of the build information, as they are shown.
struct AboutDialogInfoRows {
  std::string version;    ///< "v" and the version, as "v0.1.0".
  std::string buildDate;  ///< Date and time, as "Apr 14 2026 09:50:07".
  std::string compiler;   ///< Family and version, as "GNU 13.3.0".
  std::string platform;   ///< Operating system, as "Linux".
  std::string arch;       ///< Processor and word size, as "x86_64 (64-bit)".
  std::string flags;      ///< Build switches, as "LTO OFF  PGO OFF  O2 OFF  O3 ON".
};

/// Describes how this library was built.
/// @return the texts, as the dialog shows them
QUINDLE_SDL_UI_EXPORT AboutDialogInfoRows BuildAboutDialogInfoRows();

/// Where the links stand, in window pixels; empty rectangles before the first frame.
struct AboutDialogLinks {
  SDL_Rect videoChannel{0, 0, 0, 0};  ///< The row of the video channel.
  SDL_Rect homepage{0, 0, 0, 0};      ///< The row of the product's web address.
};

/// Draws one frame without presenting it.
/// @param renderer the target; borrowed
/// @param fonts without a font its texts are missing
/// @param metrics the measures, made from the same fonts
/// @param rows the build information
/// @param width client width in pixels
/// @param height client height in pixels
/// @param mouseX pointer in window pixels; -1 while it is elsewhere
/// @param mouseY pointer in window pixels; -1 while it is elsewhere
/// @param links receives the links' rectangles; may be null
QUINDLE_SDL_UI_EXPORT void RenderAboutDialogFrame(SDL_Renderer* renderer,
                                                  const AboutDialogFonts& fonts,
                                                  const AboutDialogMetrics& metrics,
                                                  const AboutDialogInfoRows& rows, int width,
                                                  int height, int mouseX, int mouseY,
                                                  AboutDialogLinks* links);

/// Draws one link: its box, its label and below that its address.
/// @param renderer the target; borrowed
/// @param labelFont font of the label; null leaves it out
/// @param valueFont font of the address; null leaves it out
/// @param rect the box, in window pixels
/// @param label UTF-8
/// @param value UTF-8
/// @param hovered whether the pointer is over it
QUINDLE_SDL_UI_EXPORT void DrawLinkRow(SDL_Renderer* renderer, TTF_Font* labelFont,
                                       TTF_Font* valueFont, const SDL_Rect& rect,
                                       const std::string& label, const std::string& value,
                                       bool hovered);

}  // namespace quindle::frontend::gui
