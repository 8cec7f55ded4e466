#include "workspace/ListenerFan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workspace/RecordingListener.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

// Writes down its own name, so that the order of several listeners shows.
class Named : public WorkspaceListener {
 public:
  Named(std::string& order, char name) : order_(order), name_(name) {}
  void CursorMoved() override { order_ += name_; }

 private:
  std::string& order_;
  char name_;
};

// Brings another listener in while it is told.
class Inviting : public WorkspaceListener {
 public:
  Inviting(ListenerFan& fan, WorkspaceListener& guest) : fan_(fan), guest_(guest) {}
  void CursorMoved() override { fan_.Add(guest_); }

 private:
  ListenerFan& fan_;
  WorkspaceListener& guest_;
};

// Every notice once, each with numbers of its own.
void TellAll(WorkspaceListener& listener) {
  const PeakRec peak;
  listener.SelectorFilled();
  listener.SelectorRowSelected(1, 2);
  listener.CheckBoxesFilled();
  listener.SelectionListFilled();
  listener.SelectionRowCleared(3);
  listener.SpectrumShown(0, 4);
  listener.SpectrumRemoved(0, 5);
  listener.CurveMade(5, 6);
  listener.GraphShown(1, 6, true);
  listener.GraphRecolored(1, 7, 0xFF);
  listener.FileRead("/data/a.npd");
  listener.FileWritten("/data/b.npd");
  listener.FileNotRead("/data/c.npd");
  listener.FileNotWritten("/data/d.npd");
  listener.PeakMarked(0, 8, peak);
  listener.PeakUnmarked(0, 9, peak);
  listener.PeakLinesCleared(1);
  listener.PointMarksCleared(1, 3);
  listener.RoiMarked(0, 4, 10, 20, 0xFF);
  listener.RoiUnmarked(1, 4, 30, 40, 0xFF);
  listener.RegionsChanged();
  listener.WindowCleared(0);
  listener.RedrawWanted(1);
  listener.WindowStyleChanged();
  listener.WindowActivated(1);
  listener.UnitAxisChanged();
  listener.CountScaleChanged(1);
  listener.RangeChanged();
  listener.CursorMoved();
  listener.CalibrationShown();
  listener.CaptionChanged();
  listener.ButtonsChanged();
  listener.PointerChanged();
  listener.DataTypeShown();
}

TEST(ListenerFan, EveryNoticeReachesEveryListenerAsItIs) {
  RecordingListener direct;
  RecordingListener first;
  RecordingListener second;
  ListenerFan fan;
  fan.Add(first);
  fan.Add(second);
  TellAll(direct);
  TellAll(fan);
  EXPECT_EQ(first.notices, direct.notices);
  EXPECT_EQ(second.notices, direct.notices);
}

TEST(ListenerFan, ListenersAreToldInTheOrderInWhichTheyWereAdded) {
  std::string order;
  Named first(order, 'a');
  Named second(order, 'b');
  ListenerFan fan;
  fan.Add(first);
  fan.Add(second);
  fan.CursorMoved();
  EXPECT_EQ(order, "ab");
}

TEST(ListenerFan, AListenerAddedMeanwhileHearsOfTheNextNoticeOn) {
  ListenerFan fan;
  RecordingListener guest;
  Inviting host(fan, guest);
  fan.Add(host);
  fan.CursorMoved();
  EXPECT_TRUE(guest.notices.empty());
  fan.RangeChanged();
  EXPECT_THAT(guest.notices, ElementsAre("range"));
}

}  // namespace
}  // namespace dorvane
