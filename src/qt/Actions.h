// The actions of the main window: one table of texts, keys and commands, and the menus and tool
// bars made of them.
#pragma once

#include <QAction>
#include <QList>
#include <QMainWindow>
#include <QMenu>

#include "qt/Session.h"

namespace dorvane {

class Actions : public QObject {
  Q_OBJECT

 public:
  // Makes the actions as children of the window, named like the system's menu entries.
  Actions(Session& session, QMainWindow& window);

  void FillMenuBar();
  void AddToolBars();
  // Check marks and captions from the view state.
  void Refresh();

  // An action by its name; it exists.
  QAction* Of(const char* name) const;
  // Those with a key, in menu order.
  QList<QAction*> WithKeys() const;

 private:
  void MakeUnitActions();
  void AddTo(QWidget& bar, const char* names) const;

  Session& session_;
  QMainWindow& window_;
  QList<QAction*> actions_;
  QMenu* unit_menu_ = nullptr;
};

}  // namespace dorvane
