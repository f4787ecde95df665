// The days of ChartsView: what a pointer and the keys do with them, and what they say.
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>

#include "core/measures/ValueText.h"
#include "ui/charts/ChartsView.h"
#include "ui/charts/DayEditor.h"

namespace sanovia {
namespace {

bool isStored(const RecordRef& record) {
  return std::visit(
      [](const auto& held) {
        if constexpr (std::is_same_v<std::remove_cvref_t<decltype(held)>, std::monostate>)
          return false;
        else
          return held->pk != -1;
      },
      record);
}

}  // namespace

std::optional<DayHit> ChartsView::hitAt(QPointF point) const {
  return dayAt(point, columnPlan(), initBlocks());
}

qint64 ChartsView::testDay(QPointF point) const {
  const std::optional<DayHit> hit = hitAt(point);
  return hit ? hit->day : 0;
}

QRectF ChartsView::dayRect(qint64 tag, qint64 day) const {
  const ColumnPlan column = columnPlan();
  const PropertyPlace* place = column.placeOf(tag);
  const Measure* measure = measureOf(tag);
  const BlockRow blocks = initBlocks();
  if (place == nullptr || measure == nullptr || !place->isOn || day < 1 || day > blocks.count()) return {};
  const Band band = bandOf(*measure, *place);
  return {blocks.x(day - 1), band.top, blocks.blockWidth(), band.height};
}

QString ChartsView::dayText(qint64 tag, qint64 day) const {
  const Measure* measure = measureOf(tag);
  const RecordRef record = dataAtIndex(day - 1);
  if (measure == nullptr || isEmpty(record)) return {};
  return dateText(record) + QStringLiteral(": ") + dayPhrase(*measure, record);
}

std::optional<DayHit> ChartsView::tipDayAt(QPointF point) const {
  return dayNear(point, columnPlan(), initBlocks(), [this](const DayHit& hit) {
    const Measure* measure = measureOf(hit.tag);
    return measure != nullptr && dayValue(*measure, dataAtIndex(hit.day - 1)).has_value();
  });
}

void ChartsView::selectDay(qint64 day) {
  _selectedDay = day;
  update();
  emit selectionMoved();
}

void ChartsView::selectNewestDay() {
  qint64 day = countOfDays();
  while (day > 0 && !isStored(dataAtIndex(day - 1))) --day;
  selectDay(day > 0 ? day : countOfDays());
}

void ChartsView::editSelectedDay() {
  if (_beforeEditing && !isEmpty(dataAtIndex(_selectedDay - 1))) _beforeEditing();
  const RecordRef record = dataAtIndex(_selectedDay - 1);
  if (_editor == nullptr || isEmpty(record)) return;
  _editor->setData(record);
  _editor->animate();
}

void ChartsView::pressAt(const QMouseEvent& event, bool isDouble) {
  if (event.button() != Qt::LeftButton) return;
  if (_editor != nullptr) _editor->setTarget({});
  setFocus(Qt::MouseFocusReason);
  selectDay(testDay(event.position()));
  if (isDouble && _selectedDay > 0) editSelectedDay();
}

void ChartsView::mousePressEvent(QMouseEvent* event) { pressAt(*event, false); }

void ChartsView::mouseDoubleClickEvent(QMouseEvent* event) { pressAt(*event, true); }

// No key begins a selection. A selection beyond the last day counts as the last day's from then on.
void ChartsView::keyPressEvent(QKeyEvent* event) {
  const qint64 count = countOfDays();
  const bool isOnADay = count > 0 && _selectedDay > 0;
  const auto select = [&](qint64 day) {
    if (isOnADay) selectDay(qBound(qint64(1), day, count));
  };
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (isOnADay) editSelectedDay();
      break;
    case Qt::Key_Escape:
      if (isOnADay) selectDay(0);
      break;
    case Qt::Key_Right:
    case Qt::Key_Down: select(_selectedDay + 1); break;
    case Qt::Key_Left:
    case Qt::Key_Up: select(_selectedDay - 1); break;
    case Qt::Key_Home: select(1); break;
    case Qt::Key_End: select(count); break;
    // The pages are the scroll view's.
    default: QWidget::keyPressEvent(event);
  }
}

bool ChartsView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return PropertiesView::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const std::optional<DayHit> hit = tipDayAt(QPointF(help->pos()));
  if (hit)
    QToolTip::showText(help->globalPos(), dayText(hit->tag, hit->day), this,
                       QRect(help->pos(), QSize(1, 1)) | dayRect(hit->tag, hit->day).toAlignedRect());
  else
    QToolTip::hideText();
  return true;
}

}  // namespace sanovia
