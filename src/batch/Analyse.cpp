#include "batch/Analyse.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <condition_variable>
#include <map>
#include <mutex>
#include <optional>
#include <ostream>
#include <thread>

#include "batch/BatchError.h"
#include "batch/ProgramFiles.h"
#include "batch/Results.h"
#include "batch/Tables.h"
#include "qt/surface/Picture.h"

namespace dorvane {
namespace {

constexpr PictureSize kPictureSize{1200, 720, 1};

// Loads the fonts, which takes as long as a fit, while the other threads fit.
void WarmFonts() {
  RenderPicture(PictureFormat::Png, {16, 16, 1}, [](Page& page) {
    const auto surface = page.Whole();
    surface->SetFontSize(10);
    surface->Text({0, 0}, "0", 0);
  });
}

// The files that one analysis leaves.
struct ResultPaths {
  std::string peaks;
  std::string lattice;
  std::string picture;

  std::array<const std::string*, 3> All() const { return {&peaks, &lattice, &picture}; }
};

// What has become of one file.
struct Outcome {
  bool done = false;
  std::optional<Analysis> analysis;
  std::string error;  // empty when all went well
};

ResultPaths PathsFor(const AnalyseOptions& options, const std::string& file) {
  const std::string base = ResultPath(options.out, file, "");
  return {base + "_peaks.csv", base + "_lattice.json", base + "." + options.picture};
}

// Why the results of a file can't be written; empty when they can. `owners` tells whose results
// have that name.
std::string Obstacle(FileLayer& files, const AnalyseOptions& options, const std::string& file,
                     std::map<std::string, std::string>& owners) {
  const ResultPaths paths = PathsFor(options, file);
  const auto [owner, is_new] = owners.emplace(paths.peaks, file);
  if (!is_new) return paths.peaks + " belongs to " + owner->second + " already";
  if (options.overwrite) return {};
  for (const std::string* path : paths.All()) {
    if (files.Info(*path)) return *path + " exists already (--overwrite replaces it)";
  }
  return {};
}

ByteVector BytesOf(std::string_view text) {
  const auto bytes = AsBytes(text);
  return {bytes.begin(), bytes.end()};
}

// All images are complete and all files open before the first of them changes.
void WriteResults(FileLayer& files, const ResultPaths& paths,
                  const std::array<ByteVector, 3>& images) {
  const std::string* current = nullptr;
  try {
    std::array<std::optional<FileReplacement>, 3> replacements;
    for (std::size_t i = 0; i < images.size(); ++i) {
      current = paths.All()[i];
      replacements[i].emplace(files, *current);
    }
    for (std::size_t i = 0; i < images.size(); ++i) {
      current = paths.All()[i];
      replacements[i]->Commit(images[i]);
    }
  } catch (const Fault& fault) {
    throw BatchError("result " + *current + ": " + fault.what());
  }
}

// Works through the files in several threads, while the main thread starts the toolkit and prints.
class Workshop {
 public:
  Workshop(const AnalyseOptions& options, const CrystalLibrary& library)
      : options_(options), library_(library), outcomes_(options.files.size()) {
    std::map<std::string, std::string> owners;
    for (std::size_t i = 0; i < outcomes_.size(); ++i) {
      outcomes_[i].error = Obstacle(files_, options_, options_.files[i], owners);
      outcomes_[i].done = !outcomes_[i].error.empty();
    }
  }
  Workshop(const Workshop&) = delete;
  Workshop& operator=(const Workshop&) = delete;
  ~Workshop() {
    Change([this] { closing_ = true; });
    for (std::thread& worker : workers_) worker.join();
  }

  bool HasWork() const {
    return std::any_of(outcomes_.begin(), outcomes_.end(),
                       [](const Outcome& outcome) { return !outcome.done; });
  }

  void Start() {
    const std::size_t cores = std::max(1u, std::thread::hardware_concurrency());
    const std::size_t count = std::min(cores, outcomes_.size());
    for (std::size_t i = 0; i < count; ++i) workers_.emplace_back([this] { Work(); });
  }

  // Pictures can be drawn from now on.
  void OpenGallery() {
    Change([this] { gallery_open_ = true; });
  }

  // Waits for a file; `show` is told how many are done meanwhile.
  template <typename Show>
  const Outcome& Await(std::size_t index, Show show) {
    std::unique_lock lock(mutex_);
    for (;;) {
      show(Done());
      if (outcomes_[index].done) return outcomes_[index];
      changed_.wait(lock);
    }
  }

 private:
  std::size_t Done() const {
    return static_cast<std::size_t>(std::count_if(
        outcomes_.begin(), outcomes_.end(), [](const Outcome& outcome) { return outcome.done; }));
  }

