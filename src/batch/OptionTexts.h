// Texts of command-line options taken apart. Each throws UsageError with a text that says what is
// expected.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "program/LatticeRun.h"

namespace dorvane {

// "A:B" with channel numbers 1 <= A < B <= 8192, as channel indices.
struct ChannelSpan {
  int first = 0;
  int last = 0;
};
ChannelSpan ParseChannelSpan(std::string_view text);

// "2 0 0,2 2 0": triples of whole numbers separated by commas, their indices by blanks; "200,220"
// for single digits.
std::vector<Hkl> ParseHklList(std::string_view text);

// Exactly `count` numbers separated by commas; `what` names them in the error.
std::vector<double> ParseNumbers(std::string_view text, std::size_t count, std::string_view what);

// "INTERVAL,TIMES", whole numbers from 1 to 8191.
std::pair<std::int16_t, std::int16_t> ParseBackground(std::string_view text);

// "5", "7", "9" or "11" points as smoothing kinds 0..3; -1 for "none".
int ParseSmoothing(std::string_view text);

}  // namespace dorvane
