// Shows how far a long operation is in the status line and stops it on Escape.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QProgressBar>

#include "support/Progress.h"

namespace dorvane {

class StatusProgress : public QObject, public Progress {
  Q_OBJECT

 public:
  void SetBar(QProgressBar* bar) { bar_ = bar; }
  void Begin() override;
  void End() override;
  // Lets the window paint and Escape be seen, and nothing else: other keys and clicks are lost.
  void Report(int done, int total) override;
  bool Cancelled() override { return cancelled_; }

 signals:
  void Begun();  // the outermost command
  void Long();   // it has turned out to be a long one
  void Ended(bool cancelled);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static constexpr int kShowAfterMs = 300;  // shorter operations show no bar
  static constexpr int kServeEveryMs = 40;

  QPointer<QProgressBar> bar_;
  QElapsedTimer since_start_;
  QElapsedTimer since_served_;
  int depth_ = 0;  // commands inside of one another
  bool shown_ = false;
  bool cancelled_ = false;
};

}  // namespace dorvane
