#include "simulator/Noise.h"

namespace ostrand::simulator {

namespace {

// SplitMix64.
std::uint64_t mixed(std::uint64_t x) {
  x += 0x9e3779b97f4a7c15u;
  x = (x ^ (x >> 30)) * 0xbf58476d1ce4e5b9u;
  x = (x ^ (x >> 27)) * 0x94d049bb133111ebu;
  return x ^ (x >> 31);
}

}  // namespace

std::uint64_t Noise::bits(std::int64_t at) const { return mixed(mixed(mSeed) ^ static_cast<std::uint64_t>(at)); }

double Noise::uniform(std::int64_t at) const { return static_cast<double>(bits(at) >> 11) * 0x1p-52 - 1.0; }

double Noise::normal(std::int64_t at) const {
  // The sum of four uniform numbers is near enough to a bell for a process.
  const std::uint64_t all = bits(at);
  std::int64_t sum = 0;
  for (int shift = 0; shift < 64; shift += 16) sum += static_cast<std::int64_t>((all >> shift) & 0xffff);
  constexpr double kMean = 2 * 65535.0;
  constexpr double kDeviation = 37837.2;  // 65536 / sqrt(3)
  return (static_cast<double>(sum) - kMean) / kDeviation;
}

double Noise::smooth(std::int64_t at, std::int64_t period) const {
  const std::int64_t left = floorDivision(at, period);
  const double a = uniform(left);
  const double b = uniform(left + 1);
  return a + (b - a) * smoothStep(static_cast<double>(at - left * period) / static_cast<double>(period));
}

}  // namespace ostrand::simulator
