#include "qt/HelpBoxes.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>

#include "qt/Keys.h"

namespace dorvane {
namespace {

struct MouseRow {
  const char* shown;
  const char* what;
};
constexpr MouseRow kMouse[] = {
    {"Click", "Cursor to the channel under the pointer"},
    {"Drag", "Moves the cursor; with the area cursor on, marks a range or moves its edge"},
    {"Wheel", "Zooms about the pointer"},
    {"Shift+Wheel", "Scrolls"},
    {"Wheel on the count axis", "Larger or smaller curves"},
    {"Double click on an axis", "Restores the full range"},
    {"Escape", "Stops a long operation"},
};

void AddRow(QTableWidget& table, const QString& keys, const QString& what) {
  const int row = table.rowCount();
  table.insertRow(row);
  table.setItem(row, 0, new QTableWidgetItem(keys));
  table.setItem(row, 1, new QTableWidgetItem(what));
}

}  // namespace

void ShowHelp(Session& session) {
  session.dialogs.Message("Please read 'ReadMe.txt'");
}

void ShowVersion(Session& session) {
  session.dialogs.CaptionedMessage("Dorvane Ver 1.2004.01.05",
                                   "Dorvane\nEnergy-dispersive X-ray diffraction: from a spectrum "
                                   "to lattice and pressure");
}

void ShowKeys(QWidget* parent, const Actions& actions) {
  QDialog dialog(parent);
  dialog.setObjectName("frmKeys");
  dialog.setWindowTitle("Keys and mouse");
  auto* table = new QTableWidget(0, 2, &dialog);
  table->setHorizontalHeaderLabels({"Key", "Action"});
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setSelectionMode(QAbstractItemView::NoSelection);
  table->setFocusPolicy(Qt::NoFocus);
  table->setShowGrid(false);
  table->setAlternatingRowColors(true);
  table->verticalHeader()->hide();
  table->verticalHeader()->setDefaultSectionSize(24);
  table->horizontalHeader()->setStretchLastSection(true);
  table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  for (const QAction* action : actions.WithKeys()) {
    AddRow(*table, action->shortcut().toString(QKeySequence::NativeText),
           QString(action->text()).remove('&').remove("..."));
  }
  for (const KeyRow& row : KeyTable()) AddRow(*table, row.shown, row.what);
  for (const MouseRow& row : kMouse) AddRow(*table, row.shown, row.what);
  table->resizeColumnToContents(0);

  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  auto* column = new QVBoxLayout(&dialog);
  column->setContentsMargins(12, 12, 12, 12);
  column->addWidget(table);
  column->addWidget(buttons);
  dialog.resize(560, 560);
  dialog.exec();
}

}  // namespace dorvane
