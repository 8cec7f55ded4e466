#include "qt/views/Parts.h"

#include <QLineEdit>
#include <algorithm>

#include "qt/binding/Layouts.h"

namespace dorvane {
namespace {

constexpr int kReadOutPadding = 6;
constexpr int kEntryPadding = 16;
constexpr int kSectionGap = 12;  // on both sides of a rule
constexpr int kRowGap = 4;
constexpr int kHintGap = 2;
constexpr QMargins kMargins(12, 4, 12, 4);

}  // namespace

QWidget* ReadOut(FormWindow& window, const Control& control, const QString& widest) {
  auto* edit = window.As<QLineEdit>(control);
  edit->setFrame(false);
  edit->setAlignment(Qt::AlignRight);
  edit->setFocusPolicy(Qt::ClickFocus);
  QPalette quiet = edit->palette();
  quiet.setColor(QPalette::Base, Qt::transparent);
  edit->setPalette(quiet);
  edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(widest) + kReadOutPadding);
  return edit;
}

QWidget* Entry(FormWindow& window, const Control& control, const QString& widest) {
  auto* edit = window.As<QLineEdit>(control);
  edit->setAlignment(Qt::AlignRight);
  edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(widest) + kEntryPadding);
  return edit;
}

QLabel* SmallCaption(const QString& text, Qt::Alignment alignment, QWidget* parent) {
  auto* caption = new QLabel(text, parent);
  caption->setFont(SmallFont(caption->font()));
  caption->setAlignment(alignment);
  caption->setForegroundRole(QPalette::PlaceholderText);
  return caption;
}

QFont SmallFont(const QFont& base) {
  QFont small = base;
  small.setPointSizeF(base.pointSizeF() * 0.9);
  return small;
}

QFrame* VerticalRule(QWidget* parent) {
  auto* rule = new QFrame(parent);
  rule->setFrameShape(QFrame::VLine);
  rule->setFrameShadow(QFrame::Plain);
  rule->setForegroundRole(QPalette::Mid);
  return rule;
}

HintedFields::HintedFields(FormWindow& window) : window_(window), grid_(new QGridLayout) {
  grid_->setHorizontalSpacing(kGap);
  grid_->setVerticalSpacing(kGap);
  grid_->setColumnStretch(1, 1);
}

void HintedFields::Add(Control& control, QWidget* field, const Label* hint, QWidget* behind) {
  QLabel* caption = window_.CaptionOf(control);
  caption->setMinimumHeight(field->sizeHint().height());
  auto* line = new QHBoxLayout;
  line->setSpacing(kGap);
  line->addWidget(field);
  if (behind != nullptr) line->addWidget(behind);
  line->addStretch();
  auto* cell = new QVBoxLayout;
  cell->setSpacing(kHintGap);
  cell->addLayout(line);
  if (hint != nullptr) {
    QWidget* words = window_.Of(*hint);
    words->setFont(SmallFont(words->font()));
    words->setForegroundRole(QPalette::PlaceholderText);
    cell->addWidget(words);
  }
  const int row = grid_->rowCount();
  grid_->addWidget(caption, row, 0, Qt::AlignTop);
  grid_->addLayout(cell, row, 1);
}

void HintedFields::AddBelow(QWidget* widget) {
  grid_->addWidget(widget, grid_->rowCount(), 1);
}

SectionRow::SectionRow(const QList<QWidget*>& sections, QWidget* parent)
    : QWidget(parent), sections_(sections) {
  for (QWidget* section : sections_) section->setParent(this);
  for (qsizetype i = 1; i < sections_.size(); ++i) rules_ << VerticalRule(this);
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

QSize SectionRow::minimumSizeHint() const {
  int widest = 0;
  for (const QWidget* section : sections_)
    widest = std::max(widest, section->minimumSizeHint().width());
  const int least = widest + kMargins.left() + kMargins.right();
  return {least, Arrange(std::max(width(), least), false)};
}

// A row takes as many sections as fit in their least width; its last one takes the rest.
int SectionRow::Arrange(int width, bool place) const {
  const int right = width - kMargins.right();
  int y = kMargins.top();
  for (qsizetype first = 0; first < sections_.size();) {
    int x = kMargins.left();
    int height = 0;
    qsizetype next = first;
    for (; next < sections_.size(); ++next) {
      const QSize least = sections_[next]->minimumSizeHint();
      const int from = next == first ? x : x + 2 * kSectionGap;
      if (next > first && from + least.width() > right) break;
      x = from + least.width();
      height = std::max(height, least.height());
    }
    if (place) {
      int left = kMargins.left();
      for (qsizetype i = first; i < next; ++i) {
        const int least = sections_[i]->minimumSizeHint().width();
        const int wide = i + 1 == next ? right - left : least;
        sections_[i]->setGeometry(left, y, wide, height);
        if (i > 0) rules_[i - 1]->setVisible(i > first);
        left += wide + kSectionGap;
        if (i + 1 < next) rules_[i]->setGeometry(left, y, 1, height);
        left += kSectionGap;
      }
    }
    y += height + kRowGap;
    first = next;
  }
  return y - kRowGap + kMargins.bottom();
}

void SectionRow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Arrange(width(), true);
  updateGeometry();
}

}  // namespace dorvane
