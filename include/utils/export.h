#pragma once

/// Marks what libquindle_utils exports.
#if defined(_WIN32)
#if defined(QUINDLE_UTILS_BUILDING)
#define QUINDLE_UTILS_EXPORT __declspec(dllexport)
#else
#define QUINDLE_UTILS_EXPORT __declspec(dllimport)
#endif
#else
#define QUINDLE_UTILS_EXPORT __attribute__((visibility("default")))
#endif
