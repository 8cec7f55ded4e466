// The dialogs of the settings by clicks and keys, in the running program.
#include <QColorDialog>
#include <QComboBox>
#include <QSlider>

#include "WindowTest.h"
#include "qt/binding/ColorPatchView.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

class SettingsTest : public WindowTest {
 protected:
  // Opens a dialog from the menu; `work` works it and closes it.
  void Work(const char* menu, Form& form, const std::function<void()>& work) {
    dialog_ = session->form_views.WindowOf(form);
    QTimer::singleShot(50, [work, window = dialog_] {
      ASSERT_TRUE(QTest::qWaitForWindowActive(window));
      work();
      if (window->isVisible()) window->close();
    });
    Trigger(menu);
    EXPECT_FALSE(form.Visible());
  }
  void WorkSettings(const std::function<void()>& work) {
    Work("mnuSetCons", session->setting, work);
  }
  void WorkValues(const std::function<void()>& work) {
    Work("mnuDispPara", session->disp_para, work);
  }
  // Presses a patch of the colour table; `work` works the dialog that it opens.
  void WorkColor(const char* patch, const std::function<void()>& work) {
    FormWindow* table = dialog_;
    FormWindow* chooser = session->form_views.WindowOf(session->colors.dialog);
    QTimer::singleShot(50, [this, work, chooser] {
      ASSERT_TRUE(QTest::qWaitForWindowActive(chooser));
      dialog_ = chooser;
      work();
      if (chooser->isVisible()) chooser->close();
    });
    Press(patch);
    dialog_ = table;
  }
  template <class Widget = QWidget>
  Widget* Of(const char* name) {
    auto* widget = dialog_->findChild<Widget*>(name);
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  void Press(const char* name) { QTest::mouseClick(Of<>(name), Qt::LeftButton); }
  void TypeOver(const char* name, const char* text) {
    Of<>(name)->setFocus();
    QTest::keyClick(Of<>(name), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(Of<>(name), text);
  }
  QString TextOf(const char* name) { return Of<QLineEdit>(name)->text(); }
  QColor Middle(const char* name) {
    const QImage image = Of<>(name)->grab().toImage();
    return image.pixelColor(image.rect().center());
  }

  FormWindow* dialog_ = nullptr;
};

TEST_F(SettingsTest, NoneOfTheirMenuEntriesIsOff) {
  for (const char* name : {"mnuSetCons", "mnuDispPara", "mnuColor", "mnuPeakColor"}) {
    EXPECT_TRUE(Find<QAction>(name)->isEnabled()) << name;
  }
}

// Settings.

TEST_F(SettingsTest, SettingsAreTypedAndTaken) {
  WorkSettings([this] {
    Of<>("cboSmooth")->setFocus();
    QTest::keyClick(Of<>("cboSmooth"), Qt::Key_End);
    TypeOver("txtBackInterval", "30");
    TypeOver("txtBackTimes", "15");
    TypeOver("txtEACPS", "2.5");
    TypeOver("txtISPPK", "12");
    TypeOver("txtLambda", "0.4");
    TypeOver("txtJudgeRange", "0.05");
    Press("cmdOk");
  });
  EXPECT_EQ(Store().FitParam.SmoothKind, 3);
  EXPECT_EQ(Store().FitParam.BackInterval, 30);
  EXPECT_EQ(Store().FitParam.BackTimes, 15);
  EXPECT_EQ(Store().Settings, (AnalysisSettings{2.5, 12, 0.4, 0.05}));
}

TEST_F(SettingsTest, EscapeTakesNothing) {
  WorkSettings([this] {
    TypeOver("txtLambda", "0.4");
    QTest::keyClick(Of<>("txtLambda"), Qt::Key_Escape);
    EXPECT_FALSE(dialog_->isVisible());
  });
  EXPECT_EQ(Store().Settings, AnalysisSettings{});
}

TEST_F(SettingsTest, TheFamilyOfFitDecidesWhichBoxesAreSeen) {
  for (const std::int16_t express : {0, 1, 0}) {
    Store().ExpressFit = express;
    WorkSettings([this, express] {
      for (const char* name : {"txtThres", "txtThres_Caption", "sldrThres", "lblThres",
                               "cboFuncType", "cboFuncType_Caption", "chkFitFunc"}) {
        EXPECT_EQ(Of<>(name)->isVisible(), express == 1) << name;
      }
      for (const char* name : {"txtEACPS", "txtEACPS_Caption", "lblEACPS", "txtISPPK",
                               "txtISPPK_Caption", "lblISPPK"}) {
        EXPECT_EQ(Of<>(name)->isVisible(), express == 0) << name;
      }
    });
  }
}

TEST_F(SettingsTest, EnterInTheThresholdLimitsItAndTheDialogStays) {
  Store().ExpressFit = 1;
  WorkSettings([this] {
    TypeOver("txtThres", "21");
    QTest::keyClick(Of<>("txtThres"), Qt::Key_Return);
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_EQ(TextOf("txtThres"), "20");
    EXPECT_EQ(Of<QSlider>("sldrThres")->value(), 20);
    Of<>("sldrThres")->setFocus();
    QTest::keyClick(Of<>("sldrThres"), Qt::Key_Left);
    EXPECT_EQ(TextOf("txtThres"), "19");
    Press("cmdOk");
  });
  EXPECT_EQ(Store().FitParam.PeakThres, 19);
}

TEST_F(SettingsTest, TheFunctionAndTheTiltAreChosen) {
  Store().ExpressFit = 1;
  WorkSettings([this] {
    Of<>("cboFuncType")->setFocus();
    QTest::keyClicks(Of<>("cboFuncType"), "M");
    Of<QAbstractButton>("chkFitFunc")->click();
    Press("cmdOk");
  });
  EXPECT_EQ(Store().FitParam.FuncType, kMix);
}

TEST_F(SettingsTest, SetDefaultShowsTheDefaults) {
  Store().Settings = {5, 6, 7, 8};
  WorkSettings([this] {
    Press("cmdDefault");
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_EQ(TextOf("txtEACPS"), "0.20");
    EXPECT_EQ(TextOf("txtJudgeRange"), "0.0300");
  });
}

// Red above green and blue where a text warns; a quiet grey elsewhere.
TEST_F(SettingsTest, TheLineUnderABoxTurnsRedWhereTheTextIsNotMeant) {
  const auto reddest = [this] {
    const QImage image = Of<>("lblLambda")->grab().toImage();
    int most = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QColor color = image.pixelColor(x, y);
        most = std::max(most, color.red() - std::max(color.green(), color.blue()));
      }
    }
    return most;
  };
  WorkSettings([&] {
    EXPECT_LT(reddest(), 20);
    TypeOver("txtLambda", "0.4A");
    EXPECT_GT(reddest(), 60);
    TypeOver("txtLambda", "0.4");
    EXPECT_LT(reddest(), 20);
  });
}

