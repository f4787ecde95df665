#include "charts/ChartsView.h"

#include <QPainter>

#include "drawing/Palette.h"
#include "foundation/NotificationCenter.h"
#include "measures/ValueText.h"
#include "preferences/Preferences.h"

namespace sanovia {
namespace {

const QString kColumnPrefix = QStringLiteral("col");
constexpr int kDateColumn = 1;
constexpr int kFirstMeasure = 2;

}  // namespace

ChartsView::ChartsView(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  NotificationCenter::defaultCenter().addObserver(this, changeMeasurementsNotification, [this] { update(); });
}

void ChartsView::initValues() {
  _mode = SeriesModeDay;
  _records.clear();
  setDateFrom();
  setDateTo();
  updateValues();
}

void ChartsView::setMode(SeriesMode mode) {
  _mode = mode;
  updateValues();
  update();
}

void ChartsView::setDateFrom() {
  if (_interval.startDate) _dateFrom = _interval.startDate();
  updateValues();
  update();
}

void ChartsView::setDateTo() {
  if (_interval.endDate) _dateTo = _interval.endDate();
  updateValues();
  update();
}

void ChartsView::updateValues() { _records.load(_dateFrom, _dateTo, _mode); }

RecordRef ChartsView::dataAtIndex(qint64 index) const { return _records.at(_type, index); }

qint64 ChartsView::numberOfRows() const {
  const bool isKnown = _type == RecordType::general || _type == RecordType::pressure;
  return _records.count(isKnown ? _type : RecordType::blood);
}

QString ChartsView::objectValue(const QString& columnIdentifier, qint64 row) const {
  const RecordRef record = dataAtIndex(numberOfRows() - 1 - row);
  if (isEmpty(record) || !columnIdentifier.startsWith(kColumnPrefix)) return {};
  const int column = QStringView(columnIdentifier).mid(kColumnPrefix.size()).toInt();
  if (column == kDateColumn) return dateText(record);
  const std::span<const Measure> measures = measuresOf(_type, true);
  const int place = column - kFirstMeasure;
  return place < 0 || place >= std::ssize(measures) ? QString()
                                                    : valueText(measures[static_cast<size_t>(place)], record);
}

void ChartsView::paintEvent(QPaintEvent* /*event*/) { QPainter(this).fillRect(rect(), palette::white); }

}  // namespace sanovia
