#include "summary/SummaryObjects.h"

#include <QBuffer>
#include <QPainter>
#include <QSvgGenerator>

#include <utility>

#include "drawing/Palette.h"

namespace sanovia {
namespace {

constexpr double kFineLine = 0.5;
constexpr double kCurveLine = 0.7;
constexpr double kRangeLine = 0.9;
constexpr double kHatchLine = 0.6;
constexpr int kSvgDotsPerInch = 72;
constexpr QLatin1String kObjectPrefix("summary-");

QPen strokeOf(QColor color, double width) { return {color, width, Qt::SolidLine, Qt::FlatCap}; }

void paintTexts(QPainter& painter, const std::vector<TextMark>& texts, const PaperText& paper) {
  for (const TextMark& mark : texts) {
    painter.setFont(paper.font(mark.font));
    painter.setPen(mark.color);
    painter.drawText(mark.at + QPointF(0, paper.ascent(mark.font)), mark.text);
  }
}

void paintPoints(QPainter& painter, const SmallChart& chart) {
  for (const SmallChart::Point& point : chart.points) {
    painter.setPen(point.isOut ? strokeOf(palette::red, kCurveLine) : QPen(Qt::NoPen));
    painter.setBrush(point.isOut ? palette::white : palette::teal);
    painter.drawEllipse(point.at, chart.radius, chart.radius);
  }
}

void paint(QPainter& painter, const SmallChart& chart, const PaperText& paper) {
  if (chart.norm) {
    painter.fillRect(*chart.norm & chart.plot, palette::paleTeal);
    painter.setPen(strokeOf(palette::lightGray, kFineLine));
    for (const double y : {chart.norm->top(), chart.norm->bottom()})
      if (y >= chart.plot.top() && y <= chart.plot.bottom())
        painter.drawLine(QLineF(chart.plot.left(), y, chart.plot.right(), y));
  }
  painter.setPen(strokeOf(palette::darkGray, kFineLine));
  painter.drawLine(QLineF(chart.plot.bottomLeft(), chart.plot.bottomRight()));
  painter.drawLine(QLineF(chart.plot.topLeft(), chart.plot.bottomLeft()));
  for (const QLineF& mark : chart.marks) painter.drawLine(mark);
  painter.setPen(strokeOf(palette::lightGray, kRangeLine));
  for (const QLineF& range : chart.ranges) painter.drawLine(range);
  QPolygonF line;
  for (const SmallChart::Point& point : chart.points) line.append(point.at);
  painter.setPen(strokeOf(palette::teal, kCurveLine));
  painter.drawPolyline(line);
  paintPoints(painter, chart);
  paintTexts(painter, chart.texts, paper);
}

void paint(QPainter& painter, const ShareBar& bar, const PaperText& paper) {
  painter.fillRect(bar.frame, palette::white);
  painter.setPen(strokeOf(palette::darkGray, kHatchLine));
  for (const QLineF& line : bar.hatch) painter.drawLine(line);
  if (bar.above) painter.fillRect(*bar.above, palette::darkRed);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(strokeOf(palette::darkGray, kFineLine));
  painter.drawRect(bar.frame);
  paintTexts(painter, bar.texts, paper);
}

void paint(QPainter& painter, const RuledLines& lines, const PaperText& /*paper*/) {
  painter.setPen(strokeOf(palette::lightGray, kFineLine));
  const double pitch = lines.size.height() / lines.count;
  for (int i = 1; i <= lines.count; ++i) {
    const double y = pitch * i - kFineLine;
    painter.drawLine(QLineF(0, y, lines.size.width(), y));
  }
}

void paintObject(QPainter& painter, const SummaryObject& object, const PaperText& paper) {
  painter.setRenderHint(QPainter::Antialiasing);
  std::visit([&](const auto& shape) { paint(painter, shape, paper); }, object);
}

QSizeF sizeOfObject(const SummaryObject& object) {
  return std::visit([](const auto& shape) { return shape.size; }, object);
}

}  // namespace

SummaryObjects::SummaryObjects(double scale, const PaperText& text, QObject* parent)
    : QObject(parent), _scale(scale), _text(text) {}

QString SummaryObjects::nameOf(size_t place) { return kObjectPrefix + QString::number(place); }

QTextImageFormat SummaryObjects::add(SummaryObject object, const QString& words) {
  QTextImageFormat format;
  const QSizeF size = sizeOfObject(object) * _scale;
  format.setName(nameOf(_objects.size()));
  format.setWidth(size.width());
  format.setHeight(size.height());
  format.setProperty(QTextFormat::ImageAltText, words);
  _objects.push_back(std::move(object));
  return format;
}

const SummaryObject* SummaryObjects::objectOf(const QTextFormat& format) const {
  const QString name = format.toImageFormat().name();
  bool isPlace = false;
  const size_t place = name.mid(kObjectPrefix.size()).toULong(&isPlace);
  const bool isOurs = name.startsWith(kObjectPrefix) && isPlace && place < _objects.size();
  return isOurs ? &_objects[place] : nullptr;
}

const std::vector<TextMark>& SummaryObjects::textsOf(const QTextFormat& format) const {
  static const std::vector<TextMark> none;
  const SummaryObject* object = objectOf(format);
  if (object == nullptr) return none;
  if (const auto* chart = std::get_if<SmallChart>(object)) return chart->texts;
  if (const auto* bar = std::get_if<ShareBar>(object)) return bar->texts;
  return none;
}

QByteArray SummaryObjects::svg(size_t place) const {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setResolution(kSvgDotsPerInch);
  generator.setSize(sizeOfObject(_objects[place]).toSize());
  generator.setViewBox(QRectF(QPointF(), sizeOfObject(_objects[place])));
  QPainter painter(&generator);
  paintObject(painter, _objects[place], _text);
  painter.end();
  return bytes;
}

QSizeF SummaryObjects::intrinsicSize(QTextDocument* /*document*/, int /*position*/,
                                     const QTextFormat& format) {
  const QTextImageFormat image = format.toImageFormat();
  return {image.width(), image.height()};
}

void SummaryObjects::drawObject(QPainter* painter, const QRectF& rect, QTextDocument* /*document*/,
                                int /*position*/, const QTextFormat& format) {
  const SummaryObject* object = objectOf(format);
  if (object == nullptr) return;
  painter->save();
  painter->translate(rect.topLeft());
  painter->scale(_scale, _scale);
  paintObject(*painter, *object, _text);
  painter->restore();
}

}  // namespace sanovia
