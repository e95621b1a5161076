#include "frontend/gui/sdl_message_box.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <optional>
#include <utility>

#include "frontend/gui/numbers.h"
#include "frontend/gui/open_dialog.h"
#include "frontend/gui/sdl_draw.h"
#include "frontend/gui/sdl_glyph_font.h"
#include "frontend/gui/sdl_host_state.h"
#include "frontend/gui/sdl_modal_events.h"
#include "frontend/gui/sdl_modal_frame.h"
#include "frontend/gui/sdl_ui_font_cache.h"

namespace quindle::frontend::gui {
namespace {

constexpr float kMessageBoxScale = 1.0F;
constexpr int kNoChoice = -1;
// X11 counts sizes in 16 bits and ends a program that asks for a multiple of 65536.
constexpr int kTallestWindow = 65535;

constexpr SDL_Color kWindowFill{18, 21, 27, 255};
constexpr SDL_Color kPanelBorder{52, 58, 70, 255};
constexpr SDL_Color kContentFill{24, 27, 34, 255};
constexpr SDL_Color kFooterFill{22, 25, 32, 255};
constexpr SDL_Color kBadgeFill{20, 23, 30, 255};
constexpr SDL_Color kButtonFill{48, 54, 68, 255};
constexpr SDL_Color kButtonHoverFill{68, 76, 92, 255};
constexpr SDL_Color kButtonBorder{84, 92, 108, 255};

int ScaledMetric(int minimum, float base, float scale) {
  return std::max(minimum, RoundToInt(base * scale));
}

int IconFontSize(float scale) {
  return ScaledMetric(16, 18.0F, scale);
}

// --- Word wrapping -------------------------------------------------------------------------------

// Fills lines word by word; a word that is too wide stands alone and is never split.
class LineFiller {
 public:
  LineFiller(TTF_Font* font, int width) : font_(font), width_(std::max(width, 40)) {}

  void AppendToWord(char c) { word_ += c; }

  void FinishWord() {
    if (word_.empty()) {
      return;
    }
    std::string candidate = line_.empty() ? word_ : line_ + ' ' + word_;
    if (Fits(candidate)) {
      line_ = std::move(candidate);
    } else {
      if (!line_.empty()) {
        lines_.push_back(std::move(line_));
      }
      line_ = std::move(word_);
    }
    word_.clear();
  }

  void FinishLine() {
    FinishWord();
    lines_.push_back(std::move(line_));
    line_.clear();
  }

  std::vector<std::string> TakeLines() {
    FinishWord();
    if (!line_.empty() || lines_.empty()) {
      lines_.push_back(std::move(line_));
    }
    return std::move(lines_);
  }

 private:
  bool Fits(const std::string& candidate) const {
    const TextExtent extent = MeasureText(font_, candidate);
    return extent.measured && extent.width <= width_;
  }

