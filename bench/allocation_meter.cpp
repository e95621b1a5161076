#include "allocation_meter.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace quindle::bench {
namespace {

// What malloc keeps in front of each block.
constexpr std::size_t kBlockHeader = sizeof(std::size_t);

// Benchmarks that allocate run on one thread.
std::size_t g_allocated = 0;
std::size_t g_peak = 0;

void* Allocate(std::size_t size) {
  void* block = std::malloc(std::max<std::size_t>(size, 1));
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  g_allocated += malloc_usable_size(block) + kBlockHeader;
  g_peak = std::max(g_peak, g_allocated);
  return block;
}

void Release(void* block) noexcept {
  if (block != nullptr) {
    g_allocated -= malloc_usable_size(block) + kBlockHeader;
    std::free(block);
  }
}

}  // namespace

std::size_t AllocatedBytes() {
  return g_allocated;
}

std::size_t PeakAllocatedBytes() {
  return g_peak;
}

void ResetPeakAllocatedBytes() {
  g_peak = g_allocated;
}

}  // namespace quindle::bench

void* operator new(std::size_t size) {
  return quindle::bench::Allocate(size);
}

void operator delete(void* block) noexcept {
  quindle::bench::Release(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
  quindle::bench::Release(block);
}
