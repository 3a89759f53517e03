#include "benchmarks/Heap.h"

#include <malloc.h>

#include <cstdlib>
#include <new>
#include <pugixml.hpp>

namespace ostrand::bench {

namespace {

std::ptrdiff_t gBlocks = 0;

void* take(std::size_t size) {
  void* const block = std::malloc(size);
  if (block) ++gBlocks;
  return block;
}

void give(void* block) {
  if (block) --gBlocks;
  std::free(block);
}

}  // namespace

Heap Heap::now() {
  const struct mallinfo2 info = mallinfo2();
  return {info.uordblks + info.hblkhd, gBlocks};
}

void Heap::watch() {
  pugi::set_memory_management_functions(take, give);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
  mallopt(M_MMAP_THRESHOLD, 1 << 25);  // the highest that is taken
}

}  // namespace ostrand::bench

void* operator new(std::size_t size) {
  if (void* const block = ostrand::bench::take(size ? size : 1)) return block;
  throw std::bad_alloc();
}
void operator delete(void* block) noexcept { ostrand::bench::give(block); }
void operator delete(void* block, std::size_t) noexcept { ostrand::bench::give(block); }
