#pragma once

/// Marks what libquindle_sdl_ui exports.
#if defined(_WIN32)
#if defined(QUINDLE_SDL_UI_BUILDING)
#define QUINDLE_SDL_UI_EXPORT __declspec(dllexport)
#else
#define QUINDLE_SDL_UI_EXPORT __declspec(dllimport)
#endif
#else
#define QUINDLE_SDL_UI_EXPORT __attribute__((visibility("default")))
#endif
