// A throw-away directory of files good and bad, from which a monkey opens and to which it saves.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "files/FileDorvane.h"
#include "files/FileNPD.h"
#include "files/FilePara.h"
#include "forms/SmallLibrary.h"
#include "support/FailingFileLayer.h"
#include "support/ScriptedDialogs.h"
#include "support/TemporaryFolder.h"

namespace dorvane {

// Equal seeds give equal numbers on every machine.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : engine_(seed) {}
  int Below(int n) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(n)); }
  bool OneIn(int n) { return Below(n) == 0; }
  double Share() { return Below(10001) / 10000.0; }
  template <typename List>
  const auto& OneOf(const List& list) {
    return list[static_cast<std::size_t>(Below(static_cast<int>(std::size(list))))];
  }

 private:
  std::mt19937_64 engine_;
};

// The files of the system, of which one call can be made to fail.
class UnsureFiles : public FileLayer {
 public:
  // The n-th call from now on fails; 0 lets all pass. Not while a file is open.
  void FailAt(int call) {
    layer_ = std::make_unique<FailingFileLayer>(system_, call, FailingFileLayer::Mode::FailingOnce);
  }
  bool Failed() const { return layer_->Hit(); }

  std::optional<FileInfo> Info(const std::string& path) override { return layer_->Info(path); }
  std::string LinkTarget(const std::string& path) override { return layer_->LinkTarget(path); }
  int OpenForReading(const std::string& path) override { return layer_->OpenForReading(path); }
  int Create(const std::string& path, unsigned rights) override {
    return layer_->Create(path, rights);
  }
  std::size_t Read(int file, std::span<std::byte> out) override { return layer_->Read(file, out); }
  void Write(int file, std::span<const std::byte> bytes) override { layer_->Write(file, bytes); }
  void Flush(int file) override { layer_->Flush(file); }
  void Close(int file) override { layer_->Close(file); }
  void Rename(const std::string& from, const std::string& to) override { layer_->Rename(from, to); }
  void Remove(const std::string& path) override { layer_->Remove(path); }

 private:
  SystemFileLayer system_;
  std::unique_ptr<FailingFileLayer> layer_ = std::make_unique<FailingFileLayer>(system_, 0);
};

constexpr const char* kLibraryName = "crystal.dat";
// Spectra with the peaks of a crystal are called so, with the number of the crystal.
constexpr std::string_view kWithLines = "crystal";

class MonkeyFiles {
 public:
  explicit MonkeyFiles(Dice& dice) : dice_(dice) {
    for (const int channels : {2, 256, 300, 512, 1024}) PutSpectrum(channels);
    PutSpectrum(8192);
    for (const char* name : {"corundum_ambient.npd", "mgo_under_load.npd"}) {
      std::filesystem::copy_file(std::string(DORVANE_SOURCE_DIR "/samples/") + name, Path(name));
      good_.emplace_back(name);
    }
    PutOddOnes();
    PutBroken();
    PutWithLines();
  }

  std::string Path(const std::string& name) const { return folder_.Path(name); }
  bool Has(const std::string& name) const { return folder_.Has(name); }
  std::string Get(const std::string& name) const { return folder_.Get(name); }
  std::vector<std::string> Names() const { return folder_.Names(); }
  // Text without the folder's own name, which differs from run to run.
  std::string WithoutFolder(std::string text) const {
    const std::string folder = Path("");
    for (auto at = text.find(folder); at != std::string::npos; at = text.find(folder)) {
      text.erase(at, folder.size());
    }
    return text;
  }

