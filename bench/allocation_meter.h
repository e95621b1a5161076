#pragma once

// Counts the heap that operator new hands out in this program, block overhead included.

#include <cstddef>

namespace quindle::bench {

// Bytes handed out and not returned.
std::size_t AllocatedBytes();

// The most that AllocatedBytes() has been since the last ResetPeakAllocatedBytes().
std::size_t PeakAllocatedBytes();
void ResetPeakAllocatedBytes();

}  // namespace quindle::bench
