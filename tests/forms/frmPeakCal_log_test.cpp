// The files of a whole work in the lattice form, byte for byte, and what is left where they fail.
#include <gmock/gmock.h>

#include "forms/PeakCalFixture.h"
#include "lattice/CrystalFile.h"
#include "program/LatticeNarration.h"
#include "support/FailingFileLayer.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

// Both texts are from an independent computation (Python) of every number: energies and d values of
// the peaks, indexing by hand, the refinement of one parameter in 32-bit floats, the equation of
// state of gold.
constexpr const char* kNarration = R"csv(
"*******************corundumLatticeFitting Log Start**************************"
""
""
"********** Property      ********************"
"2θ","6.00000"
"EV(0)","-0.051200"
"EV(1)","0.020012"
"EV(2)","0.000002"
"LOAD","12.50"
"TEMP","27.00"
""
""
"**************PEAKS CURVE FITED LIST**********************"
"Number=",7
"Peak No.","Ch","Energy","DValue","Intensity","Amp","FWHM(Ch)","FWHM(KeV)","Fit Type","2Theta"
1,"2092.25","50.5746","2.3420","1234","20346","14.25","0.2856","A","6.0000"
2,"2361.50","58.3612","2.0296","813","14567","16.50","0.3307","M","6.0000"
3,"2761.38","70.4606","1.6810","100","1835","19.00","0.3810","M","6.0000"
4,"3142.50","82.5881","1.4342","0","13","20.13","0.4036","A","6.0000"
5,"3568.25","96.8225","1.2233","641","15432","23.00","0.4613","M","6.0000"
6,"3693.75","101.1568","1.1709","87","2102","24.50","0.4915","UNK","6.0000"
7,"4132.00","116.7865","1.0142","56","1601","27.00","0.5418","A","6.0000"
""
"********************* Lattice Fit Mode Changed!! **********"
""
"********************* Lattice Type Changed!! **********"
""
"********************* Element Changed!! **********"
"*********** Element Reference Information *************"
"","CUB","Au 300K"
"","A     =",4.0786
"","B     =",4.0786
"","C     =",4.0786
"","Alpha =",90
"","Beta  =",90
"","Gamma =",90
""
"************ New Seed Inputed!!!!!! **************"
""
"********************* 2θChanged!! **********"
"********** Property      ********************"
"2θ","6.01000"
"EV(0)","-0.051200"
"EV(1)","0.020012"
"EV(2)","0.000002"
"LOAD","12.50"
"TEMP","27.00"
""
""
"**************PEAKS CURVE FITED LIST**********************"
"Number=",7
"Peak No.","Ch","Energy","DValue","Intensity","Amp","FWHM(Ch)","FWHM(KeV)","Fit Type","2Theta"
1,"2092.25","50.5746","2.3381","1234","20346","14.25","0.2856","A","6.0100"
2,"2361.50","58.3612","2.0262","813","14567","16.50","0.3307","M","6.0100"
3,"2761.38","70.4606","1.6782","100","1835","19.00","0.3810","M","6.0100"
4,"3142.50","82.5881","1.4318","0","13","20.13","0.4036","A","6.0100"
5,"3568.25","96.8225","1.2213","641","15432","23.00","0.4613","M","6.0100"
6,"3693.75","101.1568","1.1690","87","2102","24.50","0.4915","UNK","6.0100"
7,"4132.00","116.7865","1.0125","56","1601","27.00","0.5418","A","6.0100"
""
"************  Seed Infomation       ************************"
"Au 300K","CUB",90,90,90,4.08,4.08,4.08
""
"************  Compare to Seed Caluclate   ******************"
"PK#","HKL","CH","E(KEV)","D(OBS)","D(CAL)","DEV"
"1 ","(1 1 1)","2092.250000","50.574555","2.338139","2.355589","-0.017450","A"
"2 ","(2 0 0)","2361.500000","58.361211","2.026180","2.040000","-0.013820","M"
"3 ","(2 2 0)","3142.500000","82.588065","1.431809","1.442498","-0.010689","A"
"4 ","(3 1 1)","3568.250000","96.822506","1.221311","1.230166","-0.008856","M"
"5 ","(2 2 2)","3693.750000","101.156811","1.168981","1.177795","-0.008814","UNK"
"6 ","(4 0 0)","4132.000000","116.786472","1.012535","1.020000","-0.007465","A"
""
""
""
"************  Compare to Caluclate      ********************"
"PK#","HKL","CH","E(KEV)","DO","DC","DR"
"1 ","(1 1 1)","2092.250000","50.574555","2.338139","2.355589","-0.017450","A"
"2 ","(2 0 0)","2361.500000","58.361211","2.026180","2.040000","-0.013820","M"
"3 ","(2 2 0)","3142.500000","82.588065","1.431809","1.442498","-0.010689","A"
"4 ","(3 1 1)","3568.250000","96.822506","1.221311","1.230166","-0.008856","M"
"5 ","(2 2 2)","3693.750000","101.156811","1.168981","1.177795","-0.008814","UNK"
"6 ","(4 0 0)","4132.000000","116.786472","1.012535","1.020000","-0.007465","A"
""
""
"************Caluclate Result   *****************************"
"","LATTICE CONSTANTS"
"","CUBIC"
"","A    =","4.050357","+-","0.000433"
"","V    =","66.447701","+-","0.021293"
"","V/V0 =","0.979370","+-",0
"","2θ = ",6.01
""
"********************* UseFlag Changed!! **********"
""
"********************* Lattice Fit Mode Changed!! **********"
""
"********************* Lattice Type Changed!! **********"
""
"********************* Element Changed!! **********"
"*********** Element Reference Information *************"
"","CUB","Au 300K"
"","A     =",4.0786
"","B     =",4.0786
"","C     =",4.0786
"","Alpha =",90
"","Beta  =",90
"","Gamma =",90
""
"************  Seed Infomation       ************************"
"Au 300K","CUB",90,90,90,4.0786,4.0786,4.0786
""
"************  Compare to Seed Caluclate   ******************"
"PK#","HKL","CH","E(KEV)","D(OBS)","D(CAL)","DEV"
"1 ","(1 1 1)","2092.250000","50.574555","2.338139","2.354781","-0.016642","A"
"2*","(2 0 0)","2361.500000","58.361211","2.026180","2.040000","-0.013820","M"
"3 ","(2 2 0)","3142.500000","82.588065","1.431809","1.442003","-0.010194","A"
"4 ","(3 1 1)","3568.250000","96.822506","1.221311","1.229744","-0.008434","M"
"5 ","(2 2 2)","3693.750000","101.156811","1.168981","1.177390","-0.008410","UNK"
"6 ","(4 0 0)","4132.000000","116.786472","1.012535","1.019650","-0.007115","A"
""
""
""
"*********Compare to Caluclate   **********************"
"PK#","HKL","CH","E(KEV)","DOBS","DCAL","DR","DDEF to Initial","FIT TYPE"
"1 ","(1 1 1)","2092.250000","50.574555","2.338139","2.354781","2.338243","0.007023","A"
"2*","(2 0 0)","2361.500000","58.361211","2.026180","2.040000","2.024978","0.007364","M"
"3 ","(2 2 0)","3142.500000","82.588065","1.431809","1.442003","1.431876","0.007023","A"
"4 ","(3 1 1)","3568.250000","96.822506","1.221311","1.229744","1.221108","0.007023","M"
"5 ","(2 2 2)","3693.750000","101.156811","1.168981","1.177390","1.169122","0.007023","UNK"
"6 ","(4 0 0)","4132.000000","116.786472","1.012535","1.019650","1.012489","0.007023","A"
""
""
"************Caluclate Result   *****************************"
"","LATTICE CONSTANTS"
"","CUBIC"
"","A    =","4.049956","+-","0.000199"
"","V    =","66.427952","+-","0.009796"
"","V/V0 =",".979079","+-",0
"","2θ = ",6.01
""
"************Caluclate Puressure   *****************************"
"******** ANDERSON SCALE AT T=350Ｋ ***"
"P(GPA)= ","4.07863","+-","0.02746"
""
"*************corundumLatticeFitting Log Ende************************"
)csv";

