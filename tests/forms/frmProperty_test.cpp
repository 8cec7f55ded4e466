#include "forms/frmProperty.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "forms/AttachForms.h"
#include "forms/MainFormFixture.h"
#include "processing/Units.h"
#include "program/PropertySheet.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kQuestion = "Property is changed. Do you want to save this file?";
constexpr double kThird = 1.0 / 3;

// A spectrum of its own fields in row 0, whose boxes show 11, 12, 13 and so on in the table's
// order.
class frmPropertyTest : public MainFormTest {
 protected:
  frmPropertyTest() {
    AttachProperty(form, property);
    ShowSpectrum("a.xbm");
    SpectrumRec& record = Record();
    record.MsuName.Set("run000099");
    record.SampName.Set("MgO");
    record.OpDate.Set("20031231");
    record.OpTime.Set("093005");
    record.OpName.Set("Someone");
    record.Memo.Set("under load");
    double value = 11;
    for (double MeasProp::*field : Fields()) record.Prop.*field = value++;
    for (int j = 0; j < 3; ++j) record.Prop.EGC[j] = value++;
    workspace.Slots[0].State = kRowSaved;
  }

  static std::vector<double MeasProp::*> Fields() {
    return {&MeasProp::Current,      &MeasProp::InV,      &MeasProp::InH,
            &MeasProp::InX,          &MeasProp::InZ,      &MeasProp::InTY,
            &MeasProp::ReV,          &MeasProp::ReH,      &MeasProp::ReX,
            &MeasProp::ReZ,          &MeasProp::ReTY,     &MeasProp::HGonioX,
            &MeasProp::HGonioY,      &MeasProp::HGonioZ,  &MeasProp::TwoTheta,
            &MeasProp::VGonioX,      &MeasProp::VGonioY,  &MeasProp::VGonioZ,
            &MeasProp::VGonioDAngle, &MeasProp::PressX,   &MeasProp::PressY,
            &MeasProp::PressZ,       &MeasProp::PressTZ,  &MeasProp::Load,
            &MeasProp::RamStroke,    &MeasProp::Press,    &MeasProp::Temp,
            &MeasProp::Current2,     &MeasProp::Volt,     &MeasProp::Power,
            &MeasProp::Registance,   &MeasProp::MiriVolt, &MeasProp::CollimeterSize,
            &MeasProp::CntRate,      &MeasProp::RealTime, &MeasProp::LiveTime};
  }
  // The boxes of these fields in the same order.
  std::vector<NumberBox*> Boxes() {
    frmProperty& p = property;
    return {&p.imnCurrent,      &p.imnInV,      &p.imnInH,
            &p.imnInX,          &p.imnInZ,      &p.imnInTY,
            &p.imnReV,          &p.imnReH,      &p.imnReX,
            &p.imnReZ,          &p.imnReTY,     &p.imnHGonioX,
            &p.imnHGonioY,      &p.imnHGonioZ,  &p.imnHGonioDAngle,
            &p.imnVGonioX,      &p.imnVGonioY,  &p.imnVGonioZ,
            &p.imnVGonioDAngle, &p.imnPressX,   &p.imnPressY,
            &p.imnPressZ,       &p.imnPressTZ,  &p.imnLoad,
            &p.imnRamStroke,    &p.ImnPress,    &p.ImnTemp,
            &p.imnCurrent2,     &p.imnVolt,     &p.imnPower,
            &p.imnRegistance,   &p.imnMiriVolt, &p.imnCollimeterSize,
            &p.imnCntRate,      &p.imnRealTime, &p.imnLiveTime};
  }

  SpectrumRec& Record() { return workspace.Spectra[Row(0).DataNo]; }
  MeasProp& Prop() { return Record().Prop; }

  // Opens the form by its menu entry and works it; it has to close itself.
  void Work(const std::function<void()>& work) {
    host.ExpectModal([&](Form&) { work(); });
    Menu("mnuProperty").Choose();
  }
  void Look(const std::function<void()>& look) {
    Work([&] {
      look();
      property.cmdCan.Press();
    });
  }
  // Saves what `type` has typed, without a file.
  void Save(const std::function<void()>& type) {
    dialogs.ExpectQuestion(kQuestion, false);
    Work([&] {
      type();
      property.cmdOk.Press();
    });
  }

  frmProperty property{program, host, launcher, "c:/tools/"};
};

