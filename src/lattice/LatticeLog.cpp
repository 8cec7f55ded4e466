#include "lattice/LatticeLog.h"

#include "lattice/CalLattice.h"
#include "support/CodePage.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr char kLogAngle[] = "#0.00000";
constexpr char kSummaryAngle[] = "#0.0000";
constexpr char kCompareValue[] = "#0.000000";
constexpr char kCompareAngle[] = "#00.000000";
constexpr char kSummaryTemperature[] = "*** JAMIESON SCALE AT T=";
constexpr char kCelsiusEnd[] = "℃ ***";
constexpr char kKelvinEnd[] = "Ｋ ***";

// Names of the systems in the result block, and the lengths and angles that each refines.
struct ResultSystem {
  const char* name;
  std::string_view boxes;  // places in txtLatticeLength
};
constexpr std::array<ResultSystem, 6> kResultSystems{{{"CUBIC", "0"},
                                                      {"TETRAGONAL", "02"},
                                                      {"HEXAGONAL", "02"},
                                                      {"ORTHORHOMBIC", "012"},
                                                      {"MONOCLINIC", "0124"},
                                                      {"TRICLINIC", "012345"}}};
constexpr std::array<const char*, 6> kResultKeys{
    "A    =", "B    =", "C    =", "ALPHA=", "BETA =", "GAMMA="};

const LogRecord kEmptyRecord{""};

void Append(LogRecords& to, const LogRecords& records) {
  to.insert(to.end(), records.begin(), records.end());
}

void AppendEmpty(LogRecords& to, std::size_t count) {
  to.insert(to.end(), count, kEmptyRecord);
}

LogRecords Event(const char* text) {
  return {{text}, kEmptyRecord};
}

LogRecords PropertyRecords(const MeasProp& prop, const char* angle_picture) {
  return {
      {"2θ", Picture(prop.TwoTheta, angle_picture)}, {"EV(0)", Picture(prop.EGC[0], "#0.000000")},
      {"EV(1)", Picture(prop.EGC[1], "#0.000000")},  {"EV(2)", Picture(prop.EGC[2], "#0.000000")},
      {"LOAD", Picture(prop.Load, "#0.00")},         {"TEMP", Picture(prop.Temp, "#0.00")}};
}

// The cell record has the angles in front of the lengths.
LogRecord CellRecord(const SeedRecord& sample, std::string_view tag) {
  const SeedCell& seed = sample.seed;
  return {sample.name, tag, seed[3], seed[4], seed[5], seed[0], seed[1], seed[2]};
}

// Row number and use mark.
std::string MarkedNumber(std::size_t number, bool use) {
  return std::to_string(number) + (use ? " " : "*");
}

// KEPT: a row ends with the fit type, for which the heading has no column.
void AppendCompareRows(LogRecords& to, std::span<const MatchedRow> rows) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const MatchedRow& row = rows[i];
    to.push_back({MarkedNumber(i + 1, row.use), MillerText(row), Picture(row.ch, kCompareValue),
                  Picture(row.energy, kCompareValue), Picture(row.d_obs, kCompareValue),
                  Picture(row.d_cal, kCompareValue), Picture(row.d_obs - row.d_cal, kCompareValue),
                  row.fit_type});
  }
}

// A box text around its "+-".
struct BoxParts {
  std::string value, error;
};

BoxParts PartsOf(const std::string& text) {
  const auto at = text.find("+-");
  if (at == std::string::npos) return {text, ""};
  return {text.substr(0, at), text.substr(at + 2)};
}

double NumberIn(const std::string& text) {
  return ParseNumber(text).value_or(0);
}

LogRecord ResultRecord(const char* key, const std::string& box_text) {
  const BoxParts parts = PartsOf(box_text);
  return {"", key, parts.value, "+-", parts.error};
}

void AppendSummaryPeaks(LogRecords& to, std::span<const PeakRow> peaks) {
  to.push_back({" ", "PEAKS CURVE FITED"});
  to.push_back({"Peak No.", "Ch", "Energy", "DValue", "Amp", "Width"});
  for (std::size_t i = 0; i < peaks.size(); ++i) {
    const PeakRow& peak = peaks[i];
    to.push_back({static_cast<int>(i) + 1, Picture(peak.ch, "#0.0000"),
                  Picture(peak.energy, "#0.000"), Picture(peak.d, "#0.0000"),
                  Picture(peak.amplitude, "#0"), Picture(peak.fwhm_ch, "#0.00")});
  }
}

