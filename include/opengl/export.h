#pragma once

/// Marks what libquindle_opengl exports.
#if defined(_WIN32)
#if defined(QUINDLE_OPENGL_BUILDING)
#define QUINDLE_OPENGL_EXPORT __declspec(dllexport)
#else
#define QUINDLE_OPENGL_EXPORT __declspec(dllimport)
#endif
#else
#define QUINDLE_OPENGL_EXPORT __attribute__((visibility("default")))
#endif
