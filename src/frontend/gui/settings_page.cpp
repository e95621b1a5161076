#include "frontend/gui/settings_page.h"

#include <algorithm>

#include "frontend/gui/sdl_ui_font_cache.h"

namespace quindle::frontend::gui {

bool DrawSelectedPage(std::span<const SettingsPage> pages, const RightPanelContext& ctx,
                      RightPanelHitResult* hit) {
  const auto page = std::find_if(pages.begin(), pages.end(), [&ctx](const SettingsPage& candidate) {
    return candidate.panel_id == ctx.panel_id;
  });
  if (hit == nullptr || ctx.values == nullptr || page == pages.end()) {
    return false;
  }
  const int top = DrawPanelHeader(ctx.renderer, ctx.bold_font, ctx.regular_font, kSettingsContentX,
                                  kSettingsContentY, page->title, page->subtitle);
  page->draw_content(ctx, top, hit);
  return true;
}

void DrawNote(const RightPanelContext& ctx, int y, const std::string& text) {
  DrawText(ctx.renderer, ctx.regular_font, text, kSettingsContentX, y, kColTextDim);
}

void DrawControlLabel(const RightPanelContext& ctx, int y, const std::string& text) {
  DrawText(ctx.renderer, ctx.regular_font, text, kSettingsContentX, y, kColTextMid);
}

void DrawRadioSetting(const RightPanelContext& ctx, int y, const char* key,
                      const std::vector<RadioOption>& options, const std::string& selected_value,
                      RightPanelHitResult* hit) {
  const int hovered = HitTestRadioGroup(ctx.mouse_x, ctx.mouse_y, kSettingsContentX, y,
                                        static_cast<int>(options.size()));
  DrawRadioGroup(ctx.renderer, ctx.regular_font, kSettingsContentX, y, options, selected_value,
                 hovered);
  if (ctx.clicked && hovered >= 0) {
    hit->changed = true;
    hit->key = key;
    hit->text = options[static_cast<std::size_t>(hovered)].value;
  }
}

bool DrawClickableCheckbox(const RightPanelContext& ctx, int y, bool checked,
                           const std::string& label) {
  const bool hovered = DrawCheckbox(ctx.renderer, ctx.regular_font, kSettingsContentX, y, checked,
                                    label, ctx.mouse_x, ctx.mouse_y);
  return hovered && ctx.clicked;
}

void DrawFlagSetting(const RightPanelContext& ctx, int y, const char* key, bool checked,
                     const std::string& label, RightPanelHitResult* hit) {
  if (DrawClickableCheckbox(ctx, y, checked, label)) {
    hit->changed = true;
    hit->key = key;
    hit->flag = !checked;
  }
}

}  // namespace quindle::frontend::gui
