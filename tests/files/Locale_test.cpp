// Numbers stand in files with a point and without grouping, whatever the user's locale prints.
#include <gtest/gtest.h>

#include <clocale>
#include <functional>
#include <locale>
#include <sstream>

#include "files/FileDAC.h"
#include "files/FileDorvane.h"
#include "files/FileGSA.h"
#include "files/FileGenie.h"
#include "files/FileNPD.h"
#include "files/FilePara.h"
#include "files/Images.h"
#include "files/Samples.h"

namespace dorvane {
namespace {

class CommaPunct : public std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

// The program's locale is one with a decimal comma, as long as it lives; that of the C library,
// too, where one is installed.
class CommaLocale {
 public:
  CommaLocale() : before_(std::locale::global(std::locale(std::locale(), new CommaPunct))) {
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "de_DE", "fr_FR", "ru_RU.UTF-8"}) {
      if (std::setlocale(LC_ALL, name) != nullptr) break;
    }
  }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
  ~CommaLocale() {
    std::locale::global(before_);
    std::setlocale(LC_ALL, "C");
  }

 private:
  std::locale before_;
};

void ExpectSameImage(const std::function<ByteVector()>& make) {
  const ByteVector expected = make();
  const CommaLocale comma;
  EXPECT_EQ(make(), expected);
}

ChannelBlock LargeCounts() {
  ChannelBlock block = SampleBlock(20);
  block.Counts[3] = 1234567;
  return block;
}

TEST(Locale, TheLocaleOfTheseTestsHasADecimalComma) {
  const CommaLocale comma;
  std::ostringstream text;
  text << 1234.5;
  EXPECT_EQ(text.str(), "1.234,5");
}

TEST(Locale, TextFormatsAreWrittenTheSame) {
  ExpectSameImage([] { return NpdImage(LargeCounts(), SampleRecord()); });
  ExpectSameImage([] { return RptImage(LargeCounts(), SampleRecord()); });
  ExpectSameImage([] { return GsaImage(LargeCounts(), SampleRecord()); });
  ExpectSameImage([] { return CsvImage(LargeCounts(), SampleRecord()); });
  ExpectSameImage([] { return XtaImage(LargeCounts(), SampleRecord()); });
  ExpectSameImage([] {
    IniBlock block;
    block.FilterIndex = 12345;
    return IniImage(block);
  });
}

TEST(Locale, AReportIsReadTheSame) {
  const CommaLocale comma;
  ChannelBlock block;
  SpectrumRec record;
  ParseRpt(AsBytes(Joined(WorkedExample("report.md"))), block, record);
  EXPECT_EQ(block.Counts[8], 1234567);
  EXPECT_EQ(record.Prop.TwoTheta, 6.5116);
  EXPECT_EQ(record.Prop.LiveTime, 300);
  EXPECT_EQ(record.OpDate.Text(), "20161104");
}

TEST(Locale, AnNpdFileIsReadTheSame) {
  const CommaLocale comma;
  ChannelBlock block;
  SpectrumRec record;
  ParseNpd(AsBytes(Joined(WorkedExample("npd.md"))), block, record);
  EXPECT_EQ(block.Counts[2], 3000);
  EXPECT_EQ(record.Prop.EGC[2], -1e-7);
  EXPECT_EQ(record.Prop.TwoTheta, 6.5116);
}

TEST(Locale, AnAngleDispersiveFileIsReadTheSame) {
  const CommaLocale comma;
  ChannelBlock block;
  SpectrumRec record;
  DacAngles angles;
  ParseDac(AsBytes("4.25,1234567\n4.75,2\n"), block, record, angles);
  EXPECT_EQ(angles.DacAngleOffset, 4.25);
  EXPECT_EQ(angles.DacAngleSlope, 0.5);
  EXPECT_EQ(block.Counts[0], 1234567);
}

}  // namespace
}  // namespace dorvane
