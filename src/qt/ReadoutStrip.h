// The strip below the graphs: cursor in all units, count, unit and scale controls, calibration in
// use.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>
#include <QWidget>
#include <array>

#include "qt/Readouts.h"
#include "qt/Session.h"

namespace dorvane {

class ReadoutStrip : public QWidget {
  Q_OBJECT

 public:
  ReadoutStrip(Session& session, QWidget* parent);
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 signals:
  void EntryDone();  // a typed value has been taken

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  static constexpr int kCursorUnits = 5;
  static constexpr int kSources = 2;

  QWidget* CursorFields();
  QWidget* ScaleFields();
  QWidget* CalibrationFields();
  QWidget* StepButton(const char* name, const char* command, const char* icon, const char* tip);
  // Without room for all in one row the calibration stands in a second one.
  void Arrange(bool one_row);
  void Follow();
  void RefreshCursor();
  void RefreshScale();
  void RefreshCalibration();

  Session& session_;
  QGridLayout* grid_;
  QFrame* rule_;
  QWidget* calibration_;
  int whole_width_ = 0;  // that one row needs
  bool one_row_ = true;
  QSpinBox* inumCursorCh_;
  ValueLabel* inumCursorCnt_;
  std::array<ValueLabel*, kCursorUnits> inumCursorDisp_{};
  QComboBox* cboUnitX_;
  QSpinBox* imnSpanCh_;
  ValueLabel* itxtScaleY_;
  QCheckBox* ckbLogScale_;
  QCheckBox* ckbVtAuto_;
  std::array<QRadioButton*, kSources> optEGC_{};
  std::array<ElidedLabel*, kSources> lblEGC_{};
  std::array<ValueLabel*, kSources> txt2Theta_{};
};

}  // namespace dorvane
