#include "qt/binding/WidgetMaker.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QTimer>

#include "forms/Controls.h"
#include "forms/Grid.h"
#include "forms/PictureBox.h"
#include "qt/binding/ColorPatchView.h"
#include "qt/binding/GridView.h"
#include "qt/binding/LabelView.h"
#include "qt/binding/ListWidgets.h"
#include "qt/binding/Mirror.h"
#include "qt/binding/PictureView.h"
#include "qt/binding/RangeWidgets.h"
#include "qt/binding/TabularFont.h"
#include "qt/binding/Text.h"
#include "qt/binding/TextWidgets.h"
#include "qt/binding/ToggleView.h"

namespace dorvane {
namespace {

// Without a caption a frame holds its controls together and is not seen.
class FrameView : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent* event) override {
    if (!title().isEmpty()) QGroupBox::paintEvent(event);
  }
};

}  // namespace

WidgetMaker::WidgetMaker(QMainWindow& window, QWidget* holder, IconOfKey icon)
    : window_(window), holder_(holder), icon_(std::move(icon)) {}

QObject* WidgetMaker::Make(Control& control) {
  made_ = nullptr;
  control.Accept(*this);
  return made_;
}

void WidgetMaker::Keep(Control& control, QWidget* widget) {
  MirrorState(control, widget);
  made_ = widget;
}

void WidgetMaker::Visit(Button& control) {
  auto* button = new QPushButton(holder_);
  button->setAutoDefault(false);
  Mirror(control, button, [&control, button] { button->setText(ToQString(control.Caption())); });
  // The press takes the focus first, by whatever way it came: a box that is left hands its text
  // over, and one that refuses to be left keeps the press from counting.
  QObject::connect(button, &QPushButton::clicked, button, [&control, button] {
    button->setFocus(Qt::OtherFocusReason);
    if (button->hasFocus() || !button->isActiveWindow()) control.Press();
  });
  Keep(control, button);
}

void WidgetMaker::Visit(CheckBox& control) {
  auto* box = new QCheckBox(holder_);
  const auto follow = [&control, box] {
    box->setText(ToQString(control.Caption()));
    box->setChecked(control.Checked());
  };
  Mirror(control, box, follow);
  QObject::connect(box, &QCheckBox::clicked, box, [&control, follow](bool checked) {
    control.SetChecked(checked);
    follow();
  });
  Keep(control, box);
}

void WidgetMaker::Visit(ColorPatch& control) {
  Keep(control, new ColorPatchView(control, holder_));
}

void WidgetMaker::Visit(ComboBox& control) {
  Keep(control, MakeComboWidget(control, holder_));
}

void WidgetMaker::Visit(Frame& control) {
  auto* box = new FrameView(holder_);
  Mirror(control, box, [&control, box] { box->setTitle(ToQString(control.Caption())); });
  Keep(control, box);
}

void WidgetMaker::Visit(Grid& control) {
  Keep(control, new GridView(control, holder_));
}

void WidgetMaker::Visit(Label& control) {
  auto* label = new LabelView(holder_);
  label->setTextFormat(Qt::PlainText);
  label->setFont(TabularFont(label->font()));
  Mirror(control, label, [&control, label] {
    label->setText(ToQString(control.Caption()));
    label->SetWarning(control.Warning());
  });
  Keep(control, label);
}

void WidgetMaker::Visit(ListBox& control) {
  Keep(control, MakeListWidget(control, holder_));
}

void WidgetMaker::Visit(MenuItem& control) {
  const auto parent = menus_.find(control.Parent());
  QAction* above = parent == menus_.end() ? nullptr : parent->second;
  QAction* action = MakeMenuAction(control, above, window_);
  menus_[&control] = action;
  made_ = action;
}

void WidgetMaker::Visit(NumberBox& control) {
  Keep(control, MakeNumberWidget(control, holder_));
}

void WidgetMaker::Visit(OptionGroup& control) {
  Keep(control, MakeOptionWidget(control, holder_));
}

void WidgetMaker::Visit(PictureBox& control) {
  Keep(control, new PictureView(control, holder_));
}

void WidgetMaker::Visit(ScrollBar& control) {
  Keep(control, MakeScrollWidget(control, holder_));
}

void WidgetMaker::Visit(Slider& control) {
  Keep(control, MakeSliderWidget(control, holder_));
}

void WidgetMaker::Visit(Splitter& control) {
  Keep(control, new SplitterView(control, holder_));
}

void WidgetMaker::Visit(Tabs& control) {
  Keep(control, MakeTabWidget(control, holder_));
}

void WidgetMaker::Visit(TextBox& control) {
  Keep(control, MakeTextWidget(control, holder_));
}

void WidgetMaker::Visit(Timer& control) {
  auto* timer = new QTimer(&window_);
  timer->setObjectName(ToQString(control.Name()));
  timer->setInterval(control.IntervalMs());
  Mirror(control, timer, [&control, timer] {
    if (control.Enabled() == timer->isActive()) return;
    if (control.Enabled()) {
      timer->start();
    } else {
      timer->stop();
    }
  });
  QObject::connect(timer, &QTimer::timeout, timer, [&control] { control.Tick(); });
  made_ = timer;
}

void WidgetMaker::Visit(ToggleButton& control) {
  auto* button = new ToggleView(holder_);
  const auto follow = [&control, button] {
    button->setText(ToQString(control.Caption()));
    button->setChecked(control.Pressed());
  };
  Mirror(control, button, follow);
  QObject::connect(button, &ToggleView::clicked, button, [&control, follow](bool checked) {
    control.SetPressed(checked);
    follow();
  });
  Keep(control, button);
}

void WidgetMaker::Visit(ToolBar& control) {
  Keep(control, MakeToolBar(control, icon_, holder_));
}

void WidgetMaker::Visit(UpDown& control) {
  Keep(control, new UpDownView(control, holder_));
}

}  // namespace dorvane