void AppendSeedLines(LogRecords& to, std::span<const MatchedRow> rows) {
  to.push_back({"PK#", "H", "K", "L", "CH", "D(OBS)", "D(CAL)", "DEV"});
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const MatchedRow& row = rows[i];
    to.push_back({static_cast<int>(i) + 1, row.h, row.k, row.l, row.ch, row.d_obs, row.d_cal,
                  DecimalNumber(row.d_obs - row.d_cal)});
  }
}

void AppendRefinedLines(LogRecords& to, std::span<const MatchedRow> rows) {
  to.push_back({"NO", "H", "K", "L", "CH", "E", "DO", "DC", "DR"});
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const MatchedRow& row = rows[i];
    to.push_back({static_cast<int>(i) + 1, row.h, row.k, row.l, row.ch, row.energy, row.d_obs,
                  row.d_cal, row.d_r});
  }
}

void AppendSummaryCell(LogRecords& to, const ResultBoxes& boxes) {
  const BoxParts a = PartsOf(boxes.txtLatticeLength[0]);
  to.push_back({"", "LATTICE CONSTANTS"});
  to.push_back({"", "A    =", NumberIn(a.value), "+-", NumberIn(a.error)});
  to.push_back({"", "V    =", NumberIn(PartsOf(boxes.txtVol).value)});
  to.push_back({"", "V/V0 =", NumberIn(PartsOf(boxes.txtVolPerVol0).value)});
  to.push_back(kEmptyRecord);
}

}  // namespace

LogRecords LogStart(const SpectrumRec& spectrum) {
  return {{"*******************" + spectrum.MsuName.Text() +
           "LatticeFitting Log Start**************************"},
          kEmptyRecord,
          kEmptyRecord};
}

LogRecords LogEnd(const SpectrumRec& spectrum) {
  return {{"*************" + spectrum.MsuName.Text() +
           "LatticeFitting Log Ende************************"}};
}

LogRecords LogProperty(const MeasProp& prop) {
  LogRecords records{{"********** Property      ********************"}};
  Append(records, PropertyRecords(prop, kLogAngle));
  AppendEmpty(records, 2);
  return records;
}

LogRecords LogPeakList(std::span<const PeakRow> peaks) {
  LogRecords records{{"**************PEAKS CURVE FITED LIST**********************"},
                     {"Number=", static_cast<int>(peaks.size())},
                     {"Peak No.", "Ch", "Energy", "DValue", "Intensity", "Amp", "FWHM(Ch)",
                      "FWHM(KeV)", "Fit Type", "2Theta"}};
  for (std::size_t i = 0; i < peaks.size(); ++i) {
    const PeakRow& peak = peaks[i];
    records.push_back({static_cast<int>(i) + 1, Picture(peak.ch, "#0.00"),
                       Picture(peak.energy, "#0.0000"), Picture(peak.d, "#0.0000"),
                       Picture(peak.intensity, "####0"), Picture(peak.amplitude, "#0"),
                       Picture(peak.fwhm_ch, "#0.00"), Picture(peak.fwhm_kev, "#0.0000"),
                       peak.fit_type, Picture(peak.two_theta, "#0.0000")});
  }
  AppendEmpty(records, 1);
  return records;
}

LogRecords LogElementChange(const CrystalRec& crystal) {
  return {{"********************* Element Changed!! **********"},
          {"*********** Element Reference Information *************"},
          {"", LatticeTag(crystal.LatticeType), crystal.Name},
          {"", "A     =", crystal.Lat[0]},
          {"", "B     =", crystal.Lat[1]},
          {"", "C     =", crystal.Lat[2]},
          {"", "Alpha =", crystal.Ang[0]},
          {"", "Beta  =", crystal.Ang[1]},
          {"", "Gamma =", crystal.Ang[2]},
          kEmptyRecord};
}

// KEPT: the only event without an empty record behind it.
LogRecords LogTwoThetaChanged() {
  return {{"********************* 2θChanged!! **********"}};
}

LogRecords LogLatticeTypeChanged() {
  return Event("********************* Lattice Type Changed!! **********");
}

LogRecords LogFitModeChanged() {
  return Event("********************* Lattice Fit Mode Changed!! **********");
}

LogRecords LogSeedInput() {
  return Event("************ New Seed Inputed!!!!!! **************");
}

LogRecords LogUseFlagChanged() {
  return Event("********************* UseFlag Changed!! **********");
}