  // Of ten files nine are those of an ordinary day.
  std::string ToOpen() {
    if (dice_.OneIn(12)) return Path(dice_.OneOf(broken_));
    if (dice_.OneIn(12)) return Path(dice_.OneOf(odd_));
    if (dice_.OneIn(8) && !saved_.empty()) return Path(dice_.OneOf(saved_));
    return Path(dice_.OneIn(12) ? dice_.OneOf(good_) : good_[SmallGood()]);
  }
  std::vector<std::string> SeveralToOpen() {
    std::vector<std::string> paths;
    const int count = dice_.OneIn(8) ? dice_.Below(13) : 1 + dice_.Below(3);
    for (int i = 0; i < count; ++i) paths.push_back(ToOpen());
    return paths;
  }
  std::string ToSave() {
    static constexpr const char* kExtensions[] = {".npd", ".xbm", ".xba", ".xta", ".001",
                                                  ".rpt", ".csv", ".XBA", ""};
    if (dice_.OneIn(6)) return Path(dice_.OneOf(good_));
    if (dice_.OneIn(12)) return Path(dice_.OneOf(broken_));
    if (dice_.OneIn(12)) return Path("no_such_folder/a.xbm");
    const char* stem = dice_.OneIn(4) ? "結果 ソ" : "saved";
    const std::string number = std::to_string(dice_.Below(5));
    saved_.push_back(stem + number + dice_.OneOf(kExtensions));
    return Path(saved_.back());
  }

  // A spectrum with the peaks of a crystal of the library.
  std::string WithLines() { return Path(dice_.OneOf(with_lines_)); }

  // The crystal library as it may lie there.
  void PutLibrary() {
    std::string text = LibraryText();
    const int harm = dice_.Below(20);
    std::filesystem::remove(Path(kLibraryName));
    library_whole_ = harm > 3;
    if (harm == 0) return;
    if (harm == 1)
      text.resize(static_cast<std::size_t>(dice_.Below(static_cast<int>(text.size()))));
    for (char& each : text) {
      if (harm == 2 && dice_.OneIn(8)) each = Noise();
      if (harm == 3 && each >= '0' && each <= '9' && dice_.OneIn(30)) each = '9';
    }
    folder_.Put(kLibraryName, text);
  }
  bool LibraryWhole() const { return library_whole_; }

  // What happens to a parameter file between two runs.
  void HarmParameters() {
    const char* name = dice_.OneIn(2) ? kParaFileName : kIniFileName;
    if (!folder_.Has(name)) return;
    std::string bytes = folder_.Get(name);
    if (dice_.OneIn(2)) {
      bytes.resize(static_cast<std::size_t>(dice_.Below(static_cast<int>(bytes.size()) + 1)));
    } else {
      for (char& each : bytes) each = dice_.OneIn(8) ? Noise() : each;
    }
    folder_.Put(name, bytes);
  }

 private:
  // A flat ground and three lines.
  static ChannelBlock Lines(int channels) {
    ChannelBlock block;
    block.Count = static_cast<std::int16_t>(channels);
    for (int i = 0; i < channels; ++i) {
      double counts = 20;
      for (const double place : {0.2, 0.5, 0.77}) {
        const double off = (i - place * channels) / 4.0;
        counts += 900 * place * std::exp(-off * off);
      }
      block.Counts[i] = static_cast<std::int32_t>(counts);
    }
    return block;
  }
  static SpectrumRec Record() {
    SpectrumRec record;
    record.SaveFlag = 1;
    record.SampName.Set("Au");
    record.Prop.EGC[1] = 0.03;
    record.Prop.TwoTheta = 6;
    return record;
  }
  static PeakRec Peak(double center) {
    PeakRec peak;
    peak.FuncType = kGauss;
    peak.Height = 400;
    peak.HalfWidth = 3;
    peak.Center = center;
    const double near = std::isfinite(center) ? std::clamp(center, -30000.0, 30000.0) : 0;
    peak.RegionStart = static_cast<std::int16_t>(near - 10);
    peak.RegionEnd = static_cast<std::int16_t>(near + 10);
    return peak;
  }
  static PeakTable Peaks(std::initializer_list<double> centers) {
    PeakTable table;
    for (const double center : centers) table.Peaks[table.Count++] = Peak(center);
    return table;
  }

  void PutSpectrum(int channels) {
    const std::string name = "s" + std::to_string(channels);
    const ChannelBlock block = Lines(channels);
    PutGood(name + ".xbm", XbmImage(block, Record()));
    PutGood(name + ".xba", XbaImage(block, Record(), Peaks({channels * 0.2, channels * 0.5})));
    PutGood(name + ".012", XbmImage(block, Record()));
    SystemFileLayer files;
    std::int16_t last_type = 0;
    ScriptedDialogs no_dialogs;
    FileContext context{files, no_dialogs, last_type};
    SpectrumRec record = Record();
    WriteNpdFile(context, Path(name + ".npd"), block, record);
    good_.push_back(name + ".npd");
  }

