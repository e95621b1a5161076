#pragma once

/// Reading of whole files.

#include <filesystem>
#include <string>

#include "utils/export.h"

namespace quindle::utils {

/// Reads a whole regular file, byte by byte as it stands. A file that reports no size (as some
/// system files do) is read to its end. Never blocks on what is no regular file and never throws
/// for a file's state; may throw std::bad_alloc. Callable from any thread.
/// @param path the file; links are followed
/// @param contents receives the bytes on success and is left alone otherwise
/// @param error receives the caller's wording on failure and is left alone on success
/// @param openError stored when the file cannot be opened or is no regular file (directory, FIFO,
/// device, socket, dangling link; on Windows also a name such as NUL or COM1, and a file that
/// another process does not share); null stores an empty text
/// @param readError stored when reading fails or the file is larger than 64 MiB; null stores an
/// empty text
/// @return whether the file was read
QUINDLE_UTILS_EXPORT bool read_text_file(const std::filesystem::path& path, std::string& contents,
                                         std::string& error, const char* openError,
                                         const char* readError);

}  // namespace quindle::utils
