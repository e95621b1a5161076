#include "frontend/gui/about_dialog.h"

#include <algorithm>
#include <optional>

#include "frontend/gui/build_info.h"
#include "frontend/gui/numbers.h"
#include "frontend/gui/open_dialog.h"
#include "frontend/gui/product_config.h"
#include "frontend/gui/sdl_draw.h"
#include "frontend/gui/sdl_host_state.h"
#include "frontend/gui/sdl_modal_events.h"
#include "frontend/gui/sdl_modal_frame.h"
#include "frontend/gui/sdl_text_fit.h"
#include "frontend/gui/sdl_ui_font_cache.h"

namespace quindle::frontend::gui {
namespace {

constexpr float kAboutScale = 1.2F;
constexpr int kAboutWidth = 860;

constexpr SDL_Color kFirstClear{20, 22, 26, 255};
constexpr SDL_Color kWindowFill{18, 21, 27, 255};
constexpr SDL_Color kPanelBorder{52, 58, 70, 255};
constexpr SDL_Color kContentFill{24, 27, 34, 255};
constexpr SDL_Color kFooterFill{22, 25, 32, 255};
constexpr SDL_Color kBoxFill{20, 23, 30, 255};
constexpr SDL_Color kBoxHoverFill{40, 46, 60, 255};
constexpr SDL_Color kLinkValue{106, 166, 255, 255};

int Scaled(float base, float scale) {
  return RoundToInt(base * scale);
}

OwnedTtfFont OpenAboutFont(float base_size, bool bold, float scale) {
  return OpenSdlUiFontHandle(Scaled(base_size, scale), bold, SdlUiFontKind::Ui);
}

// --- Geometry of one frame -----------------------------------------------------------------------

struct AboutPanels {
  SDL_Rect frame;
  SDL_Rect content;
  SDL_Rect footer;
  int left;         // Left edge of everything in the content.
  int inner_width;  // Width of the links and of the build information.
};

AboutPanels PlacePanels(const AboutDialogMetrics& metrics, int width, int height) {
  const int pad = metrics.pad;
  AboutPanels panels{};
  panels.frame = {pad, pad, width - 2 * pad, height - 2 * pad};
  panels.content = {pad + 1, pad + 1, width - 2 * pad - 2, height - 2 * pad - metrics.footerH - 1};
  panels.footer = {pad + 1, height - pad - metrics.footerH, width - 2 * pad - 2,
                   metrics.footerH - 1};
  panels.left = panels.content.x + metrics.sideMargin;
  panels.inner_width = panels.content.w - 2 * metrics.sideMargin;
  return panels;
}

struct HeaderRows {
  int name_y;
  int contact_y;
  int author_y;
  int separator_y;
};

HeaderRows PlaceHeader(const AboutDialogMetrics& metrics, const AboutPanels& panels) {
  HeaderRows rows{};
  rows.name_y = panels.content.y + metrics.nameTop;
  rows.contact_y = rows.name_y + metrics.nameH + metrics.lineGap;
  rows.author_y = rows.contact_y + metrics.textH + metrics.smallGap;
  rows.separator_y = rows.author_y + metrics.textH + metrics.headerGap;
  return rows;
}

AboutDialogLinks PlaceLinks(const AboutDialogMetrics& metrics, const AboutPanels& panels,
                            const HeaderRows& header) {
  AboutDialogLinks links;
  links.videoChannel = {panels.left, header.separator_y + metrics.sectionGap, panels.inner_width,
                        metrics.linkRowH};
  links.homepage = links.videoChannel;
  links.homepage.y += metrics.linkRowH + metrics.linkGap;
  return links;
}

// --- Drawing -------------------------------------------------------------------------------------

void DrawPanels(SDL_Renderer* renderer, const AboutPanels& panels) {
  ClearFrame(renderer, kFirstClear);
  ClearFrame(renderer, kWindowFill);
  OutlineRect(renderer, panels.frame, kPanelBorder);
  FillRect(renderer, panels.content, kContentFill);
  FillRect(renderer, panels.footer, kFooterFill);
  DrawLine(renderer, panels.content.x, panels.footer.y, panels.content.x + panels.content.w - 1,
           panels.footer.y, kPanelBorder);
}

void DrawHeader(SDL_Renderer* renderer, const AboutDialogFonts& fonts, const AboutPanels& panels,
                const HeaderRows& rows) {
  const int x = panels.left;
  DrawSdlUiText(renderer, fonts.nameFont.get(), "Quindle", x, rows.name_y, kColTextHi, nullptr);
  DrawSdlUiText(renderer, fonts.textFont.get(), kContactEmail, x, rows.contact_y, kColTextMid,
                nullptr);
  DrawSdlUiText(renderer, fonts.textFont.get(), kAuthorLine, x, rows.author_y, kColTextMid,
                nullptr);
  DrawLine(renderer, x, rows.separator_y, x + panels.inner_width, rows.separator_y, kPanelBorder);
}

// One of the two columns of the build information.
struct InfoColumn {
  int label_x;
  int value_x;
  int right;  // Where a value is cut off.
};

struct InfoColumns {
  InfoColumn left;
  InfoColumn right;
};

// The gap keeps a value of the left column off the right one's labels. In the right column nothing
// follows, and with a wide font the values need more than the panel.
InfoColumns PlaceInfoColumns(const AboutDialogMetrics& metrics, const SDL_Rect& content,
                             const SDL_Rect& panel) {
  const int gap = Scaled(24.0F, metrics.scale);
  const int left = panel.x + metrics.infoPadX;
  const int left_end = left + (panel.w - 2 * metrics.infoPadX - gap) / 2;
  const int right = left_end + gap;
  return {{left, left + Scaled(86.0F, metrics.scale), left_end},
          {right, right + Scaled(72.0F, metrics.scale), content.x + content.w}};
}

void DrawInfoCell(SDL_Renderer* renderer, TTF_Font* font, const InfoColumn& column, int y,
                  const char* label, const std::string& value) {
  DrawSdlUiText(renderer, font, label, column.label_x, y, kColTextDim, nullptr);
  DrawTextStartVisible(renderer, font, value, column.value_x, y, column.right, kColTextHi);
}

void DrawBuildInfo(SDL_Renderer* renderer, const AboutDialogFonts& fonts,
                   const AboutDialogMetrics& metrics, const AboutDialogInfoRows& rows,
                   const SDL_Rect& content, const SDL_Rect& panel) {
  FillAndOutlineRect(renderer, panel, kBoxFill, kPanelBorder);
  const InfoColumns columns = PlaceInfoColumns(metrics, content, panel);
  int y = panel.y + metrics.infoPadY;
  DrawSdlUiText(renderer, fonts.smallBoldFont.get(), "BUILD INFO", columns.left.label_x, y,
                kColTextDim, nullptr);
  y += metrics.smallBoldH + metrics.infoTitleGap;
  TTF_Font* font = fonts.rowFont.get();
  const int step = metrics.rowH + metrics.infoRowGap;
  DrawInfoCell(renderer, font, columns.left, y, "Version", rows.version);
  DrawInfoCell(renderer, font, columns.right, y, "Build date", rows.buildDate);
  DrawInfoCell(renderer, font, columns.left, y + step, "Compiler", rows.compiler);
  DrawInfoCell(renderer, font, columns.right, y + step, "Platform", rows.platform);
  DrawInfoCell(renderer, font, columns.left, y + 2 * step, "Arch", rows.arch);
  DrawInfoCell(renderer, font, columns.right, y + 2 * step, "Flags", rows.flags);
}

void DrawFooterText(SDL_Renderer* renderer, const AboutDialogFonts& fonts,
                    const AboutDialogMetrics& metrics, const AboutPanels& panels) {
  const int y = panels.footer.y + (panels.footer.h - metrics.footerTextH) / 2;
  DrawSdlUiText(renderer, fonts.footerFont.get(), "ESC to close",
                panels.frame.x + metrics.sideMargin, y, kColTextDim, nullptr);
}

// --- Events --------------------------------------------------------------------------------------

void OpenLinkAt(const AboutDialogLinks& links, int x, int y) {
  if (IsPointInside(links.videoChannel, x, y)) {
    SDL_OpenURL(kVideoChannelUrl);
  } else if (IsPointInside(links.homepage, x, y)) {
    SDL_OpenURL(kHomepageUrl);
  }
}

// True when the event closes the dialog.
bool HandleAboutEvent(SDL_Window* window, const SDL_Event& event, const AboutDialogLinks& links) {
  if (IsModalCancelEvent(event)) {
    return true;
  }
  if (IsInputOfOtherWindow(window, event)) {
    return false;
  }
  if (event.type == SDL_KEYDOWN) {
    return event.key.keysym.sym == SDLK_ESCAPE;
  }
  if (event.type == SDL_MOUSEBUTTONDOWN && IsLeftButtonEvent(event)) {
    OpenLinkAt(links, event.button.x, event.button.y);
  }
  return false;
}

void RunAboutDialogLoop(SDL_Window* window, SDL_Renderer* renderer, const AboutDialogFonts& fonts,
                        const AboutDialogMetrics& metrics) {
  const AboutDialogInfoRows rows = BuildAboutDialogInfoRows();
  AboutDialogLinks links;
  const FindableDialog findable(window, &links);
  ModalEventQueue events(window);
  bool done = false;
  bool shown = false;
  while (!done) {
    PumpModalDialogHeartbeat();
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(window, &width, &height);
    SDL_Event event;
    while (events.Poll(&event)) {
      // What stands behind the closing event is taken off the queue without effect.
      done = done || HandleAboutEvent(window, event, links);
    }
    const ModalPointer pointer = ReadModalPointer(window);
    RenderAboutDialogFrame(renderer, fonts, metrics, rows, width, height, pointer.x, pointer.y,
                           &links);
    PresentModalFrame(window, renderer, &shown);
    SDL_Delay(kPanelFrameDelayMs);
  }
}

// --- Build information ---------------------------------------------------------------------------

std::string CompilerName() {
#if defined(__clang__)
  return "Clang " + std::to_string(__clang_major__) + '.' + std::to_string(__clang_minor__) + '.' +
         std::to_string(__clang_patchlevel__);
#elif defined(__GNUC__)
  return "GNU " + std::to_string(__GNUC__) + '.' + std::to_string(__GNUC_MINOR__) + '.' +
         std::to_string(__GNUC_PATCHLEVEL__);
#elif defined(_MSC_VER)
  return "MSVC " + std::to_string(_MSC_VER / 100) + '.' + std::to_string(_MSC_VER % 100) + '.' +
         std::to_string(_MSC_FULL_VER % 100000);
#else
  return "Unknown 0.0.0";
#endif
}

const char* PlatformName() {
#if defined(_WIN32)
  return "Windows";
#elif defined(__APPLE__)
  return "macOS";
#elif defined(__linux__)
  return "Linux";
#elif defined(__FreeBSD__)
  return "FreeBSD";
#else
  return "Unknown";
#endif
}

const char* ProcessorName() {
#if defined(__x86_64__) || defined(_M_X64)
  return "x86_64";
#elif defined(__aarch64__) || defined(_M_ARM64)
  return "aarch64";
#elif defined(__i386__) || defined(_M_IX86)
  return "x86";
#elif defined(__arm__) || defined(_M_ARM)
  return "arm";
#elif defined(__riscv)
  return "riscv";
#elif defined(__powerpc__) || defined(__powerpc64__)
  return "powerpc";
#else
  return "unknown";
#endif
}

std::string SwitchText(const char* name, bool on) {
  return std::string(name) + (on ? " ON" : " OFF");
}

}  // namespace

void ShowSimpleAboutDialog(SDL_Window* parent, float /*scale*/) {
  const ModalHostState host_state;
  // Declared in the order opposite to their release: the fonts come first, since the window's
  // height follows from theirs, and are closed first.
  ModalWindowBundle bundle;
  std::optional<ModalParentFocus> parent_focus;
  const AboutDialogFonts fonts = OpenAboutDialogFonts(kAboutScale);
  const AboutDialogMetrics metrics = BuildAboutDialogMetrics(fonts, kAboutScale);
  bundle = CreateModalWindowBundle(parent, "About Quindle", 80, 80, kAboutWidth,
                                   AboutDialogWindowHeight(metrics), SDL_WINDOW_HIDDEN,
                                   ModalRendererMode::Accelerated);
  if (bundle.window == nullptr || bundle.renderer == nullptr) {
    return;
  }
  parent_focus.emplace(parent, bundle.window.get());
  RunAboutDialogLoop(bundle.window.get(), bundle.renderer.get(), fonts, metrics);
}

AboutDialogFonts OpenAboutDialogFonts(float scale) {
  return {
      OpenAboutFont(20.0F, true, scale), OpenAboutFont(14.0F, false, scale),
      OpenAboutFont(13.0F, true, scale), OpenAboutFont(14.0F, false, scale),
      OpenAboutFont(14.0F, true, scale), OpenAboutFont(13.0F, false, scale),
  };
}

AboutDialogMetrics BuildAboutDialogMetrics(const AboutDialogFonts& fonts, float scale) {
  AboutDialogMetrics metrics;
  metrics.pad = Scaled(12.0F, scale);
  metrics.sideMargin = Scaled(20.0F, scale);
  metrics.nameTop = Scaled(18.0F, scale);
  metrics.nameH = FontHeightOrFallback(fonts.nameFont.get(), Scaled(28.0F, scale));
  metrics.lineGap = Scaled(10.0F, scale);
  metrics.textH = FontHeightOrFallback(fonts.textFont.get(), Scaled(18.0F, scale));
  metrics.smallGap = Scaled(5.0F, scale);
  metrics.headerGap = Scaled(11.0F, scale);
  metrics.sectionGap = Scaled(14.0F, scale);
  metrics.linkGap = Scaled(10.0F, scale);
  metrics.infoGap = Scaled(14.0F, scale);
  metrics.infoPadX = Scaled(14.0F, scale);
  metrics.infoPadY = Scaled(12.0F, scale);
  metrics.infoTitleGap = Scaled(10.0F, scale);
  metrics.infoRowGap = Scaled(9.0F, scale);
  metrics.smallBoldH = FontHeightOrFallback(fonts.smallBoldFont.get(), Scaled(17.0F, scale));
  metrics.rowH = FontHeightOrFallback(fonts.rowFont.get(), Scaled(18.0F, scale));
  metrics.boldH = FontHeightOrFallback(fonts.boldFont.get(), Scaled(18.0F, scale));
  metrics.footerTextH = FontHeightOrFallback(fonts.footerFont.get(), Scaled(16.0F, scale));
  metrics.linkRowH =
      std::max(Scaled(56.0F, scale), metrics.smallBoldH + 2 * Scaled(18.0F, scale) + metrics.boldH);
  metrics.infoPanelH = metrics.smallBoldH + 2 * metrics.infoPadY + metrics.infoTitleGap +
                       3 * metrics.rowH + 2 * metrics.infoRowGap;
  metrics.footerH = metrics.footerTextH + Scaled(24.0F, scale);
  metrics.scale = scale;
  return metrics;
}

int AboutDialogWindowHeight(const AboutDialogMetrics& metrics) {
  constexpr int kAllowance = 24;  // Deliberately not scaled.
  return 2 * metrics.pad + kAllowance + metrics.nameTop + metrics.nameH + metrics.lineGap +
         metrics.textH + metrics.smallGap + metrics.textH + metrics.headerGap + metrics.sectionGap +
         2 * metrics.linkRowH + metrics.linkGap + metrics.infoGap + metrics.infoPanelH +
         metrics.footerH;
}

AboutDialogInfoRows BuildAboutDialogInfoRows() {
  AboutDialogInfoRows rows;
  rows.version = std::string("v") + kProgramVersion;
  rows.buildDate = kProgramBuildDate;
  rows.compiler = CompilerName();
  rows.platform = PlatformName();
  rows.arch = std::string(ProcessorName()) + " (" + std::to_string(8 * sizeof(void*)) + "-bit)";
  rows.flags = SwitchText("LTO", kBuiltWithLto) + "  " + SwitchText("PGO", kBuiltWithPgo) + "  " +
               SwitchText("O2", kBuiltWithO2) + "  " + SwitchText("O3", kBuiltWithO3);
  return rows;
}

void RenderAboutDialogFrame(SDL_Renderer* renderer, const AboutDialogFonts& fonts,
                            const AboutDialogMetrics& metrics, const AboutDialogInfoRows& rows,
                            int width, int height, int mouseX, int mouseY,
                            AboutDialogLinks* links) {
  const AboutPanels panels = PlacePanels(metrics, width, height);
  DrawPanels(renderer, panels);
  const HeaderRows header = PlaceHeader(metrics, panels);
  DrawHeader(renderer, fonts, panels, header);
  const AboutDialogLinks placed = PlaceLinks(metrics, panels, header);
  TTF_Font* label_font = fonts.smallBoldFont.get();
  TTF_Font* value_font = fonts.boldFont.get();
  DrawLinkRow(renderer, label_font, value_font, placed.videoChannel, kVideoServiceLabel,
              kVideoChannelUrl, IsPointInside(placed.videoChannel, mouseX, mouseY));
  DrawLinkRow(renderer, label_font, value_font, placed.homepage, "HOMEPAGE", kHomepageUrl,
              IsPointInside(placed.homepage, mouseX, mouseY));
  const SDL_Rect info_panel{panels.left, placed.homepage.y + metrics.linkRowH + metrics.infoGap,
                            panels.inner_width, metrics.infoPanelH};
  DrawBuildInfo(renderer, fonts, metrics, rows, panels.content, info_panel);
  DrawFooterText(renderer, fonts, metrics, panels);
  if (links != nullptr) {
    *links = placed;
  }
}

void DrawLinkRow(SDL_Renderer* renderer, TTF_Font* labelFont, TTF_Font* valueFont,
                 const SDL_Rect& rect, const std::string& label, const std::string& value,
                 bool hovered) {
  FillAndOutlineRect(renderer, rect, hovered ? kBoxHoverFill : kBoxFill, kPanelBorder);
  const int label_height = FontHeightOrFallback(labelFont, 14);
  const int block = label_height + 4 + FontHeightOrFallback(valueFont, 16);
  const int spare = rect.h - block;
  const int x = rect.x + 12;
  const int label_y = rect.y + (spare >= 18 ? spare / 2 : 8);
  DrawSdlUiText(renderer, labelFont, label, x, label_y, kColTextDim, nullptr);
  DrawSdlUiText(renderer, valueFont, value, x, label_y + label_height + 4, kLinkValue, nullptr);
}

}  // namespace quindle::frontend::gui
