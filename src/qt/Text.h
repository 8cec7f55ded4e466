// Text and colours on their way between the program and the toolkit: those of the binding.
#pragma once

#include "qt/binding/Text.h"  // IWYU pragma: export
