#pragma once

// Private, but for all three libraries. Memory for what is large and filled from one end to the
// other.

#include <cstddef>
#include <memory>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace quindle::utils {

// Asks the system to back `bytes` bytes from `data` with large pages, where it can. A buffer of
// tens of megabytes is otherwise handed over in small pages, one fault for each, which can cost as
// much as filling it. Only advice: nothing depends on it, and small buffers are left alone.
inline void prefer_large_pages([[maybe_unused]] void* data, [[maybe_unused]] std::size_t bytes) {
#if defined(__linux__) && defined(MADV_HUGEPAGE)
  constexpr std::size_t kLargePage = std::size_t{2} * 1024 * 1024;
  void* begin = data;
  std::size_t room = bytes;
  if (std::align(kLargePage, kLargePage, begin, room) != nullptr) {
    madvise(begin, room / kLargePage * kLargePage, MADV_HUGEPAGE);
  }
#endif
}

}  // namespace quindle::utils
