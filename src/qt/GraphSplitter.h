// The divider between the graph windows (fraWinHeight): a grip that can be seen, and a double click
// that opens and closes the lower one.
#pragma once

#include <QSplitter>

namespace dorvane {

class GraphSplitter : public QSplitter {
  Q_OBJECT

 public:
  explicit GraphSplitter(QWidget* parent);

  bool LowerIsOpen() const;
  // Opened, the lower window takes a third of the height.
  void OpenLower(bool open);

 signals:
  void LowerToggled(bool open);

 protected:
  QSplitterHandle* createHandle() override;
};

}  // namespace dorvane