TEST_F(frmPropertyTest, KeyAndMenuOpenIt) {
  Look([] {});
  host.ExpectModal([](Form& opened) { opened.Hide(); });
  form.tool_bars.tlbrFile.Press("Property");
  EXPECT_THAT(host.Shown(), ElementsAre("frmProperty", "frmProperty"));
}

TEST_F(frmPropertyTest, WithoutAGraphNothingOpens) {
  DeleteGraph(list, 0);
  Menu("mnuProperty").Choose();
  EXPECT_THAT(host.Shown(), IsEmpty());
}

TEST_F(frmPropertyTest, ShowsTheSelectedRowOfTheRealWindow) {
  ShowSpectrum("b.xbm");
  workspace.Spectra[Row(1).DataNo].SampName.Set("NaCl");
  Look([this] { EXPECT_EQ(property.txtSampName.Text(), "NaCl"); });
  Change_cboGrphSel(list, 0, 0);
  Look([this] { EXPECT_EQ(property.txtSampName.Text(), "MgO"); });
}

TEST_F(frmPropertyTest, OfTwoWindowsTheActiveOneShowsAndSavesItsGraph) {
  const SpectrumRec first = Record();
  ShowSpectrum("b.xbm");
  ChgValue_chkGrp(list, 1, 1, true);
  Change_cboGrphSel(list, 0, 0);
  Change_cboGrphSel(list, 1, 1);
  ChangeActiveWin(list, 1);
  dialogs.ExpectQuestion(kQuestion, true);
  dialogs.ExpectSave(folder.Path("c.xbm"));
  Work([this] {
    EXPECT_EQ(property.txtSampName.Text(), "");
    property.txtSampName.SetText("NaCl");
    property.cmdOk.Press();
  });
  EXPECT_EQ(Record(), first);
  EXPECT_EQ(workspace.Spectra[Row(1).DataNo].SampName.Text(), "NaCl");
  EXPECT_EQ(workspace.Spectra[Row(1).DataNo].MsuName.Text(), "c");
}

TEST_F(frmPropertyTest, InPileUpStyleItIsTheGraphOfTheFirstWindow) {
  ShowSpectrum("b.xbm");
  ChgValue_chkGrp(list, 1, 1, true);
  Change_cboGrphSel(list, 0, 0);
  Change_cboGrphSel(list, 1, 1);
  view.PileUpOn = kTrue;
  ChangeActiveWin(list, 1);
  Look([this] { EXPECT_EQ(property.txtSampName.Text(), "MgO"); });
}

TEST_F(frmPropertyTest, CaptionsOfTheGroups) {
  EXPECT_EQ(property.Caption(), "Property");
  EXPECT_EQ(property.fraSample.Caption(), "1. Sample Infomation");
  EXPECT_EQ(property.fraSlit.Caption(), "2. Slit condition");
  EXPECT_EQ(property.lblInSlit.Caption(), "Incident slit");
  EXPECT_EQ(property.lblReSlit.Caption(), "Receiving slit");
  EXPECT_EQ(property.fraGonio.Caption(), "3. Goniometer condition");
  EXPECT_EQ(property.lblHGonio.Caption(), "Horizontal Goniometer");
  EXPECT_EQ(property.lblVGonio.Caption(), "Vertical Gonio position");
  EXPECT_EQ(property.fraPress.Caption(), "4. Press condition");
  EXPECT_EQ(property.lblPosition.Caption(), "Position(mm)");
  EXPECT_EQ(property.fraMeasure.Caption(), "5. Measurement");
  EXPECT_EQ(property.fraEneCal.Caption(), "Energy Calibration Coefficents");
  EXPECT_EQ(property.cmdIndent.Caption(), "Count Up");
  EXPECT_EQ(property.cmdOk.Caption(), "SAVE");
  EXPECT_EQ(property.cmdCan.Caption(), "EXIT");
  EXPECT_EQ(property.cmdLabelPrint.Caption(), "LabelPrint");
}

TEST_F(frmPropertyTest, FormulaIsMeantToSayCXTimesCX) {
  EXPECT_EQ(property.lblEneCal.Caption(), "Energy(keV)=a + bX + cX * cX   (X=Channel)");
}

