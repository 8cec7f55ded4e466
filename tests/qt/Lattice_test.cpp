// The lattice form of the running program, from the tool bar to the log that is kept.
#include <gmock/gmock.h>

#include <QComboBox>
#include <QFileDialog>
#include <set>

#include "WindowTest.h"
#include "support/CodePage.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

class LatticeTest : public WindowTest {
 protected:
  // Fits the peaks of a sample, opens the form, works it and leaves it; the log is kept as
  // "kept.csv", or not at all.
  void Work(const std::string& path, const std::function<void()>& work, bool keep = false) {
    Open(path);
    Store().UseFileEgc = 1;
    session->main.commands.Run("NaxAllFit");
    QTimer::singleShot(0, [&] {
      EXPECT_TRUE(QTest::qWaitForWindowActive(&Form()));
      work();
      AnswerFileDialog(keep ? QString::fromStdString(folder.Path("kept.csv")) : QString());
      QTest::mouseClick(Form().Of(session->lattice.cmdExit), Qt::LeftButton);
    });
    Trigger("tlbrOperation_hkl");
  }
  void AnswerFileDialog(const QString& name) {
    auto* timer = new QTimer(&Window());
    int polls = 0;
    QObject::connect(timer, &QTimer::timeout, [timer, name, polls]() mutable {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      if (++polls == 1 || dialog == nullptr) return;
      timer->deleteLater();
      if (!name.isEmpty()) {
        auto* edit = dialog->findChild<QLineEdit*>("fileNameEdit");
        edit->selectAll();
        QTest::keyClicks(edit, name);
        QTest::keyClick(edit, Qt::Key_Return);
      }
      if (dialog->isVisible()) dialog->reject();
    });
    timer->start(20);
  }
  FormWindow& Form() { return *session->form_views.WindowOf(session->lattice); }
  void ChooseSample(const char* name) {
    auto* samples = Form().As<QComboBox>(session->lattice.cmbElement);
    samples->setFocus();
    QTest::keyClicks(samples, name);
  }
  void Execute() { QTest::mouseClick(Form().Of(session->lattice.cmdCal), Qt::LeftButton); }
  void WholeWork() {
    ChooseSample("Al2O3");
    Execute();
    QTest::mouseClick(Form().Of(session->lattice.cmdDataSave), Qt::LeftButton);
  }
  // Every file and directory of the test's folder, in which the program has its own.
  std::set<std::string> Tree() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path(""))) {
      names.insert(std::filesystem::relative(entry.path(), folder.Path("")).string());
    }
    return names;
  }
  std::vector<std::string> NewSince(const std::set<std::string>& before) const {
    std::vector<std::string> names;
    for (const std::string& name : Tree()) {
      if (!before.contains(name)) names.push_back(name);
    }
    return names;
  }
  static double ValueIn(const TextBox& box) {
    return NumberOf(box.Text().substr(0, box.Text().find("+-")));
  }
};

// Literature: a = 4.7587, c = 12.9929 angstrom. The lines more than 0.001 angstrom off the seeds
// are those of weak peaks at high energies.
TEST_F(LatticeTest, CorundumIsRefinedAsASample) {
  Work(kCorundum, [&] {
    frmPeakCal& form = session->lattice;
    ChooseSample("Al2O3");
    Execute();
    for (int r = 1; r <= form.sprPeakInf3.MaxRows(); ++r) {
      const double off =
          NumberOf(form.sprPeakInf3.Text(r, 1)) - NumberOf(form.sprPeakInf3.Text(r, 2));
      if (std::abs(off) > 0.001) form.sprPeakInf3.CheckCell(r, UseColumn(form.sprPeakInf3), false);
    }
    Execute();
    EXPECT_NEAR(ValueIn(form.txtLatticeLength[0]), 4.7587, 0.002);
    EXPECT_NEAR(ValueIn(form.txtLatticeLength[2]), 12.9929, 0.006);
  });
}

TEST_F(LatticeTest, MgOGivesItsPressureAndTheLogIsKept) {
  Work(
      kMgo,
      [&] {
        frmPeakCal& form = session->lattice;
        auto* marker = Form().findChild<QAbstractButton*>("optSelectMode_1");
        marker->click();
        ChooseSample("MgO");
        Execute();
        for (int r = 1; r <= form.sprPeakInf4.MaxRows(); ++r) {
          if (form.sprPeakInf4.Text(r, 7) == "(2 2 2)")
            form.sprPeakInf4.CheckCell(r, UseColumn(form.sprPeakInf4), false);
        }
        Execute();
        EXPECT_GT(ValueIn(form.txtPressure), 0);
      },
      true);
  const std::string kept = FromCodePage(folder.Get("kept.csv"));
  EXPECT_EQ(kept.rfind("\"*******************mgo_under_loadLatticeFitting Log Start", 0), 0u);
  EXPECT_NE(kept.find("******** JAMIESON SCALE AT T=27.0℃ ***"), std::string::npos);
  EXPECT_NE(kept.find("UseFlag Changed!!"), std::string::npos);
}

TEST_F(LatticeTest, LinesOfTheSampleStandOnTheGraphBehindTheForm) {
  Work(kCorundum, [&] {
    auto* graph = Find<QWidget>("picGraph_0");
    const QImage before = graph->grab().toImage();
    ChooseSample("Al2O3");
    EXPECT_NE(graph->grab().toImage(), before);
    EXPECT_GT(session->program.spect.NamedLines(0).size(), 10u);
  });
  EXPECT_TRUE(session->program.spect.NamedLines(0).empty());
}

TEST_F(LatticeTest, KeptWorkLeavesLogSummaryAndResultBehindAlone) {
  const std::set<std::string> before = Tree();
  Work(
      kCorundum, [&] { WholeWork(); }, true);
  EXPECT_THAT(NewSince(before),
              testing::UnorderedElementsAre("home/dorvane/crystalfit.csv",
                                            "home/dorvane/LatticeFit.csv", "kept.csv"));
}

TEST_F(LatticeTest, CancelledWorkLeavesLogAndSummaryBehindAlone) {
  const std::set<std::string> before = Tree();
  Work(kCorundum, [&] { WholeWork(); });
  EXPECT_THAT(NewSince(before), testing::UnorderedElementsAre("home/dorvane/crystalfit.csv",
                                                              "home/dorvane/LatticeFit.csv"));
}

TEST_F(LatticeTest, SummaryGoesWhereTheMenuHasSetIt) {
  std::filesystem::create_directory(folder.Path("results"));
  QTimer::singleShot(0, [&] {
    FormWindow& window = *session->form_views.WindowOf(session->result_directory);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClicks(window.Of(session->result_directory.txtDirectory),
                     QString::fromStdString(folder.Path("results")));
    QTest::mouseClick(window.Of(session->result_directory.cmdOk), Qt::LeftButton);
  });
  Trigger("mnuResultDirectory");
  Work(kCorundum,
       [&] { QTest::mouseClick(Form().Of(session->lattice.cmdDataSave), Qt::LeftButton); });
  EXPECT_TRUE(folder.Has("results/LatticeFit.csv"));
  EXPECT_FALSE(folder.Has("home/dorvane/LatticeFit.csv"));
}

}  // namespace
}  // namespace dorvane
