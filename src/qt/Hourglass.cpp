#include "qt/Hourglass.h"

#include <QApplication>

namespace dorvane {

Hourglass::~Hourglass() {
  Show(false);
}

void Hourglass::PointerChanged() {
  Show(Waits(view_.Pointer));
}

void Hourglass::Show(bool on) {
  if (on == on_) return;
  on_ = on;
  if (on) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

}  // namespace dorvane
