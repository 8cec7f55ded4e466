#include "forms/frmPicture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "forms/FormFixture.h"
#include "forms/RecordingPictures.h"
#include "program/ProgramFixture.h"
#include "support/MemorySettings.h"

namespace dorvane {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class PictureDialogTest : public ProgramTest {
 protected:
  PictureDialogTest() { Show({1, 2, 3, 4}, "run.1.npd"); }
  void Work(const std::function<void()>& work) {
    host.ExpectModal([&](Form&) {
      work();
      form.Hide();
    });
    form.Open();
  }
  void TypeSize(const char* width, const char* height, const char* resolution) {
    form.imnWidth.Type(width);
    form.imnHeight.Type(height);
    form.imnResolution.Type(resolution);
  }

  ScriptedFormHost host;
  MemorySettings settings;
  RecordingPictures pictures;
  frmPicture form{program, host, pictures, settings};
};

// 254 mm are 10 inches: 960 pixels at 96 an inch, and at 192 dots an inch twice as many.
TEST_F(PictureDialogTest, SizeIsInMillimetresAndDotsPerInch) {
  dialogs.ExpectSave(folder.Path("a.png"));
  Work([&] {
    TypeSize("254", "127", "192");
    EXPECT_THAT(form.lblHint.Caption(), testing::StartsWith("1920 x 960 pixels"));
    form.cmdSave.Press();
    EXPECT_FALSE(form.Visible());
  });
  EXPECT_THAT(pictures.written, ElementsAre(folder.Path("a.png")));
  EXPECT_EQ(pictures.size.width_px, 960);
  EXPECT_EQ(pictures.size.height_px, 480);
  EXPECT_DOUBLE_EQ(pictures.size.scale, 2);
  EXPECT_THAT(pictures.texts, Contains("run.1.npd"));
}

TEST_F(PictureDialogTest, OffersTheThreeFormatsAndAsksBeforeItReplaces) {
  dialogs.ExpectSave({});
  Work([&] {
    form.cmdSave.Press();
    EXPECT_TRUE(form.Visible());
  });
  const FileRequest& request = dialogs.LastRequest();
  EXPECT_EQ(request.filter,
            "PNG picture (*.png)|*.png|SVG drawing (*.svg)|*.svg|PDF page (*.pdf)|*.pdf");
  EXPECT_EQ(request.file_name, "run.png");
  EXPECT_TRUE(request.overwrite_prompt);
  EXPECT_THAT(pictures.written, IsEmpty());
}

TEST_F(PictureDialogTest, AFailedWriteIsToldAndTheDialogStays) {
  pictures.writes = false;
  dialogs.ExpectSave("a.png");
  dialogs.ExpectMessage("File Write Error");
  Work([&] {
    form.cmdSave.Press();
    EXPECT_TRUE(form.Visible());
  });
}

TEST_F(PictureDialogTest, SizesOutsideOfTheirRangesSaySoAndCanNotBeUsed) {
  Work([&] {
    for (const auto& [width, height, resolution] : {std::array{"19.9", "100", "300"},
                                                    {"1000.1", "100", "300"},
                                                    {"160", "19", "300"},
                                                    {"160", "1001", "300"},
                                                    {"160", "100", "49"},
                                                    {"160", "100", "1201"},
                                                    {"1000", "1000", "300"}}) {
      TypeSize(width, height, resolution);
      EXPECT_FALSE(form.cmdSave.Enabled()) << width << " " << height << " " << resolution;
      EXPECT_FALSE(form.cmdCopy.Enabled());
      EXPECT_EQ(form.lblHint.Caption(),
                "20 to 1000 mm, 50 to 1200 dots per inch, 100 million pixels at most");
    }
    TypeSize("20", "1000", "50");
    EXPECT_TRUE(form.cmdSave.Enabled());
  });
}

TEST_F(PictureDialogTest, CopyCopiesAndCloses) {
  Work([&] {
    form.cmdCopy.Press();
    EXPECT_FALSE(form.Visible());
  });
  EXPECT_EQ(pictures.copied, 1);
}

TEST_F(PictureDialogTest, TheSizeUsedLastIsThatOfTheNextRun) {
  Work([&] {
    TypeSize("50.8", "25.4", "96");
    form.cmdCopy.Press();
  });
  frmPicture next(program, host, pictures, settings);
  next.Copy();
  EXPECT_EQ(pictures.size.width_px, 192);
  EXPECT_EQ(pictures.size.height_px, 96);
  EXPECT_DOUBLE_EQ(pictures.size.scale, 1);
}

TEST_F(PictureDialogTest, ASavedPictureKeepsItsSizeToo) {
  dialogs.ExpectSave(folder.Path("a.png"));
  Work([&] {
    TypeSize("50.8", "25.4", "96");
    form.cmdSave.Press();
  });
  form.Copy();
  EXPECT_EQ(pictures.size.width_px, 192);
}

TEST_F(PictureDialogTest, ASizeThatWasCancelledIsNotUsed) {
  Work([&] {
    TypeSize("5", "5", "5");
    form.cmdCan.Press();
  });
  form.Copy();
  EXPECT_EQ(pictures.copied, 1);
  EXPECT_EQ(pictures.size.width_px, 605);  // 160 mm at 96 an inch
  Work([&] {
    TypeSize("5", "5", "5");
    form.cmdCan.Press();
  });
  Work([&] { EXPECT_EQ(form.imnWidth.Text(), "160.0"); });
}

TEST_F(PictureDialogTest, ThePictureIsThatOfTheActiveWindow) {
  Show({1, 2, 3}, "below.npd");
  workspace.Slots[1].WinNo = 1;
  ChangeActiveWin(list, 1);
  form.Copy();
  EXPECT_THAT(pictures.texts, Contains("below.npd"));
  EXPECT_THAT(pictures.texts, testing::Not(Contains("run.1.npd")));
}

TEST_F(PictureDialogTest, ASizeOfAnotherProgramVersionThatIsNoneGivesTheStandard) {
  settings.SetTexts("PictureSize", {"x"});
  frmPicture next(program, host, pictures, settings);
  EXPECT_EQ(next.imnWidth.Text(), "160.0");
  EXPECT_EQ(next.imnHeight.Text(), "100.0");
  EXPECT_EQ(next.imnResolution.Text(), "300");
}

TEST_F(PictureDialogTest, WithoutAGraphNothingOpensAndNothingIsCopied) {
  RemoveGraph(list, 0);
  form.Open();
  form.Copy();
  EXPECT_THAT(host.Shown(), IsEmpty());
  EXPECT_EQ(pictures.copied, 0);
}

}  // namespace
}  // namespace dorvane
