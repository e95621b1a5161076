#pragma once

// Private, but for all three libraries. Paths of the file system and the texts that the interface
// has for them: the bytes themselves where names are bytes, UTF-8 on Windows. Nothing here looks at
// a file, and nothing throws but for memory. Each system's header has
//
// - path_from_text(text): the path; of a text that is none, one that no file can have, and of which
//   text_from_path makes the same text again.
// - text_from_path(path): the text. What has_text denies gives bytes that are no UTF-8.
// - has_text(path): false for a name that has no text.
// - join_paths(folder, name): `name` in `folder`, with the folder's kind of separator.
// - parent_folder(folder): empty when there is none to go up to.
// - with_separators_of(model, path): `path` with `model`'s kind of separators throughout.

#include <string>
#include <string_view>

#if defined(_WIN32)
#include "utils/path_text_windows.h"  // IWYU pragma: export
#else
#include "utils/path_text_posix.h"  // IWYU pragma: export
#endif

namespace quindle::utils {

inline std::string join_path_texts(std::string_view folder, std::string_view name) {
  return text_from_path(join_paths(path_from_text(folder), path_from_text(name)));
}

}  // namespace quindle::utils