LogRecords LogSeedCompare(const SeedRecord& sample, std::span<const MatchedRow> rows) {
  LogRecords records{{"************  Seed Infomation       ************************"},
                     CellRecord(sample, LatticeTag(sample.lattice_type)),
                     kEmptyRecord,
                     {"************  Compare to Seed Caluclate   ******************"},
                     {"PK#", "HKL", "CH", "E(KEV)", "D(OBS)", "D(CAL)", "DEV"}};
  AppendCompareRows(records, rows);
  AppendEmpty(records, 2);
  return records;
}

// KEPT: the column "DR" holds d(obs) - d(cal) here.
LogRecords LogCompare(std::span<const MatchedRow> rows) {
  LogRecords records{kEmptyRecord,
                     {"************  Compare to Caluclate      ********************"},
                     {"PK#", "HKL", "CH", "E(KEV)", "DO", "DC", "DR"}};
  AppendCompareRows(records, rows);
  AppendEmpty(records, 2);
  return records;
}

LogRecords LogCompareDetail(std::span<const MatchedRow> rows, std::int16_t data_type) {
  const bool angles = data_type == kDacData;
  LogRecords records{kEmptyRecord,
                     {"*********Compare to Caluclate   **********************"},
                     {"PK#", "HKL", "CH", angles ? "2Theta" : "E(KEV)", "DOBS", "DCAL", "DR",
                      "DDEF to Initial", "FIT TYPE"}};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const MatchedRow& row = rows[i];
    records.push_back(
        {MarkedNumber(i + 1, row.use), MillerText(row), Picture(row.ch, kCompareValue),
         angles ? Picture(row.two_theta, kCompareAngle) : Picture(row.energy, kCompareValue),
         Picture(row.d_obs, kCompareValue), Picture(row.d_cal, kCompareValue),
         Picture(row.d_r, kCompareValue), Picture(row.d_def, kCompareValue), row.fit_type});
  }
  AppendEmpty(records, 2);
  return records;
}

LogRecords LogResult(std::int16_t lattice_type, const ResultBoxes& boxes, double two_theta) {
  const bool known = lattice_type >= kCubic && lattice_type <= kTriclinic;
  const ResultSystem system =
      known ? kResultSystems[static_cast<std::size_t>(lattice_type)] : ResultSystem{"", ""};
  LogRecords records{{"************Caluclate Result   *****************************"},
                     {"", "LATTICE CONSTANTS"},
                     {"", system.name}};
  for (const char place : system.boxes) {
    const auto box = static_cast<std::size_t>(place - '0');
    records.push_back(ResultRecord(kResultKeys[box], boxes.txtLatticeLength[box]));
  }
  records.push_back(ResultRecord("V    =", boxes.txtVol));
  // KEPT: the error of V/V0 is the number 0, whatever the box shows.
  records.push_back({"", "V/V0 =", PartsOf(boxes.txtVolPerVol0).value, "+-", 0});
  records.push_back({"", "2θ = ", two_theta});
  records.push_back(kEmptyRecord);
  return records;
}

std::string SummaryTag(std::int16_t lattice_type, std::string_view last_tag) {
  return std::string(lattice_type >= kCubic && lattice_type <= kHexagonal ? LatticeTag(lattice_type)
                                                                          : last_tag);
}

LogRecords SummaryRecords(const SummaryInput& input, std::string_view tag) {
  LogRecords records{{FromCodePage(input.spectrum.MsuName.Bytes()), "LatticeFitting Log"},
                     kEmptyRecord};
  Append(records, PropertyRecords(input.spectrum.Prop, kSummaryAngle));
  AppendEmpty(records, 3);
  AppendSummaryPeaks(records, input.peaks);
  AppendEmpty(records, 2);

  LogRecord cell = CellRecord(input.sample, tag);
  records.push_back(cell);
  AppendEmpty(records, 1);
  AppendSeedLines(records, input.rows);
  AppendEmpty(records, 2);

  cell.emplace_back(NumberIn(PartsOf(input.boxes.txtVol).value));
  records.push_back(cell);
  AppendEmpty(records, 1);
  AppendSummaryCell(records, input.boxes);
  AppendRefinedLines(records, input.rows);
  AppendEmpty(records, 2);

  // KEPT: the heading names one scale, whatever the sample's is.
  records.push_back(
      {kSummaryTemperature + input.temp_text + (input.unit_index == 0 ? kCelsiusEnd : kKelvinEnd)});
  records.push_back({"P(GPA)= ", input.pressure_text});
  return records;
}

}  // namespace dorvane
