#include "batch/SimulateCommand.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>
#include <ostream>

#include "batch/BatchError.h"
#include "batch/BatchPorts.h"
#include "batch/ElementLines.h"
#include "batch/OptionTexts.h"
#include "batch/ProgramFiles.h"
#include "batch/SourceLines.h"
#include "files/FileNPD.h"
#include "files/SplitPath.h"
#include "lattice/CalLattice.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

using Json = nlohmann::ordered_json;

struct OutPaths {
  std::string spectrum;
  std::string truth;
};

OutPaths PathsFor(const std::string& out) {
  const PathParts parts = SplitPath(out);
  if (LowerAscii(parts.Ext) != "npd")
    throw UsageError("--out " + out + ": the name has to end in .npd");
  return {out, parts.Drive + parts.Dir + parts.Name + ".json"};
}

constexpr double kDefaultShare = 0.2;

struct NamedShare {
  std::string name;
  double share = kDefaultShare;
};

// "Au:0.3,Pb:0.1".
std::vector<NamedShare> ParseShares(const std::string& option, const std::string& text) {
  std::vector<NamedShare> shares;
  for (const std::string& piece : CLI::detail::split(text, ',')) {
    const auto colon = piece.find(':');
    const auto share =
        colon == std::string::npos ? kDefaultShare : ParseNumber(piece.substr(colon + 1));
    if (!share) throw UsageError(option + ": \"" + piece + "\" is not NAME:SHARE");
    shares.push_back({std::string(Trim(std::string_view(piece).substr(0, colon))), *share});
  }
  return shares;
}

void AddKnownLines(const SimulateOptions& options, FileLayer& files, SimulationRequest& request) {
  const auto add = [&](const std::vector<FluorescenceLine>& lines) {
    request.fluorescence.insert(request.fluorescence.end(), lines.begin(), lines.end());
  };
  if (!options.fluorescence.empty()) {
    const ByteVector table = ReadFile(files, ProgramFile(files, "element_lines.csv"));
    for (const NamedShare& each : ParseShares("--fluorescence", options.fluorescence)) {
      add(KLinesOf(AsText(table), each.name, each.share));
    }
  }
  if (options.sources.empty()) return;
  for (const NamedShare& each : ParseShares("--sources", options.sources)) {
    add(SourceLinesOf(each.name, each.share));
  }
}

void TakeCrystal(const SimulateOptions& options, FileLayer& files, SimulationRequest& request) {
  if (options.crystal.empty()) {
    if (options.fluorescence.empty() && options.sources.empty())
      throw UsageError("there is nothing to simulate: --crystal, --fluorescence or --sources");
    if (options.pressure || options.volume_ratio || !options.cell.empty())
      throw UsageError("--pressure, --volume-ratio and --cell are those of a --crystal");
    return;
  }
  const CrystalLibrary library = ReadLibrary(files, options.crystal_file);
  request.crystal = library.CrystalTable[CrystalIndexOf(library, options.crystal)];
}

SimulationRequest RequestOf(const SimulateOptions& options, FileLayer& files) {
  SimulationRequest request = options.request;
  TakeCrystal(options, files, request);
  request.name = SplitPath(options.out).Name;
  request.pressure = options.pressure;
  request.volume_ratio = options.volume_ratio;
  request.strongest_counts = options.counts;
  if (!options.cell.empty()) {
    const auto cell = ParseNumbers(options.cell, 6, "a cell a,b,c,alpha,beta,gamma");
    request.cell.emplace();
    std::copy(cell.begin(), cell.end(), request.cell->begin());
  }
  if (!options.egc.empty()) {
    const auto egc = ParseNumbers(options.egc, 3, "a calibration of three coefficients");
    std::copy(egc.begin(), egc.end(), request.egc.begin());
  }
  if (!options.width.empty()) {
    const auto width = ParseNumbers(options.width, 2, "a width CONSTANT,SLOPE");
    request.width = {width[0], width[1]};
  }
  if (!options.exponential.empty()) {
    const auto shape = ParseNumbers(options.exponential, 2, "SHARE,KEV");
    request.background.exponential_share = shape[0];
    request.background.exponential_kev = shape[1];
  }
  if (!options.hump.empty()) {
    const auto shape = ParseNumbers(options.hump, 3, "SHARE,KEV,WIDTH");
    request.background.hump_share = shape[0];
    request.background.hump_kev = shape[1];
    request.background.hump_width_kev = shape[2];
  }
  AddKnownLines(options, files, request);
  return request;
}

Json LineJson(const SimulatedLine& line) {
  Json json{{"name", line.name}, {"kind", line.diffraction ? "diffraction" : "fluorescence"}};
  if (line.diffraction) {
    json["hkl"] = {line.hkl.h, line.hkl.k, line.hkl.l};
    json["multiplicity"] = line.multiplicity;
    json["d_A"] = line.d;
  }
  json["energy_keV"] = line.energy_kev;
  json["channel_index"] = line.index;
  json["height_counts"] = line.height;
  json["fwhm_keV"] = line.fwhm_kev;
  json["fwhm_channels"] = line.fwhm_channels;
  json["area_counts"] = line.area;
  return json;
}

