// The port through which a long operation tells how far it is and learns that it shall stop.
#pragma once

namespace dorvane {

class Progress {
 public:
  virtual ~Progress() = default;
  // Brackets of every command; they can be nested. Nothing is cancelled at the outermost Begin.
  virtual void Begin() {}
  virtual void End() {}
  // `done` of `total` steps are finished; called between steps.
  virtual void Report(int done, int total) = 0;
  // True once the user has asked to stop; the operation then leaves the tables as they were.
  virtual bool Cancelled() = 0;
};

}  // namespace dorvane
