#include "utils/file_utils.h"

#include <utility>

#include "utils/regular_file.h"

namespace quindle::utils {

bool read_text_file(const std::filesystem::path& path, std::string& contents, std::string& error,
                    const char* openError, const char* readError) {
  std::string bytes;
  const ReadOutcome outcome = read_regular_file(path, bytes);
  if (outcome == ReadOutcome::Done) {
    contents = std::move(bytes);
    return true;
  }
  const char* wording = outcome == ReadOutcome::CannotOpen ? openError : readError;
  error = wording != nullptr ? wording : "";
  return false;
}

}  // namespace quindle::utils
