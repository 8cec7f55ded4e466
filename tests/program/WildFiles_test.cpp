// Spectrum files full of nonsense through the whole program: a mutant of a good file, made by its
// number alone, is opened and worked on as a user would. Nothing may crash, hang or bring what is
// no number into a peak table.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <limits>
#include <memory>
#include <random>

#include "display/DrawScale.h"
#include "display/RecordingSurface.h"
#include "files/FileDorvane.h"
#include "files/FileGenie.h"
#include "files/FileNPD.h"
#include "files/FormatTable.h"
#include "lattice/CrystalFile.h"
#include "processing/Units.h"
#include "program/Commands.h"
#include "program/LatticeRun.h"
#include "program/LatticeWork.h"
#include "program/OpenSave.h"
#include "program/ProgramFixture.h"
#include "program/SpectrumPage.h"
#include "program/View.h"
#include "support/YesDialogs.h"

namespace dorvane {
namespace {

constexpr int kFiles = 200;
constexpr double kLongestSeconds = 120;  // of one file, on a busy machine under the sanitizers
constexpr int kChannels = 700;
const std::string kShipped = std::string(DORVANE_SOURCE_DIR) + "/";

int FromEnvironment(const char* name, int otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : std::atoi(text);
}

// A good file of every format that can be opened, of one measured spectrum.
class GoodFiles {
 public:
  GoodFiles() {
    ParseNpd(ReadFile(files_, kShipped + "samples/corundum_ambient.npd"), *block_, record_);
    std::copy_n(block_->Counts.begin() + 400, kChannels, block_->Counts.begin());
    block_->Count = kChannels;
    record_.SaveFlag = 1;
    const auto peaks = std::make_unique<PeakTable>();
    peaks->Count = 2;
    for (int i = 0; i < 2; ++i) {
      PeakRec& peak = peaks->Peaks[i];
      peak.FitDone = kTrue;
      peak.GaussRatio = 1;
      peak.Height = 900;
      peak.HalfWidth = 4;
      peak.Center = 150 + 100 * i;
      peak.RegionStart = ToInt16(130 + 100 * i);
      peak.RegionEnd = ToInt16(170 + 100 * i);
      peak.FitEngine = kEngineExpress;
    }
    Add("npd", NpdImage(*block_, record_));
    Add("rpt", RptImage(*block_, record_));
    Add("xbm", XbmImage(*block_, record_));
    Add("xba", XbaImage(*block_, record_, *peaks));
    Add("cnf", Cnf());
    Add("chn", Chn());
    std::string raw;
    for (int i = 0; i < kChannels; ++i) {
      raw += std::to_string(4 + 0.02 * i) + "," + std::to_string(block_->Counts[i]) + "\r\n";
    }
    all_.push_back({"raw", raw});
  }

  struct File {
    std::string extension;
    std::string image;
  };
  const std::vector<File>& All() const { return all_; }

 private:
  void Add(const std::string& extension, const ByteVector& image) {
    all_.push_back({extension, std::string(AsText(image))});
  }

  std::string Counts() const {
    const auto bytes = std::as_bytes(block_->Used());
    return std::string(AsText(bytes));
  }
  ByteVector Cnf() {
    ByteVector image = ReadFile(files_, kShipped + "fuzz/corpus/cnf_fuzz/plain_layout");
    const std::string counts = Counts();
    std::memcpy(image.data() + 25604, counts.data(), counts.size());
    return image;
  }
  ByteVector Chn() const {
    ByteWriter image;
    image.Text(std::string(30, '\0'));
    image.Int16(kChannels);
    image.Text(Counts());
    image.Text(std::string(4, '\0'));
    for (const float coefficient : {0.0227F, 0.0648F}) {
      image.Text({reinterpret_cast<const char*>(&coefficient), sizeof coefficient});
    }
    return image.Take();
  }

  SystemFileLayer files_;
  std::unique_ptr<ChannelBlock> block_ = std::make_unique<ChannelBlock>();
  SpectrumRec record_;
  std::vector<File> all_;
};

class Hand {
 public:
  explicit Hand(int number) : random_(static_cast<std::uint64_t>(number)) {}
  std::size_t Below(std::size_t end) { return random_() % end; }
  bool OneIn(std::size_t n) { return Below(n) == 0; }
  template <typename List>
  const auto& OneOf(const List& list) {
    return list[Below(std::size(list))];
  }

