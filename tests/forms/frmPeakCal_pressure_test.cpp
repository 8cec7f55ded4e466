// Pressures in the lattice form: the scale that each sample's name selects, and what the log tells
// of it.
#include <gmock/gmock.h>

#include "forms/PeakCalFixture.h"
#include "lattice/CalLattice.h"

namespace dorvane {
namespace {

using testing::Each;
using testing::HasSubstr;

constexpr double kPressure = 2e-4;  // GPa, what the 32-bit floats of the cell leave
constexpr const char* kHeadings[] = {"DECKER PRESSURE", "JAMIESON SCALE", "ANDERSON SCALE",
                                     "Burch_m SCALE"};

class PeakCalPressureTest : public PeakCalTest {
 protected:
  PeakCalPressureTest() { workspace.Settings.JudgeRange = 0.03; }

  // The small library with another name for MgO.
  void NameMarker(const std::string& name) {
    std::string library = LibraryText();
    library.replace(library.find("\"MgO\""), 5, "\"" + name + "\"");
    folder.Put("crystal.dat", library);
  }
  // A library of one crystal.
  void PutCrystal(const std::string& name_to_angles, const std::vector<Plane>& planes) {
    std::string text;
    for (int line = 0; line < 10; ++line) text += "comment\n";
    text += "1\n" + name_to_angles;
    for (const Plane& p : planes) {
      text += "," + std::to_string(p.h) + "," + std::to_string(p.k) + "," + std::to_string(p.l);
    }
    folder.Put("crystal.dat", text + ",0,0,0\n");
  }
  // MgO at 0.99 of its length with lines that scatter.
  void AddScatteredLines() {
    const double off[] = {0, 5e-4, -5e-4, 3e-4, 0};
    for (std::size_t i = 0; i < kCubicPlanes.size(); ++i) {
      const auto [h, k, l] = kCubicPlanes[i];
      AddPeak(0.99 * 4.2112 / std::sqrt(h * h + k * k + l * l) * (1 + off[i]));
    }
  }
  void WorkAsMarker(const std::function<void()>& work) {
    Work([&] {
      form.optSelectMode.SetIndex(1);
      work();
    });
  }
  void SetTemperature(const std::string& text, int unit) {
    form.txtTemp.SetText(text);
    form.cmbUnit.SetIndex(unit);
  }
  double Pressure() const { return ValueIn(form.txtPressure); }
  double Error() const {
    const std::string& text = form.txtPressure.Text();
    return NumberOf(text.substr(text.find("+-") + 2));
  }
  // Headings in the log.
  std::vector<std::string> HeadingsLogged() const {
    std::vector<std::string> found;
    for (const char* heading : kHeadings) {
      if (Logged(heading) > 0) found.emplace_back(heading);
    }
    return found;
  }
};

// ---- which names are calculated and which are logged

TEST_F(PeakCalPressureTest, NamesThatAreCalculatedAndThoseThatAreLoggedDifferAsMeant) {
  struct {
    const char* name;
    bool calculated;
    const char* heading;
  } const rows[] = {{"NACL", true, "DECKER PRESSURE"},
                    {"NaCl", false, "DECKER PRESSURE"},
                    {"nacl", false, "DECKER PRESSURE"},
                    {"Pt", true, "JAMIESON SCALE"},
                    {"PT", true, "JAMIESON SCALE"},
                    {"pt", false, "JAMIESON SCALE"},
                    {"Au", true, "ANDERSON SCALE"},
                    {"AU", true, "ANDERSON SCALE"},
                    {"au", false, "ANDERSON SCALE"},
                    {"MgO", true, "JAMIESON SCALE"},
                    {"MGO", true, "JAMIESON SCALE"},
                    {"mgo", false, nullptr},
                    {"PT_B", true, "Burch_m SCALE"},
                    {"Pt_B", true, "Burch_m SCALE"},
                    {"pt_B", true, nullptr},
                    {"pt_b", false, "Burch_m SCALE"},
                    {"PT_H", true, nullptr},
                    {"pt_H", true, nullptr},
                    {"Pt_H", true, nullptr},
                    {"pt_h", true, nullptr},
                    {"hBN", true, "Burch_m SCALE"},
                    {"HBN", false, "Burch_m SCALE"},
                    {"hbn", false, nullptr},
                    {"Cu", false, nullptr}};
  AddScatteredLines();
  for (const auto& row : rows) {
    NameMarker(row.name);
    WorkAsMarker([&] {
      Fit(kMgO);
      EXPECT_EQ(!form.txtPressure.Text().empty(), row.calculated) << row.name;
    });
    std::vector<std::string> headings;
    if (row.heading != nullptr) headings.emplace_back(row.heading);
    EXPECT_EQ(HeadingsLogged(), headings) << row.name;
    EXPECT_EQ(Logged("\"P(GPA)= \""), row.heading != nullptr ? 1 : 0) << row.name;
  }
}

TEST_F(PeakCalPressureTest, NameThatIsOnlyLoggedIsLoggedWithTheOldPressureAsMeant) {
  std::string library = LibraryText();
  library.replace(library.find("\"Cu\""), 4, "\"NaCl\"");
  folder.Put("crystal.dat", library);
  AddScatteredLines();
  AddLines(kCu);
  std::string pressure;
  WorkAsMarker([&] {
    Fit(kMgO);
    pressure = form.txtPressure.Text();
    Fit(kCu);
    EXPECT_EQ(form.txtPressure.Text(), pressure);
  });
  const std::string p = pressure.substr(0, pressure.find("+-"));
  EXPECT_THAT(LogText(),
              HasSubstr("\"************Caluclate Puressure   **************************\"\r\n"
                        "\"******** DECKER PRESSURE AT T=27.0℃ ***\"\r\n\"P(GPA)= \",\"" +
                        p + "\",\"+-\",\""));
  EXPECT_EQ(Logged("\"" + p + "\""), 2);
}

TEST_F(PeakCalPressureTest, NameCountsUpToItsFirstBlank) {
  NameMarker("NACL B1 cell");
  AddScatteredLines();
  WorkAsMarker([&] {
    SetTemperature("300", 1);
    Fit(kMgO);
    EXPECT_NEAR(Pressure(), 0.77207, kPressure);
  });
  EXPECT_EQ(Logged("\"******** DECKER PRESSURE AT T=300Ｋ ***\"\r\n"), 1);
}

TEST_F(PeakCalPressureTest, SampleModeHasNeitherPressureNorHeading) {
  AddScatteredLines();
  Work([&] {
    Fit(kMgO);
    EXPECT_EQ(form.txtPressure.Text(), "");
  });
  EXPECT_THAT(HeadingsLogged(), testing::IsEmpty());
  EXPECT_EQ(Logged("P(GPA)="), 0);
}

// ---- values

// The whole way from the scattered peaks, by an independent computation in 64 bits (least squares,
// errors, scales): a = 4.169339(705), V/V0 = 0.970474(492).
TEST_F(PeakCalPressureTest, EachScaleHasItsPressureAndError) {
  struct {
    const char* name;
    double at_300_K, at_27_C, error;
  } const rows[] = {{"NACL", 0.77207, 0.77249, 0.01390},   {"Pt", 8.80095, 8.80192, 0.16019},
                    {"Au", 5.42212, 5.42314, 0.09931},     {"MgO", 4.99432, 4.99495, 0.08932},
                    {"PT_B", 8.76879, 8.76976, 0.15995},   {"PT_H", -28.02557, -28.02453, 0.03458},
                    {"hBN", 116.95369, 116.95344, 0.11768}};
  AddScatteredLines();
  for (const auto& row : rows) {
    NameMarker(row.name);
    WorkAsMarker([&] {
      SetTemperature("300", 1);
      Fit(kMgO);
      EXPECT_NEAR(Pressure(), row.at_300_K, kPressure) << row.name;
      EXPECT_NEAR(Error(), row.error, kPressure) << row.name;
      SetTemperature("27", 0);
      Execute();
      EXPECT_NEAR(Pressure(), row.at_27_C, kPressure) << row.name;
      EXPECT_NEAR(Error(), row.error, kPressure) << row.name;
    });
  }
}

// Boxes of the same work.
TEST_F(PeakCalPressureTest, MarkerShowsItsCellWithErrors) {
  AddScatteredLines();
  WorkAsMarker([&] {
    Fit(kMgO);
    const auto near = [](const TextBox& box, double value, double error) {
      const std::string& text = box.Text();
      EXPECT_NEAR(NumberOf(text.substr(0, text.find("+-"))), value, 2e-5) << text;
      EXPECT_NEAR(NumberOf(text.substr(text.find("+-") + 2)), error, 2e-5) << text;
    };
    for (int k = 0; k < 3; ++k) near(form.txtLatticeLength[k], 4.169339, 0.000705);
    near(form.txtVol, 72.477254, 0.036766);
    near(form.txtVolPerVol0, 0.970474, 0.000492);
  });
}

TEST_F(PeakCalPressureTest, SecondExecuteGivesTheSamePressure) {
  AddScatteredLines();
  WorkAsMarker([&] {
    Fit(kMgO);
    const std::string pressure = form.txtPressure.Text();
    Execute();
    EXPECT_EQ(form.txtPressure.Text(), pressure);
  });
}

// From the coefficients at a compression of 0, by hand: at 300 K they do not give 0.
TEST_F(PeakCalPressureTest, TablesAreNotZeroWithoutCompressionAsMeant) {
  const std::pair<const char*, double> rows[] = {{"Pt", 0.04919}, {"MgO", 0.04558}};
  AddLines(kMgO);
  for (const auto& [name, pressure] : rows) {
    NameMarker(name);
    WorkAsMarker([&, pressure = pressure] {
      SetTemperature("300", 1);
      Fit(kMgO);
      EXPECT_NEAR(Pressure(), pressure, kPressure);
    });
  }
}

TEST_F(PeakCalPressureTest, PlatinumTableIsZeroOutsideOfItsRange) {
  NameMarker("Pt");
  workspace.Settings.JudgeRange = 0.2;
  for (const double ratio : {1.07, 0.81}) {
    workspace.Peaks[data_no] = {};
    AddPeak(std::cbrt(ratio) * 4.2112 / std::sqrt(3));
    WorkAsMarker([&] {
      Fit(kMgO);
      EXPECT_NEAR(NumberOf(form.txtVolPerVol0.Text().substr(0, 6)), ratio, 1e-5);
      EXPECT_EQ(form.txtPressure.Text(), "0.00000+-0.00000");
    });
  }
}

// a = 2.498572, c = 6.596232(1177) from scattered lines of 0.998 a and 0.99 c, by an independent
// computation in 64 bits.
TEST_F(PeakCalPressureTest, BoronNitrideTakesTheAxisAndItsError) {
  const std::vector<Plane> planes{{0, 0, 2}, {1, 0, 0}, {1, 0, 2}, {0, 0, 4},
                                  {1, 0, 4}, {1, 1, 0}, {1, 1, 2}};
  PutCrystal("\"hBN\",2,2.504,2.504,6.6612,90,90,120", planes);
  workspace.Settings.JudgeRange = 0.035;
  const Cell6 cell{0.998 * 2.504, 0.998 * 2.504, 0.99 * 6.6612, 90, 90, 120};
  const double off[] = {5e-4, 0, -4e-4, 0, 3e-4, 0, -3e-4};
  for (std::size_t i = 0; i < planes.size(); ++i) {
    AddPeak(PlaneDistance(cell, planes[i].h, planes[i].k, planes[i].l) * (1 + off[i]));
  }
  WorkAsMarker([&] {
    form.cmbElement.SetIndex(0);
    SetTemperature("300", 1);  // 26.85 degrees Celsius
    Execute();
    EXPECT_NEAR(Pressure(), 0.26036, kPressure);
    EXPECT_NEAR(Error(), 0.00543, kPressure);
    EXPECT_NEAR(ValueIn(form.txtVol), 35.662372, 5e-5);
    EXPECT_EQ(form.txtVolPerVol0.Text().substr(0, 5), ".9859");
    SetTemperature("127", 0);
    Execute();
    EXPECT_NEAR(Pressure(), 0.37897, kPressure);
  });
  EXPECT_EQ(Logged("\"************Caluclate Puressure   *****************************\"\r\n"), 2);
}

// ---- systems without values

class TetragonalMarkerTest : public PeakCalPressureTest {
 protected:
  void WorkOnMarker(const std::string& name, const std::function<void()>& work) {
    PutCrystal("\"" + name + "\",1,4,4,5,90,90,90", {{1, 0, 0}, {0, 0, 1}, {1, 1, 0}});
    workspace.Peaks[data_no] = {};
    for (const double d : {4.0, 5.0, std::sqrt(8.0)}) AddPeak(d);
    WorkAsMarker([&] {
      form.cmbElement.SetIndex(0);
      form.txtPressure.SetText("before");
      work();
    });
  }
};

TEST_F(TetragonalMarkerTest, PlatinumTableIsZeroAndTheBoxesStay) {
  WorkOnMarker("Pt", [&] {
    Execute();
    EXPECT_EQ(form.txtPressure.Text(), "0.00000+-0.00000");
    EXPECT_THAT(Texts(form.txtLatticeLength), Each(""));
    EXPECT_EQ(form.txtVol.Text() + form.txtVolPerVol0.Text(), "");
    EXPECT_EQ(form.sprPeakInf4.MaxRows(), 3);
  });
}

// The cubic through the last four nodes of the table at a compression of 1, by an independent
// computation: 2077.2452 GPa at 300.15 K.
TEST_F(TetragonalMarkerTest, MagnesiumOxideTableIsExtrapolatedToFullCompressionAsMeant) {
  WorkOnMarker("MgO", [&] {
    Execute();
    EXPECT_NEAR(Pressure(), 2077.2452, 1e-3);
    EXPECT_EQ(Error(), 0);
  });
}

// The refined c is 5 angstrom: 34.3452 GPa at 27 degrees Celsius by an independent computation.
TEST_F(TetragonalMarkerTest, BoronNitrideTakesTheThirdLength) {
  WorkOnMarker("hBN", [&] {
    Execute();
    EXPECT_NEAR(Pressure(), 34.34518, 1e-3);
  });
}

TEST_F(TetragonalMarkerTest, ScalesThatFailOnZeroLeaveThePressureAndTheGrids) {
  for (const char* name : {"NACL", "Au", "PT_B", "PT_H"}) {
    WorkOnMarker(name, [&] {
      dialogs.ExpectMessage("Division by zero");
      Execute();
      EXPECT_EQ(form.txtPressure.Text(), "before");
      EXPECT_EQ(form.sprPeakInf4.MaxRows(), 0);
    });
    EXPECT_EQ(Logged("Caluclate Result"), 0) << name;
    EXPECT_EQ(Logged("P(GPA)"), 0) << name;
  }
}

}  // namespace
}  // namespace dorvane
