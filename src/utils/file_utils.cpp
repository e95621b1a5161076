#include "utils/file_utils.h"

#include <fstream>

namespace quindle::utils {

bool read_text_file(const std::filesystem::path&, std::string&, std::string&, const char*,
                    const char*) {
  return false;
}

}  // namespace quindle::utils