 private:
  std::mt19937_64 random_;
};

template <typename T>
void PutAt(std::string& image, std::size_t at, T value) {
  if (at + sizeof value <= image.size()) std::memcpy(image.data() + at, &value, sizeof value);
}

// The numbers that programs stumble over.
constexpr std::array kReals = {std::numeric_limits<double>::quiet_NaN(),
                               std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::max(),
                               std::numeric_limits<double>::denorm_min(),
                               1e300,
                               -1e300,
                               1e-300,
                               1e10,
                               0.0,
                               -0.0,
                               -1.0,
                               180.0,
                               360.0};
constexpr std::array<std::int32_t, 8> kCounts = {std::numeric_limits<std::int32_t>::max(),
                                                 std::numeric_limits<std::int32_t>::min(),
                                                 -1,
                                                 0,
                                                 1,
                                                 10'000'000,
                                                 2'000'000'000,
                                                 -1000};
constexpr std::array<std::int16_t, 9> kShorts = {-32768, -1, 0, 1, 100, 2, 8191, 8192, 32767};
constexpr std::array kNumbers = {"1e308", "-1e308", "1e400", "NaN",        "inf",         "0",
                                 "-1",    "1e-320", "32767", "2147483647", "-2147483648", "180",
                                 "8192",  "8193",   "",      "1e9",        "0.0000001",   ","};

// Where the native files hold calibration, angle and peaks.
constexpr std::size_t kPropAt = 1404;
constexpr std::size_t kCountsAt = 2070;
constexpr std::size_t kPeaksAt = kCountsAt + 4 * kChannels;

void ChangeNative(Hand& hand, std::string& image) {
  switch (hand.Below(5)) {
    case 0:
      return PutAt(image, kPropAt + 30 + 8 * hand.Below(4), hand.OneOf(kReals));  // EGC, 2-theta
    case 1:
      return PutAt(image, kPropAt + 2 * hand.Below(300), hand.OneOf(kReals));
    case 2:
      for (std::size_t n = 1 + hand.Below(kChannels); n > 0; --n) {
        PutAt(image, kCountsAt + 4 * hand.Below(kChannels), hand.OneOf(kCounts));
      }
      return;
    case 3:
      return PutAt(image, 2 * hand.Below(1040), hand.OneOf(kShorts));
    default:
      return PutAt(image, kPeaksAt + 2 * hand.Below(72), hand.OneOf(kReals));
  }
}

// A number of a text becomes another.
void ChangeNumber(Hand& hand, std::string& image) {
  constexpr std::string_view kDigits = "0123456789.+-E";
  // The header tells more than the counts.
  const std::size_t reach = hand.OneIn(2) ? std::min<std::size_t>(image.size(), 900) : image.size();
  const auto from = image.find_first_of(kDigits, hand.Below(reach + 1));
  if (from == std::string::npos) return;
  const auto to = std::min(image.find_first_not_of(kDigits, from), image.size());
  image.replace(from, to - from, hand.OneOf(kNumbers));
}

void ChangeBytes(Hand& hand, std::string& image) {
  if (image.empty()) return;
  const std::size_t at = hand.Below(image.size());
  switch (hand.Below(4)) {
    case 0:
      image[at] = static_cast<char>(hand.Below(256));
      return;
    case 1:
      image.erase(at, hand.Below(20));
      return;
    case 2:
      image.insert(at, hand.Below(20), static_cast<char>(hand.Below(256)));
      return;
    default:
      if (hand.OneIn(4)) return image.resize(at);
      return PutAt(image, at - at % 4, hand.OneOf(kCounts));
  }
}

std::string Mutant(Hand& hand, const GoodFiles::File& good) {
  std::string image = good.image;
  const bool native = good.extension.starts_with("xb");
  const bool text = good.extension == "npd" || good.extension == "rpt" || good.extension == "raw";
  for (std::size_t changes = 1 + hand.Below(5); changes > 0; --changes) {
    if (native && !hand.OneIn(5)) {
      ChangeNative(hand, image);
    } else if (text && !hand.OneIn(5)) {
      ChangeNumber(hand, image);
    } else {
      ChangeBytes(hand, image);
    }
  }
  return image;
}

bool IsFinite(const PeakRec& peak) {
  for (const double value : {peak.Height, peak.Center, peak.HalfWidth, peak.Amplitude,
                             peak.GaussRatio, peak.BackConst, peak.BackSlope}) {
    if (!std::isfinite(value)) return false;
  }
  return true;
}

class WildFiles : public testing::Test {
 protected:
  void WorkOn(int number) {
    Hand hand(number);
    const GoodFiles::File& good = hand.OneOf(good_.All());
    const std::string name = "wild." + good.extension;
    folder_.Put(name, Mutant(hand, good));
    dialogs_.messages.clear();
    program_ = std::make_unique<Program>(Ports{dialogs_, files_, log_, progress_, listener_},
                                         folder_.Path(""));
    SetStartValues(*program_);
    LoadData(*program_, {folder_.Path(name)});
    if (!HoldsGraph(program_->workspace, 0)) return;
    ++opened_;
    ShowEverywhere();
    SaveAll();
    ForgetForeignPeaks();
    program_->workspace.ExpressFit = hand.OneIn(2) ? kTrue : kFalse;
    for (const char* command : {"Smooth", "BackGround", "All", "mnuFittingAll"}) Do(command);
    Do(hand.OneIn(2) ? "AutoFit" : "NaxAllFit");
    for (int i = 0; i < 6; ++i) Do(hand.OneOf(Commands()).key);
    ShowEverywhere();
    SaveAll();
    PrepareLattice(hand);
    CheckPeaks("the lattice work");
    for (int i = 0; i < kRows; ++i) peaks_ += program_->workspace.Peaks[i].Count;
  }

