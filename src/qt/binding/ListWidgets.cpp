#include "qt/binding/ListWidgets.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QListWidget>
#include <QRadioButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "qt/binding/Mirror.h"
#include "qt/binding/Text.h"

namespace dorvane {
namespace {

QString ElementName(const Control& control, int index) {
  return QString("%1_%2").arg(ToQString(control.Name())).arg(index);
}

QStringList Texts(const std::vector<std::string>& items) {
  QStringList texts;
  for (const auto& item : items) texts << ToQString(item);
  return texts;
}

void FollowOptions(const OptionGroup& control, QButtonGroup* group) {
  group->setExclusive(false);
  for (int i = 0; i < group->buttons().size(); ++i) {
    group->button(i)->setChecked(i == control.Index());
    group->button(i)->setEnabled(control.OptionEnabled(i));
    group->button(i)->setToolTip(ToQString(control.Tip()));
    // The Tab key comes to the option that is on.
    const bool on = i == std::max(control.Index(), 0);
    group->button(i)->setFocusPolicy(on ? Qt::StrongFocus : Qt::ClickFocus);
  }
  group->setExclusive(true);
}

// Ascending.
std::vector<int> SelectedRows(const QListWidget* list) {
  std::vector<int> rows;
  for (const QItemSelectionRange& range : list->selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
  }
  std::sort(rows.begin(), rows.end());
  return rows;
}

// In one step, neighbours as one range: row by row a folder of thousands of files takes seconds.
void SelectRows(QListWidget* list, const std::vector<int>& rows) {
  QItemSelection selection;
  for (std::size_t from = 0, end = 0; from < rows.size(); from = end) {
    for (end = from + 1; end < rows.size() && rows[end] == rows[end - 1] + 1; ++end) {
    }
    selection.select(list->model()->index(rows[from], 0), list->model()->index(rows[end - 1], 0));
  }
  list->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void FollowList(const ListBox& control, QListWidget* list) {
  const QSignalBlocker quiet(list);
  list->setSelectionMode(control.Several() ? QListWidget::ExtendedSelection
                                           : QListWidget::SingleSelection);
  const QStringList items = Texts(control.Items());
  QStringList shown;
  for (int i = 0; i < list->count(); ++i) shown << list->item(i)->text();
  if (shown != items) {
    list->clear();
    list->addItems(items);
  }
  if (!control.Several()) {
    if (list->currentRow() != control.Index()) list->setCurrentRow(control.Index());
    return;
  }
  const std::vector<int> selected = control.Selected();
  if (SelectedRows(list) != selected) SelectRows(list, selected);
}

}  // namespace

QWidget* MakeOptionWidget(OptionGroup& control, QWidget* parent) {
  auto* box = new QWidget(parent);
  auto* group = new QButtonGroup(box);
  auto* column = new QVBoxLayout(box);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(4);
  int index = 0;
  for (const QString& caption : Texts(control.Captions())) {
    auto* option = new QRadioButton(caption, box);
    option->setObjectName(ElementName(control, index));
    group->addButton(option, index++);
    column->addWidget(option);
  }
  Mirror(control, box, [&control, group] { FollowOptions(control, group); });
  QObject::connect(group, &QButtonGroup::idClicked, box, [&control, group](int id) {
    control.SetIndex(id);
    FollowOptions(control, group);
  });
  return box;
}

QWidget* MakeComboWidget(ComboBox& control, QWidget* parent) {
  auto* combo = new QComboBox(parent);
  combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  const auto follow = [&control, combo] {
    const QSignalBlocker quiet(combo);
    const QStringList items = Texts(control.Items());
    QStringList shown;
    for (int i = 0; i < combo->count(); ++i) shown << combo->itemText(i);
    if (shown != items) {
      combo->clear();
      combo->addItems(items);
    }
    const QStringList tips = Texts(control.ItemTips());
    for (int i = 0; i < combo->count(); ++i) {
      combo->setItemData(i, tips.value(i), Qt::ToolTipRole);
    }
    combo->setCurrentIndex(control.Index());
  };
  Mirror(control, combo, follow);
  QObject::connect(combo, &QComboBox::activated, combo, [&control, follow](int index) {
    control.SetIndex(index);
    follow();
  });
  return combo;
}

QWidget* MakeListWidget(ListBox& control, QWidget* parent) {
  auto* list = new QListWidget(parent);
  list->setUniformItemSizes(true);
  Mirror(control, list, [&control, list] { FollowList(control, list); });
  QObject::connect(list, &QListWidget::currentRowChanged, list, [&control](int row) {
    if (!control.Several()) control.SetIndex(row);
  });
  QObject::connect(list, &QListWidget::itemSelectionChanged, list, [&control, list] {
    if (control.Several()) control.SetSelected(SelectedRows(list));
  });
  QObject::connect(list, &QListWidget::itemDoubleClicked, list,
                   [&control] { control.DoubleClick(); });
  for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
    auto* enter = new QShortcut(QKeySequence(key), list);
    enter->setContext(Qt::WidgetShortcut);
    QObject::connect(enter, &QShortcut::activated, list, [&control] { control.DoubleClick(); });
  }
  return list;
}

QWidget* MakeTabWidget(Tabs& control, QWidget* parent) {
  auto* tabs = new QTabWidget(parent);
  int index = 0;
  for (const QString& caption : Texts(control.Captions())) {
    auto* page = new QWidget(tabs);
    page->setObjectName(ElementName(control, index++));
    tabs->addTab(page, caption);
  }
  Mirror(control, tabs, [&control, tabs] {
    const QSignalBlocker quiet(tabs);
    tabs->setCurrentIndex(control.Index());
  });
  QObject::connect(tabs, &QTabWidget::currentChanged, tabs,
                   [&control](int chosen) { control.SetIndex(chosen); });
  return tabs;
}

}  // namespace dorvane