TEST_F(frmPropertyTest, CaptionsOfTheBoxes) {
  const std::vector<std::pair<const char*, const char*>> captions{
      {"txtMsuName", "File Name"},
      {"txtSampName", "Sample Name"},
      {"txtOpDate", "Date"},
      {"txtOpTime", "Start Time"},
      {"txtOpName", "Operater"},
      {"txtMemo", "Comment"},
      {"imnCurrent", "Ring Current (mA)"},
      {"imnInV", "Vertical(mm)"},
      {"imnInH", "Horizontal(mm)"},
      {"imnReV", "Vertical(mm)"},
      {"imnReH", "Horizontal(mm)"},
      {"imnHGonioDAngle", "Diffraction angle 2"},
      {"imnLoad", "Load(ton)"},
      {"imnRamStroke", "Ram stroke(mm)"},
      {"ImnPress", "Pressure(GPa)"},
      {"ImnTemp", "Temperature("},
      {"imnTempK", "Temperature(K)"},
      {"imnCurrent2", "Current(A)"},
      {"imnVolt", "Volt(V)"},
      {"imnPower", "Power(W)"},
      {"imnRegistance", "Registance(m"},
      {"imnMiriVolt", "Ion Chamber (mV)"},
      {"imnCollimeterSize", "Collimeter size(mm)"},
      {"imnCntRate", "Count Rate (cps)"},
      {"imnRealTime", "Real Time (Sec)"},
      {"imnLiveTime", "Live Time (Sec)"},
      {"imnDeadTime", "Dead Time (%)"}};
  for (const auto& [name, caption] : captions) {
    const Control* control = property.Controls().Find(name);
    ASSERT_NE(control, nullptr) << name;
    EXPECT_EQ(control->Caption(), caption) << name;
  }
}

TEST_F(frmPropertyTest, TextsAreShown) {
  Look([this] {
    EXPECT_EQ(property.txtMsuName.Text(), "run000099");
    EXPECT_EQ(property.txtSampName.Text(), "MgO");
    EXPECT_EQ(property.txtOpName.Text(), "Someone");
    EXPECT_EQ(property.txtMemo.Text(), "under load");
  });
}

TEST_F(frmPropertyTest, DateHasSlashesAndTimeIsMeantToHaveAColonAndAPoint) {
  Look([this] {
    EXPECT_EQ(property.txtOpDate.Text(), "2003/12/31");
    EXPECT_EQ(property.txtOpTime.Text(), "09:30.05");
  });
}

TEST_F(frmPropertyTest, EachNumberIsShownInItsOwnBox) {
  Look([this] {
    double value = 11;
    for (const NumberBox* box : Boxes()) EXPECT_EQ(box->Value(), value++) << box->Name();
    for (const NumberBox* box :
         {&property.imnEneCalA, &property.imnEneCalB, &property.imnEneCalC}) {
      EXPECT_EQ(box->Value(), value++) << box->Name();
    }
  });
}

TEST_F(frmPropertyTest, EachTypedNumberGoesIntoItsOwnField) {
  MeasProp expected = Prop();
  double value = 211;
  for (double MeasProp::*field : Fields()) expected.*field = value++;
  for (int j = 0; j < 3; ++j) expected.EGC[j] = value++;
  Save([this] {
    double typed = 211;
    for (NumberBox* box : Boxes()) box->Type(std::to_string(typed++));
    for (NumberBox* box : {&property.imnEneCalA, &property.imnEneCalB, &property.imnEneCalC}) {
      box->Type(std::to_string(typed++));
    }
  });
  EXPECT_EQ(Prop(), expected);
}

TEST_F(frmPropertyTest, EachTypedTextGoesIntoItsOwnField) {
  Save([this] {
    property.txtMsuName.SetText("n");
    property.txtSampName.SetText("s");
    property.txtOpDate.SetText("2004/1/5");
    property.txtOpTime.SetText("23:59.58");
    property.txtOpName.SetText("o");
    property.txtMemo.SetText("m");
  });
  EXPECT_EQ(Record().MsuName.Text(), "n");
  EXPECT_EQ(Record().SampName.Text(), "s");
  EXPECT_EQ(Record().OpDate.Bytes(), "20040105");
  EXPECT_EQ(Record().OpTime.Bytes(), "235958");
  EXPECT_EQ(Record().OpName.Text(), "o");
  EXPECT_EQ(Record().Memo.Text(), "m");
}

