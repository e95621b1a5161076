#include "frontend/gui/form_draw.h"

#include "frontend/gui/drawable_text.h"
#include "frontend/gui/sdl_text_fit.h"
#include "frontend/gui/sdl_ui_font_cache.h"

namespace quindle::frontend::gui {

TTF_Font* FormFont() {
  return GetCachedSdlUiFont(16, false, SdlUiFontKind::Ui);
}

void DrawFormText(SDL_Renderer* renderer, const char* text, int x, int y, SDL_Color color) {
  if (renderer == nullptr || text == nullptr || *text == '\0') {
    return;
  }
  DrawSdlUiText(renderer, FormFont(), text, x, y, color, nullptr);
}

void DrawFormTextEnd(SDL_Renderer* renderer, std::string_view bytes, int x, int y, int right,
                     SDL_Color color) {
  DrawTextEndVisible(renderer, FormFont(), DrawableText(bytes), x, y, right, color);
}

void DrawFormFieldText(SDL_Renderer* renderer, const SDL_Rect& field, std::string_view bytes,
                       int drop) {
  DrawFormTextEnd(renderer, bytes, field.x + kFormFieldPadding, field.y + drop,
                  field.x + field.w - kFormFieldPadding, kFormText);
}

}  // namespace quindle::frontend::gui
