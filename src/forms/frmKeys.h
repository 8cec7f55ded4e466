// The list of all keys and of what the mouse does on a graph.
#pragma once

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/Grid.h"

namespace dorvane {

class frmKeys : public Form {
 public:
  explicit frmKeys(FormHost& host);

  // Columns of sprKeys.
  static constexpr int kKey = 1;
  static constexpr int kWhat = 2;

  Grid sprKeys{controls_, "sprKeys", {"Key", "Action"}};
  Button cmdOk{controls_, "cmdOk", "OK"};
};

}  // namespace dorvane