std::string TruthText(const SimulationRequest& request, const SimulatedSpectrum& spectrum) {
  const MeasProp& prop = spectrum.record.Prop;
  Json json;
  json["spectrum"] = request.name + ".npd";
  if (!request.crystal.Name.empty()) {
    json["crystal"] = request.crystal.Name;
    json["system"] = LowerAscii(LatticeName(request.crystal.LatticeType));
    json["cell"] = {spectrum.cell[0], spectrum.cell[1], spectrum.cell[2],
                    spectrum.cell[3], spectrum.cell[4], spectrum.cell[5]};
    json["V_over_V0"] = spectrum.volume_ratio;
    json["pressure_GPa"] = spectrum.pressure ? Json(*spectrum.pressure) : Json(nullptr);
  }
  json["temperature_C"] = request.temperature;
  json["two_theta_deg"] = prop.TwoTheta;
  json["egc_keV"] = {prop.EGC[0], prop.EGC[1], prop.EGC[2]};
  json["channels"] = request.channels;
  json["live_time_s"] = prop.LiveTime;
  json["seed"] = request.seed;
  json["lines"] = Json::array();
  for (const SimulatedLine& line : spectrum.lines) json["lines"].push_back(LineJson(line));
  return json.dump(2) + "\n";
}

}  // namespace

void AddSimulate(CLI::App& app, SimulateOptions& options) {
  CLI::App* simulate =
      app.add_subcommand("simulate", "Make a synthetic spectrum and the truth about it");
  SimulationRequest& request = options.request;
  simulate->add_option("--crystal", options.crystal,
                       "Crystal of the library; default: none, for a reference spectrum");
  simulate
      ->add_option("--out", options.out,
                   "Spectrum to write, .npd; the truth goes beside it as .json")
      ->required();
  simulate->add_option("--crystal-file", options.crystal_file,
                       "Crystal library to use in place of the program's");
  auto* pressure = simulate->add_option("--pressure", options.pressure,
                                        "Pressure by the crystal's own scale, GPa");
  auto* ratio = simulate->add_option("--volume-ratio", options.volume_ratio,
                                     "V/V0, all lengths scaled alike");
  auto* cell = simulate->add_option("--cell", options.cell, "Cell a,b,c,alpha,beta,gamma");
  pressure->excludes(ratio)->excludes(cell);
  ratio->excludes(cell);
  simulate->add_option("--temperature", request.temperature, "Temperature, degrees C")
      ->capture_default_str();
  simulate->add_option("--two-theta", request.two_theta_deg, "Scattering angle, degrees")
      ->capture_default_str();
  simulate->add_option("--egc", options.egc,
                       "Energy in keV of channel number n: A,B,C of A + B n + C n n");
  simulate->add_option("--channels", request.channels, "Number of channels")->capture_default_str();
  auto* counts = simulate->add_option(
      "--counts", options.counts, "Counts in the strongest line, of the crystal if there is one");
  auto* time = simulate->add_option("--time", request.counting_time, "Counting time, s")
                   ->capture_default_str();
  counts->excludes(time);
  simulate->add_option("--rate", request.rate, "Counts per second in the strongest line")
      ->capture_default_str();
  simulate->add_option("--width", options.width,
                       "FWHM^2 = CONSTANT + SLOPE E, keV; default: a germanium detector");
  simulate->add_option("--background-exponential", options.exponential,
                       "SHARE,KEV; share of the strongest line");
  simulate->add_option("--background-hump", options.hump,
                       "SHARE,KEV,WIDTH; share of the strongest line");
  simulate
      ->add_option("--beam", request.beam.peak_kev,
                   "Energy of the greatest incident intensity, keV")
      ->capture_default_str();
  simulate->add_option("--fluorescence", options.fluorescence,
                       "Elements SYMBOL:SHARE,...; share of the strongest line");
  simulate->add_option("--sources", options.sources,
                       "Radioactive sources NAME:SHARE,...: " + SourceNames());
  simulate->add_option("--seed", request.seed, "Seed of the random counts")
      ->check(CLI::NonNegativeNumber)
      ->capture_default_str();
  simulate->add_flag("--quiet", options.quiet, "Print nothing but errors");
  simulate->add_flag("--overwrite", options.overwrite, "Replace files that exist");
}

int RunSimulate(const SimulateOptions& options, std::ostream& out, std::ostream& err) {
  SystemFileLayer files;
  const OutPaths paths = PathsFor(options.out);
  const SimulationRequest request = RequestOf(options, files);
  SimulatedSpectrum spectrum;
  try {
    spectrum = Simulate(request);
  } catch (const Fault& fault) {
    throw UsageError(fault.what());
  }
  for (const std::string& path : {paths.spectrum, paths.truth}) {
    if (options.overwrite || !files.Info(path)) continue;
    err << "dorvane-batch: " << path << " exists already (--overwrite replaces it)\n";
    return 1;
  }
  CollectingDialogs dialogs(true);
  std::int16_t last_data_type = 0;
  FileContext context{files, dialogs, last_data_type};
  try {
    FileReplacement truth(files, paths.truth);
    if (WriteNpdFile(context, paths.spectrum, spectrum.block, spectrum.record) != -1) {
      throw BatchError("can't be written");
    }
    truth.Commit(AsBytes(TruthText(request, spectrum)));
  } catch (const std::exception& failure) {
    err << "dorvane-batch: " << paths.spectrum << ": " << failure.what() << '\n';
    return 1;
  }
  if (options.quiet) return 0;
  out << paths.spectrum << ": ";
  if (!request.crystal.Name.empty()) out << request.crystal.Name << ", ";
  out << spectrum.lines.size() << " lines";
  if (!request.crystal.Name.empty()) {
    out << ", V/V0 " << Picture(spectrum.volume_ratio, "0.00000");
  }
  if (spectrum.pressure) out << ", " << Picture(*spectrum.pressure, "0.000") << " GPa";
  out << "; truth in " << paths.truth << '\n';
  return 0;
}

}  // namespace dorvane