TEST_F(SettingsTest, AnOverflowIsShownAndTheDialogStays) {
  const BoxAnswerer boxes;
  WorkSettings([this] {
    TypeOver("txtBackInterval", "40000");
    Press("cmdOk");
    EXPECT_TRUE(dialog_->isVisible());
  });
  EXPECT_EQ(boxes.Texts(), QStringList("Overflow"));
  EXPECT_EQ(Store().FitParam.BackInterval, 20);
}

TEST_F(SettingsTest, SettingsComeBackAtTheNextStart) {
  WorkSettings([this] {
    TypeOver("txtLambda", "0.4");
    TypeOver("txtBackInterval", "30");
    Press("cmdOk");
  });
  Window().close();
  Start();
  EXPECT_EQ(Store().Settings.DacWavelength, 0.4);
  EXPECT_EQ(Store().FitParam.BackInterval, 30);
}

// Default properties.

TEST_F(SettingsTest, DefaultPropertiesAreTypedAndTakenWithEnter) {
  WorkValues([this] {
    Of<QAbstractButton>("chkCnst_1")->click();
    TypeOver("ImConst_0", "0.25");
    TypeOver("ImConst_1", "0.04");
    TypeOver("ImConst_2", "1e-8");
    Of<QAbstractButton>("optMode_4")->click();
    TypeOver("imnRealTime", "600");
    TypeOver("imnLiveTime", "580");
    TypeOver("imnRoiCnt", "5000");
    TypeOver("imnAngle", "6.5");
    TypeOver("ImnPress", "3");
    TypeOver("ImnTemp", "27");
    QTest::keyClick(Of<>("ImnTemp"), Qt::Key_Return);
    EXPECT_FALSE(dialog_->isVisible());
  });
  const MeasProp& prop = Store().DefaultProp;
  EXPECT_EQ(prop.EGC[0], 0.25);
  EXPECT_EQ(prop.EGC[1], 0.04);
  EXPECT_EQ(prop.EGC[2], 1e-8);
  EXPECT_EQ(prop.PropHead, 4);
  EXPECT_EQ(prop.RealTime, 600);
  EXPECT_EQ(prop.LiveTime, 580);
  EXPECT_EQ(Store().PresetCount, 5000);
  EXPECT_EQ(prop.TwoTheta, 6.5);
  EXPECT_EQ(prop.Press, 3);
  EXPECT_EQ(prop.Temp, 27);
}