constexpr const char* kSummary = R"csv(
"corundum                                                        ","LatticeFitting Log"
""
"2θ","6.0100"
"EV(0)","-0.051200"
"EV(1)","0.020012"
"EV(2)","0.000002"
"LOAD","12.50"
"TEMP","27.00"
""
""
""
" ","PEAKS CURVE FITED"
"Peak No.","Ch","Energy","DValue","Amp","Width"
1,"2092.2500","50.575","2.3381","20346","14.25"
2,"2361.5000","58.361","2.0262","14567","16.50"
3,"2761.3750","70.461","1.6782","1835","19.00"
4,"3142.5000","82.588","1.4318","13","20.13"
5,"3568.2500","96.823","1.2213","15432","23.00"
6,"3693.7500","101.157","1.1690","2102","24.50"
7,"4132.0000","116.786","1.0125","1601","27.00"
""
""
"Au 300K","CUB",90,90,90,4.0786,4.0786,4.0786
""
"PK#","H","K","L","CH","D(OBS)","D(CAL)","DEV"
1,1,1,1,2092.25,2.33813911698557,2.35478076739234,"-0.0166416504067741"
2,2,0,0,2361.5,2.02618045405739,2.03999996185303,"-0.0138195077956338"
3,2,2,0,3142.5,1.43180911847321,1.44200283405766,"-0.0101937155844534"
4,3,1,1,3568.25,1.22131052247847,1.22974414883166,"-0.00843362635318834"
5,2,2,2,3693.75,1.16898055050159,1.17739038369617,"-0.00840983319458322"
6,4,0,0,4132,1.0125346136582,1.01964998245239,"-0.0071153687941925"
""
""
"Au 300K","CUB",90,90,90,4.0786,4.0786,4.0786,66.427952
""
"","LATTICE CONSTANTS"
"","A    =",4.049956,"+-",0.000199
"","V    =",66.427952
"","V/V0 =",0.979079
""
"NO","H","K","L","CH","E","DO","DC","DR"
1,1,1,1,2092.25,50.5745548,2.33813911698557,2.35478076739234,2.33824309724708
2,2,0,0,2361.5,58.36121095,2.02618045405739,2.03999996185303,2.02497792243958
3,2,2,0,3142.5,82.58806525,1.43180911847321,1.44200283405766,1.43187562071007
4,3,1,1,3568.25,96.8225056,1.22131052247847,1.22974414883166,1.22110763227009
5,2,2,2,3693.75,101.15681125,1.16898055050159,1.17739038369617,1.16912154862354
6,4,0,0,4132,116.7864716,1.0125346136582,1.01964998245239,1.01248896121979
""
""
"*** JAMIESON SCALE AT T=350Ｋ ***"
"P(GPA)= ","4.07863+-0.02746"
)csv";

