// The pressure block of the lattice log: heading and result, by the sample's name.
#pragma once

#include <cstdint>
#include <string_view>

#include "lattice/LogRecord.h"

namespace dorvane {

// Banner, heading, result and an empty record for a sample whose name, up to its first blank, is
// one of the log's names; none for any other. The result is taken from `pressure_text` as it
// stands, whether or not it belongs to this sample: what is in front of the first "+", and the ten
// characters from two places behind it; without a "+" the whole text and nothing. unit_index 0
// means degrees Celsius, any other value kelvin.
LogRecords WritePressureLog(std::string_view sample_name, std::string_view pressure_text,
                            std::string_view temp_text, std::int16_t unit_index);

}  // namespace dorvane