  void Do(std::string_view command) {
    RunCommand(*program_, command);
    if (command == "DelAll") ForgetForeignPeaks();  // it reads the file again
    CheckPeaks(command);
  }

  void CheckPeaks(std::string_view after) {
    for (int data_no = 0; data_no < kRows; ++data_no) {
      const PeakTable& table = program_->workspace.Peaks[data_no];
      ASSERT_GE(table.Count, 0) << after;
      ASSERT_LE(table.Count, kMaxPeaks) << after;
      for (int i = 0; i < table.Count; ++i) {
        EXPECT_TRUE(IsFinite(table.Peaks[i]))
            << "spectrum " << data_no << ", peak " << i << ", after " << after;
      }
    }
  }

  // What a file says of its peaks is shown as it is; from then on the fits make their own.
  void ForgetForeignPeaks() {
    for (int data_no = 0; data_no < kRows; ++data_no) {
      PeakTable& table = program_->workspace.Peaks[data_no];
      for (int i = 0; i < table.Count; ++i) {
        if (!IsFinite(table.Peaks[i])) table.Count = 0;
      }
    }
  }

  // Picture, axes and read-outs in every unit.
  void ShowEverywhere() {
    Workspace& workspace = program_->workspace;
    const int data_no = workspace.Slots[0].DataNo;
    for (std::int16_t unit = 0; unit < kUnits; ++unit) {
      RunGuarded(*program_, [&](Program& program) { SetDispUnit(program, unit); });
      RunGuarded(*program_, [&](Program& program) { DrawPage(program, data_no, unit); });
      RunGuarded(*program_, [&](Program& program) { ReadOut(program, data_no, unit); });
    }
  }

  void DrawPage(Program& program, int data_no, std::int16_t unit) {
    SpectrumPage page;
    page.data_no = data_no;
    page.title = program.workspace.Slots[0].Title;
    page.labels = {{150, "1 1 1"}};
    page.log_scale = unit % 2 == 1;
    page.unit = unit;
    DrawSpectrumPage(program, page, 1000, 600, [](double, double, double, double) {
      return std::make_unique<FiniteSurface>();
    });
  }

