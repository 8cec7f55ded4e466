// Icons drawn in the text colour of the desktop's theme, crisp at every scale.
#pragma once

#include <QIcon>
#include <QString>

namespace dorvane {

// The icon of a resource name such as "open"; an empty one where there is none.
QIcon ThemeIcon(const QString& name);

}  // namespace dorvane
