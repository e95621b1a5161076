#pragma once

// Names that no single code page of Windows has, as the UTF-8 that the interface speaks.

#include <array>

namespace quindle::testing {

inline constexpr const char* kLatinName = "Blaue Größe.img";
inline constexpr const char* kCyrillicName = "дискета.img";
inline constexpr const char* kJapaneseName = "ゲーム.img";
inline constexpr const char* kBeyondPlane0Name = "\U0001F4BE disk.img";

inline constexpr std::array<const char*, 4> kNamesOfManyScripts{kLatinName, kCyrillicName,
                                                                kJapaneseName, kBeyondPlane0Name};

}  // namespace quindle::testing
