// The seeds of the fuzz targets and mutants of them, the same in every run and on every machine.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "support/FileLayer.h"

namespace dorvane {

// A little-endian field of `size` bytes that steers how a format is read, and values at the edges
// of its ranges.
struct EdgeField {
  std::size_t offset;
  std::size_t size;
  std::vector<int> values;
};

// Changes seeds at one to four random places.
class Mutator {
 public:
  Mutator(std::vector<ByteVector> seeds, std::vector<EdgeField> fields)
      : seeds_(std::move(seeds)), fields_(std::move(fields)) {}

  // Stays until the next call.
  std::span<const std::byte> Next() {
    mutant_ = seeds_[Below(seeds_.size())];
    for (std::size_t changes = 1 + Below(4); changes > 0; --changes) Change();
    return mutant_;
  }

 private:
  static constexpr std::size_t kMostBytesMoved = 40;

  std::size_t Below(std::size_t end) { return random_() % end; }

  void Change() {
    if (mutant_.empty()) return;
    const std::size_t at = Below(mutant_.size());
    const auto place = mutant_.begin() + static_cast<std::ptrdiff_t>(at);
    switch (Below(6)) {
      case 0:
        *place = static_cast<std::byte>(random_());
        break;
      case 1:
        mutant_.resize(at);
        break;
      case 2:
        mutant_.erase(place, place + static_cast<std::ptrdiff_t>(
                                         std::min(Below(kMostBytesMoved), mutant_.size() - at)));
        break;
      case 3:
        mutant_.insert(place, Below(kMostBytesMoved), static_cast<std::byte>(random_()));
        break;
      case 4: {  // the signs that texts are made of
        constexpr std::string_view kSigns = "\",=- .\r\n09eED";
        *place = static_cast<std::byte>(kSigns[Below(kSigns.size())]);
        break;
      }
      default:
        if (!fields_.empty()) SetToAnEdge(fields_[Below(fields_.size())]);
    }
  }

  void SetToAnEdge(const EdgeField& field) {
    if (field.offset + field.size > mutant_.size()) return;
    const int value = field.values[Below(field.values.size())];
    for (std::size_t i = 0; i < field.size; ++i) {
      mutant_[field.offset + i] = static_cast<std::byte>((value >> (8 * i)) & 0xFF);
    }
  }

  std::vector<ByteVector> seeds_;
  std::vector<EdgeField> fields_;
  ByteVector mutant_;
  std::mt19937 random_{20240607};
};

// The seeds of a target in the order of their names.
inline std::vector<ByteVector> SeedsOf(const std::string& target) {
  std::vector<std::string> paths;
  const std::string folder = std::string(DORVANE_SOURCE_DIR) + "/fuzz/corpus/" + target;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    paths.push_back(entry.path().string());
  }
  std::sort(paths.begin(), paths.end());
  SystemFileLayer files;
  std::vector<ByteVector> seeds;
  for (const std::string& path : paths) seeds.push_back(ReadFile(files, path));
  return seeds;
}

// Whether the property holds for an image in memory of exactly its size, where the sanitizers see
// any step past its end.
template <typename Property>
bool HoldsAlone(Property holds, std::span<const std::byte> image) {
  const auto alone = std::make_unique_for_overwrite<std::byte[]>(image.size());
  std::copy(image.begin(), image.end(), alone.get());
  return holds(std::span<const std::byte>(alone.get(), image.size()));
}

// Replays the seeds of a target and 20,000 mutants of them.
template <typename Property>
void ExpectHoldsOnSeedsAndMutants(const std::string& target, Property holds,
                                  std::vector<EdgeField> fields = {}) {
  constexpr int kMutants = 20'000;
  const auto seeds = SeedsOf(target);
  ASSERT_GE(seeds.size(), 5u);
  for (std::size_t i = 0; i < seeds.size(); ++i) {
    EXPECT_TRUE(HoldsAlone(holds, seeds[i])) << "seed " << i;
  }
  Mutator mutator(seeds, std::move(fields));
  for (int i = 0; i < kMutants; ++i) {
    ASSERT_TRUE(HoldsAlone(holds, mutator.Next())) << "mutant " << i;
  }
}

}  // namespace dorvane
