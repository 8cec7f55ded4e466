// The typeface of the window and of the pictures.
#pragma once

#include <QFont>

namespace dorvane {

// `base` with its size and style in the program's families: a face whose digits have equal width,
// then what holds the signs and the Japanese characters that it lacks. Families that are not
// installed are passed over. Needs an application object to be shown, none to be made.
QFont ProgramFont(const QFont& base);

}  // namespace dorvane
