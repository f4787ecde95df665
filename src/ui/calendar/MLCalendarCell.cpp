#include "ui/calendar/MLCalendarCell.h"

#include <QFontMetricsF>
#include <QLocale>
#include <QPainter>

#include "core/foundation/Clock.h"
#include "drawing/Fonts.h"
#include "drawing/Palette.h"
#include "ui/calendar/CalendarDays.h"
#include "ui/calendar/MLCalendarView.h"
#include "ui/controls/ClickAccessible.h"
#include "ui/controls/FocusMark.h"

namespace sanovia {
namespace {

constexpr int kDayPixels = 14;
constexpr double kOvalInset = 3.5;
constexpr double kOvalDrop = 1.0;
constexpr double kTitleRise = 1.0;
constexpr double kHairline = 0.3F;
constexpr double kTodayLine = 8.0;

}  // namespace

MLCalendarCell::MLCalendarCell(QWidget* parent) : QPushButton(parent) {
  ClickAccessible::installFor(QString::fromLatin1(MLCalendarCell::staticMetaObject.className()));
  setFlat(true);
  setCheckable(true);  // checked is how a screen reader hears of the picked day
  setFont(fonts::system(kDayPixels));
  setRepresentedDate({});
}

void MLCalendarCell::setOwner(MLCalendarView* owner) { _owner = owner; }

void MLCalendarCell::setRepresentedDate(const QDateTime& date) {
  _representedDate = date;
  const QDate day = date.toUTC().date();
  setText(date.isValid() ? QString::number(day.day()) : QString());
  setAccessibleName(date.isValid() ? QLocale().toString(day, QLocale::LongFormat) : QString());
  setFocusPolicy(date.isValid() ? Qt::StrongFocus : Qt::NoFocus);
  setHidden(!date.isValid());  // no nameless button for a screen reader
}

bool MLCalendarCell::isToday() const { return calendar::isSameDate(_representedDate, Clock::now()); }

void MLCalendarCell::paintEvent(QPaintEvent* /*event*/) {
  if (!_owner) return;
  const QRectF bounds = rect();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(bounds, _owner->backgroundColor());
  if (!_representedDate.isValid()) return;
  if (selected() || isDown()) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(_owner->selectionColor());
    painter.drawEllipse(
        bounds.adjusted(kOvalInset, kOvalInset, -kOvalInset, -kOvalInset).translated(0, kOvalDrop));
  }
  const double height = QFontMetricsF(font()).height();
  painter.setFont(font());
  painter.setPen(isEnabled() ? _owner->textColor() : palette::lightGray);
  painter.drawText(QRectF(0, (bounds.height() - height) / 2 - kTitleRise, bounds.width(), height),
                   Qt::AlignHCenter, text());
  painter.setPen(QPen(_owner->dayMarkerColor(), kHairline));
  painter.drawLine(bounds.topLeft(), bounds.topRight());
  if (isToday()) {
    painter.setPen(QPen(_owner->todayMarkerColor(), kTodayLine, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(bounds.bottomLeft(), bounds.bottomRight());
  }
  if (hasFocus()) drawFocusMark(painter, bounds);
}

}  // namespace sanovia