  TTF_Font* font_;
  int width_;
  std::string word_;
  std::string line_;
  std::vector<std::string> lines_;
};

std::vector<std::string> WrapText(TTF_Font* font, const std::string& text, int width) {
  if (font == nullptr) {
    return {};
  }
  LineFiller filler(font, width);
  for (const char c : text) {
    if (c == '\n') {
      filler.FinishLine();
    } else if (c == ' ' || c == '\t') {
      filler.FinishWord();
    } else {
      filler.AppendToWord(c);
    }
  }
  return filler.TakeLines();
}

// --- Layout --------------------------------------------------------------------------------------

void ScaleMetrics(float scale, SdlMessageBoxLayout* layout) {
  layout->pad = ScaledMetric(6, 10.0F, scale);
  layout->margin = ScaledMetric(12, 20.0F, scale);
  layout->gap = ScaledMetric(8, 12.0F, scale);
  layout->iconW = ScaledMetric(34, 42.0F, scale);
  layout->iconH = ScaledMetric(34, 44.0F, scale);
  layout->buttonH = ScaledMetric(28, 28.0F, scale);
  layout->buttonGap = ScaledMetric(8, 8.0F, scale);
  layout->buttonW = ScaledMetric(84, 84.0F, scale);
  layout->footerH = ScaledMetric(44, 52.0F, scale);
}

void PlaceButtons(int width, int height, int count, SdlMessageBoxLayout* layout) {
  const int inset = layout->pad + layout->margin;
  const int row = count * layout->buttonW + std::max(count - 1, 0) * layout->buttonGap;
  layout->buttonsX = std::max(width - inset - row, inset);
  layout->buttonsY =
      (height - layout->pad - layout->footerH) + (layout->footerH - layout->buttonH) / 2;
}

void PlacePanels(int width, int height, SdlMessageBoxLayout* layout) {
  const int pad = layout->pad;
  const int footer_h = layout->footerH;
  layout->frame = {pad, pad, width - 2 * pad, height - 2 * pad};
  layout->content = {pad + 1, pad + 1, width - 2 * pad - 2,
                     std::max(1, height - 2 * pad - footer_h - 1)};
  layout->footer = {pad + 1, height - pad - footer_h, width - 2 * pad - 2, footer_h - 1};
}

void PlaceTexts(int width, int title_height, SdlMessageBoxLayout* layout) {
  const int inset = layout->pad + 1 + layout->margin;
  layout->titleY = inset;
  layout->icon = {inset, inset, layout->iconW, layout->iconH};
  layout->textX = layout->icon.x + layout->iconW + layout->gap;
  layout->textW = std::max(40, width - inset - layout->textX);
  layout->titleH = std::max(16, title_height);
  layout->bodyX = layout->textX;
  layout->bodyY = layout->icon.y + std::max(layout->titleH, layout->iconH) + layout->gap;
  layout->bodyW = layout->textW;
  layout->bodyH =
      std::max(40, layout->content.y + layout->content.h - layout->margin - layout->bodyY);
}

// A message of millions of lines asks for the tallest window there can be, not for a negative one.
int ContentHeight(const SdlMessageBoxLayout& layout) {
  const long long lines_height = static_cast<long long>(layout.lines.size()) * layout.lineH;
  const long long height = std::max(layout.iconH, layout.titleH) +
                           2LL * (layout.pad + layout.margin) + layout.gap + lines_height +
                           layout.margin + layout.footerH;
  return static_cast<int>(std::min<long long>(height, std::numeric_limits<int>::max()));
}

int MinHeight(int configured_height, float scale) {
  const int unscaled = std::max(configured_height, 160);
  return std::max(unscaled, RoundToInt(static_cast<float>(unscaled) * scale));
}

// The rectangle of button `index`, for drawing and for hit-testing.
SDL_Rect ButtonRect(const SdlMessageBoxLayout& layout, std::size_t index) {
  const int step = layout.buttonW + layout.buttonGap;
  return {layout.buttonsX + static_cast<int>(index) * step, layout.buttonsY, layout.buttonW,
          layout.buttonH};
}

// --- Badge ---------------------------------------------------------------------------------------

// The badge symbols with their code points and what stands in for them where no font has them.
struct BadgeSymbol {
  const char* glyph;
  Uint32 code_point;
  const char* stand_in;
};
constexpr BadgeSymbol kInfoSymbol{"\u2139", 0x2139, "i"};
constexpr BadgeSymbol kQuestionSymbol{"?", '?', "?"};
constexpr BadgeSymbol kWarningSymbol{"\u26A0", 0x26A0, "!"};
constexpr BadgeSymbol kErrorSymbol{"\u2716", 0x2716, "x"};
constexpr BadgeSymbol kCriticalSymbol{"\u2757", 0x2757, "!"};
constexpr BadgeSymbol kSuccessSymbol{"\u2714", 0x2714, "v"};

// The table's symbol for a glyph; nothing for a glyph of the caller's own.
std::optional<BadgeSymbol> FindBadgeSymbol(const std::string& glyph) {
  for (const BadgeSymbol& symbol : {kInfoSymbol, kQuestionSymbol, kWarningSymbol, kErrorSymbol,
                                    kCriticalSymbol, kSuccessSymbol}) {
    if (glyph == symbol.glyph) {
      return symbol;
    }
  }
  return std::nullopt;
}

// The glyph that can really be drawn, and the font to draw it with.
struct DrawableGlyph {
  OwnedTtfFont own_font;  // A system font opened for this glyph alone; usually empty.
  TTF_Font* font = nullptr;
  const char* glyph = nullptr;
};

DrawableGlyph ResolveBadgeGlyph(const char* glyph, TTF_Font* icon_font, int font_size) {
  DrawableGlyph drawable{nullptr, icon_font, glyph};
  const std::optional<BadgeSymbol> symbol = FindBadgeSymbol(glyph == nullptr ? "" : glyph);
  if (icon_font == nullptr || !symbol || FontHasGlyph(icon_font, symbol->code_point)) {
    return drawable;
  }
  drawable.own_font = OpenSystemFontWithGlyph(font_size, symbol->code_point);
  if (drawable.own_font != nullptr) {
    drawable.font = drawable.own_font.get();
  } else {
    drawable.glyph = symbol->stand_in;
  }
  return drawable;
}

// --- Drawing -------------------------------------------------------------------------------------

void DrawPanels(SDL_Renderer* renderer, const SdlMessageBoxLayout& layout) {
  ClearFrame(renderer, kWindowFill);
  OutlineRect(renderer, layout.frame, kPanelBorder);
  FillRect(renderer, layout.content, kContentFill);
  FillRect(renderer, layout.footer, kFooterFill);
  const SDL_Rect& frame = layout.frame;
  const int separator_y = frame.y + frame.h - layout.footerH;
  DrawLine(renderer, frame.x + 1, separator_y, frame.x + frame.w - 2, separator_y, kPanelBorder);
}

void DrawBadge(SDL_Renderer* renderer, const MessageBoxTypeVisual& visual, const SDL_Rect& icon,
               TTF_Font* icon_font) {
  FillAndOutlineRect(renderer, icon, kBadgeFill, kPanelBorder);
  FillRect(renderer, SDL_Rect{icon.x, icon.y, 4, icon.h}, visual.accent);
  if (icon_font == nullptr || visual.glyph == nullptr) {
    return;
  }
  const TextExtent extent = MeasureText(icon_font, visual.glyph);
  DrawSdlUiText(renderer, icon_font, visual.glyph, icon.x + (icon.w - extent.width) / 2,
                icon.y + (icon.h - extent.height) / 2, visual.accent, nullptr);
}

void DrawTitle(SDL_Renderer* renderer, const std::string& title, const SdlMessageBoxLayout& layout,
               TTF_Font* title_font) {
  const int spare = layout.iconH - layout.titleH;
  const int y = layout.titleY + (spare >= 2 ? spare / 2 : 0);
  DrawSdlUiText(renderer, title_font, title, layout.textX, y, kColTextHi, nullptr);
}

void DrawMessage(SDL_Renderer* renderer, const std::string& message,
                 const SdlMessageBoxLayout& layout, TTF_Font* body_font) {
  const int bottom = layout.bodyY + layout.bodyH;
  if (layout.lines.empty() || layout.bodyY + layout.lineH > bottom) {
    DrawSdlUiText(renderer, body_font, message, layout.bodyX, layout.bodyY, kColTextHi, nullptr);
    return;
  }
  int y = layout.bodyY;
  for (const std::string& line : layout.lines) {
    if (y + layout.lineH > bottom) {
      break;
    }
    DrawSdlUiText(renderer, body_font, line, layout.bodyX, y, kColTextHi, nullptr);
    y += layout.lineH;
  }
}

// A word too long for its line runs to the frame, not across it.
void DrawTexts(SDL_Renderer* renderer, const SdlMessageBox::Config& config,
               const SdlMessageBoxLayout& layout, TTF_Font* title_font, TTF_Font* body_font) {
  const ScopedClip clip(
      renderer, SDL_Rect{layout.content.x, layout.frame.y, layout.content.w, layout.frame.h});
  DrawTitle(renderer, config.title, layout, title_font);
  DrawMessage(renderer, config.message, layout, body_font);
}

void DrawButtons(SDL_Renderer* renderer, const SdlMessageBox::Config& config,
                 const SdlMessageBoxLayout& layout, TTF_Font* button_font, int mouse_x,
                 int mouse_y) {
  for (std::size_t i = 0; i < config.buttons.size(); ++i) {
    const SDL_Rect rect = ButtonRect(layout, i);
    DrawSdlMessageBoxButton(renderer, button_font, rect, config.buttons[i].label,
                            IsPointInside(rect, mouse_x, mouse_y));
  }
}

// --- Choosing ------------------------------------------------------------------------------------

// What the box has come to so far.
struct Choice {
  int result = kNoChoice;
  bool done = false;
  bool stop_reading = false;  // The rest of this frame's events stays in the queue.
};

void ChooseButton(const SdlMessageBox::Button& button, Choice* choice) {
  choice->result = button.id;
  choice->done = true;
  CallHost(button.onClick);
}

void ChooseCancelButton(const SdlMessageBox::Config& config, Choice* choice) {
  choice->done = true;
  choice->stop_reading = true;
  const auto cancel = std::find_if(config.buttons.begin(), config.buttons.end(),
                                   [](const auto& button) { return button.isCancel; });
  if (cancel != config.buttons.end()) {
    ChooseButton(*cancel, choice);
  }
}

void ChooseButtonAt(const SdlMessageBox::Config& config, const SdlMessageBoxLayout& layout, int x,
                    int y, Choice* choice) {
  for (std::size_t i = 0; i < config.buttons.size(); ++i) {
    if (IsPointInside(ButtonRect(layout, i), x, y)) {
      ChooseButton(config.buttons[i], choice);
      return;
    }
  }
}

// Key and mouse events count whatever window they name.
void HandleMessageBoxEvent(const SDL_Event& event, const SdlMessageBox::Config& config,
                           const SdlMessageBoxLayout& layout, Choice* choice) {
  if (IsModalCancelEvent(event)) {
    choice->done = true;
    choice->stop_reading = true;
  } else if (event.type == SDL_KEYDOWN && config.escapeEnabled &&
             event.key.keysym.sym == SDLK_ESCAPE) {
    ChooseCancelButton(config, choice);
  } else if (event.type == SDL_MOUSEBUTTONUP && IsLeftButtonEvent(event)) {
    ChooseButtonAt(config, layout, event.button.x, event.button.y, choice);
  }
}

void HandleMessageBoxEvents(const SdlMessageBox::Config& config, const SdlMessageBoxLayout& layout,
                            ModalEventQueue* events, Choice* choice) {
  SDL_Event event;
  while (!choice->stop_reading && events->Poll(&event)) {
    HandleMessageBoxEvent(event, config, layout, choice);
  }
}

// Lays the box out for the window's size and, where the message needs another height, asks for that
// and lays it out again. One pixel of tolerance keeps a window manager that rounds from causing a
// resize in every frame.
SdlMessageBoxLayout LayOutForWindow(SDL_Window* window, const SdlMessageBox::Config& config,
                                    float scale, const SdlMessageBoxFonts& fonts) {
  int width = 0;
  int height = 0;
  const auto build = [&] {
    SDL_GetWindowSize(window, &width, &height);
    return BuildSdlMessageBoxLayout(config, scale, width, height, fonts.titleFont.get(),
                                    fonts.bodyFont.get());
  };
  SdlMessageBoxLayout layout = build();
  const int wanted_height = std::min(layout.targetHeight, kTallestWindow);
  if (std::abs(wanted_height - height) > 1) {
    SDL_SetWindowSize(window, width, wanted_height);
    layout = build();
  }
  return layout;
}

}  // namespace

SdlMessageBox::SdlMessageBox(Config config) : config_(std::move(config)) {
  if (config_.buttons.empty()) {
    config_.buttons.push_back(Button{1, "OK", true, true, {}});
  }
  if (config_.title.empty()) {
    config_.title = "Message";
  }
  config_.width = std::max(config_.width, 320);
  config_.height = std::max(config_.height, 140);
}

int SdlMessageBox::Show(SDL_Window* parent, float /*scale*/) {
  const ModalHostState host_state;
  const int width = std::max(320, config_.width);
  const int height = std::max(180, config_.height);
  const ModalWindowBundle bundle =
      CreateModalWindowBundle(parent, config_.title.c_str(), 80, 80, width, height,
                              SDL_WINDOW_HIDDEN, ModalRendererMode::Accelerated);
  if (bundle.window == nullptr || bundle.renderer == nullptr) {
    return kNoChoice;
  }
  const SdlMessageBoxFonts fonts = OpenSdlMessageBoxFonts(kMessageBoxScale);
  if (fonts.iconFont == nullptr || fonts.titleFont == nullptr || fonts.bodyFont == nullptr ||
      fonts.buttonFont == nullptr) {
    return kNoChoice;
  }
  const ModalParentFocus parent_focus(parent, bundle.window.get());
  return RunSdlMessageBoxLoop(bundle.window.get(), bundle.renderer.get(), config_, kMessageBoxScale,
                              VisualForMessageBoxType(config_.type), fonts);
}

MessageBoxTypeVisual VisualForMessageBoxType(SdlMessageBox::Type type) {
  switch (type) {
    case SdlMessageBox::Type::Question:
      return {{70, 148, 255, 255}, kQuestionSymbol.glyph};
    case SdlMessageBox::Type::Warning:
      return {{255, 180, 0, 255}, kWarningSymbol.glyph};
    case SdlMessageBox::Type::Error:
      return {{255, 92, 92, 255}, kErrorSymbol.glyph};
    case SdlMessageBox::Type::Critical:
      return {{255, 36, 36, 255}, kCriticalSymbol.glyph};
    case SdlMessageBox::Type::Success:
      return {{92, 204, 108, 255}, kSuccessSymbol.glyph};
    case SdlMessageBox::Type::Info:
    default:
      return {{86, 172, 255, 255}, kInfoSymbol.glyph};
  }
}

SdlMessageBoxFonts OpenSdlMessageBoxFonts(float scale) {
  const int text_size = ScaledMetric(14, 14.0F, scale);
  SdlMessageBoxFonts fonts;
  fonts.iconFont = OpenSdlUiFontHandle(IconFontSize(scale), true, SdlUiFontKind::Ui);
  fonts.titleFont = OpenSdlUiFontHandle(text_size, true, SdlUiFontKind::Ui);
  fonts.bodyFont = OpenSdlUiFontHandle(text_size, false, SdlUiFontKind::Ui);
  fonts.buttonFont = OpenSdlUiFontHandle(text_size, false, SdlUiFontKind::Ui);
  return fonts;
}

SdlMessageBoxLayout BuildSdlMessageBoxLayout(const SdlMessageBox::Config& config, float scale,
                                             int width, int height, TTF_Font* titleFont,
                                             TTF_Font* bodyFont) {
  SdlMessageBoxLayout layout;
  ScaleMetrics(scale, &layout);
  PlaceButtons(width, height, static_cast<int>(config.buttons.size()), &layout);
  PlacePanels(width, height, &layout);
  PlaceTexts(width, MeasureText(titleFont, config.title).height, &layout);
  layout.lines = WrapText(bodyFont, config.message, layout.bodyW);
  layout.lineH = std::max(14, MeasureText(bodyFont, "Ag").height);
  layout.contentHeight = ContentHeight(layout);
  layout.minHeight = MinHeight(config.height, scale);
  layout.targetHeight = std::max(layout.minHeight, layout.contentHeight);
  return layout;
}

int RunSdlMessageBoxLoop(SDL_Window* window, SDL_Renderer* renderer,
                         const SdlMessageBox::Config& config, float scale,
                         const MessageBoxTypeVisual& visual, const SdlMessageBoxFonts& fonts) {
  const DrawableGlyph badge =
      ResolveBadgeGlyph(visual.glyph, fonts.iconFont.get(), IconFontSize(scale));
  const MessageBoxTypeVisual drawable_visual{visual.accent, badge.glyph};
  const FindableDialog findable(window, OpenMessageBox{&config, scale, &fonts});
  ModalEventQueue events(window);
  Choice choice;
  bool shown = false;
  while (!choice.done) {
    PumpModalDialogHeartbeat();
    const SdlMessageBoxLayout layout = LayOutForWindow(window, config, scale, fonts);
    HandleMessageBoxEvents(config, layout, &events, &choice);
    const ModalPointer pointer = ReadModalPointer(window);
    RenderSdlMessageBoxFrame(renderer, config, drawable_visual, layout, badge.font,
                             fonts.titleFont.get(), fonts.bodyFont.get(), fonts.buttonFont.get(),
                             pointer.x, pointer.y);
    PresentModalFrame(window, renderer, &shown);
    SDL_Delay(kPanelFrameDelayMs);
  }
  return choice.result;
}

void RenderSdlMessageBoxFrame(SDL_Renderer* renderer, const SdlMessageBox::Config& config,
                              const MessageBoxTypeVisual& visual, const SdlMessageBoxLayout& layout,
                              TTF_Font* iconFont, TTF_Font* titleFont, TTF_Font* bodyFont,
                              TTF_Font* buttonFont, int mouseX, int mouseY) {
  DrawPanels(renderer, layout);
  DrawBadge(renderer, visual, layout.icon, iconFont);
  DrawTexts(renderer, config, layout, titleFont, bodyFont);
  DrawButtons(renderer, config, layout, buttonFont, mouseX, mouseY);
}

void DrawSdlMessageBoxButton(SDL_Renderer* renderer, TTF_Font* font, const SDL_Rect& rect,
                             const std::string& label, bool hovered) {
  FillAndOutlineRect(renderer, rect, hovered ? kButtonHoverFill : kButtonFill, kButtonBorder);
  const TextExtent extent = MeasureText(font, label);
  const int spare_w = rect.w - extent.width;
  const int spare_h = rect.h - extent.height;
  // A caption wider than the button must not run into the next one.
  const ScopedClip clip(renderer, SDL_Rect{rect.x + 1, rect.y, rect.w - 2, rect.h});
  DrawSdlUiText(renderer, font, label, rect.x + (spare_w >= 14 ? spare_w / 2 : 6),
                rect.y + (spare_h > 9 ? spare_h / 2 : 4), kColTextHi, nullptr);
}

}  // namespace quindle::frontend::gui
