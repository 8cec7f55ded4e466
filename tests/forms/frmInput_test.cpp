#include "forms/frmInput.h"

#include <gtest/gtest.h>

#include "forms/FormFixture.h"

namespace dorvane {
namespace {

class frmInputTest : public testing::Test {
 protected:
  // Types a text over the old one, leaves the dialog by `leave`, and answers what it gives.
  std::string Ask(const std::function<void()>& leave) {
    form.SetStrValue("old");
    host.ExpectModal([&](Form&) {
      form.txtInput.SetText("typed");
      leave();
    });
    form.ShowModal();
    return form.StrValue();
  }

  ScriptedFormHost host;
  frmInput form{host};
};

TEST_F(frmInputTest, TheFieldShowsItsNameAndItsOldValue) {
  form.CapName("Sample Name");
  form.SetStrValue("MgO");
  EXPECT_EQ(form.lblInputName.Caption(), "Sample Name");
  EXPECT_EQ(form.txtInput.Text(), "MgO");
  EXPECT_EQ(form.Caption(), "Input");
}

TEST_F(frmInputTest, OkGivesTheTypedText) {
  EXPECT_EQ(Ask([&] { form.cmdOk.Press(); }), "typed");
}

TEST_F(frmInputTest, EnterInTheFieldIsOk) {
  EXPECT_EQ(Ask([&] { form.txtInput.Enter(); }), "typed");
}

TEST_F(frmInputTest, CancelYieldsAnEmptyTextEvenWithAValueTypedIn) {
  EXPECT_EQ(Ask([&] { form.cmdCan.Press(); }), "");
}

TEST_F(frmInputTest, ClosingByTheFrameIsCancel) {
  EXPECT_EQ(Ask([&] { form.QueryClose(); }), "");
}

}  // namespace
}  // namespace dorvane
