#pragma once

#include <cstdint>

namespace ostrand::simulator {

// Random numbers that depend on the place at which one looks and on nothing that was drawn before. Only additions and
// multiplications, so that every machine sees the same.
class Noise {
 public:
  // Each `stream` of a seed is another sequence.
  Noise(unsigned seed, unsigned stream) : mSeed((std::uint64_t{seed} << 32) | stream) {}

  double uniform(std::int64_t at) const;  // -1 to 1
  double normal(std::int64_t at) const;   // mean 0, standard deviation 1, never beyond 3.5
  // A curve without corners through random values, -1 to 1, one every `period`.
  double smooth(std::int64_t at, std::int64_t period) const;

 private:
  std::uint64_t bits(std::int64_t at) const;
  std::uint64_t mSeed;
};

// The quotient rounded down, for negative `a` too.
constexpr std::int64_t floorDivision(std::int64_t a, std::int64_t b) { return a >= 0 ? a / b : -((-a + b - 1) / b); }
// 0 to 1 without corners while `x` goes from 0 to 1.
constexpr double smoothStep(double x) { return x <= 0 ? 0 : x >= 1 ? 1 : x * x * (3 - 2 * x); }

}  // namespace ostrand::simulator
