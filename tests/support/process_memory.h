#pragma once

// What this process holds in memory.

#include <malloc.h>

namespace quindle::testing {

// What malloc() has given out and not got back, in KiB. The process's size in memory says less: the
// allocator keeps freed blocks, and the kernel takes pages away and brings them back as it likes.
inline long AllocatedMemoryKiB() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<long>((info.uordblks + info.hblkhd) / 1024);
}

}  // namespace quindle::testing