TEST_F(SettingsTest, TheNewCalibrationIsShownOnTheMainWindow) {
  WorkValues([this] {
    TypeOver("ImConst_0", "0.5");
    TypeOver("ImConst_1", "0.125");
    Press("cmdOk");
  });
  EXPECT_TRUE(Find<QLabel>("lblEGC_0")->text().startsWith("0.500000Ch^2+0.125000Ch+"));
}

TEST_F(SettingsTest, AStraightLineHasNoThirdCoefficient) {
  WorkValues([this] {
    EXPECT_FALSE(Of<>("ImConst_2")->isEnabled());
    Of<QAbstractButton>("chkCnst_1")->click();
    EXPECT_FALSE(Of<QAbstractButton>("chkCnst_0")->isChecked());
    EXPECT_TRUE(Of<>("ImConst_2")->isEnabled());
    Of<QAbstractButton>("chkCnst_0")->click();
    EXPECT_FALSE(Of<QAbstractButton>("chkCnst_1")->isChecked());
    EXPECT_FALSE(Of<>("ImConst_2")->isEnabled());
  });
}

TEST_F(SettingsTest, EscapeLeavesTheDefaultProperties) {
  const MeasProp before = Store().DefaultProp;
  WorkValues([this] {
    TypeOver("imnAngle", "6.5");
    QTest::keyClick(Of<>("imnAngle"), Qt::Key_Escape);
    EXPECT_FALSE(dialog_->isVisible());
  });
  EXPECT_EQ(Store().DefaultProp, before);
}

// Colours.

TEST_F(SettingsTest, AColourOfThePaletteIsTakenAndTheGraphIsDrawnInIt) {
  OpenCorundum();
  auto* graph = Find<QWidget>("picGraph_0");
  const QImage before = graph->grab().toImage();
  Work("mnuColor", session->colors, [this] {
    EXPECT_TRUE(QTest::qWaitFor([this] { return Of<>("cmdColor_0")->hasFocus(); }));
    WorkColor("cmdColor_0", [this] {
      Press("picColor_19");
      Press("cmdOk");
    });
    EXPECT_EQ(Middle("cmdColor_0"), QColor(30, 155, 70));
    Press("cmdOk");
  });
  EXPECT_EQ(Store().ColorTbl[0], Rgb(30, 155, 70));
  EXPECT_NE(graph->grab().toImage(), before);
}