  void Work() {
    for (;;) {
      const std::size_t index = next_++;
      if (index >= outcomes_.size()) return;
      if (!outcomes_[index].error.empty()) continue;
      Outcome outcome;
      try {
        WorkOn(options_.files[index], outcome);
      } catch (const std::exception& failure) {
        outcome.error = failure.what();
      }
      outcome.done = true;
      Change([&] { outcomes_[index] = std::move(outcome); });
    }
  }

  void WorkOn(const std::string& file, Outcome& outcome) {
    const ResultPaths paths = PathsFor(options_, file);
    AnalysisRun run(files_, library_, options_.request, file);
    const Analysis& analysis = run.Result();
    const std::string csv = PeakCsvHeading(false, "\r\n") + PeakCsv(analysis, false, "\r\n");
    const std::string json = LatticeJson(analysis);
    WaitForGallery();
    const PaintPage paint = [&](Page& page) {
      const PictureSize size = page.Size();
      run.Draw(size.width_px, size.height_px, [&](double x, double y, double width, double height) {
        return page.Panel(x, y, width, height);
      });
    };
    WriteResults(files_, paths,
                 {BytesOf(csv), BytesOf(json),
                  RenderPicture(PictureFormatOf(paths.picture), kPictureSize, paint)});
    outcome.analysis = analysis;
    if (analysis.failure) outcome.error = *analysis.failure;
  }

  void WaitForGallery() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return gallery_open_ || closing_; });
    if (!gallery_open_) throw BatchError("pictures can't be drawn");
  }

  template <typename Action>
  void Change(Action action) {
    const std::lock_guard lock(mutex_);
    action();
    changed_.notify_all();
  }

  const AnalyseOptions& options_;
  const CrystalLibrary& library_;
  SystemFileLayer files_;
  std::vector<Outcome> outcomes_;
  std::mutex mutex_;
  std::condition_variable changed_;
  bool gallery_open_ = false;
  bool closing_ = false;
  std::atomic<std::size_t> next_ = 0;
  std::vector<std::thread> workers_;
};

void Print(const AnalyseOptions& options, const Analysis& analysis, std::ostream& out) {
  if (options.format == PrintFormat::Csv) {
    out << PeakCsv(analysis, true, "\n");
  } else if (options.format == PrintFormat::Table) {
    const ResultPaths paths = PathsFor(options, analysis.path);
    out << TableText(analysis) << "written: " << paths.peaks << ' ' << paths.lattice << ' '
        << paths.picture << "\n\n";
  }
}

void CheckLog(FileLayer& files, const AnalyseOptions& options) {
  if (options.log.empty() || options.overwrite || !files.Info(options.log)) return;
  throw UsageError("--log " + options.log + ": exists already (--overwrite replaces it)");
}

// False, with a line on `err`, when it can't be written.
bool WriteLog(FileLayer& files, const AnalyseOptions& options,
              const std::vector<const Analysis*>& analyses, std::ostream& err) {
  if (options.log.empty()) return true;
  std::string text;
  for (const Analysis* analysis : analyses) text += CsvText(analysis->log);
  try {
    ReplaceFile(files, options.log, AsBytes(text));
    return true;
  } catch (const Fault& fault) {
    err << "dorvane-batch: log " << options.log << ": " << fault.what() << '\n';
    return false;
  }
}

}  // namespace

int RunAnalyse(const AnalyseOptions& options, int& argc, char** argv, std::ostream& out,
               std::ostream& err) {
  SystemFileLayer files;
  const CrystalLibrary library = ReadLibrary(files, options.crystal_file);
  if (!options.request.crystal.empty()) CrystalIndexOf(library, options.request.crystal);
  CheckLog(files, options);
  MakeFolder(options.out);

  std::optional<GuiSession> session;  // outlives the threads that draw
  Workshop workshop(options, library);
  if (workshop.HasWork()) {
    workshop.Start();
    session.emplace(argc, argv);
    WarmFonts();
    workshop.OpenGallery();
  }
  ProgressBar bar(options.files.size(), !options.quiet);
  int status = 0;
  std::vector<const Analysis*> analyses;
  if (!options.quiet && options.format == PrintFormat::Csv) out << PeakCsvHeading(true, "\n");
  for (std::size_t i = 0; i < options.files.size(); ++i) {
    const Outcome& outcome = workshop.Await(i, [&](std::size_t done) { bar.Show(done); });
    bar.Clear();
    if (outcome.analysis) {
      analyses.push_back(&*outcome.analysis);
      if (!options.quiet) Print(options, *outcome.analysis, out);
    }
    out.flush();
    if (outcome.error.empty()) continue;
    err << "dorvane-batch: " << options.files[i] << ": " << outcome.error << '\n';
    status = 1;
  }
  if (!options.quiet && options.format == PrintFormat::Json) out << LatticeJson(analyses);
  return WriteLog(files, options, analyses, err) ? status : 1;
}

}  // namespace dorvane
