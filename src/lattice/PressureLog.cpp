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

void WritePressureLog(std::string_view sample_name, std::string_view pressure_text,
                      std::string_view temp_text, std::int16_t unit_index,
                      const RecordSink& put_record) {
  const PressureScale* scale = FindLogScale(MaterialOf(sample_name));
  if (scale == nullptr) return;
  put_record({scale->Banner});
  put_record(
      {scale->Heading + std::string(temp_text) + (unit_index == 0 ? kCelsiusEnd : kKelvinEnd)});

  const std::string_view text = Trim(pressure_text);
  const std::size_t plus = text.find('+');
  const std::string p(text.substr(0, plus));
  const std::string e(
      plus < text.size() ? text.substr(std::min(plus + 2, text.size()), kErrorLength) : "");
  put_record({"P(GPA)= ", p, "+-", e});
  put_record({""});
}

}  // namespace dorvane
