#pragma once

/// Reading of whole files.

#include <filesystem>
#include <string>

#include "utils/export.h"

namespace quindle::utils {

/// Reads the whole regular file `path`, byte by byte as it stands, into `contents`.
///
/// Returns true on success; `error` is then left alone. On failure returns false, leaves `contents`
/// as it was and stores the caller's wording into `error`: `openError` when the file cannot be
/// opened or is no regular file (directory, FIFO, device, socket, dangling link; none of these ever
/// blocks), `readError` when reading fails or the file is larger than 64 MiB. A null `openError` or
/// `readError` stores an empty text. A file that reports no size (as some system files do) is read
/// to its end. Never throws for a file's state; may throw std::bad_alloc. Callable from any thread.
QUINDLE_UTILS_EXPORT bool read_text_file(const std::filesystem::path& path, std::string& contents,
                                         std::string& error, const char* openError,
                                         const char* readError);

}  // namespace quindle::utils