TEST_F(frmPropertyTest, SlitBoxShowsNegativeNumbersInParenthesesAndZeroAsNothing) {
  Prop().InV = 1.5;
  Prop().InH = -1.5;
  Prop().ReTY = 0;
  Look([this] {
    EXPECT_EQ(property.imnInV.Text(), "1.500");
    EXPECT_EQ(property.imnInH.Text(), "(1.500)");
    EXPECT_EQ(property.imnReTY.Text(), "Nothing");
  });
}

TEST_F(frmPropertyTest, EverySlitBoxHasThePictureOfASlitAndNoOtherBoxHas) {
  std::vector<std::string> slits;
  for (const NumberBox* box : Boxes()) {
    if (box->NumberPicture() == "#0.000;(#0.000);Nothing") slits.push_back(box->Name());
  }
  EXPECT_THAT(slits, ElementsAre("imnInV", "imnInH", "imnInX", "imnInZ", "imnInTY", "imnReV",
                                 "imnReH", "imnReX", "imnReZ", "imnReTY"));
}

TEST_F(frmPropertyTest, SlitBoxTakesWhatItShows) {
  Save([this] {
    property.imnInV.Type("(2.5)");
    property.imnInH.Type("Nothing");
  });
  EXPECT_EQ(Prop().InV, -2.5);
  EXPECT_EQ(Prop().InH, 0);
}

TEST_F(frmPropertyTest, TemperatureOf25ShowsInKelvin) {
  Look([this] {
    property.ImnTemp.Type("25");
    EXPECT_EQ(property.imnTempK.Text(), "298.15");
  });
}

TEST_F(frmPropertyTest, KelvinOfTheSpectrumAreShown) {
  Prop().Temp = -73.15;
  Look([this] { EXPECT_EQ(property.imnTempK.Text(), "200.00"); });
  Prop().Temp = 0;
  Look([this] { EXPECT_EQ(property.imnTempK.Text(), "273.15"); });
}

TEST_F(frmPropertyTest, KelvinOfZeroDegreesAreShownAtTheFirstOpeningToo) {
  Prop().Temp = 0;
  Look([this] { EXPECT_EQ(property.imnTempK.Text(), "273.15"); });
}

TEST_F(frmPropertyTest, TypedKelvinThatWereLeftAreGoneAtTheNextOpening) {
  Prop().Temp = 27;
  Look([this] { property.imnTempK.Type("5"); });
  Look([this] { EXPECT_EQ(property.imnTempK.Text(), "300.15"); });
}

TEST_F(frmPropertyTest, TypedKelvinAreMeantToChangeNothingElseThoughTheyAsk) {
  const SpectrumRec before = Record();
  Save([this] {
    property.imnTempK.Type("300");
    EXPECT_EQ(property.ImnTemp.Value(), 37);
  });
  EXPECT_EQ(Record(), before);
}

TEST_F(frmPropertyTest, OneVoltAndTwoAmperesAre500Milliohm) {
  Look([this] {
    property.imnCurrent2.Type("2");
    property.imnVolt.Type("1");
    EXPECT_EQ(property.imnRegistance.Text(), "500.00000");
    property.imnCurrent2.Type("4");
    EXPECT_EQ(property.imnRegistance.Text(), "250.00000");
  });
}

TEST_F(frmPropertyTest, CurrentOfZeroLeavesTheResistance) {
  Look([this] {
    property.imnRegistance.Type("7");
    property.imnCurrent2.Type("0");
    property.imnVolt.Type("5");
    EXPECT_EQ(property.imnRegistance.Text(), "7.00000");
  });
}

TEST_F(frmPropertyTest, ResistanceThatIsNoNumberLeavesTheBox) {
  Look([this] {
    property.imnVolt.Type("1e300");
    property.imnRegistance.Type("7");
    property.imnCurrent2.Type("1e-300");
    EXPECT_EQ(property.imnRegistance.Value(), 7);
  });
}

TEST_F(frmPropertyTest, ResistanceOfTheSpectrumIsShownAsItIs) {
  Prop().Volt = 1;
  Prop().Current2 = 2;
  Prop().Registance = 3;
  Look([this] { EXPECT_EQ(property.imnRegistance.Text(), "3.00000"); });
}

TEST_F(frmPropertyTest, DeadTimeFollowsRealAndLiveTime) {
  Prop().RealTime = 200;
  Prop().LiveTime = 150;
  Look([this] {
    EXPECT_EQ(property.imnDeadTime.Text(), "25.00");
    EXPECT_TRUE(property.imnDeadTime.ReadOnly());
    property.imnLiveTime.Type("180");
    EXPECT_EQ(property.imnDeadTime.Text(), "10.00");
    property.imnRealTime.Type("0");
    EXPECT_EQ(property.imnDeadTime.Text(), "0.00");
  });
}

