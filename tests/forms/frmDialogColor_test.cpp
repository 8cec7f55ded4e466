#include "forms/frmDialogColor.h"

#include <gtest/gtest.h>

#include <set>

#include "forms/FormFixture.h"
#include "support/ScriptedDialogs.h"

namespace dorvane {
namespace {

class frmDialogColorTest : public testing::Test {
 protected:
  // Opens the dialog for a colour and works it; one that is left open is cancelled.
  Color Work(Color entry, const std::function<void()>& work) {
    host.ExpectModal([&](Form&) {
      work();
      if (form.Visible()) form.cmdCansel.Press();
    });
    return form.Open(entry);
  }
  void SetSliders(int red, int green, int blue) {
    form.vsbRed.SetValue(red);
    form.vsbGreen.SetValue(green);
    form.vsbBlue.SetValue(blue);
  }
  void ExpectSliders(int red, int green, int blue) {
    EXPECT_EQ(form.vsbRed.Value(), red);
    EXPECT_EQ(form.vsbGreen.Value(), green);
    EXPECT_EQ(form.vsbBlue.Value(), blue);
    EXPECT_EQ(form.lblRed.Caption(), std::to_string(red));
    EXPECT_EQ(form.lblGreen.Caption(), std::to_string(green));
    EXPECT_EQ(form.lblBlue.Caption(), std::to_string(blue));
  }
  int SelectedPlace() {
    int selected = -1;
    for (int i = 0; i < form.picRegist.Size(); ++i) {
      if (!form.picRegist[i].Selected()) continue;
      EXPECT_EQ(selected, -1) << "two places are selected";
      selected = i;
    }
    return selected;
  }

