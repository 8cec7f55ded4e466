#include "forms/PanelWork.h"

#include "program/Commands.h"

namespace dorvane {

void PanelWork::Do(const std::function<void(Program&)>& operation) {
  if (filling_ > 0) return;
  RunGuarded(program, operation);
  Done.Fire();
}

void PanelWork::Fill(const std::function<void()>& fill) {
  struct Mark {
    int& count;
    explicit Mark(int& of_count) : count(of_count) { ++count; }
    Mark(const Mark&) = delete;
    Mark& operator=(const Mark&) = delete;
    ~Mark() { --count; }
  };
  const Mark mark(filling_);
  fill();
}

}  // namespace dorvane
