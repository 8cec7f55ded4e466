#include "qt/ThemeIcon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

namespace dorvane {
namespace {

class SvgTextColourEngine : public QIconEngine {
 public:
  explicit SvgTextColourEngine(QByteArray svg) : svg_(std::move(svg)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const bool disabled = mode == QIcon::Disabled;
    const QColor ink = QGuiApplication::palette().color(
        disabled ? QPalette::Disabled : QPalette::Active, QPalette::WindowText);
    QByteArray coloured = svg_;
    coloured.replace("currentColor", ink.name().toLatin1());
    QSvgRenderer(coloured).render(painter, rect);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap out(size);
    out.fill(Qt::transparent);
    QPainter painter(&out);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return out;
  }

  QIconEngine* clone() const override { return new SvgTextColourEngine(svg_); }

 private:
  QByteArray svg_;
};

}  // namespace

QIcon ThemeIcon(const QString& name) {
  QFile file(":/icons/" + name + ".svg");
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QIcon(new SvgTextColourEngine(file.readAll()));
}

}  // namespace dorvane