// The bytes of a file with the lines of a raw string.
std::string FileText(std::string_view lines) {
  std::string text;
  for (const char c : lines.substr(1)) text += c == '\n' ? std::string("\r\n") : std::string(1, c);
  return ToCodePage(text);
}

// Gold at 2-theta 6.01 degrees: the six lines of a cell of about 4.05 angstrom with some scatter,
// and a third peak that is none of them.
class PeakCalLogTest : public PeakCalTest {
 protected:
  PeakCalLogTest() {
    std::string library;
    for (int line = 0; line < 10; ++line) library += "comment\n";
    folder.Put("crystal.dat", library +
                                  "1\n\"Au 300K\",0,4.0786,4.0786,4.0786,90,90,90\n"
                                  "1,1,1\n2,0,0\n2,2,0\n3,1,1\n2,2,2\n4,0,0\n0,0,0\n");
    for (const char* name : {"results", "kept"}) {
      std::filesystem::create_directory(folder.Path(name));
    }
    SetResultDirectory(settings, folder.Path("results"));
    workspace.Settings.JudgeRange = 0.03;
    EgcCoef& egc = workspace.Spectra[data_no].Prop.EGC;
    egc[0] = -0.0512;
    egc[1] = 0.0200123;
    egc[2] = 0.000002;
    Put(2091.25, 1234.4, 7.125, 20345.6, kEngineNax);
    Put(2360.5, 812.5, 8.25, 14567.25, kEngineExpress);
    Put(2760.375, 99.6, 9.5, 1834.5, kEngineExpress);
    Put(3141.5, 0.4, 10.0625, 12.5, kEngineNax);
    Put(3567.25, 640.75, 11.5, 15432.1, kEngineExpress);
    Put(3692.75, 87.25, 12.25, 2101.5, kUnknownEngine);
    Put(4131, 55.5, 13.5, 1600.5, kEngineNax);
  }

  static constexpr std::int16_t kUnknownEngine = 2;

  void Put(double center, double height, double half_width, double area, std::int16_t engine) {
    PeakTable& table = workspace.Peaks[data_no];
    PeakRec& peak = table.Peaks[table.Count++];
    peak.Center = center;
    peak.Height = height;
    peak.HalfWidth = half_width;
    peak.Amplitude = area;
    peak.FitEngine = engine;
  }

  // Everything that is logged, once or more.
  void WholeWork(frmPeakCal& worked) {
    worked.cmbElement.SetIndex(0);
    Type(worked.txtSeedConstant[0], "4.08");
    Type(worked.txt2Theta, "6.01");
    worked.cmdCal.Press();
    SetUse(worked.sprPeakInf3, 2, false);
    worked.optSelectMode.SetIndex(1);
    worked.cmbElement.SetIndex(0);
    worked.txtTemp.SetText("350");
    worked.cmbUnit.SetIndex(1);
    worked.cmdCal.Press();
  }

