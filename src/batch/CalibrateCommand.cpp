#include "batch/CalibrateCommand.h"

#include <CLI/CLI.hpp>
#include <cmath>
#include <memory>
#include <ostream>

#include "batch/BatchError.h"
#include "batch/LineMatch.h"
#include "batch/LineTable.h"
#include "files/FilePara.h"
#include "files/FormatTable.h"
#include "processing/Units.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

// A known line and its peak.
struct FoundLine {
  KnownLine known;
  double expected = 0;               // channel number
  const ListedPeak* peak = nullptr;  // none: nothing near enough, or
  bool lost = false;                 // nearer lines have what is
};

double ExpectedChannel(const KnownLine& line, const Analysis& analysis) {
  if (line.channel) return *line.channel;
  if (analysis.egc[1] == 0 && analysis.egc[2] == 0) {
    throw BatchError("the file has no calibration; the table has to give the channel of " +
                     PlainNumber(line.energy_kev) + " keV");
  }
  return EnergyToCh(line.energy_kev, analysis.egc);
}

std::vector<FoundLine> FindLines(const std::vector<KnownLine>& known, const Analysis& analysis,
                                 double within) {
  std::vector<double> lines, peaks;
  for (const KnownLine& line : known) lines.push_back(ExpectedChannel(line, analysis));
  for (const ListedPeak& peak : analysis.peaks) peaks.push_back(peak.channel);
  const std::vector<LineMatch> matches = MatchLines(lines, peaks, within);
  std::vector<FoundLine> found;
  for (std::size_t i = 0; i < known.size(); ++i) {
    const LineMatch& match = matches[i];
    const ListedPeak* peak = match.peak ? &analysis.peaks[*match.peak] : nullptr;
    found.push_back({known[i], lines[i], peak, match.lost});
  }
  return found;
}

CalibTable TableOf(const std::vector<FoundLine>& lines, const CalibrateOptions& options) {
  CalibTable table;
  table.form = options.form;
  for (const FoundLine& line : lines) {
    if (line.peak == nullptr) continue;
    table.rows.push_back({Picture(line.peak->channel, "0.0000"), PlainNumber(line.known.energy_kev),
                          line.known.name, options.file});
  }
  return table;
}

std::string Cell(double value, std::string_view picture, int width) {
  return PictureRight(value, picture, width);
}

void PrintLines(const std::vector<FoundLine>& lines, const CalibFit& fit, std::ostream& out) {
  out << "  no    channel      E/keV  E(fit)/keV  residual/eV  line\n";
  std::size_t used = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const FoundLine& line = lines[i];
    out << PadLeft(std::to_string(i + 1), 4);
    const std::string known = Cell(line.known.energy_kev, "0.0000", 11);
    if (line.peak == nullptr) {
      out << PadLeft("-", 11) << known << PadLeft("-", 12) << PadLeft("-", 13);
    } else {
      const double residual = fit.residuals_ev[used++];
      out << Cell(line.peak->channel, "0.0000", 11) << known
          << Cell(line.known.energy_kev - residual / 1000, "0.0000", 12)
          << Cell(residual, "0.0", 13);
    }
    out << (line.known.name.empty() ? "" : "  " + line.known.name) << '\n';
  }
}

void PrintCoefficient(std::ostream& out, std::string_view name, double value, double error,
                      std::string_view picture, std::string_view unit) {
  out << "  " << name << "  " << Cell(value, picture, 14);
  if (error > 0) out << " +- " << Picture(error, picture);
  out << ' ' << unit << '\n';
}

void PrintCoefficients(const CalibFit& fit, CalibForm form, std::ostream& out) {
  const bool parabola = form == CalibForm::Parabola;
  out << (parabola ? "E = A + B x + C x^2, x the channel index (number less 1)\n"
                   : "E = A + B n, n the channel number\n");
  PrintCoefficient(out, "A", fit.coefficients[0], fit.errors[0], "0.000000", "keV");
  PrintCoefficient(out, "B", fit.coefficients[1], fit.errors[1], "0.00000000", "keV/channel");
  if (parabola) {
    PrintCoefficient(out, "C", fit.coefficients[2], fit.errors[2], "0.0000E+00", "keV/channel^2");
  }
  double squares = 0;
  for (const double residual : fit.residuals_ev) squares += residual * residual;
  const auto lines = static_cast<double>(fit.residuals_ev.size());
  const double freedom = lines - (parabola ? 3 : 2);
  if (freedom > 0) {
    out << "standard deviation of the residuals " << Picture(std::sqrt(squares / freedom), "0.0")
        << " eV\n";
  } else {
    out << "no standard errors: no more lines than coefficients\n";
  }
}

