// What the property form does to the program: typed values into the record of a spectrum, the next
// name of a series, and the hand-over to the label tool.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "program/Program.h"
#include "support/Launcher.h"

namespace dorvane {

// The label tool, behind the directory that it lies in without its closing slash.
constexpr std::string_view kLabelTool = "\\DorvaneLabelPrint.exe";
// The file that the label tool waits for.
constexpr const char* kLabelFile = "c:\\LBL_TEMP\\Label_Temp.xbm";

// OpDate as yyyy/mm/dd and OpTime as hh:mm.ss, of the characters that stand there, blanks included.
// KEPT: the colon and then a point are how the form shows a time.
std::string DateText(const FixedText<8>& date);
std::string TimeText(const FixedText<6>& time);

// Each puts what a box of the form holds into its field and tells whether that has changed. A box
// that shows the field leaves it as it is, to the last bit and byte.
bool TakeNumber(double& field, double value);
// What is too long is cut behind its last whole character.
template <std::size_t Size>
bool TakeText(FixedText<Size>& field, std::string_view text);
// "2003/1/5" as 20030105 and "9:05.30", also "9:05:30", as 090530. What is no day of the calendar
// or time of the day leaves the field.
bool TakeDate(FixedText<8>& field, std::string_view text);
bool TakeTime(FixedText<6>& field, std::string_view text);

// The measurement name that follows: where the trimmed name ends in six digits, it with their value
// plus one in at least six digits; a name without them as it is. So is one whose successor has no
// room in MsuName: cut, it would be the name of another measurement.
std::string CountUp(const std::string& name);

// A spectrum's properties have changed: its row is unsaved, and lists, read-outs and axes show
// them.
void ShowProperties(Program& program, int data_no);

// Starts the label tool of `tool_directory`, deletes the label file of before and writes the
// spectrum to it. A failure of the writer ends in "Failed Create Label File!", any other in "Label
// Print error", after which nothing more is done.
// KEPT: the tool is started before there is a file for it; it waits for the file by its own means.
void LabelPrint(Program& program, Launcher& launcher, const std::string& tool_directory,
                int data_no);

template <std::size_t Size>
bool TakeText(FixedText<Size>& field, std::string_view text) {
  if (text == field.Text()) return false;
  const FixedText<Size> taken(text);
  if (taken == field) return false;
  field = taken;
  return true;
}

}  // namespace dorvane
