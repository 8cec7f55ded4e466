#include "qt/surface/Picture.h"

#include <QBuffer>
#include <QByteArray>
#include <QGuiApplication>
#include <QImage>
#include <QLoggingCategory>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <cmath>
#include <cstring>

#include "qt/surface/Fonts.h"
#include "qt/surface/PainterPage.h"
#include "support/Fault.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr double kPixelsPerInch = 96;
constexpr double kPointsPerInch = 72;
constexpr double kMetresPerInch = 0.0254;
constexpr int kPdfDotsPerInch = 1200;
constexpr int kLongestSide = 20000;
// Of 0..100: the first step of compression. Higher ones cost several times as long for a few per
// cent.
constexpr int kFastPng = 80;

// `scale`: device pixels per pixel of the page, where the device doesn't know itself.
void PaintOn(QPaintDevice& device, const PictureSize& size, double scale, const PaintPage& paint) {
  QPainter painter;
  if (!painter.begin(&device)) throw Fault(FaultCode::BadArgument);
  painter.scale(scale, scale);
  PainterPage page(painter, size);
  paint(page);
  painter.end();
}

void RenderPng(QBuffer& out, const PictureSize& size, const PaintPage& paint) {
  QImage image(static_cast<int>(std::lround(size.width_px * size.scale)),
               static_cast<int>(std::lround(size.height_px * size.scale)), QImage::Format_RGB32);
  if (image.isNull()) throw Fault(FaultCode::BadArgument);
  image.fill(Qt::white);
  const int dots_per_metre =
      static_cast<int>(std::lround(kPixelsPerInch * size.scale / kMetresPerInch));
  image.setDotsPerMeterX(dots_per_metre);
  image.setDotsPerMeterY(dots_per_metre);
  PaintOn(image, size, size.scale, paint);
  if (!image.save(&out, "PNG", kFastPng)) throw Fault(FaultCode::FileFailed);
}

void RenderSvg(QBuffer& out, const PictureSize& size, const PaintPage& paint) {
  QSvgGenerator generator;
  generator.setOutputDevice(&out);
  generator.setResolution(static_cast<int>(kPixelsPerInch));
  generator.setSize(QSize(size.width_px, size.height_px));
  generator.setViewBox(QRect(0, 0, size.width_px, size.height_px));
  PaintOn(generator, size, 1, paint);
}

void RenderPdf(QBuffer& out, const PictureSize& sheet, int margin_px, const PaintPages& paint) {
  QPdfWriter writer(&out);
  writer.setResolution(kPdfDotsPerInch);
  writer.setPageSize(
      QPageSize(QSizeF(sheet.width_px, sheet.height_px) * (kPointsPerInch / kPixelsPerInch),
                QPageSize::Point, QString(), QPageSize::ExactMatch));
  writer.setPageMargins(QMarginsF());
  QPainter painter;
  if (!painter.begin(&writer)) throw Fault(FaultCode::BadArgument);
  painter.scale(kPdfDotsPerInch / kPixelsPerInch, kPdfDotsPerInch / kPixelsPerInch);
  painter.translate(margin_px, margin_px);
  PainterPage page(painter, {sheet.width_px - 2 * margin_px, sheet.height_px - 2 * margin_px, 1});
  for (int page_no = 0; paint(page, page_no); ++page_no) writer.newPage();
  painter.end();
}

void CheckSize(const PictureSize& size) {
  const auto fits = [&](int side) {
    const double scaled = side * size.scale;
    return side >= 1 && side <= kLongestSide && scaled >= 1 && scaled <= kLongestSide;
  };
  if (!fits(size.width_px) || !fits(size.height_px)) {
    throw Fault(FaultCode::BadArgument, "size of the picture");
  }
}

ByteVector BytesOf(const QByteArray& bytes) {
  ByteVector out(static_cast<std::size_t>(bytes.size()));
  std::memcpy(out.data(), bytes.constData(), out.size());
  return out;
}

}  // namespace

struct GuiSession::Impl {
  Impl(int& argc, char** argv) : application(argc, argv) {
    QGuiApplication::setFont(ProgramFont(QGuiApplication::font()));
  }
  QGuiApplication application;
};

GuiSession::GuiSession(int& argc, char** argv) {
  if (QCoreApplication::instance() != nullptr) return;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // A desktop theme would be loaded for nothing.
  qunsetenv("QT_QPA_PLATFORMTHEME");
  // Nor is a directory for the sockets of a desktop missed.
  QLoggingCategory::setFilterRules("default.warning=false");
  impl_ = std::make_unique<Impl>(argc, argv);
  QLoggingCategory::setFilterRules(QString());
}

GuiSession::~GuiSession() = default;

PictureFormat PictureFormatOf(const std::string& path) {
  const auto dot = path.rfind('.');
  const std::string extension =
      dot == std::string::npos ? std::string() : LowerAscii(std::string_view(path).substr(dot));
  if (extension == ".png") return PictureFormat::Png;
  if (extension == ".svg") return PictureFormat::Svg;
  if (extension == ".pdf") return PictureFormat::Pdf;
  throw Fault(FaultCode::BadArgument, "pictures are .png, .svg or .pdf");
}

ByteVector RenderPicture(PictureFormat format, const PictureSize& size, const PaintPage& paint) {
  CheckSize(size);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  switch (format) {
    case PictureFormat::Png:
      RenderPng(buffer, size, paint);
      break;
    case PictureFormat::Svg:
      RenderSvg(buffer, size, paint);
      break;
    case PictureFormat::Pdf:
      RenderPdf(buffer, size, 0, [&](Page& page, int) {
        paint(page);
        return false;
      });
      break;
  }
  buffer.close();
  return BytesOf(bytes);
}

ByteVector RenderDocument(const PictureSize& sheet, int margin_px, const PaintPages& paint) {
  CheckSize(sheet);
  CheckSize({sheet.width_px - 2 * margin_px, sheet.height_px - 2 * margin_px, 1});
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  RenderPdf(buffer, sheet, margin_px, paint);
  buffer.close();
  return BytesOf(bytes);
}

void WritePicture(FileLayer& files, const std::string& path, const PictureSize& size,
                  const PaintPage& paint) {
  const ByteVector bytes = RenderPicture(PictureFormatOf(path), size, paint);
  ReplaceFile(files, path, bytes);
}

}  // namespace dorvane
