#include "forms/PictureBox.h"

#include "forms/ControlVisitor.h"

namespace dorvane {

void PictureBox::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

}  // namespace dorvane
