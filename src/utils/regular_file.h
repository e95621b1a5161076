#pragma once

// Private. The bytes of a regular file, with the calls of one system.

#include <cstddef>
#include <filesystem>
#include <string>

namespace quindle::utils {

inline constexpr std::size_t kMaxTextFileBytes = std::size_t{64} * 1024 * 1024;
// What is read at a time.
inline constexpr std::size_t kChunkBytes = std::size_t{64} * 1024;

enum class ReadOutcome { Done, CannotOpen, CannotRead };

// Appends the whole file to `bytes`, which may hold a part of it otherwise. Neither opens nor waits
// for what is no regular file; cannot read what is larger than kMaxTextFileBytes.
ReadOutcome read_regular_file(const std::filesystem::path& path, std::string& bytes);

}  // namespace quindle::utils
