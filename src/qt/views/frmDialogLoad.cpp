#include "forms/frmDialogLoad.h"

#include "qt/binding/LabelView.h"
#include "qt/binding/Layouts.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

constexpr QSize kStartSize(720, 480);
constexpr int kLeastListHeight = 160;
constexpr int kFolderShare = 2;
constexpr int kFileShare = 3;

// A list below its caption.
QVBoxLayout* List(FormWindow& window, ListBox& list) {
  auto* column = new QVBoxLayout;
  column->setSpacing(kGap / 2);
  column->addWidget(window.CaptionOf(list));
  window.Of(list)->setMinimumHeight(kLeastListHeight);
  column->addWidget(window.Of(list));
  return column;
}

// Drive and path of what the lists show.
QHBoxLayout* Place(frmDialogLoad& form, FormWindow& window) {
  auto* path = window.As<LabelView>(form.lblDirectory);
  path->SetElided();
  auto* row = RowOf({window.CaptionOf(form.drvDrive), window.Of(form.drvDrive)});
  row->addWidget(path, 1);
  return row;
}

QGridLayout* Name(frmDialogLoad& form, FormWindow& window) {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(kGap);
  grid->setVerticalSpacing(kGap);
  grid->addWidget(window.CaptionOf(form.txtSelFile), 0, 0);
  grid->addWidget(window.Of(form.txtSelFile), 0, 1);
  grid->addWidget(window.CaptionOf(form.cmbExtName), 1, 0);
  grid->addWidget(window.Of(form.cmbExtName), 1, 1);
  grid->setColumnStretch(1, 1);
  return grid;
}

QWidget* GraphChoice(frmDialogLoad& form, FormWindow& window) {
  QWidget* frame = window.Of(form.frmSelWin);
  auto* row = new QHBoxLayout(frame);
  row->setSpacing(2 * kGap);
  row->addWidget(window.Of(form.cboGSel));
  row->addWidget(window.Of(form.optGSel));
  row->addStretch();
  return frame;
}

}  // namespace

void LayOut(frmDialogLoad& form, FormWindow& window) {
  auto* lists = new QHBoxLayout;
  lists->setSpacing(kGap);
  lists->addLayout(List(window, form.dirDirectory), kFolderShare);
  lists->addLayout(List(window, form.filFiles), kFileShare);

  QHBoxLayout* buttons = ButtonRow(window, {&form.cmdSet, &form.cmdCancel});
  buttons->insertWidget(0, window.Of(form.cmdMkDir));
  buttons->insertWidget(1, window.Of(form.cmdDetails));

  QVBoxLayout* column = WindowColumn(window);
  column->addLayout(Place(form, window));
  column->addLayout(lists, 1);
  column->addLayout(Name(form, window));
  column->addWidget(GraphChoice(form, window));
  column->addLayout(buttons);
  window.SetTabOrder({window.Of(form.drvDrive), window.Of(form.dirDirectory),
                      window.Of(form.filFiles), window.Of(form.txtSelFile),
                      window.Of(form.cmbExtName), window.Of(form.frmSelWin), window.Of(form.cmdSet),
                      window.Of(form.cmdCancel), window.Of(form.cmdMkDir),
                      window.Of(form.cmdDetails)});
  window.SetDefaultButton(form.cmdSet);
  window.SetCancelButton(form.cmdCancel);
  window.SetFirstFocus(form.filFiles);
  window.resize(kStartSize);
}

}  // namespace dorvane
