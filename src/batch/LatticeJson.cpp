#include <array>
#include <nlohmann/json.hpp>

#include "batch/Tables.h"
#include "lattice/CalLattice.h"

namespace dorvane {
namespace {

using Json = nlohmann::ordered_json;

Json ValueJson(const ValueWithError& value) {
  return {{"value", value.value}, {"error", value.error}};
}

Json CellJson(const LatticeReport& lattice) {
  constexpr std::array kNames{"a", "b", "c", "alpha", "beta", "gamma"};
  Json cell;
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    const int place = static_cast<int>(i) + 1;
    cell[kNames[i]] = ValueJson({lattice.cell->Direct[place], lattice.cell->DirectErr[place]});
  }
  return cell;
}

Json LineJson(const LatticeLine& line) {
  return {{"peak", line.peak + 1},
          {"hkl", {line.hkl.h, line.hkl.k, line.hkl.l}},
          {"d_obs_A", line.d_obs},
          {"d_cal_A", line.d_cal},
          {"difference_A", line.d_obs - line.d_cal},
          {"used", line.used}};
}

Json PressureJson(const Analysis& analysis) {
  const PressureResult& pressure = *analysis.lattice.pressure;
  return {{"value", pressure.P},
          {"error", pressure.Error},
          {"text", pressure.Text},
          {"scale", pressure.Scale->Name},
          {"temperature_C", analysis.temperature_c}};
}

Json AnalysisJson(const Analysis& analysis) {
  const LatticeReport& lattice = analysis.lattice;
  Json json;
  json["file"] = analysis.path;
  json["sample"] = analysis.sample;
  json["channels"] = analysis.channels;
  json["two_theta_deg"] = analysis.two_theta_deg;
  json["egc_keV"] = {analysis.egc[0], analysis.egc[1], analysis.egc[2]};
  json["engine"] = analysis.engine == FitEngine::Nax ? "nax" : "express";
  json["peaks"] = analysis.peaks.size();
  json["crystal"] = analysis.indexed ? Json(lattice.crystal) : Json(nullptr);
  if (analysis.indexed) {
    json["system"] = LowerAscii(LatticeName(lattice.lattice_type));
    json["mode"] = analysis.mode == LatticeMode::Marker ? "marker" : "sample";
    json["cell"] = lattice.cell ? CellJson(lattice) : Json(nullptr);
    json["volume_A3"] = lattice.volume ? ValueJson(*lattice.volume) : Json(nullptr);
    json["V0_A3"] = lattice.ratio ? Json(lattice.V0) : Json(nullptr);
    json["V_over_V0"] = lattice.ratio ? ValueJson(*lattice.ratio) : Json(nullptr);
    json["pressure_GPa"] = lattice.pressure ? PressureJson(analysis) : Json(nullptr);
    json["lines"] = Json::array();
    for (const LatticeLine& line : lattice.lines) json["lines"].push_back(LineJson(line));
  }
  json["notes"] = analysis.notes;
  if (analysis.failure) json["failure"] = *analysis.failure;
  return json;
}

// Texts of files may hold anything; what is no UTF-8 is replaced.
std::string Dumped(const Json& json) {
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace

std::string LatticeJson(const Analysis& analysis) {
  return Dumped(AnalysisJson(analysis));
}

std::string LatticeJson(std::span<const Analysis* const> analyses) {
  Json list = Json::array();
  for (const Analysis* analysis : analyses) list.push_back(AnalysisJson(*analysis));
  return Dumped(list);
}

}  // namespace dorvane
