// The colours of the window's widgets.
#pragma once

#include <QPalette>

namespace dorvane {

// `base` with quiet captions and hints in its own colour of texts, half seen: desktops that tell
// their colours one by one leave out that of placeholders, which is then black on any ground.
QPalette ProgramPalette(const QPalette& base);

}  // namespace dorvane