TEST_F(frmPropertyTest, CountUpTakesTheNextName) {
  Look([this] {
    property.txtMsuName.SetText("abc000099");
    property.cmdIndent.Press();
    EXPECT_EQ(property.txtMsuName.Text(), "abc000100");
    property.cmdIndent.Press();
    EXPECT_EQ(property.txtMsuName.Text(), "abc000101");
    EXPECT_EQ(property.txtOpDate.Text(), "2003/12/31");
    EXPECT_EQ(property.txtOpTime.Text(), "09:30.05");
  });
}

TEST_F(frmPropertyTest, CountUpCountsAsAChange) {
  Save([this] { property.cmdIndent.Press(); });
  EXPECT_EQ(Record().MsuName.Text(), "run000100");
}

TEST_F(frmPropertyTest, CountUpThatLeavesTheNameIsNoChange) {
  Record().MsuName.Set("abc");
  Work([this] {
    property.cmdIndent.Press();
    EXPECT_EQ(property.txtMsuName.Text(), "abc");
    property.cmdOk.Press();
  });
  EXPECT_EQ(Row(0).State, kRowSaved);
}

TEST_F(frmPropertyTest, NextNameLongerThanItsFieldIsNotTakenAlsoWithDoubleByteCharacters) {
  // 29 double-byte characters and six digits fill the 64 bytes of the field.
  std::string kana;
  for (int i = 0; i < 29; ++i) kana += "ア";
  Record().MsuName.Set(kana + "999999");
  Look([&] {
    property.cmdIndent.Press();
    EXPECT_EQ(property.txtMsuName.Text(), kana + "999999");
    property.txtMsuName.SetText(kana + "999998");
    property.cmdIndent.Press();
    EXPECT_EQ(property.txtMsuName.Text(), kana + "999999");
  });
}

TEST_F(frmPropertyTest, SaveWithUntouchedBoxesChangesNothingAndDoesNotAsk) {
  double value = kThird;
  for (double MeasProp::*field : Fields()) Prop().*field = value *= 1.1;
  for (int j = 0; j < 3; ++j) Prop().EGC[j] = value *= 1.1;
  Prop().InV = -0.0;
  const std::string broken = "\x81 x \xff  ";
  Record().Memo.SetBytes(" leading" + broken);
  Record().OpDate.SetBytes("\xff");
  const SpectrumRec before = Record();
  Work([this] { property.cmdOk.Press(); });
  EXPECT_EQ(Record(), before);
  EXPECT_TRUE(std::signbit(Prop().InV));
  EXPECT_EQ(Row(0).State, kRowSaved);
}

TEST_F(frmPropertyTest, NumberThatIsNoneIsKeptAndCountsAsUntouched) {
  Prop().Power = std::numeric_limits<double>::quiet_NaN();
  Prop().Volt = std::numeric_limits<double>::infinity();
  Work([this] { property.cmdOk.Press(); });
  EXPECT_TRUE(std::isnan(Prop().Power));
  EXPECT_TRUE(std::isinf(Prop().Volt));
  EXPECT_EQ(Row(0).State, kRowSaved);
}

TEST_F(frmPropertyTest, OtherNumbersKeepTheirLastBitWhenOneIsTyped) {
  Prop().Load = 100 * kThird;
  Save([this] { property.imnPower.Type("5"); });
  EXPECT_EQ(Prop().Load, 100 * kThird);
  EXPECT_EQ(Prop().Power, 5);
}

TEST_F(frmPropertyTest, TypingWhatIsShownKeepsTheWholeNumber) {
  Prop().Load = 100 * kThird;
  Save([this] {
    property.imnLoad.Type("33.333");
    property.imnPower.Type("5");
  });
  EXPECT_EQ(Prop().Load, 100 * kThird);
}

