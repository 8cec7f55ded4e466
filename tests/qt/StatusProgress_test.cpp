#include "qt/StatusProgress.h"

#include <QProgressBar>
#include <QSignalSpy>

#include "WindowTest.h"
#include "program/Commands.h"

namespace dorvane {
namespace {

class StatusProgressTest : public WindowTest {
 protected:
  // An operation of so many steps that asks between them whether it shall stop.
  int StepsUntilStopped(
      int steps, const std::function<void(int)>& at_step = [](int) {}) {
    StatusProgress& progress = session->progress;
    int done = 0;
    RunGuarded(session->program, [&](Program&) {
      for (; done < steps && !progress.Cancelled(); ++done) {
        at_step(done);
        QTest::qSleep(45);
        progress.Report(done, steps);
      }
    });
    return done;
  }
};

TEST_F(StatusProgressTest, RunsToTheEndUndisturbed) {
  EXPECT_EQ(StepsUntilStopped(3), 3);
}

TEST_F(StatusProgressTest, EscapeStopsTheOperation) {
  const int done = StepsUntilStopped(20, [this](int step) {
    if (step == 2) {
      QTimer::singleShot(0, &Window(), [this] { QTest::keyClick(&Window(), Qt::Key_Escape); });
    }
  });
  EXPECT_LT(done, 20);
  EXPECT_EQ(StatusHint(), "Stopped; nothing has changed");
}

TEST_F(StatusProgressTest, OtherKeysAndClicksAreHeldBack) {
  OpenCorundum();
  auto* graph = Find<QWidget>("picGraph_0");
  StepsUntilStopped(6, [&](int step) {
    if (step != 1) return;
    QTimer::singleShot(0, &Window(), [&] {
      QTest::keyClick(graph, Qt::Key_Right);
      QTest::mouseClick(graph, Qt::LeftButton, {}, {200, 40});
    });
  });
  EXPECT_EQ(View().CursorCh, 0);
}

TEST_F(StatusProgressTest, ShortOperationShowsNoBar) {
  const QSignalSpy turned_long(&session->progress, &StatusProgress::Long);
  StepsUntilStopped(2);
  EXPECT_EQ(turned_long.count(), 0);
}

TEST_F(StatusProgressTest, LongOperationShowsTheBarUntilItsEnd) {
  auto* bar = Find<QProgressBar>("prgOperation");
  bool seen = false;
  StepsUntilStopped(12, [&](int) { seen = seen || bar->isVisible(); });
  EXPECT_TRUE(seen);
  EXPECT_FALSE(bar->isVisible());
}

TEST_F(StatusProgressTest, NextOperationStartsUncancelled) {
  StepsUntilStopped(8, [this](int step) {
    if (step == 0) {
      QTimer::singleShot(0, &Window(), [this] { QTest::keyClick(&Window(), Qt::Key_Escape); });
    }
  });
  EXPECT_EQ(StepsUntilStopped(2), 2);
}

TEST_F(StatusProgressTest, CommandInsideOfACommandEndsNothing) {
  const QSignalSpy ended(&session->progress, &StatusProgress::Ended);
  RunGuarded(session->program, [&](Program& program) {
    RunGuarded(program, [](Program&) {});
    EXPECT_EQ(ended.count(), 0);
  });
  EXPECT_EQ(ended.count(), 1);
}

}  // namespace
}  // namespace dorvane