  // Every file and directory of the test's folder.
  std::vector<std::string> Tree() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path(""))) {
      names.push_back(std::filesystem::relative(entry.path(), folder.Path("")).string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
};

TEST_F(PeakCalLogTest, WholeWorkIsNarratedByteForByte) {
  Work([&] { WholeWork(form); });
  EXPECT_EQ(folder.Get("crystalfit.csv"), FileText(kNarration));
}

TEST_F(PeakCalLogTest, WholeWorkIsSummedUpByteForByte) {
  Work([&] {
    WholeWork(form);
    form.cmdDataSave.Press();
  });
  EXPECT_EQ(folder.Get("results/LatticeFit.csv"), FileText(kSummary));
}

TEST_F(PeakCalLogTest, SampleModeTellsNoPressure) {
  Work([&] {
    Choose(kCu);  // the first of the library
    form.txtPressure.SetText("1.5+-0.1");
    Execute();
  });
  EXPECT_EQ(Logged("Caluclate Result"), 1);
  EXPECT_EQ(Logged("Caluclate Puressure"), 0);
  EXPECT_EQ(Logged("P(GPA)"), 0);
}

TEST_F(PeakCalTest, TypedSeedsAreToldInOneGoAsTheyAreByHand) {
  AddLines(kOlivine);
  Work([&] {
    Choose(kOlivine);
    Type(form.txtSeedConstant[0], "4.754");
    Type(form.txtSeedConstant[2], "5.981");
    Execute();
  });
  const auto state = std::make_unique<LatticeState>();
  state->Library = ReadCrystalFile(files, folder.Path("crystal.dat"));
  LatticeRequest request;
  request.crystal_index = kOlivine;
  request.seed = SeedOf(state->Library.CrystalTable[kOlivine]);
  (*request.seed)[0] = 4.754;
  (*request.seed)[2] = 5.981;
  const LatticeReport report = RunLattice(*state, workspace, data_no, request, dialogs);
  EXPECT_EQ(folder.Get("crystalfit.csv"),
            CsvText(WorkRecords(*state, workspace, data_no, request, report)));
}

TEST_F(PeakCalLogTest, WorkThatIsKeptLeavesLogSummaryAndResultAlone) {
  ASSERT_THAT(Tree(), ElementsAre("crystal.dat", "kept", "results"));
  Work(
      [&] {
        WholeWork(form);
        form.cmdDataSave.Press();
      },
      folder.Path("kept/mine.csv"));
  EXPECT_THAT(Tree(), ElementsAre("crystal.dat", "crystalfit.csv", "kept", "kept/mine.csv",
                                  "results", "results/LatticeFit.csv"));
  EXPECT_EQ(folder.Get("kept/mine.csv"), FileText(kNarration));
}

TEST_F(PeakCalLogTest, CancelledWorkLeavesLogAndSummaryAlone) {
  Work([&] {
    WholeWork(form);
    form.cmdDataSave.Press();
  });
  EXPECT_THAT(Tree(), ElementsAre("crystal.dat", "crystalfit.csv", "kept", "results",
                                  "results/LatticeFit.csv"));
}

// Nothing but the questions and messages that are scripted comes up, and the result is the same.
TEST_F(PeakCalLogTest, WithoutALogEveryWriterIsSilentAndTheResultIsStillAskedFor) {
  std::filesystem::create_directory(folder.Path("crystalfit.csv"));
  const auto before = Tree();
  dialogs.ExpectMessage("LatticeFit Temp File Open Error");
  Work([&] {
    WholeWork(form);
    EXPECT_EQ(form.LogFailed(), kTrue);
    EXPECT_EQ(form.txtPressure.Text(), "4.07863+-0.02746");
  });
  EXPECT_EQ(dialogs.LastRequest().filter, "Result File (*.csv)|*.csv");
  EXPECT_EQ(Tree(), before);
}

TEST_F(PeakCalLogTest, DiskThatFillsUpIsToldOnceAndTheWorkGoesOn) {
  FailingFileLayer counting(files, 0);
  ReadCrystalFile(counting, folder.Path("crystal.dat"));
  const int third_write = counting.Calls() + 5;  // behind info and create
  FailingFileLayer filling(files, third_write, FailingFileLayer::Mode::FailingOn);
  const auto full =
      std::make_unique<Program>(Ports{dialogs, filling, log, progress, views}, folder.Path(""));
  full->workspace = workspace;
  full->view = view;
  frmPeakCal worked(*full, host, settings, marks);
  host.ExpectModal([&](Form&) {
    WholeWork(worked);
    EXPECT_EQ(worked.txtPressure.Text(), "4.07863+-0.02746");
    dialogs.ExpectSave({});
    worked.cmdExit.Press();
  });
  dialogs.ExpectMessage("LatticeFit Temp File Open Error");
  worked.Open(view.GraphNo);
}

}  // namespace
}  // namespace dorvane
