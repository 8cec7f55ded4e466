#include "qt/binding/TabularFont.h"

#include <QFontDatabase>
#include <QFontMetricsF>

namespace dorvane {

QFont TabularFont(const QFont& base) {
  const QFontMetricsF metrics(base);
  const QString digits = "0123456789";
  for (const QChar digit : digits) {
    if (metrics.horizontalAdvance(digit) == metrics.horizontalAdvance('0')) continue;
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setPointSizeF(base.pointSizeF());
    return fixed;
  }
  return base;
}

}  // namespace dorvane
