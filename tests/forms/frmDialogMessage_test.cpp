#include "forms/frmDialogMessage.h"

#include <gtest/gtest.h>

#include "forms/FormFixture.h"

namespace dorvane {
namespace {

class frmDialogMessageTest : public testing::Test {
 protected:
  // Shows the dialog, leaves it by `leave`, and answers which button that was.
  std::int16_t Ask(const std::function<void()>& leave) {
    host.ExpectModal([&](Form&) { leave(); });
    form.ShowModal();
    return form.BtnValue();
  }

  ScriptedFormHost host;
  frmDialogMessage form{host};
};

TEST_F(frmDialogMessageTest, TheMessageStandsInItsBox) {
  form.Message("チャンネル数オーバー");
  EXPECT_EQ(form.itxtMessage.Text(), "チャンネル数オーバー");
  EXPECT_TRUE(form.itxtMessage.ReadOnly());
  EXPECT_EQ(form.Caption(), "Message");
}

TEST_F(frmDialogMessageTest, KindZeroShowsOkAlone) {
  form.Kind(1);
  form.Kind(0);
  EXPECT_TRUE(form.cmdYes.Visible());
  EXPECT_FALSE(form.cmdNo.Visible());
  EXPECT_EQ(form.cmdYes.Caption(), "O K");
}

TEST_F(frmDialogMessageTest, AnyOtherKindShowsBothButtons) {
  for (const std::int16_t kind : {1, 2, -1}) {
    form.Kind(0);
    form.Kind(kind);
    EXPECT_TRUE(form.cmdYes.Visible()) << kind;
    EXPECT_TRUE(form.cmdNo.Visible()) << kind;
  }
  EXPECT_EQ(form.cmdNo.Caption(), "Cancel");
}

TEST_F(frmDialogMessageTest, TheValueIsZeroAfterOkAndOneAfterCancel) {
  form.Kind(1);
  EXPECT_EQ(Ask([&] { form.cmdNo.Press(); }), 1);
  EXPECT_EQ(Ask([&] { form.cmdYes.Press(); }), 0);
}

TEST_F(frmDialogMessageTest, ClosingByTheFrameIsCancelWhereThatCanBeChosen) {
  form.Kind(1);
  EXPECT_EQ(Ask([&] { form.QueryClose(); }), 1);
  form.Kind(0);
  EXPECT_EQ(Ask([&] { form.QueryClose(); }), 0);
}

}  // namespace
}  // namespace dorvane