TEST_F(SettingsTest, CancelOfTheTableChangesNoColour) {
  const ColorTable before = Store().ColorTbl;
  Work("mnuColor", session->colors, [this] {
    WorkColor("cmdColor_18", [this] {
      Press("picColor_0");
      Press("cmdOk");
    });
    Press("cmdCansel");
  });
  EXPECT_EQ(Store().ColorTbl, before);
}

TEST_F(SettingsTest, PeakColoursOpenWithTheFocusOnTheMarkOfThePeaks) {
  Work("mnuPeakColor", session->colors, [this] {
    EXPECT_TRUE(QTest::qWaitFor([this] { return Of<>("cmdColor_13")->hasFocus(); }));
    WorkColor("cmdColor_13", [this] {
      Of<>("vsbRed")->setFocus();
      QTest::keyClick(Of<>("vsbRed"), Qt::Key_End);
      QTest::keyClick(Of<>("vsbRed"), Qt::Key_Return);
      EXPECT_FALSE(dialog_->isVisible());
    });
    QTest::keyClick(Of<>("cmdColor_13"), Qt::Key_Return);
    EXPECT_FALSE(dialog_->isVisible());
  });
  EXPECT_EQ(RedOf(Store().ColorTbl[kColorPeakMark]), 255);
  EXPECT_EQ(GreenOf(Store().ColorTbl[kColorPeakMark]), GreenOf(LightColors()[kColorPeakMark]));
}

TEST_F(SettingsTest, TheSpaceBarOpensTheColourOfAPatch) {
  Work("mnuColor", session->colors, [this] {
    FormWindow* chooser = session->form_views.WindowOf(session->colors.dialog);
    QTimer::singleShot(50, [chooser] {
      EXPECT_TRUE(QTest::qWaitForWindowActive(chooser));
      QTest::keyClick(chooser->focusWidget(), Qt::Key_Escape);
    });
    QTest::keyClick(Of<>("cmdColor_0"), Qt::Key_Space);
    EXPECT_FALSE(chooser->isVisible());
  });
}

TEST_F(SettingsTest, ColoursAreRegisteredAndComeBack) {
  Work("mnuColor", session->colors, [this] {
    WorkColor("cmdColor_0", [this] {
      Press("picColor_21");
      Press("picRegist_3");
      Press("cmdSet");
      EXPECT_EQ(Middle("picRegist_3"), QColor(30, 115, 215));
    });
    WorkColor("cmdColor_1", [this] {
      Press("picRegist_3");
      EXPECT_EQ(Middle("picSampl"), QColor(30, 115, 215));
      EXPECT_EQ(Of<QLabel>("lblBlue")->text(), "215");
      Press("cmdOk");
    });
    EXPECT_EQ(Middle("cmdColor_1"), QColor(30, 115, 215));
    Press("cmdOk");
  });
  EXPECT_EQ(Store().ColorTbl[1], Rgb(30, 115, 215));
}

TEST_F(SettingsTest, OthersTakesTheColourOfTheDesktopsDialog) {
  Work("mnuColor", session->colors, [this] {
    WorkColor("cmdColor_0", [this] {
      QTimer::singleShot(100, [] {
        auto* system = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(system, nullptr);
        system->setCurrentColor(QColor(1, 2, 3));
        system->accept();
      });
      Press("cmdOther");
      EXPECT_EQ(Middle("picSampl"), QColor(1, 2, 3));
      Press("cmdOk");
    });
    Press("cmdOk");
  });
  EXPECT_EQ(Store().ColorTbl[0], Rgb(1, 2, 3));
}

TEST_F(SettingsTest, ColoursComeBackAtTheNextStart) {
  Work("mnuColor", session->colors, [this] {
    WorkColor("cmdColor_19", [this] {
      Press("picColor_6");
      Press("cmdOk");
    });
    Press("cmdOk");
  });
  Window().close();
  Start();
  EXPECT_EQ(Store().ColorTbl[19], Rgb(230, 232, 235));
}

}  // namespace
}  // namespace dorvane