  ScriptedDialogs dialogs;
  ScriptedFormHost host;
  frmDialogColor form{dialogs, host};
};

TEST_F(frmDialogColorTest, TextsOfTheForm) {
  EXPECT_EQ(form.Caption(), "Color Selection");
  EXPECT_EQ(form.fraRegist.Caption(), "Registration Color");
  EXPECT_EQ(form.cmdOther.Caption(), "Others...");
  EXPECT_EQ(form.cmdSet.Caption(), "Set");
  EXPECT_EQ(form.cmdOk.Caption(), "OK");
  EXPECT_EQ(form.cmdCansel.Caption(), "Cancel");
}

TEST_F(frmDialogColorTest, SlidersGoFromNoneToFull) {
  for (const Slider* slider : {&form.vsbRed, &form.vsbGreen, &form.vsbBlue}) {
    EXPECT_EQ(slider->Minimum(), 0);
    EXPECT_EQ(slider->Maximum(), 255);
  }
}

// 3 + 256 * 2 + 65536 * 1 = 66051.
TEST_F(frmDialogColorTest, RedIsTheLowByteThenGreenThenBlue) {
  Work(66051, [this] { ExpectSliders(3, 2, 1); });
  Work(0, [this] {
    SetSliders(3, 2, 1);
    EXPECT_EQ(form.picSampl.Fill(), 66051);
  });
}

TEST_F(frmDialogColorTest, OpeningShowsTheEntry) {
  for (const Color entry : {Rgb(0, 0, 0), Rgb(255, 255, 255), Rgb(12, 200, 7)}) {
    Work(entry, [this, entry] {
      ExpectSliders(RedOf(entry), GreenOf(entry), BlueOf(entry));
      EXPECT_EQ(form.picSampl.Fill(), entry);
    });
  }
}

TEST_F(frmDialogColorTest, ASliderPaintsTheSample) {
  Work(Rgb(10, 20, 30), [this] {
    form.vsbGreen.SetValue(200);
    EXPECT_EQ(form.picSampl.Fill(), Rgb(10, 200, 30));
    ExpectSliders(10, 200, 30);
  });
}

TEST_F(frmDialogColorTest, TheColoursOfThePaletteDiffer) {
  std::set<Color> colors;
  for (int i = 0; i < form.picColor.Size(); ++i) colors.insert(form.picColor[i].Fill().value());
  EXPECT_EQ(colors.size(), static_cast<std::size_t>(form.picColor.Size()));
}

TEST_F(frmDialogColorTest, AClickOnEachColourOfThePaletteSetsTheSliders) {
  Work(0, [this] {
    for (int i = 0; i < form.picColor.Size(); ++i) {
      const Color color = form.picColor[i].Fill().value();
      form.picColor[i].Press();
      ExpectSliders(color % 256, color / 256 % 256, color / 65536);
      EXPECT_EQ(form.picSampl.Fill(), color);
      EXPECT_EQ(form.shpSetColor(), i);
    }
  });
}

TEST_F(frmDialogColorTest, TheSelectionOfThePaletteLeavesWithItsColour) {
  Work(Rgb(255, 255, 255), [this] {
    EXPECT_EQ(form.picColor[form.shpSetColor()].Fill(), Rgb(255, 255, 255));
    form.vsbRed.SetValue(254);
    EXPECT_EQ(form.shpSetColor(), -1);
  });
}

TEST_F(frmDialogColorTest, OkAnswersTheComposedColour) {
  const Color answer = Work(Rgb(10, 20, 30), [this] {
    SetSliders(255, 0, 128);
    form.cmdOk.Press();
    EXPECT_FALSE(form.Visible());
  });
  EXPECT_EQ(answer, Rgb(255, 0, 128));
}

TEST_F(frmDialogColorTest, CancelAndTheFrameRestoreTheEntryColour) {
  for (const bool by_frame : {false, true}) {
    const Color answer = Work(Rgb(10, 20, 30), [this, by_frame] {
      SetSliders(255, 0, 128);
      by_frame ? form.QueryClose() : form.cmdCansel.Press();
      EXPECT_FALSE(form.Visible());
    });
    EXPECT_EQ(answer, Rgb(10, 20, 30));
    EXPECT_EQ(form.picSampl.Fill(), Rgb(10, 20, 30));
  }
}

TEST_F(frmDialogColorTest, BitsAboveTheBlueByteComeBackAfterCancelAlone) {
  const Color entry = 0x12'0000FF;
  EXPECT_EQ(Work(entry | 0x40000000, [] {}), entry | 0x40000000);
  EXPECT_EQ(Work(-1,
                 [this] {
                   ExpectSliders(255, 255, 255);
                   form.cmdOk.Press();
                 }),
            0xFFFFFF);
}

// "Others...".

TEST_F(frmDialogColorTest, OthersOpensTheSystemsChoiceAndTakesItsAnswer) {
  const Color answer = Work(Rgb(10, 20, 30), [this] {
    form.vsbRed.SetValue(11);
    dialogs.ExpectColor(Rgb(1, 2, 3));
    form.cmdOther.Press();
    EXPECT_EQ(dialogs.LastColor(), Rgb(11, 20, 30));
    ExpectSliders(1, 2, 3);
    EXPECT_TRUE(form.Visible());
    form.cmdOk.Press();
  });
  EXPECT_EQ(answer, Rgb(1, 2, 3));
}

TEST_F(frmDialogColorTest, ACancelledSystemsChoiceChangesNothing) {
  Work(Rgb(10, 20, 30), [this] {
    dialogs.ExpectColor({});
    form.cmdOther.Press();
    ExpectSliders(10, 20, 30);
  });
}

// Registered colours.

TEST_F(frmDialogColorTest, SetStoresTheColourInTheSelectedPlace) {
  Work(Rgb(10, 20, 30), [this] {
    EXPECT_EQ(SelectedPlace(), 0);
    form.picRegist[5].Press();
    EXPECT_EQ(SelectedPlace(), 5);
    form.cmdSet.Press();
    for (int i = 0; i < form.picRegist.Size(); ++i) {
      EXPECT_EQ(form.picRegist[i].Fill().has_value(), i == 5) << i;
    }
    EXPECT_EQ(form.picRegist[5].Fill(), Rgb(10, 20, 30));
  });
}

TEST_F(frmDialogColorTest, AnEmptyPlaceLeavesTheSliders) {
  Work(Rgb(10, 20, 30), [this] {
    form.picRegist[15].Press();
    ExpectSliders(10, 20, 30);
  });
}

TEST_F(frmDialogColorTest, ARegisteredColourSetsTheSliders) {
  Work(Rgb(10, 20, 30), [this] {
    form.cmdSet.Press();
    SetSliders(0, 0, 0);
    form.picRegist[0].Press();
    ExpectSliders(10, 20, 30);
  });
}

TEST_F(frmDialogColorTest, APaletteColourLeavesTheSelectedPlace) {
  Work(0, [this] {
    form.picRegist[3].Press();
    form.picColor[16].Press();
    EXPECT_EQ(SelectedPlace(), 3);
    form.cmdSet.Press();
    EXPECT_EQ(form.picRegist[3].Fill(), form.picColor[16].Fill());
  });
}

TEST_F(frmDialogColorTest, RegisteredColoursStayAlsoAfterCancel) {
  Work(Rgb(10, 20, 30), [this] { form.cmdSet.Press(); });
  Work(0, [this] { EXPECT_EQ(form.picRegist[0].Fill(), Rgb(10, 20, 30)); });
}

TEST_F(frmDialogColorTest, TheTipOfAPatchNamesItsComponents) {
  Work(Rgb(10, 20, 30), [this] {
    EXPECT_EQ(form.picSampl.Tip(), "Red 10, green 20, blue 30");
    EXPECT_EQ(form.picRegist[0].Tip(), "");
  });
}

}  // namespace
}  // namespace dorvane
