#include "forms/frmDialogColor.h"

#include "qt/binding/Layouts.h"
#include "qt/views/Parts.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

constexpr int kInRow = 8;
constexpr QSize kPatch(34, 30);
constexpr QSize kSample(96, 96);
constexpr int kSliderWidth = 180;
constexpr int kColumnGap = 24;

template <class Patches>
QGridLayout* PatchGrid(FormWindow& window, const Patches& patches) {
  auto* grid = new QGridLayout;
  grid->setSpacing(0);
  for (int i = 0; i < patches.Size(); ++i) {
    QWidget* patch = window.Of(patches[i]);
    patch->setFixedSize(kPatch);
    grid->addWidget(patch, i / kInRow, i % kInRow);
  }
  return grid;
}

QVBoxLayout* Palettes(frmDialogColor& form, FormWindow& window) {
  QVBoxLayout* places = InnerColumn(window.Of(form.fraRegist));
  places->addLayout(PatchGrid(window, form.picRegist));
  places->addLayout(ButtonRow(window, {&form.cmdSet}));
  auto* palette = new QHBoxLayout;
  palette->setContentsMargins(kGap, 0, kGap, 0);  // in line with the places
  palette->addLayout(PatchGrid(window, form.picColor));
  palette->addStretch();
  auto* column = new QVBoxLayout;
  column->setSpacing(kGap);
  column->addLayout(palette);
  column->addWidget(window.Of(form.fraRegist));
  column->addStretch();
  return column;
}

QGridLayout* Sliders(frmDialogColor& form, FormWindow& window) {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(kGap);
  grid->setVerticalSpacing(kGap);
  const std::pair<Slider*, Label*> rows[] = {{&form.vsbRed, &form.lblRed},
                                             {&form.vsbGreen, &form.lblGreen},
                                             {&form.vsbBlue, &form.lblBlue}};
  int row = 0;
  for (const auto& [slider, value] : rows) {
    auto* digits = window.As<QLabel>(*value);
    digits->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    digits->setMinimumWidth(digits->fontMetrics().horizontalAdvance("000"));
    window.Of(*slider)->setMinimumWidth(kSliderWidth);
    grid->addWidget(window.CaptionOf(*slider), row, 0);
    grid->addWidget(window.Of(*slider), row, 1);
    grid->addWidget(digits, row++, 2);
  }
  grid->setColumnStretch(1, 1);
  return grid;
}

QVBoxLayout* Mixer(frmDialogColor& form, FormWindow& window) {
  QWidget* sample = window.Of(form.picSampl);
  sample->setMinimumSize(kSample);
  sample->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  sample->setFocusPolicy(Qt::NoFocus);
  sample->setAttribute(Qt::WA_TransparentForMouseEvents);
  auto* column = new QVBoxLayout;
  column->setSpacing(kGap);
  column->addWidget(sample, 1);
  column->addLayout(Sliders(form, window));
  column->addLayout(ButtonRow(window, {&form.cmdOther}));
  return column;
}

}  // namespace

void LayOut(frmDialogColor& form, FormWindow& window) {
  auto* halves = new QHBoxLayout;
  halves->setSpacing(kColumnGap);
  halves->addLayout(Palettes(form, window));
  halves->addLayout(Mixer(form, window), 1);
  QVBoxLayout* column = WindowColumn(window);
  column->addLayout(halves);
  column->addSpacing(kGap);
  column->addLayout(ButtonRow(window, {&form.cmdOk, &form.cmdCansel}));
  window.SetDefaultButton(form.cmdOk);
  window.SetCancelButton(form.cmdCansel);
  window.SetFirstFocus(form.vsbRed);
}

}  // namespace dorvane
