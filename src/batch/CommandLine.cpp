#include "batch/CommandLine.h"

#include <CLI/CLI.hpp>
#include <functional>
#include <map>
#include <ostream>

#include "batch/Analyse.h"
#include "batch/BatchError.h"
#include "batch/CalibrateCommand.h"
#include "batch/ConvertCommand.h"
#include "batch/InfoCommand.h"
#include "batch/SimulateCommand.h"
#include "files/FormatTable.h"
#include "support/FileLayer.h"
#include "support/NumberText.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr int kBadUsage = 2;
constexpr double kPercent = 0.01;

// Options as they are typed, where they have a form of their own.
struct AnalyseTexts {
  std::string temperature = "27.0";
  std::string range, use_lines, exclude_lines;
  std::string smooth = "7";
  std::string background;
  std::string fit_on = "smooth";
  std::string format = "table";
  std::string engine = "nax";
  double reject_percent = 0.2;
  int threshold = 10;
  bool marker = false;
};

void AddAnalyse(CLI::App& app, AnalyseOptions& options, AnalyseTexts& texts) {
  CLI::App* analyse = app.add_subcommand(
      "analyse", "Fit, index and refine spectra; pressure from a marker crystal");
  analyse->add_option("FILE", options.files, "Spectrum files (" + ReadableKinds() + ")")
      ->required();
  AnalysisRequest& request = options.request;
  analyse->add_option("--crystal", request.crystal,
                      "Crystal of the library; default: the spectrum's sample name");
  analyse->add_option("--crystal-file", options.crystal_file,
                      "Crystal library to use in place of the program's");
  analyse->add_flag("--marker", texts.marker,
                    "The crystal is a pressure marker: V/V0 and pressure");
  analyse->add_option("--temperature", texts.temperature, "Temperature of the marker, degrees C")
      ->capture_default_str();
  analyse->add_option("--range", texts.range, "Channels A:B to be fitted; default: all");
  analyse
      ->add_option(
          "--judge", request.judge_range,
          "A line so near in d indexes a peak, angstrom; default: 0.03, or up to 0.25 where "
          "that leaves most of the intensity out")
      ->check(CLI::PositiveNumber);
  analyse->add_option("--use-lines", texts.use_lines,
                      "Only these lines enter the fit of the cell: \"2 0 0,2 2 0\"");
  analyse->add_option("--exclude-lines", texts.exclude_lines,
                      "These lines do not enter the fit of the cell");
  analyse
      ->add_option("--reject", texts.reject_percent,
                   "Leave out lines that deviate more, per cent of d; 0: none")
      ->check(CLI::NonNegativeNumber)
      ->capture_default_str();
  analyse
      ->add_option("--smooth", texts.smooth, "Points of the smoothing filter: 5, 7, 9, 11 or none")
      ->capture_default_str();
  analyse
      ->add_option("--threshold", texts.threshold,
                   "Sensitivity of the peak search, 1 to 20 (express)")
      ->check(CLI::Range(1, 20))
      ->capture_default_str();
  analyse->add_option("--background", texts.background,
                      "Estimate the background: INTERVAL,TIMES; default 20,20");
  analyse
      ->add_option("--fit-on", texts.fit_on, "What is fitted: raw, smooth or removed (background)")
      ->check(CLI::IsMember({"raw", "smooth", "removed"}))
      ->capture_default_str();
  analyse
      ->add_option("--engine", texts.engine,
                   "nax: scans the spectrum and fits neighbours together; express: searches peaks "
                   "and fits them one by one")
      ->check(CLI::IsMember({"express", "nax"}))
      ->capture_default_str();
  analyse
      ->add_option("--bg-coefficient", request.bg_coefficient,
                   "Curvature that counts as noise (nax): higher for more background")
      ->check(CLI::NonNegativeNumber)
      ->capture_default_str();
  analyse
      ->add_option("--peak-width", request.peak_width,
                   "Channels behind a peak after which a group ends (nax)")
      ->check(CLI::Range(1, 250))
      ->capture_default_str();
  analyse->add_option("--out", options.out, "Folder of the results; default: the current one");
  analyse->add_option("--picture", options.picture, "Kind of the picture: png, svg or pdf")
      ->check(CLI::IsMember({"png", "svg", "pdf"}))
      ->capture_default_str();
  analyse->add_flag("--log-scale", request.log_scale, "Logarithmic counts in the picture");
  analyse->add_option("--format", texts.format, "What is printed: table, csv or json")
      ->check(CLI::IsMember({"table", "csv", "json"}))
      ->capture_default_str();
  analyse->add_flag("--quiet", options.quiet, "Print nothing but errors");
  analyse->add_option("--log", options.log,
                      "File for the log of the lattice work, as the window writes it");
  analyse->add_flag("--overwrite", options.overwrite, "Replace results that exist");
}

