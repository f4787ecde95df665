#include "ui/charts/ChartsPicture.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <algorithm>

#include "drawing/Fonts.h"
#include "drawing/Palette.h"
#include "ui/charts/ChartsView.h"

namespace sanovia {
namespace {

constexpr int kPictureMargin = 20;
constexpr int kPictureTitlePixels = 20;
constexpr int kPictureDetailPixels = 14;
constexpr int kPictureTitleHeight = 28;
constexpr int kPictureDetailHeight = 20;
constexpr int kPictureGap = 16;  // below the heading
constexpr int kPictureScale = 2;
// One point of the picture is one of the paper.
constexpr int kPointsPerInch = 72;

const QString kPng = QStringLiteral("png");
const QString kSvg = QStringLiteral("svg");
const QString kPdf = QStringLiteral("pdf");

void paintHeading(QPainter& painter, const PicturePlan& plan, const PictureHeading& heading) {
  painter.setPen(palette::red);
  painter.setFont(fonts::system(kPictureTitlePixels));
  painter.drawText(plan.title, Qt::AlignLeft | Qt::AlignVCenter, heading.title);
  painter.setPen(palette::teal);
  painter.setFont(fonts::system(kPictureDetailPixels));
  painter.drawText(plan.detail, Qt::AlignLeft | Qt::AlignVCenter, heading.detail);
}

void paintPicture(QPainter& painter, const PicturePlan& plan, ChartsView& charts,
                  const PictureHeading& heading) {
  painter.fillRect(QRect(QPoint(), plan.size), palette::white);
  paintHeading(painter, plan, heading);
  for (const PicturePart& part : plan.parts)
    charts.render(&painter, {0, part.top}, QRegion(part.source), QWidget::DrawChildren);
}

QByteArray pngOf(const QImage& image) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "PNG");
  return bytes;
}

QImage blankImage(QSize size) {
  QImage image(size * kPictureScale, QImage::Format_RGB32);
  image.setDevicePixelRatio(kPictureScale);
  return image;
}

// Hands a painter of the size on to paint, and answers what the device has written.
template <class Device, class Paint>
QByteArray written(Device& device, QBuffer& buffer, Paint paint) {
  QPainter painter(&device);
  paint(painter);
  painter.end();
  return buffer.data();
}

}  // namespace

bool hasOpenChart(const ColumnPlan& column) {
  return std::ranges::any_of(column.places, &PropertyPlace::isOn);
}

PicturePlan picturePlan(const ColumnPlan& column, int width) {
  PicturePlan plan;
  const int textWidth = width - 2 * kPictureMargin;
  plan.title = {kPictureMargin, kPictureMargin, textWidth, kPictureTitleHeight};
  plan.detail = {kPictureMargin, plan.title.bottom() + 1, textWidth, kPictureDetailHeight};
  int top = plan.detail.bottom() + 1 + kPictureGap;
  for (const PropertyPlace& place : column.places) {
    if (!place.isOn) continue;
    const QRect source =
        QRectF(0, place.buttonY, width, place.chartY + place.chartHeight - place.buttonY).toAlignedRect();
    plan.parts.push_back({top, source});
    top += source.height();
  }
  plan.size = {width, top};
  return plan;
}

const QStringList& pictureEndings() {
  static const QStringList endings{kPng, kSvg, kPdf};
  return endings;
}

QByteArray pictureBytes(ChartsView& charts, const PictureHeading& heading, const QString& ending) {
  const PicturePlan plan = picturePlan(charts.columnPlan(), charts.width());
  const auto paint = [&](QPainter& painter) { paintPicture(painter, plan, charts, heading); };
  if (ending == kPng) {
    QImage image = blankImage(plan.size);
    QPainter painter(&image);
    paint(painter);
    painter.end();
    return pngOf(image);
  }
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  if (ending == kSvg) {
    QSvgGenerator svg;
    svg.setOutputDevice(&buffer);
    svg.setTitle(heading.title);
    svg.setDescription(heading.detail);
    svg.setSize(plan.size);
    svg.setViewBox(QRect(QPoint(), plan.size));
    return written(svg, buffer, paint);
  }
  if (ending == kPdf) {
    QPdfWriter pdf(&buffer);
    pdf.setTitle(heading.title + QStringLiteral(", ") + heading.detail);
    pdf.setResolution(kPointsPerInch);
    pdf.setPageLayout({QPageSize(QSizeF(plan.size), QPageSize::Point, {}, QPageSize::ExactMatch),
                       QPageLayout::Portrait, QMarginsF()});
    return written(pdf, buffer, paint);
  }
  return {};
}

QImage columnImage(ChartsView& charts) {
  QImage image = blankImage(charts.size());
  QPainter painter(&image);
  charts.render(&painter);
  return image;
}

}  // namespace sanovia
