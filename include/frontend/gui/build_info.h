#pragma once

/// What was built, and when. Set when the library is built; callable from any thread.

#include "frontend/gui/export.h"

namespace quindle::frontend {

/// The version as "major.minor.patch". Lifetime: static.
QUINDLE_SDL_UI_EXPORT extern const char* const kProgramVersion;
/// The build's date in the compiler's form, as "Apr 14 2026". Lifetime: static.
QUINDLE_SDL_UI_EXPORT extern const char* const kProgramDate;
/// The build's date and time of day, as "Apr 14 2026 09:50:07". Lifetime: static.
QUINDLE_SDL_UI_EXPORT extern const char* const kProgramBuildDate;

}  // namespace quindle::frontend
