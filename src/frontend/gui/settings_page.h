#pragma once

// Private. What the pages of both settings panels share. A panel is a table of pages; a page draws
// itself from its content top downwards and reports at most one change.

#include <span>
#include <string>
#include <vector>

#include "frontend/gui/settings_dialog.h"

namespace quindle::frontend::gui {

inline constexpr int kSettingsContentX = 247;
inline constexpr int kSettingsContentY = 20;

// One page of a panel.
struct SettingsPage {
  int panel_id = -1;
  const char* title = "";
  const char* subtitle = "";
  // Draws the content below the header, which ends at `top`; ctx.values and `hit` are not null.
  void (*draw_content)(const RightPanelContext& ctx, int top, RightPanelHitResult* hit) = nullptr;
};

// Draws the page that is selected; false, and nothing drawn, when `pages` has none such or `hit` is
// null.
bool DrawSelectedPage(std::span<const SettingsPage> pages, const RightPanelContext& ctx,
                      RightPanelHitResult* hit);

// Draws a line of dim text at the left edge of the content.
void DrawNote(const RightPanelContext& ctx, int y, const std::string& text);
// Draws the label of a control at the left edge of the content.
void DrawControlLabel(const RightPanelContext& ctx, int y, const std::string& text);

// Draws a radio group at the left edge of the content; a click on any of its options, the selected
// one too, is reported with the option's value as text.
void DrawRadioSetting(const RightPanelContext& ctx, int y, const char* key,
                      const std::vector<RadioOption>& options, const std::string& selected_value,
                      RightPanelHitResult* hit);
// Draws a checkbox at the left edge of the content; true when it was clicked.
bool DrawClickableCheckbox(const RightPanelContext& ctx, int y, bool checked,
                           const std::string& label);
// As DrawClickableCheckbox; a click is reported with the opposite of `checked` as flag.
void DrawFlagSetting(const RightPanelContext& ctx, int y, const char* key, bool checked,
                     const std::string& label, RightPanelHitResult* hit);

}  // namespace quindle::frontend::gui
