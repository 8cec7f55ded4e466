#include "batch/ConvertCommand.h"

#include <CLI/CLI.hpp>
#include <atomic>
#include <future>
#include <map>
#include <ostream>
#include <set>
#include <thread>

#include "batch/BatchError.h"
#include "batch/BatchPorts.h"
#include "batch/Results.h"
#include "batch/SpectrumFile.h"
#include "files/SplitPath.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

// Waiting for the disk takes longer than the work, and files that are flushed at the same time
// share the wait, so that more of them than cores are under way.
constexpr std::size_t kFilesAtOnce = 16;

struct Job {
  std::string from;
  std::string to;
  std::string error;  // empty when all went well
};

// ".npd" of "npd", ".NPD" or "*.npd".
std::string EndingOf(const std::string& typed) {
  const std::string extension = LowerAscii(typed.substr(typed.rfind('.') + 1));
  if (CanWrite(extension)) return "." + extension;
  std::string kinds;
  for (const std::string& kind : WritableExtensions()) kinds += (kinds.empty() ? "" : ", ") + kind;
  throw UsageError("--to " + typed + ": files are written as " + kinds);
}

// What the results of all files must keep off.
struct Taken {
  std::set<std::string> sources;              // with links followed
  std::map<std::string, std::string> owners;  // of results: the file that each comes from
};

Taken SourcesOf(FileLayer& files, const std::vector<std::string>& paths) {
  Taken taken;
  for (const std::string& path : paths) {
    try {
      if (const auto info = files.Info(path)) taken.sources.insert(info->real_path);
    } catch (const Fault&) {  // told when the file is read
    }
  }
  return taken;
}

// Why the result can't be written; empty when it can.
std::string Obstacle(FileLayer& files, bool overwrite, const Job& job, Taken& taken) {
  const auto [owner, is_new] = taken.owners.emplace(job.to, job.from);
  if (!is_new) return job.to + " belongs to " + owner->second + " already";
  try {
    const auto old = files.Info(job.to);
    if (!old) return {};
    if (taken.sources.contains(old->real_path)) return job.to + " is itself to be converted";
    return overwrite ? std::string() : job.to + " exists already (--overwrite replaces it)";
  } catch (const Fault& fault) {
    return job.to + ": " + fault.what();
  }
}

// As a save in the window: the name goes into the record, which counts as saved.
void Convert(FileLayer& files, const Job& job) {
  const auto file = ReadSpectrumFile(files, job.from);
  file->record.MsuName.Set(SplitPath(job.to).Name);
  file->record.SaveFlag = 1;
  CollectingDialogs dialogs(true);
  std::int16_t last_data_type = 0;
  FileContext context{files, dialogs, last_data_type};
  if (WriteByExtension(context, job.to, file->Parts()) != kTrue) {
    throw BatchError(job.to + ": " +
                     (dialogs.messages.empty() ? "not written" : dialogs.messages.back()));
  }
}

std::string OutcomeOf(FileLayer& files, const Job& job) {
  try {
    if (job.error.empty()) Convert(files, job);
    return job.error;
  } catch (const std::exception& failure) {
    return failure.what();
  }
}

// Works through the jobs in several threads; `tell` is called in the order of the jobs.
template <typename Tell>
void WorkThrough(FileLayer& files, std::vector<Job>& jobs, Tell tell) {
  std::vector<std::promise<void>> done(jobs.size());
  std::atomic<std::size_t> next = 0;
  const auto work = [&] {
    for (std::size_t i = next++; i < jobs.size(); i = next++) {
      jobs[i].error = OutcomeOf(files, jobs[i]);
      done[i].set_value();
    }
  };
  std::vector<std::jthread> workers;
  for (std::size_t i = 0; i < std::min(kFilesAtOnce, jobs.size()); ++i) workers.emplace_back(work);
  for (std::size_t i = 0; i < jobs.size(); ++i) {
    done[i].get_future().wait();
    tell(jobs[i], i + 1);
  }
}

}  // namespace

void AddConvert(CLI::App& app, ConvertOptions& options) {
  CLI::App* convert = app.add_subcommand("convert", "Write spectra in another format");
  convert->add_option("FILE", options.files, "Spectrum files (" + ReadableKinds() + ")")
      ->required();
  std::string kinds;
  for (const std::string& kind : WritableExtensions()) kinds += " " + kind;
  convert->add_option("--to", options.to, "Extension of the format:" + kinds)->required();
  convert->add_option("--out", options.out, "Folder of the results; default: the current one");
  convert->add_flag("--quiet", options.quiet, "Print nothing but errors");
  convert->add_flag("--overwrite", options.overwrite, "Replace files that exist");
}

int RunConvert(const ConvertOptions& options, std::ostream& out, std::ostream& err) {
  const std::string ending = EndingOf(options.to);
  MakeFolder(options.out);
  SystemFileLayer files;
  Taken taken = SourcesOf(files, options.files);
  std::vector<Job> jobs;
  for (const std::string& file : options.files) {
    Job job{file, ResultPath(options.out, file, ending), ""};
    job.error = Obstacle(files, options.overwrite, job, taken);
    jobs.push_back(std::move(job));
  }
  ProgressBar bar(jobs.size(), !options.quiet);
  int status = 0;
  WorkThrough(files, jobs, [&](const Job& job, std::size_t done) {
    bar.Clear();
    if (!job.error.empty()) {
      err << "dorvane-batch: " << job.from << ": " << job.error << '\n';
      status = 1;
    } else if (!options.quiet) {
      out << job.to << '\n';
    }
    out.flush();
    bar.Show(done);
  });
  return status;
}

}  // namespace dorvane
