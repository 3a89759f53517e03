#pragma once

#include <time.h>
#include <valgrind/callgrind.h>

namespace ostrand::bench {

// Marks the part of a piece of work that counts: for the clock, and for callgrind when the program runs in
// it. The clock is that of this thread's own work: it stands still while others have the processor.
class Meter {
 public:
  template <class F>
  void measure(F&& body) {
    const double start = now();
    CALLGRIND_TOGGLE_COLLECT;
    body();
    CALLGRIND_TOGGLE_COLLECT;
    mSeconds += now() - start;
  }

  // What was measured elsewhere, in another process say.
  void add(double seconds) { mSeconds += seconds; }

  double seconds() const { return mSeconds; }

 private:
  static double now() {
    timespec time;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
  }

  double mSeconds = 0;
};

}  // namespace ostrand::bench
