// Text and colours on their way between the program and the toolkit.
#pragma once

#include <QColor>
#include <QString>
#include <string>
#include <string_view>

#include "support/Surface.h"

namespace dorvane {

inline QString ToQString(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

inline std::string ToUtf8(const QString& text) {
  return text.toStdString();
}

inline QColor ToQColor(Color color) {
  return {color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF};
}

}  // namespace dorvane