void SettleAnalyse(const AnalyseTexts& texts, AnalyseOptions& options) {
  AnalysisRequest& request = options.request;
  request.lattice.mode = texts.marker ? LatticeMode::Marker : LatticeMode::Sample;
  if (!IsNumeric(texts.temperature))
    throw UsageError("--temperature: \"" + texts.temperature + "\" is no number");
  request.lattice.temperature = texts.temperature;
  request.lattice.reject_beyond = texts.reject_percent * kPercent;
  if (!texts.range.empty()) request.range = ParseChannelSpan(texts.range);
  if (!texts.use_lines.empty()) request.lattice.use_lines = ParseHklList(texts.use_lines);
  if (!texts.exclude_lines.empty())
    request.lattice.exclude_lines = ParseHklList(texts.exclude_lines);
  request.smooth_kind = ParseSmoothing(texts.smooth);
  request.engine = texts.engine == "nax" ? FitEngine::Nax : FitEngine::Express;
  request.threshold = ToInt16(texts.threshold);
  if (!texts.background.empty()) {
    std::tie(request.back_interval, request.back_times) = ParseBackground(texts.background);
    request.background = true;
  }
  const std::map<std::string, FitOn> curves{
      {"raw", FitOn::Raw}, {"smooth", FitOn::Smooth}, {"removed", FitOn::Removed}};
  request.fit_on = curves.at(texts.fit_on);
  if (request.fit_on == FitOn::Smooth && request.smooth_kind < 0) {
    throw UsageError("--smooth none leaves no smoothed curve to fit; see --fit-on raw");
  }
  const std::map<std::string, PrintFormat> formats{
      {"table", PrintFormat::Table}, {"csv", PrintFormat::Csv}, {"json", PrintFormat::Json}};
  options.format = formats.at(texts.format);
}

}  // namespace

int RunBatch(int argc, char** argv, std::ostream& out, std::ostream& err) {
  CLI::App app{"Energy-dispersive X-ray diffraction spectra without a window.", "dorvane-batch"};
  app.set_version_flag("--version", "dorvane-batch " DORVANE_VERSION);
  app.require_subcommand(1);
  AnalyseOptions analyse_options;
  AnalyseTexts analyse_texts;
  AddAnalyse(app, analyse_options, analyse_texts);
  SimulateOptions simulate_options;
  AddSimulate(app, simulate_options);
  ConvertOptions convert_options;
  AddConvert(app, convert_options);
  InfoOptions info_options;
  AddInfo(app, info_options);
  CalibrateOptions calibrate_options;
  AddCalibrate(app, calibrate_options);
  try {
    app.parse(argc, argv);
    if (app.got_subcommand("simulate")) return RunSimulate(simulate_options, out, err);
    if (app.got_subcommand("convert")) return RunConvert(convert_options, out, err);
    if (app.got_subcommand("calibrate")) {
      SystemFileLayer files;
      return RunCalibrate(files, calibrate_options, out, err);
    }
    if (app.got_subcommand("info")) return RunInfo(info_options, out, err);
    SettleAnalyse(analyse_texts, analyse_options);
    return RunAnalyse(analyse_options, argc, argv, out, err);
  } catch (const CLI::ParseError& error) {
    return app.exit(error, out, err) == 0 ? 0 : kBadUsage;
  } catch (const UsageError& error) {
    err << "dorvane-batch: " << error.what() << '\n';
    return kBadUsage;
  } catch (const std::exception& failure) {
    err << "dorvane-batch: " << failure.what() << '\n';
    return 1;
  }
}

}  // namespace dorvane
