#pragma once

#include <cstdint>
#include <string>

namespace quindle::demo {

// Makes a raw disk image of exactly `size_mb` MiB, all zeros, as a sparse file: it takes room on
// the disk only once something is written to it. Throws std::runtime_error, for the user, when the
// file exists already or cannot be made; nothing is left behind then.
void WriteDiskImage(const std::string& path, std::uint32_t size_mb);

}  // namespace quindle::demo
