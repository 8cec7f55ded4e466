#include "forms/AtomSelection.h"

#include <gmock/gmock.h>

#include "support/MemorySettings.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AtomSelectionTest : public testing::Test {
 protected:
  // Of all elements, how many lines are off.
  int OffIn(const std::vector<std::string>& texts) {
    settings.SetTexts("AtomSel", texts);
    const AtomSelTable selections = StoredAtomSel(settings);
    int off = 0;
    for (const auto& row : selections) {
      for (int num = kFirstElement; num <= kLastElement; ++num) off += row[num] == kFalse;
    }
    return off;
  }

  MemorySettings settings;
};

TEST_F(AtomSelectionTest, WithoutSettingsEveryLineIsSelected) {
  const AtomSelTable selections = StoredAtomSel(settings);
  for (const auto& row : selections) {
    for (int num = kFirstElement; num <= kLastElement; ++num) EXPECT_EQ(row[num], kTrue);
  }
}

TEST_F(AtomSelectionTest, LinesThatAreOffComeBack) {
  AtomSelTable selections = StoredAtomSel(settings);
  selections[0][1] = kFalse;
  selections[7][103] = kFalse;
  KeepAtomSel(settings, selections);
  EXPECT_THAT(settings.Texts("AtomSel"), ElementsAre("1 01111111", "103 11111110"));
  const AtomSelTable stored = StoredAtomSel(settings);
  EXPECT_EQ(stored[0][1], kFalse);
  EXPECT_EQ(stored[7][103], kFalse);
  EXPECT_EQ(stored[7][1], kTrue);
}

TEST_F(AtomSelectionTest, WithAllSelectedNothingIsKept) {
  settings.SetTexts("AtomSel", {"26 00000000"});
  AtomSelTable selections = StoredAtomSel(settings);
  for (auto& row : selections) row.fill(kTrue);
  KeepAtomSel(settings, selections);
  EXPECT_THAT(settings.Texts("AtomSel"), IsEmpty());
}

TEST_F(AtomSelectionTest, TextsThatAreNoneOfAnElementArePassedOver) {
  EXPECT_EQ(OffIn({"26 00000000"}), 8);
  for (const char* text :
       {"", "26", "26 ", "26 0000000", "26 000000000", "26 0000000x", "0 00000000", "104 00000000",
        "-1 00000000", "99999999999 00000000", "x 00000000", "26x00000000", " 26 00000000"}) {
    EXPECT_EQ(OffIn({text}), 0) << text;
  }
  EXPECT_EQ(OffIn({"nonsense", "26 00000000"}), 8);
}

}  // namespace
}  // namespace dorvane
