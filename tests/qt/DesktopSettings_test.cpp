#include "qt/DesktopSettings.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSettings>
#include <filesystem>

#include "support/TemporaryFolder.h"

namespace dorvane {
namespace {

using Texts = std::vector<std::string>;

class DesktopSettingsTest : public testing::Test {
 protected:
  DesktopSettingsTest() {
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                       QString::fromStdString(folder.Path("")));
  }
  TemporaryFolder folder;
};

TEST_F(DesktopSettingsTest, TextsComeBackInTheNextRun) {
  const Texts paths = {"/data/測定 一, 二.npd", "/data/a=b;c%20\"d\".npd"};
  DesktopSettings().SetTexts("RecentFiles", paths);
  EXPECT_EQ(DesktopSettings().Texts("RecentFiles"), paths);
}

TEST_F(DesktopSettingsTest, OneTextAndNoTextAreLists) {
  DesktopSettings settings;
  EXPECT_EQ(settings.Texts("WindowShare"), Texts{});
  settings.SetTexts("WindowShare", {"0.65"});
  EXPECT_EQ(settings.Texts("WindowShare"), Texts{"0.65"});
  settings.SetTexts("WindowShare", {});
  EXPECT_EQ(DesktopSettings().Texts("WindowShare"), Texts{});
}

TEST_F(DesktopSettingsTest, AnotherProgramThatRunsIsHeard) {
  DesktopSettings one;
  DesktopSettings other;
  one.SetTexts("RecentFiles", {"/data/a.npd"});
  EXPECT_EQ(other.Texts("RecentFiles"), Texts{"/data/a.npd"});
  other.SetTexts("WindowShare", {"0.5"});
  EXPECT_EQ(one.Texts("RecentFiles"), Texts{"/data/a.npd"});
}

TEST_F(DesktopSettingsTest, DamagedFileIsNoSettings) {
  std::filesystem::create_directory(folder.Path("dorvane"));
  folder.Put("dorvane/dorvane.ini", "\x01[[[\n=\nRecentFiles=@Variant(\0\0");
  EXPECT_EQ(DesktopSettings().Texts("WindowShare"), Texts{});
}

}  // namespace
}  // namespace dorvane
