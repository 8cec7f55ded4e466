// What the lattice form shows on the graph behind it, and what it says where that graph has no
// peaks.
#include <gmock/gmock.h>

#include "forms/PeakCalFixture.h"
#include "forms/PeakCalHint.h"
#include "lattice/CalLattice.h"
#include "program/MoveGraph.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class PeakCalGraphTest : public PeakCalTest {
 protected:
  int FirstMark() const { return program.spect.NamedLines(0)[0].X; }
  // A graph in the next row that has peaks; the fixture's own stays current.
  std::int16_t ShowWithPeaks(const std::string& title, std::int16_t peaks) {
    const std::int16_t current = view.GraphNo;
    const std::int16_t other = Show({1, 2, 3}, title);
    workspace.Peaks[other].Count = peaks;
    Change_cboGrphSel(list, 0, current);
    return other;
  }
};

// ---- marks

// 111 at E = 12.3981 / (2 * 4.2112 / sqrt(3) * sin(3.25 degrees)) keV, 0.02 keV a channel: by hand
// channel number 2248.65.
TEST_F(PeakCalGraphTest, MarksFollowTheAngle) {
  Work([&] {
    Choose(kMgO);
    EXPECT_EQ(FirstMark(), 2435);
    Type(form.txt2Theta, "6.5");
    EXPECT_EQ(FirstMark(), 2248);
  });
}

TEST_F(PeakCalGraphTest, MarksFollowASeedThatIsCalculatedWithoutLeavingItsBox) {
  Work([&] {
    Choose(kMgO);
    form.txtSeedConstant[0].SetText("2.1056");
    dialogs.ExpectMessage("計算するための回折線の数が少なすぎます。");
    Execute();
    EXPECT_EQ(FirstMark(), 4871);  // at twice the energy
  });
}

TEST_F(PeakCalGraphTest, SampleOfNoSystemLeavesNoMarkOfTheSampleBefore) {
  Work([&] {
    Choose(kMgO);
    EXPECT_EQ(FirstMark(), 2435);
    Choose(kOdd);  // the cell is that of copper, the system stays cubic
    EXPECT_EQ(MarksShown().front(), "100");
  });
}

// 2 asin(0.49576 / (2 * 4.2112 / sqrt(3))) = 11.703186 degrees by hand; 5 + 0.01 * index.
TEST_F(PeakCalGraphTest, LinesOfAnAngleDispersiveSpectrumStandAtTheirBraggAngles) {
  workspace.Spectra[data_no].DataType = kDacData;
  workspace.Spectra[data_no].Prop.EGC = {};
  workspace.Dac = {0.01, 5};
  workspace.Settings.DacWavelength = 0.49576;
  Work([&] {
    Choose(kMgO);
    EXPECT_THAT(MarksShown(), ElementsAre("111", "200", "220", "311", "400"));
    EXPECT_EQ(FirstMark(), 670);
  });
  EXPECT_THAT(MarksShown(), IsEmpty());
}

TEST_F(PeakCalGraphTest, MarksGoWhenTheFormIsClosedByItsFrame) {
  host.ExpectModal([&](Form&) {
    Choose(kMgO);
    EXPECT_THAT(MarksShown(), SizeIs(5));
    dialogs.ExpectSave({});
    form.QueryClose();
  });
  form.Open(view.GraphNo);
  EXPECT_THAT(MarksShown(), IsEmpty());
}

// ---- hint

TEST_F(PeakCalGraphTest, GraphWithPeaksNeedsNoHint) {
  AddPeak(2);
  Work([&] {
    EXPECT_FALSE(form.lblPeakHint.Visible());
    EXPECT_EQ(form.lblPeakHint.Caption(), "");
  });
}

TEST_F(PeakCalGraphTest, HintNamesTheGraphsOfTheWindowThatHavePeaks) {
  ShowWithPeaks("Smooth", 24);
  ShowWithPeaks("b.npd", 3);
  ShowWithPeaks("c.npd", 0);
  Work([&] {
    EXPECT_TRUE(form.lblPeakHint.Visible());
    EXPECT_EQ(form.lblPeakHint.Caption(),
              "This graph has no fitted peaks. This window has \"Smooth\" (24), \"b.npd\" (3): "
              "make one with peaks current, then open this form again.");
  });
}

TEST_F(PeakCalGraphTest, HintNamesTwoGraphsAndCountsTheOthers) {
  for (const char* title : {"a.npd", "b.npd", "c.npd", "d.npd"}) ShowWithPeaks(title, 3);
  EXPECT_THAT(PeakHint(workspace, 0),
              HasSubstr("This window has \"a.npd\" (3), \"b.npd\" (3) and 2 more: make"));
}

TEST_F(PeakCalGraphTest, HintNamesTheOtherWindowWhereThisOneHasNoPeaks) {
  ShowWithPeaks("Smooth", 24);
  MoveGraph(program, 1, 1);
  EXPECT_THAT(PeakHint(workspace, 0), HasSubstr("The other window has \"Smooth\" (24): "));
  ShowWithPeaks("b.npd", 3);
  EXPECT_THAT(PeakHint(workspace, 0), HasSubstr(" This window has \"b.npd\" (3): "));
}

TEST_F(PeakCalGraphTest, HintTellsHowToGetPeaksWhereNoGraphHasAny) {
  EXPECT_EQ(PeakHint(workspace, 0),
            "This graph has no fitted peaks. Auto Fit (F4) finds and fits them.");
}

TEST_F(PeakCalGraphTest, HintGoesWithTheNextOpening) {
  Work([&] { EXPECT_TRUE(form.lblPeakHint.Visible()); });
  AddPeak(2);
  Work([&] { EXPECT_FALSE(form.lblPeakHint.Visible()); });
}

}  // namespace
}  // namespace dorvane
