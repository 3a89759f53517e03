#pragma once

#include <cstddef>

namespace ostrand::bench {

// What the heap holds now: bytes of the whole program, blocks of everything but libxml2.
struct Heap {
  std::size_t bytes;
  std::ptrdiff_t blocks;

  static Heap now();
  // Before pugixml takes its first page. Freed memory stays with the program from here on: whether a peer must
  // ask the system for each page anew would otherwise hang on what ran before.
  static void watch();
};

}  // namespace ostrand::bench
