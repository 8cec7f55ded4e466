#include "program/PropertySheet.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <optional>

#include "files/FileDorvane.h"
#include "program/View.h"
#include "support/CodePage.h"
#include "support/Fault.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr std::size_t kCountDigits = 6;
constexpr const char* kCountPicture = "000000";
constexpr std::size_t kNameSize = sizeof(SpectrumRec::MsuName);
constexpr const char* kLabelError = "Label Print error";
constexpr const char* kLabelFileError = "Failed Create Label File!";

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// A whole text of one to `most` digits.
std::optional<int> DigitsOf(std::string_view text, std::size_t most) {
  text = Trim(text);
  if (text.empty() || text.size() > most || !std::all_of(text.begin(), text.end(), IsDigit)) {
    return {};
  }
  return Int16Of(text);
}

// The text up to the next one of the separators, which goes too; all of it where there is none.
std::string_view TakePart(std::string_view& text, std::string_view separators) {
  const auto end = text.find_first_of(separators);
  const std::string_view part = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return part;
}

std::string TwoDigits(int value) {
  return Picture(value, "00");
}

std::optional<std::string> ReadDate(std::string_view text) {
  const std::string_view year_text = TakePart(text, "/");
  const auto year = Trim(year_text).size() == 4 ? DigitsOf(year_text, 4) : std::nullopt;
  const auto month = DigitsOf(TakePart(text, "/"), 2);
  const auto day = DigitsOf(text, 2);
  if (!year || !month || !day) return {};
  const std::chrono::year_month_day date{std::chrono::year(*year),
                                         std::chrono::month(static_cast<unsigned>(*month)),
                                         std::chrono::day(static_cast<unsigned>(*day))};
  if (!date.ok()) return {};
  return Picture(*year, "0000") + TwoDigits(*month) + TwoDigits(*day);
}

std::optional<std::string> ReadTime(std::string_view text) {
  const auto hour = DigitsOf(TakePart(text, ":"), 2);
  const auto minute = DigitsOf(TakePart(text, ".:"), 2);
  const auto second = DigitsOf(text, 2);
  if (!hour || !minute || !second || *hour > 23 || *minute > 59 || *second > 59) return {};
  return TwoDigits(*hour) + TwoDigits(*minute) + TwoDigits(*second);
}

// NULs, with which other programs fill a field that is empty, show as blanks.
std::string Shown(std::string_view bytes) {
  std::string blank(bytes);
  std::replace(blank.begin(), blank.end(), '\0', ' ');
  return FromCodePage(blank);
}

void StartTool(Launcher& launcher, std::string directory) {
  if (directory.ends_with('/') || directory.ends_with('\\')) directory.pop_back();
  if (!launcher.Start(directory.append(kLabelTool))) throw Fault(FaultCode::FileNotFound);
}

void DeleteLabelFile(FileLayer& files) {
  if (files.Info(kLabelFile)) files.Remove(kLabelFile);
}

bool WriteLabelFile(Program& program, int data_no) {
  const Workspace& workspace = program.workspace;
  FileContext files = program.FileAccess();
  try {
    return WriteXbm(files, kLabelFile, workspace.Channels[data_no], workspace.Spectra[data_no]) ==
           kTrue;
  } catch (const Fault&) {
    return false;
  }
}

}  // namespace

std::string DateText(const FixedText<8>& date) {
  const std::string_view digits = date.Bytes();
  return Shown(digits.substr(0, 4)) + "/" + Shown(digits.substr(4, 2)) + "/" +
         Shown(digits.substr(6, 2));
}

std::string TimeText(const FixedText<6>& time) {
  const std::string_view digits = time.Bytes();
  return Shown(digits.substr(0, 2)) + ":" + Shown(digits.substr(2, 2)) + "." +
         Shown(digits.substr(4, 2));
}

bool TakeNumber(double& field, double value) {
  if (value == field || (std::isnan(value) && std::isnan(field))) return false;
  field = value;
  return true;
}

bool TakeDate(FixedText<8>& field, std::string_view text) {
  if (text == DateText(field)) return false;
  const auto date = ReadDate(text);
  return date && TakeText(field, *date);
}

bool TakeTime(FixedText<6>& field, std::string_view text) {
  if (text == TimeText(field)) return false;
  const auto time = ReadTime(text);
  return time && TakeText(field, *time);
}

std::string CountUp(const std::string& name) {
  const std::string_view trimmed = Trim(name);
  if (trimmed.size() < kCountDigits) return name;
  const std::string_view digits = trimmed.substr(trimmed.size() - kCountDigits);
  if (!std::all_of(digits.begin(), digits.end(), IsDigit)) return name;
  std::string next(trimmed.substr(0, trimmed.size() - kCountDigits));
  next += Picture(Int32Of(digits) + 1, kCountPicture);
  return ToCodePage(next).size() <= kNameSize ? next : name;
}

void ShowProperties(Program& program, int data_no) {
  for (GraphSlot& slot : program.workspace.Slots) {
    if (slot.State != kRowEmpty && slot.DataNo == data_no) slot.State = kRowUnsaved;
  }
  WorkspaceListener& listener = program.Listener();
  Add_cboGraphSel(program.List());
  listener.SelectionListFilled();
  SetEGCParam(program, 1);
  listener.UnitAxisChanged();
  listener.CursorMoved();
}

void LabelPrint(Program& program, Launcher& launcher, const std::string& tool_directory,
                int data_no) {
  try {
    StartTool(launcher, tool_directory);
    DeleteLabelFile(program.ports.files);
  } catch (const Fault&) {
    program.ports.dialogs.Message(kLabelError);
    return;
  }
  if (!WriteLabelFile(program, data_no)) program.ports.dialogs.Message(kLabelFileError);
}

}  // namespace dorvane
