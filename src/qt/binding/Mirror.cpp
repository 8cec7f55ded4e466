#include "qt/binding/Mirror.h"

#include "qt/binding/Text.h"

namespace dorvane {

QString PlainCaption(const Control& control) {
  QString caption = ToQString(control.Caption());
  return caption.replace("&&", "\x01").remove('&').replace('\x01', '&');
}

void MirrorState(Control& control, QWidget* widget) {
  widget->setObjectName(ToQString(control.Name()));
  Mirror(control, widget, [&control, widget] {
    widget->setEnabled(control.Enabled());
    if (widget->isHidden() == control.Visible()) widget->setVisible(control.Visible());
    widget->setToolTip(ToQString(control.Tip()));
    widget->setAccessibleName(PlainCaption(control));
  });
}

}  // namespace dorvane
