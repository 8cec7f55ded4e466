#include "forms/frmPicture.h"

#include <cmath>
#include <cstdint>
#include <vector>

#include "program/WindowPage.h"
#include "support/Fault.h"
#include "support/NumberText.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr std::string_view kSizeSetting = "PictureSize";  // width, height, dots per inch
constexpr double kWidthMm = 160;
constexpr double kHeightMm = 100;
constexpr double kDotsPerInch = 300;
constexpr double kLeastMm = 20;
constexpr double kMostMm = 1000;
constexpr double kLeastDotsPerInch = 50;
constexpr double kMostDotsPerInch = 1200;
constexpr double kMostPixels = 100e6;  // 400 megabytes of memory
constexpr double kMmPerInch = 25.4;
constexpr double kPagePixelsPerInch = 96;  // of scale factor 1

bool Within(double value, double least, double most) {
  return value >= least && value <= most;
}

}  // namespace

frmPicture::frmPicture(Program& program, FormHost& host, Pictures& pictures,
                       SettingsStore& settings)
    : Form(host, "frmPicture", "Save Picture"),
      program_(program),
      pictures_(pictures),
      settings_(settings) {
  ShowKeptSize();
  for (NumberBox* box : {&imnWidth, &imnHeight, &imnResolution}) {
    box->Change.Connect([this] { ShowHint(); });
  }
  cmdSave.Click.Connect([this] { cmdSave_Click(); });
  cmdCopy.Click.Connect([this] { cmdCopy_Click(); });
  cmdCan.Click.Connect([this] { cmdCan_Click(); });
  ShowHint();
}

std::optional<PictureSize> frmPicture::Size() const {
  if (!Within(imnWidth.Value(), kLeastMm, kMostMm) ||
      !Within(imnHeight.Value(), kLeastMm, kMostMm) ||
      !Within(imnResolution.Value(), kLeastDotsPerInch, kMostDotsPerInch)) {
    return {};
  }
  const auto page_pixels = [](double mm) {
    return RoundToInt32(mm / kMmPerInch * kPagePixelsPerInch);
  };
  const PictureSize size{page_pixels(imnWidth.Value()), page_pixels(imnHeight.Value()),
                         imnResolution.Value() / kPagePixelsPerInch};
  const double pixels = size.width_px * size.scale * size.height_px * size.scale;
  if (pixels > kMostPixels) return {};
  return size;
}

void frmPicture::ShowKeptSize() {
  const std::vector<std::string> kept = settings_.Texts(kSizeSetting);
  const auto value = [&kept](std::size_t index, double standard) {
    return index < kept.size() ? ParseNumber(kept[index]).value_or(standard) : standard;
  };
  imnWidth.SetValue(value(0, kWidthMm));
  imnHeight.SetValue(value(1, kHeightMm));
  imnResolution.SetValue(value(2, kDotsPerInch));
}

void frmPicture::ShowHint() {
  const auto size = Size();
  if (size) {
    const auto pixels = [&](int page_pixels) {
      return std::to_string(std::lround(page_pixels * size->scale));
    };
    lblHint.SetCaption(pixels(size->width_px) + " x " + pixels(size->height_px) +
                       " pixels as PNG; SVG and PDF have none");
  } else {
    lblHint.SetCaption("20 to 1000 mm, 50 to 1200 dots per inch, 100 million pixels at most");
  }
  cmdSave.SetEnabled(size.has_value());
  cmdCopy.SetEnabled(size.has_value());
}

void frmPicture::Open() {
  if (!CurrentSheet(program_)) return;
  ShowKeptSize();
  ShowModal();
}

void frmPicture::KeepSize() {
  settings_.SetTexts(kSizeSetting, {PlainNumber(imnWidth.Value()), PlainNumber(imnHeight.Value()),
                                    PlainNumber(imnResolution.Value())});
}

PaintPage frmPicture::PaintWindow() {
  const int win_no = CurrentSheet(program_)->win_no;
  return [this, win_no](Page& page) { DrawWindowPicture(program_, win_no, page); };
}

void frmPicture::Copy() {
  ShowKeptSize();
  CopyWindow();
}

void frmPicture::CopyWindow() {
  const auto size = Size();
  if (size && CurrentSheet(program_)) pictures_.Copy(*size, PaintWindow());
}

void frmPicture::cmdSave_Click() {
  const auto size = Size();
  const auto sheet = CurrentSheet(program_);
  if (!size || !sheet) return;
  FileRequest request{sheet->title.substr(0, sheet->title.find('.')) + ".png",
                      "PNG picture (*.png)|*.png|SVG drawing (*.svg)|*.svg|PDF page (*.pdf)|*.pdf"};
  request.overwrite_prompt = true;
  request.caption = Caption();
  const auto choice = program_.ports.dialogs.ChooseFileToSave(request);
  if (!choice) return;
  try {
    pictures_.Write(choice->path, *size, PaintWindow());
  } catch (const Fault&) {
    program_.ports.dialogs.Message("File Write Error");
    return;
  }
  KeepSize();
  Hide();
}

void frmPicture::cmdCopy_Click() {
  CopyWindow();
  KeepSize();
  Hide();
}

}  // namespace dorvane
