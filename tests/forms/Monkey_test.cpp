#include "forms/Monkey.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <numeric>

namespace dorvane {
namespace {

constexpr int kSeeds = 20;
constexpr int kActions = 1000;
constexpr int kActionsToCompare = 300;

int FromEnvironment(const char* name, int otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : std::atoi(text);
}

std::string Last(const std::vector<std::string>& actions, std::size_t count) {
  std::string text;
  for (std::size_t i = actions.size() - std::min(actions.size(), count); i < actions.size(); ++i) {
    text += "\n  " + std::to_string(i) + ": " + actions[i];
  }
  return text;
}

void RunMonkey(int seed, int actions, bool trace) {
  Monkey monkey(static_cast<std::uint64_t>(seed), trace);
  for (int number = 1; number <= actions; ++number) {
    const Wrong wrong = monkey.Act();
    for (const std::string& rule : wrong) ADD_FAILURE() << rule;
    ASSERT_TRUE(wrong.empty()) << "seed " << seed << ", action " << number
                               << ", the last ones:" << Last(monkey.Actions(), 20);
  }
}

class MonkeyTest : public testing::TestWithParam<int> {};

// DORVANE_MONKEY_SEED plays one seed alone, and tells each action before it is done;
// DORVANE_MONKEY_ACTIONS is how many.
constexpr const char* kSeedName = "DORVANE_MONKEY_SEED";

std::vector<int> Seeds() {
  if (std::getenv(kSeedName) != nullptr) return {FromEnvironment(kSeedName, 0)};
  std::vector<int> seeds(kSeeds);
  std::iota(seeds.begin(), seeds.end(), 1);
  return seeds;
}

TEST_P(MonkeyTest, NoActionBreaksAnInvariant) {
  RunMonkey(GetParam(), FromEnvironment("DORVANE_MONKEY_ACTIONS", kActions),
            std::getenv(kSeedName) != nullptr);
}

INSTANTIATE_TEST_SUITE_P(Seeds, MonkeyTest, testing::ValuesIn(Seeds()),
                         [](const auto& each) { return std::to_string(each.param); });

TEST(MonkeyReplayTest, ASeedDoesTheSameAgain) {
  Monkey first(7);
  Monkey again(7);
  for (int i = 0; i < kActionsToCompare; ++i) {
    first.Act();
    again.Act();
  }
  EXPECT_EQ(first.Actions(), again.Actions());
  EXPECT_EQ(Digest(first.TheProgram()), Digest(again.TheProgram()));
}

TEST(MonkeyReplayTest, AnotherSeedDoesSomethingElse) {
  Monkey first(7);
  Monkey other(8);
  for (int i = 0; i < kActionsToCompare; ++i) {
    first.Act();
    other.Act();
  }
  EXPECT_NE(first.Actions(), other.Actions());
}

}  // namespace
}  // namespace dorvane
