#pragma once

// Private. The controls of the settings dialog by their labels, and where they stand.

#include <SDL.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "frontend/gui/settings_dialog.h"

namespace quindle::frontend::gui::testing {

enum class SettingsControlKind { Option, CheckBox, Slider };

// A control and what the page reports when it is used.
struct SettingsControl {
  SettingsControlKind kind;
  int panel_id;
  const char* label;
  const char* key;
  const char* text;  // Of an option.
};

// The control of the open page with a label; null when the page has none such. The label of an
// option may lack what stands in brackets.
const SettingsControl* FindSettingsControl(const SettingsDialogSession& session,
                                           SettingsControlKind kind, const std::string& label);

// The labels of the open page's controls.
std::vector<std::string> SettingsControlLabels(int panel_id);

// The name of a page in the list on the left; empty for none.
std::string SettingsPageName(const SettingsDialogSession& session);
// The row of a page in the list on the left.
std::optional<SDL_Rect> FindSettingsPageRow(const SettingsDialogSession& session,
                                            const std::string& page);

// A place of the open page, and what the page reports there.
struct SettingsPlace {
  SDL_Point at{0, 0};
  RightPanelHitResult hit;
};

// The first place where a click is reported that `wanted` accepts.
std::optional<SettingsPlace> FindSettingsClick(
    const SettingsDialogSession& session,
    const std::function<bool(const RightPanelHitResult&)>& wanted);
// The place of a slider that gives the number nearest to `value`; nothing when the page has no such
// slider.
std::optional<SettingsPlace> FindSliderPlace(const SettingsDialogSession& session,
                                             const std::string& key, double value);

}  // namespace quindle::frontend::gui::testing