  static void ReadOut(Program& program, int data_no, int unit) {
    const Workspace& workspace = program.workspace;
    const MeasProp& prop = workspace.Spectra[data_no].Prop;
    for (const double channel : {-1.0, 0.0, 0.5, 350.0, 8191.0, 1e6}) {
      FormatUnitVal(ChToUnit(unit, channel, prop, workspace.Dac), unit);
      UnitToCh(unit, channel, prop);
      WidthToCh(unit, channel, prop);
      ChToWidth(unit, channel, prop);
      ChToCuTheta(channel, prop.TwoTheta, prop);
    }
    EgcLabel(prop.EGC);
    TypeSpan(program, SpanInUnit(program));
    optEGC_Click(program, unit % 2);
    FollowCursor(program);
  }

  void SaveAll() {
    for (const std::string& extension : WritableExtensions()) {
      RunGuarded(*program_,
                 [&](Program& program) { SaveGraphAs(program, folder_.Path("out." + extension)); });
    }
  }

  void PrepareLattice(Hand& hand) {
    state_->Library = library_;
    LatticeRequest request;
    request.crystal_index = static_cast<int>(hand.Below(10));
    request.mode = hand.OneIn(2) ? LatticeMode::Marker : LatticeMode::Sample;
    const Workspace& workspace = program_->workspace;
    for (int row = 0; row < kRows; ++row) {
      if (!HoldsGraph(workspace, row)) continue;
      RunGuarded(*program_, [&](Program&) {
        RunLattice(*state_, workspace, workspace.Slots[row].DataNo, request, dialogs_);
      });
      LatticeWork work = BeginLatticeWork(*program_, row);
      work.ElementIndex = ToInt16(request.crystal_index);
      work.LatticeIndex = library_.CrystalTable[request.crystal_index].LatticeType;
      RunGuarded(*program_, [&](Program&) { CrystalMarks(*state_, workspace, work); });
    }
  }

  // The disk is given no time to follow.
  class QuickFiles : public SystemFileLayer {
   public:
    void Flush(int) override {}
  };

  // Nothing is drawn at a place that is none.
  class FiniteSurface : public RecordingSurface {
   public:
    ~FiniteSurface() override {
      for (const Stroke& stroke : strokes) {
        for (const Point& point : {stroke.from, stroke.to}) {
          EXPECT_TRUE(std::isfinite(point.x) && std::isfinite(point.y)) << stroke.text;
        }
      }
    }
  };

  const GoodFiles good_;
  TemporaryFolder folder_;
  QuickFiles files_;
  YesDialogs dialogs_;
  RecordingLog log_;
  RecordingProgress progress_;
  WorkspaceListener listener_;
  const CrystalLibrary library_ = ReadCrystalFile(files_, kShipped + "data/crystal.dat");
  std::unique_ptr<LatticeState> state_ = std::make_unique<LatticeState>();
  std::unique_ptr<Program> program_;
  int opened_ = 0;
  int peaks_ = 0;
};

// DORVANE_WILD_FILES and DORVANE_WILD_FIRST play other files; the slowest is told then.
TEST_F(WildFiles, NothingThatAFileHoldsHurtsTheProgram) {
  using Clock = std::chrono::steady_clock;
  const int files = FromEnvironment("DORVANE_WILD_FILES", kFiles);
  const int first = FromEnvironment("DORVANE_WILD_FIRST", 1);
  double slowest = 0;
  int slowest_number = first;
  for (int number = first; number < first + files; ++number) {
    SCOPED_TRACE("file " + std::to_string(number));
    const auto begin = Clock::now();
    WorkOn(number);
    const double seconds = std::chrono::duration<double>(Clock::now() - begin).count();
    if (seconds > slowest) {
      slowest = seconds;
      slowest_number = number;
    }
    ASSERT_LT(seconds, kLongestSeconds);
    ASSERT_FALSE(HasFailure());
  }
  if (files > 50) {
    EXPECT_GT(opened_, files / 4);
    EXPECT_GT(peaks_, files);
  }
  if (std::getenv("DORVANE_WILD_FILES") != nullptr) {
    std::cout << files << " files, " << opened_ << " opened, " << peaks_ << " peaks; the slowest, "
              << slowest_number << ", took " << slowest << " s\n";
  }
}

}  // namespace
}  // namespace dorvane
