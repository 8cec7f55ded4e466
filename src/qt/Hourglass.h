// The pointer of the whole program while an operation takes long.
#pragma once

#include "workspace/ViewState.h"
#include "workspace/WorkspaceListener.h"

namespace dorvane {

class Hourglass : public WorkspaceListener {
 public:
  // `view` outlives it.
  explicit Hourglass(const ViewState& view) : view_(view) {}
  ~Hourglass() override;
  void PointerChanged() override;

 private:
  void Show(bool on);

  const ViewState& view_;
  bool on_ = false;
};

}  // namespace dorvane