TEST_F(frmPropertyTest, DateAndTimeThatCannotBeReadKeepTheOldOnes) {
  for (const char* date : {"", "soon", "2003/13/01", "2003/02/29", "03/01/01", "2003/1", "2003/1/",
                           "2003/1/1/1", "2003-01-01", "20030101"}) {
    Save([&] { property.txtOpDate.SetText(date); });
    EXPECT_EQ(Record().OpDate.Bytes(), "20031231") << date;
  }
  for (const char* time : {"", "noon", "24:00.00", "09:60.00", "09:30.60", "09:30", "9.30.05"}) {
    Save([&] { property.txtOpTime.SetText(time); });
    EXPECT_EQ(Record().OpTime.Bytes(), "093005") << time;
  }
  EXPECT_EQ(Row(0).State, kRowSaved);
}

TEST_F(frmPropertyTest, LeapDayAndSecondColonAreRead) {
  Save([this] {
    property.txtOpDate.SetText(" 2004/02/29 ");
    property.txtOpTime.SetText("1:02:03");
  });
  EXPECT_EQ(Record().OpDate.Bytes(), "20040229");
  EXPECT_EQ(Record().OpTime.Bytes(), "010203");
}

TEST_F(frmPropertyTest, TextThatIsTooLongIsCutOnAWholeCharacter) {
  // 15 double-byte characters fill the 30 bytes; behind one more byte only 14 have room.
  const std::string kana = "アアアアアアアアアアアアアアアア";  // 16
  Save([&] { property.txtOpName.SetText(kana); });
  EXPECT_EQ(Record().OpName.Text(), kana.substr(0, 15 * 3));
  Save([&] { property.txtOpName.SetText("x" + kana); });
  EXPECT_EQ(Record().OpName.Text(), "x" + kana.substr(0, 14 * 3));
}

TEST_F(frmPropertyTest, ExitKeepsTheSpectrumAsItWas) {
  const SpectrumRec before = Record();
  Look([this] {
    property.txtMemo.SetText("other");
    property.ImnTemp.Type("25");
    property.txtOpDate.SetText("2000/01/01");
  });
  EXPECT_EQ(Record(), before);
  EXPECT_EQ(Row(0).State, kRowSaved);
  Look([this] { EXPECT_EQ(property.txtMemo.Text(), "under load"); });
}

TEST_F(frmPropertyTest, ClosingByTheFrameIsExit) {
  const SpectrumRec before = Record();
  Work([this] {
    property.txtMemo.SetText("other");
    property.QueryClose();
  });
  EXPECT_EQ(Record(), before);
}

TEST_F(frmPropertyTest, EditThatWasLeftDoesNotAskTheNextTime) {
  Look([this] { property.txtMemo.SetText("other"); });
  Work([this] { property.cmdOk.Press(); });
}

TEST_F(frmPropertyTest, EveryBoxCountsAsAChange) {
  for (Control* control : property.Controls().All()) {
    auto* text = dynamic_cast<TextBox*>(control);
    auto* number = dynamic_cast<NumberBox*>(control);
    if (text == nullptr && number == nullptr) continue;
    SCOPED_TRACE(control->Name());
    Save([&] { text != nullptr ? text->SetText("x") : number->SetValue(99); });
    EXPECT_TRUE(dialogs.Done());
  }
}

TEST_F(frmPropertyTest, QuestionHasYesAsItsDefault) {
  Save([this] { property.txtMemo.SetText("x"); });
  EXPECT_FALSE(dialogs.LastQuestion().no_is_default);
}

TEST_F(frmPropertyTest, YesSavesTheFileWithTheNewValues) {
  dialogs.ExpectQuestion(kQuestion, true);
  dialogs.ExpectSave(folder.Path("b.xbm"));
  Work([this] {
    property.txtSampName.SetText("NaCl");
    property.imnHGonioDAngle.Type("6.0001");
    property.cmdOk.Press();
  });
  EXPECT_EQ(dialogs.LastRequest().file_name, "a_RAW");
  EXPECT_EQ(Row(0).State, kRowSaved);
  ASSERT_EQ(ReadGraph(program, 0, 1, folder.Path("b.xbm")), kTrue);
  const SpectrumRec& read = workspace.Spectra[Row(1).DataNo];
  EXPECT_EQ(read.SampName.Text(), "NaCl");
  EXPECT_EQ(read.Prop.TwoTheta, 6.0001);
  EXPECT_EQ(read.MsuName.Text(), "b");
}

