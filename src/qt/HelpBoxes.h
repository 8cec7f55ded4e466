// What the menu Help shows.
#pragma once

#include "qt/Actions.h"

namespace dorvane {

void ShowHelp(Session& session);
void ShowVersion(Session& session);
// A table of all keys and mouse actions, over `parent` until it is closed.
void ShowKeys(QWidget* parent, const Actions& actions);

}  // namespace dorvane
