// What the tests of readers share that read a file aside: a record, channels and a scale of angles
// with values of their own, and the check that a failure leaves them as they were.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "files/FilesFixture.h"
#include "files/FormatTable.h"
#include "files/Images.h"
#include "files/Samples.h"
#include "support/ImageFileLayer.h"

namespace dorvane {

class ReaderTest : public FilesTest {
 protected:
  static constexpr DacAngles kAnglesBefore = {.DacAngleSlope = 0.25, .DacAngleOffset = 7.5};

  ReaderTest() { Reset(); }

  void Reset() {
    block_ = SampleBlock(10);
    record_ = SampleRecord();
    angles_ = kAnglesBefore;
    last_data_type_ = 9;
  }

  std::int16_t Read(std::string_view image, const std::string& name) {
    folder_.Put(name, image);
    return ReadPath(folder_.Path(name));
  }
  std::int16_t ReadPath(const std::string& path) { return ReadPath(context_, path); }
  std::int16_t ReadPath(FileContext& context, const std::string& path) {
    return ReadByExtension(context, path, {block_, record_, peaks_, angles_});
  }

  void ExpectUntouched() {
    EXPECT_EQ(block_, SampleBlock(10));
    EXPECT_EQ(record_, SampleRecord());
    EXPECT_EQ(angles_.DacAngleOffset, kAnglesBefore.DacAngleOffset);
    EXPECT_EQ(angles_.DacAngleSlope, kAnglesBefore.DacAngleSlope);
    EXPECT_EQ(last_data_type_, 9);
  }

  // Refused with this message, and nothing changed.
  void ExpectRefused(std::string_view image, const std::string& name, const std::string& message) {
    dialogs_.ExpectMessage(message);
    EXPECT_EQ(Read(image, name), 0);
    EXPECT_TRUE(dialogs_.Done());
    ExpectUntouched();
  }

  // Each of the calls look, open, read and close fails once.
  void ExpectOpenErrorAtEveryFailure(std::string_view image, const std::string& name) {
    folder_.Put(name, image);
    for (int n = 1;; ++n) {
      FailingFileLayer failing(system_, n);
      YesDialogs dialogs;
      FileContext context{failing, dialogs, last_data_type_};
      const std::int16_t done = ReadPath(context, folder_.Path(name));
      if (!failing.Hit()) break;
      EXPECT_EQ(done, 0) << n;
      EXPECT_EQ(dialogs.messages, std::vector<std::string>{"Open Error"}) << n;
      ExpectUntouched();
    }
  }

  // The image cut at every length: read where it holds `enough` bytes, else refused with `message`
  // and nothing changed.
  void ExpectCutIsReadOrRefused(const std::string& image, const std::string& name,
                                std::size_t enough, const std::string& message) {
    for (std::size_t size = 0; size <= image.size(); ++size) {
      ImageFileLayer files(std::string_view(image).substr(0, size));
      YesDialogs dialogs;
      FileContext context{files, dialogs, last_data_type_};
      ASSERT_EQ(ReadPath(context, name), size >= enough ? -1 : 0) << size;
      if (size < enough) {
        ASSERT_EQ(dialogs.messages, std::vector<std::string>{message}) << size;
        ASSERT_EQ(block_, SampleBlock(10)) << size;
        ASSERT_EQ(record_, SampleRecord()) << size;
        ASSERT_EQ(angles_.DacAngleOffset, kAnglesBefore.DacAngleOffset) << size;
        ASSERT_EQ(last_data_type_, 9) << size;
      } else {
        ASSERT_TRUE(dialogs.messages.empty()) << size;
        Reset();
      }
    }
  }

  ChannelBlock block_;
  SpectrumRec record_;
  PeakTable peaks_;
  DacAngles angles_;
};

}  // namespace dorvane
