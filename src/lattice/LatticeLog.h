// What a lattice work tells its log, and the summary that "Data Save" writes: one builder of
// records for each event. Where the records go is the caller's business.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "lattice/CrystalRec.h"
#include "lattice/LatticeRows.h"
#include "lattice/LogRecord.h"
#include "workspace/SpectrumRec.h"

namespace dorvane {

// First and last block, with the name of the measurement.
LogRecords LogStart(const SpectrumRec& spectrum);
LogRecords LogEnd(const SpectrumRec& spectrum);

// 2-theta, calibration, load and temperature of the spectrum.
LogRecords LogProperty(const MeasProp& prop);

LogRecords LogPeakList(std::span<const PeakRow> peaks);

// Another sample: its tag, its name and its cell.
LogRecords LogElementChange(const CrystalRec& crystal);

// Events of one line.
LogRecords LogTwoThetaChanged();
LogRecords LogLatticeTypeChanged();
LogRecords LogFitModeChanged();
LogRecords LogSeedInput();
LogRecords LogUseFlagChanged();

// A sample as a fit starts from it.
struct SeedRecord {
  std::string name;               // of the crystal
  std::int16_t lattice_type = 0;  // 0..5
  SeedCell seed;                  // a, b, c in angstrom, alpha, beta, gamma in degrees
};

// The seeds, and each line against them.
LogRecords LogSeedCompare(const SeedRecord& sample, std::span<const MatchedRow> rows);
// Each line after a calculation in sample mode.
LogRecords LogCompare(std::span<const MatchedRow> rows);
// Each line after a calculation in marker mode, against the seeds and the refined cell.
// `data_type` is that of the spectrum.
LogRecords LogCompareDetail(std::span<const MatchedRow> rows, std::int16_t data_type);

// Texts of the boxes that show a result; each is a value, or a value "+-" its error.
struct ResultBoxes {
  std::array<std::string, 6> txtLatticeLength;  // a, b, c, alpha, beta, gamma
  std::string txtVol;
  std::string txtVolPerVol0;
};

// The refined cell of a lattice type as the boxes show it; a type outside 0..5 has no name and no
// lengths. `two_theta` in degrees.
LogRecords LogResult(std::int16_t lattice_type, const ResultBoxes& boxes, double two_theta);

// What the summary file tells.
struct SummaryInput {
  const SpectrumRec& spectrum;
  std::span<const PeakRow> peaks = {};
  std::span<const MatchedRow> rows = {};
  SeedRecord sample = {};
  ResultBoxes boxes = {};
  std::string pressure_text = {};
  std::string temp_text = {};
  std::int16_t unit_index = 0;  // 0 degrees Celsius, else kelvin
};

// Tag of a crystal system in the summary: "CUB", "TRI" and "HEX" for the first three.
// KEPT: any other system leaves `last_tag`, the tag of the summary before; it has none of its own.
std::string SummaryTag(std::int16_t lattice_type, std::string_view last_tag);

// The whole summary. A box that shows no number counts as 0.
LogRecords SummaryRecords(const SummaryInput& input, std::string_view tag);

}  // namespace dorvane
