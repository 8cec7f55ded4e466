#include "forms/frmPrint.h"

#include <algorithm>

#include "support/NumberText.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr std::string_view kDotSizeSetting = "DotSize";
constexpr std::int16_t kPreviewMode = 1;
constexpr std::int16_t kPrinterMode = 2;

}  // namespace

frmPrint::frmPrint(Program& program, FormHost& host, SettingsStore& settings)
    : Form(host, "frmPrint", "Print"), workspace_(program.workspace), settings_(settings) {
  const auto kept = settings.Texts(kDotSizeSetting);
  if (!kept.empty()) {
    const double size = ParseNumber(kept.front()).value_or(0);
    workspace_.DotSize = RoundToInt16(std::clamp<double>(size, 0, kLargestDotSize));
  }
  txtFileName.SetReadOnly(true);
  ImnDrawWidth.Change.Connect([this] { ImnDrawWidth_Change(); });
  optOrientation.Click.Connect([this](int index) { optOrientation_Click(index); });
  cmdOk.Click.Connect([this] { cmdOk_Click(); });
  cmdPreview.Click.Connect([this] { cmdPreview_Click(); });
  cmdCan.Click.Connect([this] { cmdCan_Click(); });
}

void frmPrint::Open(const std::string& name) {
  optOrientation.SetIndex(0);
  GetDrawWidth = 0;
  GetOrientation = 0;
  PreViewPb = kFalse;
  GetPrintMode = 0;
  OkPb = kFalse;
  if (workspace_.DotSize == 0) workspace_.DotSize = 1;
  ImnDrawWidth.SetValue(workspace_.DotSize);
  txtFileName.SetText(name);
  ShowModal();
}

void frmPrint::ImnDrawWidth_Change() {
  const double size = std::clamp<double>(ImnDrawWidth.Value(), 0, kLargestDotSize);
  workspace_.DotSize = RoundToInt16(size);
  settings_.SetTexts(kDotSizeSetting, {std::to_string(workspace_.DotSize)});
  ImnDrawWidth.SetValue(workspace_.DotSize);
}

void frmPrint::optOrientation_Click(int index) {
  GetOrientation = index != 0 ? kTrue : kFalse;
}

void frmPrint::cmdOk_Click() {
  OkPb = kTrue;
  Leave(kPrinterMode);
}

void frmPrint::cmdPreview_Click() {
  PreViewPb = kTrue;
  Leave(kPreviewMode);
}

void frmPrint::Leave(std::int16_t mode) {
  GetPrintMode = mode;
  GetDrawWidth = RoundToInt16(ImnDrawWidth.Value());
  Hide();
}

}  // namespace dorvane
