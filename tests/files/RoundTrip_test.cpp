// Formats that are read and written, with random records: the second and the third image are the
// same, and the first save and load loses what the format says and nothing else.
#include <gtest/gtest.h>

#include "files/FileDorvane.h"
#include "files/FileGenie.h"
#include "files/FileNPD.h"
#include "files/RandomRecords.h"

namespace dorvane {
namespace {

constexpr int kRecords = 1000;

// Few channels for most records, all of a spectrum for some.
int ChannelsOf(int number, RandomRecords& random) {
  return number % 100 == 0 ? 4096 : random.Below(40);
}

// The value read keeps `places` decimals of the one written.
void ExpectPlaces(double read, double written, int places) {
  const double half = 0.5 * std::pow(10.0, -places);
  EXPECT_NEAR(read, written, half * (1 + 1e-6));
}

struct Place {
  double MeasProp::*field;
  int places;
};

// The fields that the format has, to their places; they are then taken over, so that all others
// can be compared.
void TakePlaces(MeasProp& expected, const MeasProp& read, const MeasProp& written,
                std::initializer_list<Place> places) {
  for (const Place& place : places) {
    ExpectPlaces(read.*place.field, written.*place.field, place.places);
    expected.*place.field = read.*place.field;
  }
}

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

struct Spectrum {
  ChannelBlock block;
  SpectrumRec record;
  PeakTable peaks;
};

TEST(RoundTrip, XbmLosesTheDataTypeAlone) {
  RandomRecords random(1);
  for (int i = 0; i < kRecords; ++i) {
    const SpectrumRec written = random.Record();
    const ChannelBlock block = random.Block(ChannelsOf(i, random), -2147483647, 2147483647);
    const ByteVector first = XbmImage(block, written);
    Spectrum read;
    ParseXbm(first, read.block, read.record);
    const ByteVector second = XbmImage(read.block, read.record);
    Spectrum again;
    ParseXbm(second, again.block, again.record);
    ASSERT_EQ(XbmImage(again.block, again.record), second) << i;
    SpectrumRec expected = written;
    expected.DataType = kNativeData;
    ASSERT_EQ(read.record, expected) << i;
    ASSERT_EQ(read.block, block) << i;
  }
}

TEST(RoundTrip, XbaLosesTheDataTypeAndThePeaksOfAnUnsavedSpectrum) {
  RandomRecords random(2);
  for (int i = 0; i < kRecords; ++i) {
    const SpectrumRec written = random.Record();
    const ChannelBlock block = random.Block(ChannelsOf(i, random), -2147483647, 2147483647);
    const PeakTable peaks = random.Peaks(random.Below(101));
    const ByteVector first = XbaImage(block, written, peaks);
    Spectrum read;
    ParseXba(first, read.block, read.record, read.peaks);
    const ByteVector second = XbaImage(read.block, read.record, read.peaks);
    Spectrum again;
    ParseXba(second, again.block, again.record, again.peaks);
    ASSERT_EQ(XbaImage(again.block, again.record, again.peaks), second) << i;
    SpectrumRec expected = written;
    expected.DataType = kNativeData;
    ASSERT_EQ(read.record, expected) << i;
    ASSERT_EQ(read.block, block) << i;
    ASSERT_EQ(read.peaks, written.SaveFlag == 1 ? peaks : PeakTable()) << i;
  }
}

void ExpectNpdRecord(const SpectrumRec& read, const SpectrumRec& written) {
  SpectrumRec expected;
  expected.DataType = kNpdData;
  expected.MsuName.SetBytes(Trimmed(written.MsuName.Bytes()));
  expected.OpName.SetBytes(Trimmed(written.OpName.Bytes()));
  expected.SampName.SetBytes(Trimmed(written.SampName.Bytes()));
  expected.OpDate = written.OpDate;
  expected.OpTime = written.OpTime;
  MeasProp& prop = expected.Prop;
  // KEPT: modes 0, 2 and all others are Real, 1 and 3 are Live, 4 is Separate.
  constexpr std::int16_t kModes[] = {2, 1, 2, 1, 4, 2};
  prop.PropHead = kModes[written.Prop.PropHead];
  for (int i = 0; i < 3; ++i) {  // six significant digits
    EXPECT_NEAR(read.Prop.EGC[i], written.Prop.EGC[i], 5.001e-6 * std::fabs(written.Prop.EGC[i]));
  }
  prop.EGC = read.Prop.EGC;
  TakePlaces(prop, read.Prop, written.Prop,
             {{&MeasProp::TwoTheta, 4},  {&MeasProp::LiveTime, 2}, {&MeasProp::RealTime, 2},
              {&MeasProp::NpdVal2, 5},   {&MeasProp::Temp, 2},     {&MeasProp::Load, 2},
              {&MeasProp::Current, 2},   {&MeasProp::MiriVolt, 2}, {&MeasProp::CntRate, 2},
              {&MeasProp::PressX, 3},    {&MeasProp::PressY, 3},   {&MeasProp::PressZ, 3},
              {&MeasProp::PressTZ, 3},   {&MeasProp::InV, 3},      {&MeasProp::InH, 3},
              {&MeasProp::ReV, 3},       {&MeasProp::ReH, 3},      {&MeasProp::CollimeterSize, 3},
              {&MeasProp::Volt, 2},      {&MeasProp::Current2, 2}, {&MeasProp::Power, 2},
              {&MeasProp::Registance, 3}});
  prop.NpdVal1 = read.Prop.Current;  // the second place of the current
  EXPECT_EQ(read, expected);
}

TEST(RoundTrip, NpdKeepsTheFieldsOfItsLinesToTheirPlaces) {
  RandomRecords random(3);
  for (int i = 0; i < kRecords; ++i) {
    const SpectrumRec written = random.Record();
    const ChannelBlock block = random.Block(ChannelsOf(i, random), -2147483647, 2147483647);
    Spectrum read;
    ParseNpd(NpdImage(block, written), read.block, read.record);
    const ByteVector second = NpdImage(read.block, read.record);
    Spectrum again;
    ParseNpd(second, again.block, again.record);
    ASSERT_EQ(NpdImage(again.block, again.record), second) << i;
    ASSERT_EQ(read.block, block) << i;
    ExpectNpdRecord(read.record, written);
    ASSERT_FALSE(testing::Test::HasFailure()) << i;
  }
}

void ExpectReportRecord(const SpectrumRec& read, const SpectrumRec& written,
                        const Characters& sample, const Characters& name) {
  SpectrumRec expected;
  expected.DataType = kGenieData;
  expected.SampName.SetBytes(Trimmed(Head(sample, 20)));
  // KEPT: of forty characters eight come back.
  expected.MsuName.SetBytes(Trimmed(Head(name, 8)));
  expected.OpDate = written.OpDate;
  expected.OpTime = written.OpTime;
  MeasProp& prop = expected.Prop;
  prop.PropHead = 1;
  TakePlaces(prop, read.Prop, written.Prop,
             {{&MeasProp::Press, 1},
              {&MeasProp::Temp, 1},
              {&MeasProp::TwoTheta, 5},
              {&MeasProp::PressX, 3},
              {&MeasProp::PressY, 3},
              {&MeasProp::PressZ, 3},
              {&MeasProp::PressTZ, 3}});
  // KEPT: the time written is the other one.
  ExpectPlaces(read.Prop.LiveTime, written.Prop.RealTime, 1);
  prop.LiveTime = read.Prop.LiveTime;
  ExpectPlaces(read.Prop.EGC[0], written.Prop.EGC[0], 3);
  ExpectPlaces(read.Prop.EGC[1], written.Prop.EGC[1], 6);
  prop.EGC[0] = read.Prop.EGC[0];
  prop.EGC[1] = read.Prop.EGC[1];
  EXPECT_EQ(read, expected);
}

TEST(RoundTrip, AReportKeepsTheFieldsOfItsLinesToTheirPlaces) {
  RandomRecords random(4);
  for (int i = 0; i < kRecords; ++i) {
    SpectrumRec written = random.Record();
    const Characters sample = random.Text(30);
    const Characters name = random.Text(60);
    written.SampName.SetBytes(Head(sample, 64));
    written.MsuName.SetBytes(Head(name, 64));
    const ChannelBlock block = random.Block(ChannelsOf(i, random), -999999, 9999999);
    Spectrum read;
    ParseRpt(RptImage(block, written), read.block, read.record);
    const ByteVector second = RptImage(read.block, read.record);
    Spectrum again;
    ParseRpt(second, again.block, again.record);
    ASSERT_EQ(RptImage(again.block, again.record), second) << i;
    ASSERT_EQ(read.block, block) << i;
    ExpectReportRecord(read.record, written, sample, name);
    ASSERT_FALSE(testing::Test::HasFailure()) << i;
  }
}

}  // namespace
}  // namespace dorvane
