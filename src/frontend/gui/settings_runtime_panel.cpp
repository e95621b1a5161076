#include <array>

#include "frontend/gui/float_text.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "frontend/gui/settings_page.h"

namespace quindle::frontend::gui {
namespace {

constexpr int kSliderWidth = 280;

void ReportNumber(const char* key, double number, RightPanelHitResult* hit) {
  hit->changed = true;
  hit->key = key;
  hit->number = number;
}

// The clock is changed from the emulator's own menu; the page only tells.
void DrawCpuSpeedPage(const RightPanelContext& ctx, int top, RightPanelHitResult* /*hit*/) {
  DrawText(ctx.renderer, ctx.bold_font, FormatFixed(ctx.values->cpu_mhz, 2) + " MHz",
           kSettingsContentX, top, kColTextHi);
  DrawNote(ctx, top + 32, "Adjust CPU speed from the Machine menu");
  DrawNote(ctx, top + 52, "using Increase / Decrease Speed (MHz).");
  DrawNote(ctx, top + 82, "Setting is saved automatically when changed.");
}

// Logging is controlled by command-line arguments; the page only tells.
void DrawLoggerPage(const RightPanelContext& ctx, int top, RightPanelHitResult* /*hit*/) {
  DrawNote(ctx, top, "Verbose logging can be enabled via --verbose-log");
  DrawNote(ctx, top + 22, "command-line argument. Log file path: --log <path>.");
  DrawNote(ctx, top + 52, "Runtime log verbosity controls will appear here in");
  DrawNote(ctx, top + 74, "a future release.");
}

void DrawHddSoundsPage(const RightPanelContext& ctx, int top, RightPanelHitResult* hit) {
  const bool enabled = ctx.values->hdd_sounds_enabled;
  if (DrawClickableCheckbox(ctx, top, enabled, "Enable HDD sounds")) {
    hit->changed = true;
    hit->key = "hdd_sounds_enabled";
    hit->text = enabled ? "0" : "1";
  }
  DrawControlLabel(ctx, top + 38, "Volume");
  double volume = 0.0;
  if (DrawSlider(ctx.renderer, ctx.regular_font, kSettingsContentX, top + 60, kSliderWidth,
                 ctx.values->hdd_sounds_volume, ctx.mouse_x, ctx.mouse_y, ctx.mouse_down,
                 &volume)) {
    ReportNumber("hdd_sounds_volume", volume, hit);
  }
  DrawNote(ctx, top + 94, "Enabled by default. Use --without-hdd-sounds to opt out at launch.");
}

void DrawMouseCapturePage(const RightPanelContext& ctx, int top, RightPanelHitResult* hit) {
  constexpr double kLeastGain = 0.25;
  constexpr double kGreatestGain = 3.0;
  DrawControlLabel(ctx, top, "Capture Speed");
  double gain = 0.0;
  if (DrawRangeSlider(ctx.renderer, ctx.regular_font, kSettingsContentX, top + 22, kSliderWidth,
                      ctx.values->mouse_capture_gain, kLeastGain, kGreatestGain, ctx.mouse_x,
                      ctx.mouse_y, ctx.mouse_down, &gain, "x")) {
    ReportNumber("mouse_capture_gain", gain, hit);
  }
  DrawNote(ctx, top + 56, "1.00x = current behavior. Higher = faster guest cursor.");
  DrawFlagSetting(ctx, top + 78, "allow_mouse_capture_in_text_mode",
                  ctx.values->allow_mouse_capture_in_text_mode,
                  "Allow mouse capture in text mode (DOS)", hit);
  DrawNote(ctx, top + 106,
           "Default off: capture waits for guest graphics mode such as Windows 2.x.");
  DrawNote(ctx, top + 128, "Use F11 to toggle mouse capture during emulation.");
}

constexpr std::array<SettingsPage, 4> kRuntimePages{{
    {3, "CPU Speed", "Emulated CPU clock frequency.", &DrawCpuSpeedPage},
    {4, "Logger Options", "", &DrawLoggerPage},
    {5, "HDD Sounds", "Simulated hard disk drive sounds during emulation.", &DrawHddSoundsPage},
    {6, "Mouse Capture",
     "Relative mouse gain used while the emulator has grabbed the host pointer.",
     &DrawMouseCapturePage},
}};

}  // namespace

bool DrawSettingsRuntimePanel(const RightPanelContext& ctx, RightPanelHitResult* hit) {
  return DrawSelectedPage(kRuntimePages, ctx, hit);
}

}  // namespace quindle::frontend::gui
