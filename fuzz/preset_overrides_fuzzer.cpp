#include <cstddef>
#include <cstdint>
#include <string>

#include "support/shader_fuzz_checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quindle::testing::CheckOverrides(std::string(data, data + size));
  return 0;
}
