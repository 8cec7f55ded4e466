#include "qt/QtPictures.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>

#include "qt/surface/Picture.h"

namespace dorvane {
namespace {

QByteArray Rendered(PictureFormat format, const PictureSize& size, const PaintPage& paint) {
  const ByteVector bytes = RenderPicture(format, size, paint);
  return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

}  // namespace

void QtPictures::Write(const std::string& path, const PictureSize& size, const PaintPage& paint) {
  WritePicture(files_, path, size, paint);
}

void QtPictures::Copy(const PictureSize& size, const PaintPage& paint) {
  auto* data = new QMimeData;  // the clipboard owns it
  data->setImageData(QImage::fromData(Rendered(PictureFormat::Png, size, paint), "PNG"));
  data->setData("image/svg+xml", Rendered(PictureFormat::Svg, size, paint));
  QGuiApplication::clipboard()->setMimeData(data);
}

}  // namespace dorvane
