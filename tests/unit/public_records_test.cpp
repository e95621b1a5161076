// Hosts fill the public records by position and take them apart into variables, so the order of
// their fields is part of the interface, and so are the types that a host stores.

#include <gtest/gtest.h>

#include <cstdint>
#include <type_traits>
#include <vector>

#include "frontend/gui/about_dialog.h"
#include "frontend/gui/hdd_create_dialog.h"
#include "frontend/gui/screenshot_save_dialog.h"
#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/sdl_pickers.h"
#include "frontend/gui/settings_dialog.h"
#include "frontend/gui/settings_widgets.h"
#include "frontend/gui/shader_parameter_dialog.h"

namespace quindle::frontend::gui {
namespace {

template <typename... Fields>
std::vector<const void*> AddressesOf(const Fields&... fields) {
  return {&fields...};
}

// The names behind `Record` are all of its fields, in their order: taken apart by position they are
// where their names say.
#define QUINDLE_EXPECT_FIELDS(Record, ...)                            \
  {                                                                   \
    struct ByName : Record {                                          \
      auto Fields() const { return AddressesOf(__VA_ARGS__); }        \
    };                                                                \
    const ByName by_name{};                                           \
    const Record& by_position = by_name;                              \
    const auto& [__VA_ARGS__] = by_position;                          \
    EXPECT_EQ(AddressesOf(__VA_ARGS__), by_name.Fields()) << #Record; \
  }

TEST(PublicRecords, AboutFieldsStandInOrder) {
  QUINDLE_EXPECT_FIELDS(AboutDialogFonts, nameFont, textFont, smallBoldFont, rowFont, boldFont,
                        footerFont);
  QUINDLE_EXPECT_FIELDS(AboutDialogMetrics, pad, sideMargin, nameTop, nameH, lineGap, textH,
                        smallGap, headerGap, sectionGap, linkGap, infoGap, infoPadX, infoPadY,
                        infoTitleGap, infoRowGap, smallBoldH, rowH, boldH, footerTextH, linkRowH,
                        infoPanelH, footerH, scale);
  QUINDLE_EXPECT_FIELDS(AboutDialogInfoRows, version, buildDate, compiler, platform, arch, flags);
  QUINDLE_EXPECT_FIELDS(AboutDialogLinks, videoChannel, homepage);
}

TEST(PublicRecords, HddCreateDialogFieldsStandInOrder) {
  QUINDLE_EXPECT_FIELDS(HddCreateDialogResult, accepted, size_mb, folder, file_name);
  QUINDLE_EXPECT_FIELDS(HddCreateDialogState, accepted, size_mb, folder, file_name, size_text,
                        folder_text, name_text, focus, done, shown);
  QUINDLE_EXPECT_FIELDS(HddCreateDialogLayout, size_field, name_field, folder_field, choose_button,
                        cancel_button, create_button);
}

TEST(PublicRecords, ScreenshotSaveDialogFieldsStandInOrder) {
  QUINDLE_EXPECT_FIELDS(ScreenshotSaveDialogResult, accepted, folder, file_name, format,
                        jpeg_quality, png_compression, bmp_rle);
  QUINDLE_EXPECT_FIELDS(ScreenshotSaveDialogState, result, folder_text, file_name_text, format,
                        jpeg_quality_text, png_compression_text, format_list_open, done, focus);
  QUINDLE_EXPECT_FIELDS(ScreenshotSaveDialogSession, renderer, folder_text, file_name_text, format,
                        option_text, focus, format_list_open, bmp_rle);
  QUINDLE_EXPECT_FIELDS(ScreenshotSaveDialogLayout, file_name_field, folder_field, choose_button,
                        format_box, format_list, option_field, rle_checkbox, cancel_button,
                        save_button, saved_as_y, path_y);
}

TEST(PublicRecords, MessageBoxFieldsStandInOrder) {
  QUINDLE_EXPECT_FIELDS(SdlMessageBox::Button, id, label, isDefault, isCancel, onClick);
  QUINDLE_EXPECT_FIELDS(SdlMessageBox::Config, title, message, type, buttons, width, height,
                        escapeEnabled);
  QUINDLE_EXPECT_FIELDS(MessageBoxTypeVisual, accent, glyph);
  QUINDLE_EXPECT_FIELDS(SdlMessageBoxFonts, iconFont, titleFont, bodyFont, buttonFont);
  QUINDLE_EXPECT_FIELDS(SdlMessageBoxLayout, pad, margin, gap, iconW, iconH, buttonH, buttonGap,
                        buttonW, footerH, buttonsX, buttonsY, frame, content, footer, titleY, icon,
                        textX, textW, titleH, bodyX, bodyY, bodyW, bodyH, lineH, contentHeight,
                        minHeight, targetHeight, lines);
}

TEST(PublicRecords, ModalRuntimeFieldsStandInOrder) {
  QUINDLE_EXPECT_FIELDS(ModalWindowBundle, window, renderer);
}

TEST(PublicRecords, PickersFieldsStandInOrder) {
  QUINDLE_EXPECT_FIELDS(PickerEntry, name, path, is_directory);
  QUINDLE_EXPECT_FIELDS(SdlPickerDialogOptions, title, hint, start_dir, load_entries, label_entry,
                        accept_label, cancel_label, width, height, footer_height, button_width,
                        button_height, mode, window_flags);
  QUINDLE_EXPECT_FIELDS(SimpleScrollbarLayout, track, thumb, max_scroll);
  QUINDLE_EXPECT_FIELDS(FolderPickerOptions, title, hint, accept_label, cancel_label, start_dir);
}

TEST(PublicRecords, SettingsFieldsStandInOrder) {
  QUINDLE_EXPECT_FIELDS(SettingsDialogValues, target_fps, font_mode, renderer_mode, cpu_mhz,
                        mouse_capture_gain, allow_mouse_capture_in_text_mode, hdd_sounds_enabled,
                        hdd_sounds_volume, custom_font_path, screenshot_capture_with_opengl_shaders,
                        screenshot_capture_size_mode);
  QUINDLE_EXPECT_FIELDS(NavItem, kind, label, panel_id);
  QUINDLE_EXPECT_FIELDS(SettingsDialogButtons, cancel, apply);
  QUINDLE_EXPECT_FIELDS(SettingsDialogSession, window, renderer, bold_font, regular_font, nav_items,
                        cancel_button, apply_button, values, panel_id, shown);
  QUINDLE_EXPECT_FIELDS(RightPanelContext, renderer, bold_font, regular_font, panel_id, mouse_x,
                        mouse_y, clicked, mouse_down, values);
  QUINDLE_EXPECT_FIELDS(RightPanelHitResult, changed, key, text, number, flag, browse_font);
}

TEST(PublicRecords, SettingsWidgetsFieldsStandInOrder) {
  QUINDLE_EXPECT_FIELDS(RadioOption, label, value);
}

TEST(PublicRecords, ShaderParametersFieldsStandInOrder) {
  QUINDLE_EXPECT_FIELDS(ShaderParameterSpec, name, label, default_value, min_value, max_value,
                        step);
  QUINDLE_EXPECT_FIELDS(ShaderParameterValue, name, value);
  QUINDLE_EXPECT_FIELDS(ShaderDialogResult, applied, values);
  QUINDLE_EXPECT_FIELDS(ShaderDialogGeometry, list_top, row_height, slider_x, slider_width,
                        slider_hit_height, label_x, detail_x, reserved_width, button_width,
                        button_height, window_width, window_height, content_height);
  QUINDLE_EXPECT_FIELDS(ShaderDialogSession, window, renderer, header_font, detail_font,
                        shader_path, specs, geometry, result, dragging_slider, active_param,
                        dragging_scrollbar, drag_start_y, drag_start_scroll, scroll, shown);
  QUINDLE_EXPECT_FIELDS(ShaderDialogLayout, view_top, view_h, max_scroll, cancel, apply,
                        scroll_track, scroll_thumb);
}

TEST(PublicRecords, NumbersHaveTheirTypes) {
  EXPECT_TRUE((std::is_same_v<decltype(HddCreateDialogResult::size_mb), std::uint32_t>));
  EXPECT_TRUE((std::is_same_v<decltype(HddCreateDialogState::size_mb), std::uint32_t>));
  EXPECT_TRUE((std::is_same_v<decltype(SdlPickerDialogOptions::window_flags), std::uint32_t>));
  EXPECT_TRUE((std::is_same_v<std::underlying_type_t<ScreenshotSaveFormat>, std::uint8_t>));
  EXPECT_TRUE((std::is_same_v<decltype(AboutDialogMetrics::scale), float>));
  EXPECT_TRUE((std::is_same_v<decltype(ShaderParameterSpec::step), float>));
  EXPECT_TRUE((std::is_same_v<decltype(ShaderParameterValue::value), float>));
  EXPECT_TRUE((std::is_same_v<decltype(SettingsDialogValues::cpu_mhz), double>));
  EXPECT_TRUE((std::is_same_v<decltype(SettingsDialogValues::mouse_capture_gain), double>));
  EXPECT_TRUE((std::is_same_v<decltype(SettingsDialogValues::hdd_sounds_volume), double>));
  EXPECT_TRUE((std::is_same_v<decltype(RightPanelHitResult::number), double>));
}

#undef QUINDLE_EXPECT_FIELDS

}  // namespace
}  // namespace quindle::frontend::gui
