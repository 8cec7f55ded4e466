// The reference spectra of an energy calibration: up to twenty names, of which as many are open as
// the list of graphs has room for.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "program/Program.h"

namespace dorvane {

constexpr int kMostCalibFiles = 20;

// Files are addressed by their place, from 0; a place outside of them is ignored. A listener of the
// program: a graph that is closed elsewhere, or has had to take another's curve, leaves its name
// here, and is read again when it is wanted; the curves that are made of the files are known until
// they go. Faults of the operations on graphs pass.
class CalibFiles : public WorkspaceListener {
 public:
  explicit CalibFiles(Program& program) : program_(program) {}  // outlives the files

  // Names with their extensions.
  std::vector<std::string> Names() const;
  int Count() const { return static_cast<int>(files_.size()); }
  // The row of its graph; -1 while it has none.
  int RowOf(int place) const;

  // Whether a further file has a place; else the message that tells the most of them.
  bool HasPlace() const;
  // Each file is read into the next row of window 0 and takes the next place; one that can't be
  // read takes none, and no row or number either. From the first one on that finds no room they
  // take a place unread. The message of HasPlace ends it.
  void Open(const std::vector<std::string>& paths);
  // Brings a graph into its window as the current one. A file without one is read; where there is
  // no room, the graph of these files that has been out of use longest makes way, if it is saved.
  void Show(int place);
  // Room for the curves of the current graph, that of its fit among them: the other graphs of these
  // files make way as for Show, as many as it takes.
  void MakeRoomForCurves();
  // Takes the name and its graph away. Asks about unsaved graphs first: false when the user keeps
  // them, and nothing happens.
  bool Remove(int place);
  // The same for all, together with the curves that have been made of them, also where the graph
  // has gone before.
  bool RemoveAll();

  void SpectrumRemoved(int WinNo, int DataNo) override;
  void CurveMade(int DataNo, int source) override;

 private:
  struct File {
    std::string path;
    int data_no = -1;  // -1: no graph that is the file's own
    int used = 0;      // the greater, the later
  };

  bool Has(int place) const { return place >= 0 && place < Count(); }
  bool IsOurs(int data_no) const;
  void Forget(int data_no);
  bool HasRoom() const;
  bool Read(File& file);
  int LongestOutOfUse(int but_data_no) const;
  bool MakeRoom(int but_data_no);

  Program& program_;
  std::vector<File> files_;
  std::set<int> curves_;  // DataNo of the curves made of these files
  int uses_ = 0;
};

}  // namespace dorvane