// What else a file holds stays; a file that is not there begins with those of a new program.
void Store(FileLayer& files, const std::string& path, const EgcCoef& coefficients) {
  BatchPorts ports;
  const auto program = std::make_unique<Program>(ports.Join(files), "");
  Workspace& workspace = program->workspace;
  workspace.SkipLastProp = 1;
  FileContext context = program->FileAccess();
  const auto require = [&](std::int16_t done) {
    if (done != kTrue) throw BatchError(path + ": " + ports.dialogs.messages.back());
  };
  if (files.Info(path)) require(ParaFileRead(context, path, workspace));
  workspace.DefaultProp.EGC = coefficients;
  require(ParaFileWrite(context, path, workspace));
}

void TellMissing(const std::vector<FoundLine>& lines, const CalibrateOptions& options,
                 std::ostream& err) {
  for (const FoundLine& line : lines) {
    if (line.peak != nullptr) continue;
    const std::string within =
        " within " + PlainNumber(options.within) + " channels of " + Picture(line.expected, "0.0");
    err << "dorvane-batch: " << options.file << ": " << PlainNumber(line.known.energy_kev)
        << " keV: "
        << (line.lost ? "nearer lines have the peaks" + within : "no peak" + within + " (--within)")
        << '\n';
  }
}

int Calibrate(FileLayer& files, const std::vector<KnownLine>& known,
              const CalibrateOptions& options, std::ostream& out, std::ostream& err) {
  AnalysisRequest request;
  request.engine = options.engine;
  request.index = false;
  const CrystalLibrary no_crystals;
  const AnalysisRun run(files, no_crystals, request, options.file);
  const Analysis& analysis = run.Result();
  const std::vector<FoundLine> lines = FindLines(known, analysis, options.within);
  TellMissing(lines, options, err);
  CalibTable table = TableOf(lines, options);
  const CalibFit fit = Calculate(table);
  if (fit.status != kFitted) {
    throw BatchError(options.form == CalibForm::Line ? "a straight line needs two lines with peaks"
                                                     : "a parabola needs three lines with peaks");
  }
  if (!options.quiet) {
    out << options.file << "  " << analysis.channels << " channels  " << fit.residuals_ev.size()
        << " of " << lines.size() << " lines\n";
    PrintLines(lines, fit, out);
    PrintCoefficients(fit, options.form, out);
    for (const std::string& note : analysis.notes) out << "note: " << note << '\n';
  }
  if (fit.residuals_ev.size() < lines.size()) return 1;
  if (!options.store) return 0;
  Store(files, *options.store, table.ImConst);
  if (!options.quiet) out << "stored: " << *options.store << '\n';
  return 0;
}

}  // namespace

void AddCalibrate(CLI::App& app, CalibrateOptions& options) {
  CLI::App* calibrate =
      app.add_subcommand("calibrate", "Energy calibration from the peaks of a reference spectrum");
  calibrate->add_option("FILE", options.file, "Spectrum file (" + ReadableKinds() + ")")
      ->required();
  calibrate
      ->add_option("--lines", options.lines,
                   "Known lines: a .csv table with columns energy_keV, channel, name")
      ->required();
  calibrate->add_flag_callback(
      "--quadratic", [&options] { options.form = CalibForm::Parabola; },
      "E = A + B x + C x^2; default: a straight line");
  calibrate
      ->add_option("--within", options.within, "A peak so near to a line is its peak, channels")
      ->check(CLI::NonNegativeNumber)
      ->capture_default_str();
  calibrate
      ->add_option_function<std::string>(
          "--engine",
          [&options](const std::string& name) {
            options.engine = name == "nax" ? FitEngine::Nax : FitEngine::Express;
          },
          "nax or express, as in analyse; default: nax")
      ->check(CLI::IsMember({"nax", "express"}));
  calibrate
      ->add_option_function<std::vector<std::string>>(
          "--store",
          [&options](const std::vector<std::string>& path) {
            options.store = path.empty() || path.front().empty() ? kParaFileName : path.front();
          },
          std::string("Write the coefficients into this parameter file; default: ") + kParaFileName)
      ->expected(0, 1)
      ->option_text("[PARAFILE]");
  calibrate->add_flag("--quiet", options.quiet, "Print nothing but errors");
}

int RunCalibrate(FileLayer& files, const CalibrateOptions& options, std::ostream& out,
                 std::ostream& err) {
  std::string at = options.lines;
  try {
    const std::vector<KnownLine> known = ParseLineTable(AsText(ReadFile(files, options.lines)));
    at = options.file;
    return Calibrate(files, known, options, out, err);
  } catch (const std::exception& failure) {
    err << "dorvane-batch: " << at << ": " << failure.what() << '\n';
    return 1;
  }
}

}  // namespace dorvane