  // Peaks of a crystal by E = 12.3981 / (2 d sin(theta)), a little off their places.
  void PutWithLines() {
    SpectrumRec record = Record();
    record.Prop.EGC[1] = 0.05;
    const double sine = std::sin(record.Prop.TwoTheta / 2 * std::acos(-1.0) / 180);
    for (int sample = kCu; sample <= kMgO; ++sample) {
      PeakTable peaks;
      for (const Plane& p : PlanesOf(static_cast<Sample>(sample))) {
        const double d = PlaneDistance(kCells[static_cast<std::size_t>(sample)], p.h, p.k, p.l);
        const double center = 12.3981 / (2 * d * sine) / record.Prop.EGC[1] - 1 + dice_.Share();
        if (center < 2000) peaks.Peaks[peaks.Count++] = Peak(center);
      }
      const std::string name = std::string(kWithLines) + std::to_string(sample) + ".xba";
      with_lines_.push_back(Put(name, XbaImage(Lines(2048), record, peaks)));
    }
  }

  // Files that can be read, with values that no measurement gives.
  void PutOddOnes() {
    ChannelBlock block;
    odd_.push_back(Put("nothing.xbm", XbmImage(block, SpectrumRec{})));
    block.Count = 400;
    block.Counts.fill(std::numeric_limits<std::int32_t>::max());
    odd_.push_back(Put("full.xbm", XbmImage(block, Record())));
    block.Counts.fill(-7);
    odd_.push_back(Put("negative.xbm", XbmImage(block, Record())));
    const double no_number = std::nan("");
    SpectrumRec record = Record();
    record.Prop.EGC[0] = no_number;
    record.Prop.EGC[1] = 1e300;
    record.Prop.TwoTheta = -1;
    record.Prop.Flags = -1;
    odd_.push_back(Put("calibration.xbm", XbmImage(Lines(200), record)));
    odd_.push_back(
        Put("peaks.xba", XbaImage(Lines(200), Record(), Peaks({150, 0.2, 50, -3, 9e4}))));
    odd_.push_back(
        Put("no_numbers.xba", XbaImage(Lines(200), Record(), Peaks({no_number, 1e300, 20}))));
  }

  void PutBroken() {
    for (const char* name : {"empty.npd", "empty.xbm", "empty.xba"})
      broken_.push_back(Put(name, ""));
    for (const char* of : {"s300.npd", "s300.xbm", "s300.xba"}) {
      const std::string whole = folder_.Get(of);
      broken_.push_back(Put(std::string("cut_") + of, whole.substr(0, whole.size() / 3)));
      std::string noise = whole;
      for (char& each : noise) each = Noise();
      broken_.push_back(Put(std::string("noise_") + of, noise));
    }
    broken_.push_back(Put("letter.doc", "Dear reader"));
    broken_.push_back(Put("no_extension", "1 2 3"));
    broken_.push_back(Put("report.rpt", "1 2 3"));
    std::filesystem::create_directory(Path("folder.xbm"));
    broken_.emplace_back("folder.xbm");
    broken_.push_back(Put("locked.xbm", folder_.Get("s300.xbm")));
    std::filesystem::permissions(Path("locked.xbm"), std::filesystem::perms::none);
    broken_.emplace_back("missing.npd");
    broken_.emplace_back("");
  }

  char Noise() { return static_cast<char>(dice_.Below(256)); }
  std::size_t SmallGood() { return static_cast<std::size_t>(dice_.Below(4 * 5)); }
  void PutGood(const std::string& name, const ByteVector& bytes) {
    good_.push_back(Put(name, bytes));
  }
  std::string Put(const std::string& name, const ByteVector& bytes) {
    return Put(name, std::string(AsText(bytes)));
  }
  std::string Put(const std::string& name, const std::string& bytes) {
    folder_.Put(name, bytes);
    return name;
  }

  Dice& dice_;
  TemporaryFolder folder_;
  std::vector<std::string> good_;
  std::vector<std::string> odd_;
  std::vector<std::string> broken_;
  std::vector<std::string> saved_;
  std::vector<std::string> with_lines_;
  bool library_whole_ = false;
};

}  // namespace dorvane
