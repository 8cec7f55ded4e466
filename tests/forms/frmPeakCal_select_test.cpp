// What is chosen and typed in the lattice form: mode, sample, system, seeds, angle.
#include <gmock/gmock.h>

#include "forms/PeakCalFixture.h"
#include "lattice/CalLattice.h"

namespace dorvane {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class PeakCalSelectTest : public PeakCalTest {};

// ---- mode

TEST_F(PeakCalSelectTest, SampleModeComesFirst) {
  Work([&] {
    EXPECT_EQ(form.Work().SelectMode, 0);
    EXPECT_TRUE(form.cmbElement.Enabled());
    EXPECT_FALSE(form.txtPressure.Enabled());
  });
}

TEST_F(PeakCalSelectTest, MarkerModeResetsTheChoiceAndOpensThePressure) {
  Work([&] {
    Choose(kTin);
    form.optSelectMode.SetIndex(1);
    EXPECT_EQ(form.Work().SelectMode, 1);
    EXPECT_EQ(form.cmbLatticeType.Index(), -1);
    EXPECT_EQ(form.cmbElement.Index(), -1);
    EXPECT_EQ(form.cmbElement.Items().size(), 8u);
    EXPECT_TRUE(form.txtPressure.Enabled());
  });
  EXPECT_EQ(Logged("\"********************* Lattice Fit Mode Changed!! **********\"\r\n\"\"\r\n"),
            2);
}

TEST_F(PeakCalSelectTest, SampleModeKeepsTheSystemAndForgetsTheSample) {
  Work([&] {
    form.optSelectMode.SetIndex(1);
    Choose(kTin);
    form.optSelectMode.SetIndex(0);
    EXPECT_EQ(form.cmbLatticeType.Text(), "Tetragonal");
    EXPECT_EQ(form.Work().ElementIndex, -1);
    EXPECT_EQ(form.txtSeedConstant[0].Text(), "5.831600");
  });
}

TEST_F(PeakCalSelectTest, SampleModeOpensTheSecondAndThirdSeedAgain) {
  Work([&] {
    Choose(kCu);
    form.optSelectMode.SetIndex(1);
    form.optSelectMode.SetIndex(0);
    EXPECT_EQ(form.cmbElement.Index(), -1);
    EXPECT_THAT(On(form.txtSeedConstant), ElementsAre(true, true, true, false, false, false));
    EXPECT_TRUE(form.lblSeed[1].Enabled() && form.lblSeed[2].Enabled());
    EXPECT_FALSE(form.txtPressure.Enabled());
    for (int k = 1; k < 6; ++k) {
      EXPECT_TRUE(form.txtSeedConstant[k].Visible() && form.txtLatticeLength[k].Visible());
    }
  });
}

// ---- sample

TEST_F(PeakCalSelectTest, SampleShowsItsCellAndSeeds) {
  Work([&] {
    Choose(kKyanite);
    const auto cell =
        ElementsAre("7.126200", "7.852000", "5.572400", "89.990000", "101.110000", "106.030000");
    EXPECT_THAT(Texts(form.txtLatticeConstans), cell);
    EXPECT_THAT(Texts(form.txtSeedConstant), cell);
    EXPECT_EQ(form.cmbLatticeType.Text(), "Triclinic");
  });
}

TEST_F(PeakCalSelectTest, EachSystemOpensTheBoxesThatItNeedsAndClearsTheOthers) {
  struct {
    Sample sample;
    std::vector<bool> on;
  } const rows[] = {{kCu, {true, false, false, false, false, false}},
                    {kTin, {true, false, true, false, false, false}},
                    {kCorundum, {true, false, true, false, false, false}},
                    {kOlivine, {true, true, true, false, false, false}},
                    {kCryolite, {true, true, true, false, true, false}},
                    {kKyanite, {true, true, true, true, true, true}}};
  Work([&] {
    for (const auto& row : rows) {
      Choose(row.sample);
      EXPECT_EQ(On(form.txtSeedConstant), row.on) << row.sample;
      EXPECT_EQ(On(form.txtLatticeLength), row.on) << row.sample;
      for (int k = 0; k < 6; ++k) {
        EXPECT_EQ(form.txtSeedConstant[k].Text().empty(), !row.on[static_cast<std::size_t>(k)]);
      }
    }
  });
}

TEST_F(PeakCalSelectTest, BoxesThatASystemDoesNotNeedLoseTheirResult) {
  AddLines(kOlivine);
  Work([&] {
    Fit(kOlivine);
    Choose(kCu);
    EXPECT_THAT(form.txtLatticeLength[0].Text(), Not(IsEmpty()));
    for (int k = 1; k < 6; ++k) EXPECT_EQ(form.txtLatticeLength[k].Text(), "");
  });
}

TEST_F(PeakCalSelectTest, SampleOfAnUnknownSystemChangesNoBoxAndIsNotLogged) {
  Work([&] {
    Choose(kTin);
    Choose(kOdd);
    EXPECT_EQ(form.cmbLatticeType.Text(), "Tetragonal");
    EXPECT_EQ(form.txtLatticeConstans[0].Text(), "3.615000");
    EXPECT_THAT(On(form.txtSeedConstant), ElementsAre(true, false, true, false, false, false));
  });
  EXPECT_EQ(Logged("Element Changed!!"), 1);
}

TEST_F(PeakCalSelectTest, SeedsOfASampleAreThoseThatAreShown) {
  Work([&] {
    for (const Sample sample : {kTin, kKyanite, kOdd}) {
      Choose(sample);
      for (int k = 0; k < 6; ++k) {
        const TextBox& box = form.txtSeedConstant[k];
        if (!box.Enabled()) continue;
        EXPECT_EQ(form.Work().Seed[k], NumberOf(box.Text())) << sample << k;
      }
    }
  });
}

TEST_F(PeakCalSelectTest, SampleOfTheSameSystemLogsNoChangeOfTheSystem) {
  Work([&] {
    Choose(kCu);
    Choose(kMgO);
  });
  EXPECT_EQ(Logged("Lattice Type Changed!!"), 1);
  EXPECT_EQ(Logged("Element Changed!!"), 2);
}

TEST_F(PeakCalSelectTest, SelectionThatIsNoneChangesNothing) {
  Work([&] {
    Choose(kTin);
    form.cmbElement.SetIndex(-1);
    EXPECT_EQ(form.Work().ElementIndex, kTin);
    EXPECT_EQ(form.txtSeedConstant[0].Text(), "5.831600");
  });
  EXPECT_EQ(Logged("Element Changed!!"), 1);
}

TEST_F(PeakCalSelectTest, SampleIsLoggedWithItsCell) {
  Work([&] { Choose(kTin); });
  EXPECT_THAT(LogText(),
              HasSubstr("\"********************* Element Changed!! **********\"\r\n"
                        "\"*********** Element Reference Information *************\"\r\n"
                        "\"\",\"TRI\",\"Tin\"\r\n"
                        "\"\",\"A     =\",5.8316\r\n\"\",\"B     =\",5.8316\r\n"
                        "\"\",\"C     =\",3.1815\r\n\"\",\"Alpha =\",90\r\n\"\",\"Beta  =\",90\r\n"
                        "\"\",\"Gamma =\",90\r\n"));
}

TEST_F(PeakCalSelectTest, LinesOfTheSampleAreMarkedWhileTheFormIsOpen) {
  Work([&] {
    Choose(kMgO);
    EXPECT_THAT(MarksShown(), ElementsAre("111", "200", "220", "311", "400"));
    // 111 at E = 12.3981 / (2 * 4.2112 / sqrt(3) * sin(3 degrees)) keV, 0.02 keV a channel: by hand
    // channel number 2435.85, index 2435.
    EXPECT_EQ(program.spect.NamedLines(0)[0].X, 2435);
    form.optSelectMode.SetIndex(1);
    EXPECT_THAT(MarksShown(), IsEmpty());
    Choose(kMgO);
  });
  EXPECT_THAT(MarksShown(), IsEmpty());
}

TEST_F(PeakCalSelectTest, MarksFollowTheSeeds) {
  Work([&] {
    Choose(kMgO);
    Type(form.txtSeedConstant[0], "2.1056");
    EXPECT_EQ(program.spect.NamedLines(0)[0].X, 4871);  // at twice the energy
  });
}

// ---- system

TEST_F(PeakCalSelectTest, AnotherSystemOpensItsBoxesAndIsLogged) {
  Work([&] {
    Choose(kOlivine);
    form.txtLatticeConstans[0].SetText("");
    form.cmbLatticeType.SetIndex(kHexagonal);
    EXPECT_THAT(On(form.txtSeedConstant), ElementsAre(true, false, true, false, false, false));
    EXPECT_THAT(Texts(form.txtSeedConstant), ElementsAre("4.753500", "", "5.980700", "", "", ""));
    EXPECT_EQ(form.txtLatticeConstans[0].Text(), "4.753500");
  });
  // One by the sample, one by the user.
  EXPECT_EQ(Logged("\"********************* Lattice Type Changed!! **********\"\r\n\"\"\r\n"), 2);
}

TEST_F(PeakCalSelectTest, EverySystemOpensItsBoxesWhenItIsChosenItself) {
  const std::vector<bool> on[] = {
      {true, false, false, false, false, false}, {true, false, true, false, false, false},
      {true, false, true, false, false, false},  {true, true, true, false, false, false},
      {true, true, true, false, true, false},    {true, true, true, true, true, true}};
  Work([&] {
    for (int type = kTriclinic; type >= kCubic; --type) {
      form.cmbLatticeType.SetIndex(type);
      EXPECT_EQ(form.Work().LatticeIndex, type);
      EXPECT_EQ(On(form.txtSeedConstant), on[type]) << type;
      EXPECT_EQ(On(form.txtLatticeLength), on[type]) << type;
      EXPECT_EQ(form.lblSeed[1].Enabled(), on[type][1]) << type;
    }
    EXPECT_THAT(Texts(form.txtLatticeConstans), Each(""));  // no sample
  });
  EXPECT_EQ(Logged("Lattice Type Changed!!"), 6);
}

// ---- seeds

TEST_F(PeakCalSelectTest, SeedThatIsNoNumberKeepsTheFocus) {
  Work([&] {
    Choose(kCu);
    EXPECT_FALSE(Type(form.txtSeedConstant[0], "3.6x"));
    EXPECT_EQ(form.txtSeedConstant[0].Text(), "3.6x");
    EXPECT_EQ(form.Work().Seed[0], 3.615);
  });
}

TEST_F(PeakCalSelectTest, SameSeedIsOnlyShownInItsPicture) {
  AddLines(kCu);
  Work([&] {
    Fit(kCu);
    EXPECT_TRUE(Type(form.txtSeedConstant[0], " 3.615 "));
    EXPECT_EQ(form.txtSeedConstant[0].Text(), "3.615000");
    EXPECT_EQ(form.sprPeakInf3.MaxRows(), 5);
  });
  EXPECT_EQ(Logged("New Seed"), 0);
}

// The picture cuts the seventh place off; the seed keeps it.
TEST_F(PeakCalSelectTest, BoxThatShowsARoundedSeedIsLeftWithoutAChange) {
  AddLines(kCu);
  Work([&] {
    Choose(kCu);
    Type(form.txtSeedConstant[0], "3.6150004");
    EXPECT_EQ(form.txtSeedConstant[0].Text(), "3.615000");
    EXPECT_TRUE(form.txtSeedConstant[0].Leave());
    EXPECT_EQ(form.Work().Seed[0], 3.6150004);
  });
  EXPECT_EQ(Logged("New Seed"), 1);
}

TEST_F(PeakCalSelectTest, NewSeedIsLoggedAndForgetsWhatWasIndexed) {
  AddLines(kCu);
  Work([&] {
    Fit(kCu);
    SetUse(form.sprPeakInf3, 2, false);
    EXPECT_TRUE(Type(form.txtSeedConstant[0], "3.62"));
    EXPECT_EQ(form.txtSeedConstant[0].Text(), "3.620000");
    EXPECT_EQ(form.Work().Seed[0], 3.62);
    EXPECT_EQ(form.sprPeakInf3.MaxRows(), 0);
    EXPECT_EQ(form.State().Lines[1], LineRec{});
    EXPECT_EQ(form.State().Match, MatchState{});
  });
  EXPECT_EQ(Logged("\"************ New Seed Inputed!!!!!! **************\"\r\n\"\"\r\n"), 1);
}

// ---- angle

TEST_F(PeakCalSelectTest, AngleThatIsNoNumberKeepsTheFocus) {
  Work([&] {
    EXPECT_FALSE(Type(form.txt2Theta, ""));
    EXPECT_EQ(form.Work().TwoTheta, 6);
  });
}

TEST_F(PeakCalSelectTest, SameAngleIsOnlyShownInItsPicture) {
  Work([&] {
    EXPECT_TRUE(Type(form.txt2Theta, "6"));
    EXPECT_EQ(form.txt2Theta.Text(), "6.00000");
  });
  EXPECT_EQ(Logged("2θChanged"), 0);
}

// An angle of a file has more places than its picture.
TEST_F(PeakCalSelectTest, BoxThatShowsARoundedAngleIsLeftWithoutAChange) {
  workspace.Spectra[data_no].Prop.TwoTheta = 6.0000012;
  AddLines(kCu);
  Work([&] {
    Fit(kCu);
    EXPECT_EQ(form.txt2Theta.Text(), "6.00000");
    EXPECT_TRUE(form.txt2Theta.Leave());
    EXPECT_EQ(form.Work().TwoTheta, 6.0000012);
    EXPECT_EQ(workspace.Spectra[data_no].Prop.TwoTheta, 6.0000012);
    EXPECT_EQ(form.sprPeakInf3.MaxRows(), 5);
  });
  EXPECT_EQ(Logged("2θChanged"), 0);
}

TEST_F(PeakCalSelectTest, AngleOfZeroHasNoDValues) {
  AddPeak(2);
  Work([&] {
    EXPECT_TRUE(Type(form.txt2Theta, "0"));
    EXPECT_EQ(form.txt2Theta.Text(), "0.00000");
    EXPECT_EQ(form.sprPeakInf.Text(1, 3), "0.00000");
  });
}

TEST_F(PeakCalSelectTest, NewAngleRenewsTheDValuesAlone) {
  AddPeak(2);
  Work([&] {
    auto row = RowOf(form.sprPeakInf, 1);
    Type(form.txt2Theta, "6.1");
    row[2] = "1.96724";
    EXPECT_EQ(RowOf(form.sprPeakInf, 1), row);
  });
}

TEST_F(PeakCalSelectTest, NewAngleCountsWithTheDefaultCalibrationToo) {
  workspace.UseFileEgc = 0;
  workspace.DefaultProp.EGC[1] = 0.02;
  AddPeak(2);
  Work([&] {
    EXPECT_EQ(form.txt2Theta.Text(), "5.50000");
    Type(form.txt2Theta, "6.1");
    EXPECT_EQ(form.sprPeakInf.Text(1, 3), "1.96724");
  });
  EXPECT_EQ(workspace.DefaultProp.TwoTheta, 5.5);
  EXPECT_EQ(workspace.Spectra[data_no].Prop.TwoTheta, 6);
}

TEST_F(PeakCalSelectTest, NewAngleCountsAtOnceAndIsLogged) {
  AddPeak(2);
  Work([&] {
    EXPECT_EQ(form.sprPeakInf.Text(1, 3), "2.00000");
    EXPECT_TRUE(Type(form.txt2Theta, "6.1"));
    EXPECT_EQ(form.txt2Theta.Text(), "6.10000");
    EXPECT_EQ(form.Work().TwoTheta, 6.1);
    EXPECT_EQ(workspace.Spectra[data_no].Prop.TwoTheta, 6.1);
    EXPECT_EQ(workspace.DefaultProp.TwoTheta, 6.1);
    // 2 sin(3 degrees) / sin(3.05 degrees), by hand.
    EXPECT_EQ(form.sprPeakInf.Text(1, 3), "1.96724");
  });
  EXPECT_THAT(LogText(), HasSubstr("\"********************* 2θChanged!! **********\"\r\n"
                                   "\"********** Property      ********************\"\r\n"
                                   "\"2θ\",\"6.10000\"\r\n"));
  EXPECT_EQ(Logged("PEAKS CURVE FITED LIST"), 2);
}

TEST_F(PeakCalSelectTest, NewAngleForgetsWhatWasIndexed) {
  AddLines(kCu);
  Work([&] {
    Fit(kCu);
    Type(form.txt2Theta, "6.01");
    EXPECT_EQ(form.sprPeakInf3.MaxRows(), 0);
    EXPECT_EQ(form.State().Lines[0].Matched, kFalse);
  });
}

}  // namespace
}  // namespace dorvane
