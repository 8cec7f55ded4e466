#include "forms/frmKeys.h"

#include <gtest/gtest.h>

#include <map>

#include "forms/FormFixture.h"
#include "forms/KeyTable.h"
#include "forms/MenuTable.h"

namespace dorvane {
namespace {

class KeysFormTest : public testing::Test {
 protected:
  // What each key does; a key that stands twice fails.
  std::map<std::string, std::string> Rows() {
    std::map<std::string, std::string> rows;
    for (int row = 1; row <= form.sprKeys.MaxRows(); ++row) {
      const std::string key = form.sprKeys.Text(row, frmKeys::kKey);
      EXPECT_TRUE(rows.emplace(key, form.sprKeys.Text(row, frmKeys::kWhat)).second) << key;
    }
    return rows;
  }

  ScriptedFormHost host;
  frmKeys form{host};
};

TEST_F(KeysFormTest, HasTheKeysOfTheFormAndOfTheMenusOnce) {
  const auto rows = Rows();
  EXPECT_EQ(rows.at("Shift+Left"), "Cursor 20 channels to the left");
  EXPECT_EQ(rows.at("Ctrl+O"), "Open spectra");
  EXPECT_EQ(rows.count("Alt+Left"), 1U);
}

TEST_F(KeysFormTest, NamesEveryKeyWithWhatItDoes) {
  const auto rows = Rows();
  for (const KeyRow& row : KeyTable()) EXPECT_TRUE(rows.contains(std::string(row.shown)));
  for (const MenuRow& row : MenuTable()) {
    EXPECT_TRUE(row.key.empty() || rows.contains(std::string(row.key))) << row.name;
  }
  for (const auto& [key, what] : rows) EXPECT_FALSE(what.empty()) << key;
}

TEST_F(KeysFormTest, TellsWhatTheMouseDoesOnAGraph) {
  const auto rows = Rows();
  EXPECT_EQ(rows.at("Wheel"), "Zooms about the pointer");
  EXPECT_EQ(rows.at("Shift+Wheel"), "Scrolls");
}

TEST_F(KeysFormTest, OkHidesIt) {
  form.Show();
  form.cmdOk.Press();
  EXPECT_FALSE(form.Visible());
}

}  // namespace
}  // namespace dorvane
