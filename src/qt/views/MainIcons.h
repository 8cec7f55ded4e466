// The icons of the main form's tool bars by the keys of their buttons.
#pragma once

#include <QString>
#include <string_view>

namespace dorvane {

// Name of the icon; empty where a button has none.
QString IconNameOf(std::string_view key);

}  // namespace dorvane