TEST_F(frmPropertyTest, DerivedGraphIsSavedAsItselfAndItsSourceStays) {
  const SpectrumRec source = Record();
  Menu("mnuSmooth").Choose();
  ASSERT_THAT(Titles(), ElementsAre("Smooth", "a.xbm"));
  const std::int16_t source_state = Row(1).State;
  dialogs.ExpectQuestion(kQuestion, true);
  dialogs.ExpectSave(folder.Path("b.xbm"));
  Work([this] {
    EXPECT_EQ(property.txtSampName.Text(), "MgO");
    property.txtSampName.SetText("NaCl");
    property.cmdOk.Press();
  });
  EXPECT_EQ(dialogs.LastRequest().file_name, "a_SMT");
  EXPECT_THAT(Titles(), ElementsAre("Smooth", "a.xbm"));
  EXPECT_EQ(Record().SampName.Text(), "NaCl");
  EXPECT_EQ(Record().MsuName.Text(), "b");
  EXPECT_EQ(FlagsOf(0), FlagSmooth);
  EXPECT_EQ(workspace.Spectra[Row(1).DataNo], source);
  EXPECT_EQ(Row(1).State, source_state);
}

TEST_F(frmPropertyTest, CancelledOrFailedSaveKeepsTheValuesAndCloses) {
  dialogs.ExpectQuestion(kQuestion, true);
  dialogs.ExpectSave({});
  Work([this] {
    property.txtSampName.SetText("NaCl");
    property.cmdOk.Press();
  });
  EXPECT_EQ(Record().SampName.Text(), "NaCl");
  EXPECT_EQ(Row(0).State, kRowUnsaved);
  dialogs.ExpectQuestion(kQuestion, true);
  dialogs.ExpectSave(folder.Path("none/b.xbm"));
  dialogs.ExpectMessage("File not found");
  Work([this] {
    property.txtMemo.SetText("x");
    property.cmdOk.Press();
  });
  EXPECT_FALSE(property.Visible());
}

TEST_F(frmPropertyTest, ChangedSpectrumIsUnsaved) {
  Save([this] { property.imnLoad.Type("1"); });
  EXPECT_EQ(Row(0).State, kRowUnsaved);
}

TEST_F(frmPropertyTest, MainFormShowsTheNewValues) {
  workspace.UseFileEgc = 1;
  view.DispUnit = kUnitKeV;
  TypeCursor("100");
  listener.notices.clear();
  Save([this] {
    property.txtMsuName.SetText("other name");
    property.txtSampName.SetText("NaCl");
    property.imnHGonioDAngle.Type("7.5");
    property.imnEneCalA.Type("0");
    property.imnEneCalB.Type("0.5");
    property.imnEneCalC.Type("0");
  });
  EXPECT_EQ(form.calibration.txt2Theta[1].Text(), "7.50000");
  EXPECT_EQ(form.calibration.lblEGC[1].Caption(), "0.000000Ch^2+0.500000Ch+0.000000");
  EXPECT_EQ(form.status.lblFile.Caption(), "other name");
  for (const char* notice : {"selector", "list", "calibration", "axis", "cursor"}) {
    EXPECT_EQ(listener.Count(notice), 1) << notice;
  }
}

TEST_F(frmPropertyTest, LastValuesAreKeptBetweenSpectra) {
  Save([this] { property.imnLoad.Type("42"); });
  EXPECT_EQ(workspace.LastProp, Prop());
  EXPECT_EQ(workspace.LastProp.Load, 42);
}

TEST_F(frmPropertyTest, LabelPrintTakesTheValuesOverFirstAndKeepsTheFormOpen) {
  launcher.works = false;
  dialogs.ExpectMessage("Label Print error");
  Look([this] {
    property.txtMemo.SetText("label");
    property.cmdLabelPrint.Press();
    EXPECT_TRUE(property.Visible());
    EXPECT_EQ(Record().Memo.Text(), "label");
  });
  // Beside the program, also where its files lie elsewhere.
  EXPECT_THAT(launcher.paths, ElementsAre("c:/tools\\DorvaneLabelPrint.exe"));
}

TEST_F(frmPropertyTest, ExitAfterLabelPrintIsMeantToKeepTheValues) {
  launcher.works = false;
  dialogs.ExpectMessage("Label Print error");
  Look([this] {
    property.txtMemo.SetText("label");
    property.cmdLabelPrint.Press();
  });
  EXPECT_EQ(Record().Memo.Text(), "label");
  EXPECT_EQ(Row(0).State, kRowUnsaved);
}

}  // namespace
}  // namespace dorvane
