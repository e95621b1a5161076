#include "frontend/gui/testing/settings_controls.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quindle::frontend::gui::testing {
namespace {

using Kind = SettingsControlKind;

constexpr std::array kControls{
    SettingsControl{Kind::Option, 0, "Pixel  (classic bitmap font, fastest)", "font_mode", "pixel"},
    SettingsControl{Kind::Option, 0, "TTF  (bundled IBM VGA font, scalable)", "font_mode", "ttf"},
    SettingsControl{Kind::Option, 0, "TTF HiRes  (bundled font, high resolution)", "font_mode",
                    "ttf-hires"},
    SettingsControl{Kind::Option, 0, "TTF Custom  (user-selected font file)", "font_mode",
                    "ttf-custom"},
    SettingsControl{Kind::Option, 1, "25 FPS", "fps", "25"},
    SettingsControl{Kind::Option, 1, "30 FPS", "fps", "30"},
    SettingsControl{Kind::Option, 1, "50 FPS", "fps", "50"},
    SettingsControl{Kind::Option, 1, "60 FPS", "fps", "60"},
    SettingsControl{Kind::Option, 2, "Hardware  (OpenGL accelerated)", "renderer_mode", "hardware"},
    SettingsControl{Kind::Option, 2, "Software  (CPU-based, compatible)", "renderer_mode",
                    "software"},
    SettingsControl{Kind::CheckBox, 7, "Capture with active OpenGL shaders when available",
                    "screenshot_capture_with_opengl_shaders", ""},
    SettingsControl{Kind::Option, 7, "Original resolution", "screenshot_capture_size_mode", "0"},
    SettingsControl{Kind::Option, 7, "Emu viewport resolution", "screenshot_capture_size_mode",
                    "1"},
    SettingsControl{Kind::Slider, 6, "Capture Speed", "mouse_capture_gain", ""},
    SettingsControl{Kind::CheckBox, 6, "Allow mouse capture in text mode (DOS)",
                    "allow_mouse_capture_in_text_mode", ""},
    SettingsControl{Kind::CheckBox, 5, "Enable HDD sounds", "hdd_sounds_enabled", ""},
    SettingsControl{Kind::Slider, 5, "Volume", "hdd_sounds_volume", ""},
};

constexpr int kNavItem = 1;
constexpr int kNavTop = 10;
constexpr SDL_Point kNavRowSize{224, 30};

// Columns of the page that meet its controls: the left one all but "Browse...".
constexpr std::array kProbedColumns{250, 760};
constexpr int kPageBottom = 436;
constexpr int kPageLeft = 225;
constexpr int kPageRight = 807;

bool HasLabel(const SettingsControl& control, const std::string& label) {
  const std::string full = control.label;
  return full == label || full.substr(0, full.find("  (")) == label;
}

// What the page would report for a pointer there. Drawn without a renderer, nothing is drawn.
RightPanelHitResult ProbePage(const SettingsDialogSession& session, SDL_Point at, bool held) {
  RightPanelContext ctx;
  ctx.bold_font = session.bold_font.get();
  ctx.regular_font = session.regular_font.get();
  ctx.panel_id = session.panel_id;
  ctx.mouse_x = at.x;
  ctx.mouse_y = at.y;
  ctx.clicked = !held;
  ctx.mouse_down = held;
  ctx.values = &session.values;
  return DrawRightPanel(ctx);
}

std::optional<int> FindSliderRow(const SettingsDialogSession& session, const std::string& key) {
  for (int y = 0; y < kPageBottom; ++y) {
    if (ProbePage(session, {kProbedColumns.front(), y}, true).key == key) {
      return y;
    }
  }
  return std::nullopt;
}

}  // namespace

const SettingsControl* FindSettingsControl(const SettingsDialogSession& session, Kind kind,
                                           const std::string& label) {
  const auto* const found =
      std::find_if(kControls.begin(), kControls.end(), [&](const SettingsControl& control) {
        return control.panel_id == session.panel_id && control.kind == kind &&
               HasLabel(control, label);
      });
  return found == kControls.end() ? nullptr : found;
}

std::vector<std::string> SettingsControlLabels(int panel_id) {
  std::vector<std::string> labels;
  for (const SettingsControl& control : kControls) {
    if (control.panel_id == panel_id) {
      labels.emplace_back(control.label);
    }
  }
  return labels;
}

std::string SettingsPageName(const SettingsDialogSession& session) {
  for (const NavItem& item : *session.nav_items) {
    if (item.kind == kNavItem && item.panel_id == session.panel_id) {
      return item.label;
    }
  }
  return {};
}

std::optional<SDL_Rect> FindSettingsPageRow(const SettingsDialogSession& session,
                                            const std::string& page) {
  int top = kNavTop;
  for (const NavItem& item : *session.nav_items) {
    if (item.kind == kNavItem && item.label == page) {
      return SDL_Rect{0, top, kNavRowSize.x, kNavRowSize.y};
    }
    top += kNavRowSize.y;
  }
  return std::nullopt;
}

std::optional<SettingsPlace> FindSettingsClick(
    const SettingsDialogSession& session,
    const std::function<bool(const RightPanelHitResult&)>& wanted) {
  for (const int x : kProbedColumns) {
    for (int y = 0; y < kPageBottom; ++y) {
      const SettingsPlace place{{x, y}, ProbePage(session, {x, y}, false)};
      if (wanted(place.hit)) {
        return place;
      }
    }
  }
  return std::nullopt;
}

std::optional<SettingsPlace> FindSliderPlace(const SettingsDialogSession& session,
                                             const std::string& key, double value) {
  const std::optional<int> row = FindSliderRow(session, key);
  if (!row) {
    return std::nullopt;
  }
  std::optional<SettingsPlace> nearest;
  for (int x = kPageLeft; x < kPageRight; ++x) {
    const SettingsPlace place{{x, *row}, ProbePage(session, {x, *row}, true)};
    if (place.hit.key == key &&
        (!nearest || std::abs(place.hit.number - value) < std::abs(nearest->hit.number - value))) {
      nearest = place;
    }
  }
  return nearest;
}

}  // namespace quindle::frontend::gui::testing
