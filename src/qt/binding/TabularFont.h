// Digits of equal width for read-outs and grids.
#pragma once

#include <QFont>

namespace dorvane {

// `base` if its digits are of equal width, else the desktop's fixed-pitch font in the same size.
QFont TabularFont(const QFont& base);

}  // namespace dorvane
