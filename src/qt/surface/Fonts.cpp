#include "qt/surface/Fonts.h"

#include <QStringList>

namespace dorvane {

QFont ProgramFont(const QFont& base) {
  QFont font = base;
  // A Japanese face by name: the system's own choice may have the Chinese forms of the characters.
  font.setFamilies({"Open Sans", "DejaVu Sans", "IPAGothic", "Noto Sans CJK JP"});
  return font;
}

}  // namespace dorvane
