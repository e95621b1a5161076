// Steps in the shader dialog and in the settings dialog.

#include <algorithm>
#include <cmath>
#include <optional>

#include "frontend/gui/testing/driver_script.h"
#include "frontend/gui/testing/settings_controls.h"
#include "frontend/gui/testing/user_input.h"

namespace quindle::frontend::gui::testing {
namespace {

constexpr const char* kNeedsShader = "this needs the shader dialog";
constexpr const char* kNeedsSettings = "this needs the settings dialog";

// The shader dialog shows three decimals.
constexpr float kShownPrecision = 0.0005F;
// Half of what one column of the coarser slider is worth.
constexpr double kSliderPrecision = 0.005;

// --- Shader dialog -------------------------------------------------------------------------------

using Shader = const ShaderDialogSession*;

std::optional<int> FindParameter(const ShaderDialogSession& session, const std::string& name) {
  const auto found = std::find_if(session.specs->begin(), session.specs->end(),
                                  [&name](const auto& spec) { return spec.name == name; });
  return found == session.specs->end()
             ? std::nullopt
             : std::optional<int>(static_cast<int>(found - session.specs->begin()));
}

ShaderDialogLayout LayOut(SDL_Window* window, const ShaderDialogSession& session) {
  const SDL_Point size = WindowSize(window);
  return BuildShaderDialogLayout(session, size.x, size.y);
}

// The height at which a row's slider is taken; nothing while the row is not in view.
std::optional<int> SliderHeight(SDL_Window* window, const ShaderDialogSession& session, int row) {
  const ShaderDialogLayout layout = LayOut(window, session);
  const ShaderDialogGeometry& geometry = *session.geometry;
  const int y =
      geometry.list_top + row * geometry.row_height - session.scroll + geometry.row_height / 2;
  const bool in_view = y >= layout.view_top && y < layout.view_top + layout.view_h;
  return in_view ? std::optional<int>(y) : std::nullopt;
}

// Drags the thumb so far that the row comes to the middle of the view.
void ScrollToRow(SDL_Window* window, const ShaderDialogSession& session, int row) {
  const ShaderDialogLayout layout = LayOut(window, session);
  const ShaderDialogGeometry& geometry = *session.geometry;
  const int wanted = std::clamp(geometry.list_top + row * geometry.row_height +
                                    geometry.row_height / 2 - layout.view_top - layout.view_h / 2,
                                0, layout.max_scroll);
  const double travel = layout.scroll_track.h - layout.scroll_thumb.h;
  const double distance = travel * (wanted - session.scroll) / std::max(layout.max_scroll, 1);
  const SDL_Point from = Middle(layout.scroll_thumb);
  PushDrag(window, from, {from.x, from.y + static_cast<int>(std::lround(distance))});
}

// The column at which a slider comes nearest to a value. The right end of its track lies outside of
// it, but not beyond a drag.
int NearestColumn(const ShaderParameterSpec& spec, const ShaderDialogGeometry& geometry,
                  float value) {
  const auto distance = [&](int x) {
    return std::abs(ShaderDialogValueFromMouse(spec, geometry, x) - value);
  };
  int nearest = geometry.slider_x;
  for (int x = geometry.slider_x; x <= geometry.slider_x + geometry.slider_width; ++x) {
    nearest = distance(x) < distance(nearest) ? x : nearest;
  }
  return nearest;
}

std::string BringIntoView(SDL_Window* window, Shader session, const std::string& name) {
  const std::optional<int> row = FindParameter(*session, name);
  if (!row) {
    return "there is no such parameter";
  }
  if (!SliderHeight(window, *session, *row)) {
    ScrollToRow(window, *session, *row);
  }
  return {};
}

std::string DragParameter(SDL_Window* window, Shader session, const std::string& name,
                          float value) {
  const int row = *FindParameter(*session, name);
  const std::optional<int> y = SliderHeight(window, *session, row);
  if (!y) {
    return "the scroll bar does not bring the parameter into view";
  }
  const ShaderParameterSpec& spec = (*session->specs)[static_cast<std::size_t>(row)];
  const int x = NearestColumn(spec, *session->geometry, value);
  const float given = ShaderDialogValueFromMouse(spec, *session->geometry, x);
  if (!(std::abs(given - value) < kShownPrecision)) {
    return "no place of the slider gives that value, the nearest gives " + NumberText(given);
  }
  const int middle = session->geometry->slider_x + session->geometry->slider_width / 2;
  PushDrag(window, {middle, *y}, {x, *y});
  return {};
}

// --- Settings dialog -----------------------------------------------------------------------------

using Settings = const SettingsDialogSession*;

constexpr const char* kNoControl = "the page has no such control";

std::string ClickPage(SDL_Window* window, Settings session, const std::string& page) {
  const std::optional<SDL_Rect> row = FindSettingsPageRow(*session, page);
  if (!row) {
    return "there is no such page";
  }
  PushClick(window, *row);
  return {};
}

bool IsTicked(const RightPanelHitResult& hit) {
  return hit.key == "hdd_sounds_enabled" ? hit.text != "1" : !hit.flag;
}

// The pointer tells the page which control is meant, the press that it is used.
template <typename Script>
std::string ClickControl(Script* script, SDL_Window* window,
                         const std::optional<SettingsPlace>& place) {
  if (!place) {
    return kNoControl;
  }
  script->PutPointer(window, {place->at.x, place->at.y, false});
  PushClick(window, {place->at.x, place->at.y, 1, 1});
  return {};
}

template <typename Script>
std::string ChooseOption(Script* script, SDL_Window* window, Settings session,
                         const std::string& label) {
  const SettingsControl* const option =
      FindSettingsControl(*session, SettingsControlKind::Option, label);
  if (option == nullptr) {
    return kNoControl;
  }
  return ClickControl(script, window,
                      FindSettingsClick(*session, [option](const RightPanelHitResult& hit) {
                        return hit.key == option->key && hit.text == option->text;
                      }));
}

template <typename Script>
std::string TickBox(Script* script, SDL_Window* window, Settings session, const std::string& label,
                    bool on) {
  const SettingsControl* const box =
      FindSettingsControl(*session, SettingsControlKind::CheckBox, label);
  if (box == nullptr) {
    return kNoControl;
  }
  const std::optional<SettingsPlace> place = FindSettingsClick(
      *session, [box](const RightPanelHitResult& hit) { return hit.key == box->key; });
  const bool is_so = place && IsTicked(place->hit) == on;
  return is_so ? std::string() : ClickControl(script, window, place);
}

template <typename Script>
std::string HoldSlider(Script* script, SDL_Window* window, Settings session,
                       const std::string& label, double value) {
  const SettingsControl* const slider =
      FindSettingsControl(*session, SettingsControlKind::Slider, label);
  const std::optional<SettingsPlace> place =
      slider == nullptr ? std::nullopt : FindSliderPlace(*session, slider->key, value);
  if (!place) {
    return kNoControl;
  }
  if (!(std::abs(place->hit.number - value) <= kSliderPrecision)) {
    return "the slider does not reach that value";
  }
  script->PutPointer(window, {place->at.x, place->at.y, true});
  return {};
}

}  // namespace

DialogDriver& DialogDriver::SetParameter(const std::string& name, float value) {
  const auto scroll = [name](SDL_Window* window, Shader session) {
    return BringIntoView(window, session, name);
  };
  const auto drag = [name, value](SDL_Window* window, Shader session) {
    return DragParameter(window, session, name, value);
  };
  script_->AddStep("set the parameter " + Quoted(name) + " to " + NumberText(value),
                   {InDialog<Shader>(kNeedsShader, scroll), InDialog<Shader>(kNeedsShader, drag)});
  return *this;
}

DialogDriver& DialogDriver::OpenPage(const std::string& page) {
  const auto click = [page](SDL_Window* window, Settings session) {
    return ClickPage(window, session, page);
  };
  script_->AddStep("open the page " + Quoted(page), {InDialog<Settings>(kNeedsSettings, click)});
  return *this;
}

DialogDriver& DialogDriver::Choose(const std::string& option) {
  const auto choose = [script = script_.get(), option](SDL_Window* window, Settings session) {
    return ChooseOption(script, window, session, option);
  };
  script_->AddStep("choose " + Quoted(option), {InDialog<Settings>(kNeedsSettings, choose)});
  return *this;
}

DialogDriver& DialogDriver::Tick(const std::string& label, bool on) {
  const auto tick = [script = script_.get(), label, on](SDL_Window* window, Settings session) {
    return TickBox(script, window, session, label, on);
  };
  script_->AddStep((on ? "tick " : "untick ") + Quoted(label),
                   {InDialog<Settings>(kNeedsSettings, tick)});
  return *this;
}

DialogDriver& DialogDriver::MoveSlider(const std::string& label, double value) {
  Script* const script = script_.get();
  const auto hold = [script, label, value](SDL_Window* window, Settings session) {
    return HoldSlider(script, window, session, label, value);
  };
  const auto let_go = [script](SDL_Window* window, Settings /*session*/) {
    script->PutPointer(window, {});
    return std::string();
  };
  script_->AddStep(
      "move the slider " + Quoted(label) + " to " + NumberText(value),
      {InDialog<Settings>(kNeedsSettings, hold), InDialog<Settings>(kNeedsSettings, let_go)});
  return *this;
}

DialogDriver& DialogDriver::BrowseFont() {
  const auto browse = [script = script_.get()](SDL_Window* window, Settings session) {
    return ClickControl(script, window,
                        FindSettingsClick(*session, [](const RightPanelHitResult& hit) {
                          return hit.browse_font;
                        }));
  };
  script_->AddStep("browse for a font", {InDialog<Settings>(kNeedsSettings, browse)});
  return *this;
}

DialogDriver& DialogDriver::Apply() {
  script_->AddStep("apply", {[](const DrivenDialog& dialog) {
                     if (const auto* const shader = std::get_if<Shader>(&dialog.shown)) {
                       PushClick(dialog.window, LayOut(dialog.window, **shader).apply);
                     } else if (std::holds_alternative<Settings>(dialog.shown)) {
                       PushClick(dialog.window, BuildSettingsDialogButtons().apply);
                     } else {
                       return std::string("this needs the shader or the settings dialog");
                     }
                     return std::string();
                   }});
  return *this;
}

}  // namespace quindle::frontend::gui::testing
