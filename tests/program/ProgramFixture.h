// A program with scripted ports and a folder of its own.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "program/Program.h"
#include "support/ScriptedDialogs.h"
#include "support/TemporaryFolder.h"
#include "workspace/ListenerFan.h"
#include "workspace/RecordingListener.h"

namespace dorvane {

class RecordingProgress : public Progress {
 public:
  int cancel_after = -1;  // reports until the user stops; -1 never
  int reports = 0;
  int last_total = 0;
  void Report(int, int total) override {
    ++reports;
    last_total = total;
  }
  bool Cancelled() override { return cancel_after >= 0 && reports > cancel_after; }
};

class RecordingLog : public LogSink {
 public:
  std::vector<std::string> lines;
  void PutLog(std::string_view text) override { lines.emplace_back(text); }
};

class ProgramTest : public testing::Test {
 protected:
  // Puts counts into a new spectrum shown in the next row and makes it the current one.
  std::int16_t Show(const std::vector<std::int32_t>& counts, const std::string& title = "a.npd") {
    const std::int16_t row = workspace.GrpCount;
    const std::int16_t data_no = GetGraphSpace(list, -1);
    ChannelBlock& block = workspace.Channels[data_no];
    block.Count = ToInt16(static_cast<std::int64_t>(counts.size()));
    std::copy(counts.begin(), counts.end(), block.Counts.begin());
    SetGraph(list, 0, row, data_no, title);
    Change_cboGrphSel(list, 0, row);
    return data_no;
  }

  std::vector<std::int32_t> CountsOf(int data_no) const {
    const auto used = workspace.Channels[data_no].Used();
    return {used.begin(), used.end()};
  }
  const GraphSlot& Row(int row) const { return workspace.Slots[row]; }
  std::int16_t FlagsOf(int row) const { return workspace.Spectra[Row(row).DataNo].Prop.Flags; }
  std::vector<std::string> Titles() const {
    std::vector<std::string> titles;
    for (const GraphSlot& slot : workspace.Slots) {
      if (slot.State != kRowEmpty) titles.push_back(slot.Title);
    }
    return titles;
  }

  TemporaryFolder folder;
  SystemFileLayer files;
  ScriptedDialogs dialogs;
  RecordingListener listener;
  ListenerFan views{listener};  // what else listens to the program
  RecordingLog log;
  RecordingProgress progress;
  std::unique_ptr<Program> holder =
      std::make_unique<Program>(Ports{dialogs, files, log, progress, views}, folder.Path(""));
  Program& program = *holder;
  Workspace& workspace = program.workspace;
  ViewState& view = program.view;
  GraphList list = program.List();
};

}  // namespace dorvane
