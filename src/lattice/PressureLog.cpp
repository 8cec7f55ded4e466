#include "lattice/PressureLog.h"

#include <algorithm>

#include "lattice/Pressure.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr char kCelsiusEnd[] = "℃ ***";
constexpr char kKelvinEnd[] = "Ｋ ***";
constexpr std::size_t kErrorLength = 10;

}  // namespace

LogRecords WritePressureLog(std::string_view sample_name, std::string_view pressure_text,
                            std::string_view temp_text, std::int16_t unit_index) {
  const PressureScale* scale = FindLogScale(MaterialOf(sample_name));
  if (scale == nullptr) return {};
  const std::string_view text = Trim(pressure_text);
  const std::size_t plus = text.find('+');
  const std::string_view p = text.substr(0, plus);
  const std::string_view e =
      plus < text.size() ? text.substr(std::min(plus + 2, text.size()), kErrorLength) : "";
  return {{scale->Banner},
          {scale->Heading + std::string(temp_text) + (unit_index == 0 ? kCelsiusEnd : kKelvinEnd)},
          {"P(GPA)= ", p, "+-", e},
          {""}};
}

}  // namespace dorvane
