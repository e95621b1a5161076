#include <array>
#include <string>
#include <vector>

#include "frontend/gui/drawable_text.h"
#include "frontend/gui/sdl_text_fit.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "frontend/gui/settings_page.h"
#include "utils/path_utils.h"

namespace quindle::frontend::gui {
namespace {

// --- Font Mode -----------------------------------------------------------------------------------

const std::vector<RadioOption>& FontModeOptions() {
  static const std::vector<RadioOption> options{
      {"Pixel  (classic bitmap font, fastest)", "pixel"},
      {"TTF  (bundled IBM VGA font, scalable)", "ttf"},
      {"TTF HiRes  (bundled font, high resolution)", "ttf-hires"},
      {"TTF Custom  (user-selected font file)", "ttf-custom"},
  };
  return options;
}

// The name of the chosen font file, clipped at `right`.
void DrawFontFileLabel(const RightPanelContext& ctx, int y, int right) {
  const std::string& path = ctx.values->custom_font_path;
  if (path.empty()) {
    DrawNote(ctx, y, "(no file selected)");
    return;
  }
  const std::string name = DrawableText(utils::filename_from_path(path));
  DrawTextStartVisible(ctx.renderer, ctx.regular_font, name, kSettingsContentX, y, right,
                       kColTextMid);
}

void DrawCustomFontChoice(const RightPanelContext& ctx, int y, RightPanelHitResult* hit) {
  const SDL_Rect browse{712, y + 8, 96, 28};
  const bool hovered = IsInRect(ctx.mouse_x, ctx.mouse_y, browse);
  DrawFontFileLabel(ctx, y + 14, browse.x);
  DrawButton(ctx.renderer, ctx.regular_font, browse, "Browse...", hovered);
  if (hovered && ctx.clicked) {
    hit->browse_font = true;
  }
  DrawNote(ctx, y + 42,
           ctx.values->custom_font_path.empty()
               ? "No font selected - click Browse to choose a .ttf file."
               : "Choose a monospace .ttf or .otf font file.");
}

void DrawFontModePage(const RightPanelContext& ctx, int top, RightPanelHitResult* hit) {
  DrawRadioSetting(ctx, top, "font_mode", FontModeOptions(), ctx.values->font_mode, hit);
  const int below = top + 136;
  const bool custom = ctx.values->font_mode == "ttf-custom";
  if (custom) {
    DrawCustomFontChoice(ctx, below, hit);
  }
  DrawNote(ctx, below + (custom ? 68 : 8), "Pixel<->TTF switch requires restart.");
}

// --- Target FPS ----------------------------------------------------------------------------------

void DrawTargetFpsPage(const RightPanelContext& ctx, int top, RightPanelHitResult* hit) {
  static const std::vector<RadioOption> options{
      {"25 FPS", "25"},
      {"30 FPS", "30"},
      {"50 FPS", "50"},
      {"60 FPS", "60"},
  };
  DrawRadioSetting(ctx, top, "fps", options, std::to_string(ctx.values->target_fps), hit);
}

// --- Renderer ------------------------------------------------------------------------------------

void DrawRendererPage(const RightPanelContext& ctx, int top, RightPanelHitResult* hit) {
  static const std::vector<RadioOption> options{
      {"Hardware  (OpenGL accelerated)", "hardware"},
      {"Software  (CPU-based, compatible)", "software"},
  };
  DrawRadioSetting(ctx, top, "renderer_mode", options, ctx.values->renderer_mode, hit);
  DrawNote(ctx, top + 80, "Note: renderer change requires restart to take full effect.");
}

// --- Screenshots ---------------------------------------------------------------------------------

void DrawCaptureSizeChoice(const RightPanelContext& ctx, int y, RightPanelHitResult* hit) {
  static const std::vector<RadioOption> options{
      {"Original resolution", "0"},
      {"Emu viewport resolution", "1"},
  };
  DrawRadioSetting(ctx, y, "screenshot_capture_size_mode", options,
                   std::to_string(ctx.values->screenshot_capture_size_mode), hit);
  DrawNote(ctx, y + 78,
           "Pixel font: Original resolution uses guest-native output, e.g. 320x200 or 640x400.");
  DrawNote(ctx, y + 100,
           "TTF font mode: Original resolution falls back to the current emu viewport size.");
  DrawNote(ctx, y + 122,
           "If no OpenGL shader is active, capture falls back to the normal unshaded path.");
}

void DrawScreenshotsPage(const RightPanelContext& ctx, int top, RightPanelHitResult* hit) {
  DrawNote(ctx, top,
           "Default capture is source-faithful guest output without frontend post-processing.");
  DrawNote(ctx, top + 22, "Enable the option below if you want screenshots to include");
  DrawNote(ctx, top + 44, "the active OpenGL shader pass.");
  DrawFlagSetting(ctx, top + 86, "screenshot_capture_with_opengl_shaders",
                  ctx.values->screenshot_capture_with_opengl_shaders,
                  "Capture with active OpenGL shaders when available", hit);
  DrawControlLabel(ctx, top + 124, "Capture size");
  DrawCaptureSizeChoice(ctx, top + 146, hit);
}

constexpr std::array<SettingsPage, 4> kDisplayPages{{
    {0, "Font Mode", "Text rendering mode used for the DOS display.", &DrawFontModePage},
    {1, "Target FPS", "Display refresh rate target for the emulator window.", &DrawTargetFpsPage},
    {2, "Renderer", "SDL rendering backend. Takes effect on next launch.", &DrawRendererPage},
    {7, "Screenshots", "Controls how menu screenshot capture is rendered and exported.",
     &DrawScreenshotsPage},
}};

}  // namespace

bool DrawSettingsDisplayPanel(const RightPanelContext& ctx, RightPanelHitResult* hit) {
  return DrawSelectedPage(kDisplayPages, ctx, hit);
}

}  // namespace quindle::frontend::gui
