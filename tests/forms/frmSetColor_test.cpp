#include "forms/frmSetColor.h"

#include <gmock/gmock.h>

#include <set>

#include "forms/FormFixture.h"
#include "program/ProgramFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

// Every entry another colour, also those without a name.
ColorTable ManyColors() {
  ColorTable table;
  for (int i = 0; i < kColors; ++i) table[i] = Rgb(i, 2 * i, 255 - i);
  return table;
}

class frmSetColorTest : public testing::Test {
 protected:
  frmSetColorTest() { form.SetTbl(ManyColors()); }

  // Opens the form and works it until it hides; true after OK.
  bool Work(const std::function<void()>& work) {
    host.ExpectModal([work](Form&) { work(); });
    return form.Open(0);
  }
  // Presses a button of the table and answers its colour dialog.
  void Change(int index, Color color) {
    host.ExpectModal([this, color](Form&) {
      form.dialog.vsbRed.SetValue(RedOf(color));
      form.dialog.vsbGreen.SetValue(GreenOf(color));
      form.dialog.vsbBlue.SetValue(BlueOf(color));
      form.dialog.cmdOk.Press();
    });
    form.cmdColor[index].Press();
  }
  ColorTable Table() {
    ColorTable table;
    form.GetTbl(table);
    return table;
  }

  ScriptedDialogs dialogs;
  ScriptedFormHost host;
  frmSetColor form{dialogs, host};
};

TEST_F(frmSetColorTest, TextsOfTheForm) {
  EXPECT_EQ(form.Caption(), "Color Stetting");
  EXPECT_EQ(form.cmdOk.Caption(), "OK");
  EXPECT_EQ(form.cmdCansel.Caption(), "Cancel");
}

TEST_F(frmSetColorTest, EntriesHaveTheirNames) {
  std::vector<std::string> names;
  for (int i = 0; i < form.lblColor.Size(); ++i) names.push_back(form.lblColor[i].Caption());
  EXPECT_THAT(names,
              ElementsAre("Graph1", "Graph2", "Graph3", "Graph4", "Graph5", "Graph6", "Graph7",
                          "Graph8", "Graph9", "Graph10", "ROI No Text", "ROI Line ", "Element Mark",
                          "Peak Mark", "Peak Curve", "Fit Curve", "Zansa", "Base Form",
                          "Window1 Back", "Window2 Back", "Expand Area"));
  ASSERT_EQ(form.cmdColor.Size(), form.lblColor.Size());
  for (int i = 0; i < form.cmdColor.Size(); ++i) {
    EXPECT_EQ(form.cmdColor[i].Caption(), names[static_cast<std::size_t>(i)]);
  }
}

TEST_F(frmSetColorTest, ATableThatIsSetPaintsEachButton) {
  for (int i = 0; i < form.cmdColor.Size(); ++i) {
    EXPECT_EQ(form.cmdColor[i].Fill(), ManyColors()[i]) << i;
  }
}

TEST_F(frmSetColorTest, ATableThatIsSetComesBackWhole) {
  EXPECT_EQ(Table(), ManyColors());
}

TEST_F(frmSetColorTest, AButtonOpensTheColourDialogWithItsColour) {
  Work([this] {
    host.ExpectModal([this](Form& opened) {
      EXPECT_EQ(opened.Name(), "frmDialogColor");
      EXPECT_EQ(form.dialog.picSampl.Fill(), Rgb(7, 14, 248));
      form.dialog.cmdCansel.Press();
    });
    form.cmdColor[7].Press();
    form.cmdOk.Press();
  });
}

TEST_F(frmSetColorTest, TheResultReplacesTheEntryAndTheButtonsColour) {
  ColorTable expected = ManyColors();
  expected[13] = Rgb(1, 2, 3);
  EXPECT_TRUE(Work([this] {
    Change(13, Rgb(1, 2, 3));
    EXPECT_EQ(form.cmdColor[13].Fill(), Rgb(1, 2, 3));
    form.cmdOk.Press();
  }));
  EXPECT_EQ(Table(), expected);
}

TEST_F(frmSetColorTest, EveryButtonChangesItsOwnEntryAndThosePastThemStay) {
  Work([this] {
    for (int i = 0; i < form.cmdColor.Size(); ++i) Change(i, Rgb(200, 100, i));
    form.cmdOk.Press();
  });
  for (int i = 0; i < kColors; ++i) {
    EXPECT_EQ(Table()[i], i < 21 ? Rgb(200, 100, i) : ManyColors()[i]) << i;
  }
}

TEST_F(frmSetColorTest, ACancelledColourDialogLeavesTheEntry) {
  Work([this] {
    host.ExpectModal([this](Form&) {
      form.dialog.vsbRed.SetValue(99);
      form.dialog.cmdCansel.Press();
    });
    form.cmdColor[2].Press();
    form.cmdOk.Press();
  });
  EXPECT_EQ(Table(), ManyColors());
}

TEST_F(frmSetColorTest, CancelAndTheFrameDiscardTheChanges) {
  for (const bool by_frame : {false, true}) {
    EXPECT_FALSE(Work([this, by_frame] {
      Change(0, Rgb(1, 2, 3));
      by_frame ? form.QueryClose() : form.cmdCansel.Press();
    }));
    EXPECT_EQ(Table(), ManyColors());
    EXPECT_EQ(form.cmdColor[0].Fill(), ManyColors()[0]);
  }
}

TEST_F(frmSetColorTest, OkOfOneOpeningIsForgottenByTheNext) {
  EXPECT_TRUE(Work([this] { form.cmdOk.Press(); }));
  EXPECT_FALSE(Work([this] { form.cmdCansel.Press(); }));
}

TEST_F(frmSetColorTest, TheFirstEntryIsTheOneAskedFor) {
  host.ExpectModal([this](Form&) {
    EXPECT_EQ(form.FirstEntry().Caption(), "Peak Mark");
    form.cmdCansel.Press();
  });
  form.Open(13);
}

}  // namespace
}  // namespace dorvane
