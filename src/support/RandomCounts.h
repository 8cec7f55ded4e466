// Random numbers that depend on no library: uniform ones, and counts of a Poisson process.
#pragma once

#include <array>
#include <cstdint>

namespace dorvane {

// The generator xoshiro256** (D. Blackman, S. Vigna, ACM Trans. Math. Softw. 47 (2021) 36), its
// state filled by splitmix64 (G. Steele, D. Lea, C. Flood, OOPSLA 2014).
class RandomCounts {
 public:
  explicit RandomCounts(std::uint64_t seed);

  std::uint64_t Next();
  // At least 0, below 1.
  double Uniform();
  // A count with that mean; 0 for a mean of 0 or less. By inversion below a mean of 10, above it by
  // transformed rejection (W. Hoermann, Insurance: Mathematics and Economics 12 (1993) 39,
  // algorithm PTRS). Means up to 1e9; throws Fault(Overflow) above and for NaN.
  std::int32_t Poisson(double mean);

 private:
  std::int32_t ByInversion(double mean);
  std::int32_t ByRejection(double mean);

  std::array<std::uint64_t, 4> state_;
};

}  // namespace dorvane
