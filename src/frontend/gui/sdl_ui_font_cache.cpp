#include "frontend/gui/sdl_ui_font_cache.h"

#include <array>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "frontend/gui/sdl_glyph_font.h"

namespace quindle::frontend::gui {
namespace {

// The same relative path in three spellings, so that one table serves every platform.
constexpr std::array<const char*, 3> kRegularFontPaths{
    "./data/ttf/IBMPlexSans-Regular.ttf",
    "data/ttf/IBMPlexSans-Regular.ttf",
    ".\\data\\ttf\\IBMPlexSans-Regular.ttf",
};
constexpr std::array<const char*, 3> kSemiBoldFontPaths{
    "./data/ttf/IBMPlexSans-SemiBold.ttf",
    "data/ttf/IBMPlexSans-SemiBold.ttf",
    ".\\data\\ttf\\IBMPlexSans-SemiBold.ttf",
};
constexpr std::array<const char*, 10> kSystemFontPaths{
    "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
    "/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf",
    "/usr/share/fonts/TTF/DejaVuSans.ttf",
    "/usr/share/fonts/TTF/DejaVuSansMono.ttf",
    "/System/Library/Fonts/Courier New.ttf",
    "/Library/Fonts/Courier New.ttf",
    "/Library/Fonts/Arial.ttf",
    "C:\\Windows\\Fonts\\cour.ttf",
    "C:\\Windows\\Fonts\\COURIER.TTF",
    "C:\\Windows\\Fonts\\arial.ttf",
};

OwnedTtfFont OpenFirstFont(std::span<const char* const> paths, int size, int style) {
  for (const char* path : paths) {
    OwnedTtfFont font(TTF_OpenFont(path, size));
    if (font != nullptr) {
      TTF_SetFontStyle(font.get(), style);
      return font;
    }
  }
  return nullptr;
}

bool EnsureTtfIsRunning() {
  return TTF_WasInit() != 0 || TTF_Init() == 0;
}

struct CachedSdlUiFont {
  int size = 0;
  bool bold = false;
  SdlUiFontKind kind = SdlUiFontKind::Ui;
  TTF_Font* font = nullptr;  // Owned by the cache; null remembers a failed open.
};

class SdlUiFontList {
 public:
  SdlUiFontList() = default;
  SdlUiFontList(const SdlUiFontList&) = delete;
  SdlUiFontList& operator=(const SdlUiFontList&) = delete;
  SdlUiFontList(SdlUiFontList&&) = delete;
  SdlUiFontList& operator=(SdlUiFontList&&) = delete;
  ~SdlUiFontList() {
    // A host that has quit SDL_ttf without emptying the cache has already taken the faces away.
    if (TTF_WasInit() != 0) {
      CloseAll();
    }
  }

  TTF_Font* FindOrOpen(int size, bool bold, SdlUiFontKind kind) {
    for (const CachedSdlUiFont& entry : entries_) {
      if (entry.size == size && entry.bold == bold && entry.kind == kind) {
        return entry.font;
      }
    }
    entries_.reserve(entries_.size() + 1);  // Nothing may throw once the font is released below.
    OwnedTtfFont opened = OpenSdlUiFontHandle(size, bold, kind);
    return entries_.emplace_back(CachedSdlUiFont{size, bold, kind, opened.release()}).font;
  }

  void CloseAll() noexcept {
    for (const CachedSdlUiFont& entry : entries_) {
      CloseSdlTtfFont(entry.font);
    }
    entries_.clear();
  }

 private:
  std::vector<CachedSdlUiFont> entries_;
};

SdlUiFontList& GetCachedSdlUiFonts() {
  static SdlUiFontList fonts;
  return fonts;
}

}  // namespace

OwnedTtfFont OpenSdlUiFontHandle(int size, bool bold, SdlUiFontKind kind) {
  if (size < 1 || !EnsureTtfIsRunning()) {
    return nullptr;
  }
  const int style = bold ? TTF_STYLE_BOLD : TTF_STYLE_NORMAL;
  OwnedTtfFont font;
  if (!bold && kind == SdlUiFontKind::Body) {
    font = OpenFirstFont(kRegularFontPaths, size, TTF_STYLE_NORMAL);
  }
  if (font == nullptr) {
    // Bold is put on top of the SemiBold face on purpose.
    font = OpenFirstFont(kSemiBoldFontPaths, size, style);
  }
  if (font == nullptr && !bold) {
    font = OpenFirstFont(kRegularFontPaths, size, TTF_STYLE_NORMAL);
  }
  if (font == nullptr) {
    font = OpenFirstFont(kSystemFontPaths, size, style);
  }
  return font;
}

bool FontHasGlyph(TTF_Font* font, Uint32 code_point) {
  return font != nullptr && TTF_GlyphIsProvided32(font, code_point) != 0;
}

OwnedTtfFont OpenSystemFontWithGlyph(int size, Uint32 code_point) {
  for (const char* path : kSystemFontPaths) {
    OwnedTtfFont font(TTF_OpenFont(path, size));
    if (FontHasGlyph(font.get(), code_point)) {
      TTF_SetFontStyle(font.get(), TTF_STYLE_BOLD);
      return font;
    }
  }
  return nullptr;
}

TTF_Font* GetCachedSdlUiFont(int size, bool bold, SdlUiFontKind kind) {
  return GetCachedSdlUiFonts().FindOrOpen(size, bold, kind);
}

void ShutdownSdlUiCachedFonts() {
  GetCachedSdlUiFonts().CloseAll();
}

void DrawSdlUiText(SDL_Renderer* renderer, TTF_Font* font, std::string_view text, int x, int y,
                   SDL_Color color, SDL_Rect* outRect) {
  if (font == nullptr || text.empty() || renderer == nullptr) {
    return;
  }
  const std::string terminated(text);  // A view need not end in the NUL that SDL_ttf looks for.
  const OwnedSdlSurface surface(TTF_RenderUTF8_Blended(font, terminated.c_str(), color));
  if (surface == nullptr) {
    return;
  }
  const OwnedSdlTexture texture(SDL_CreateTextureFromSurface(renderer, surface.get()));
  if (texture == nullptr) {
    return;
  }
  const SDL_Rect target{x, y, surface->w, surface->h};
  if (outRect != nullptr) {
    *outRect = target;
  }
  SDL_RenderCopy(renderer, texture.get(), nullptr, &target);
}

}  // namespace quindle::frontend::gui
