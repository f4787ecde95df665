#include "report/DateStrip.h"

#include "core/dates/Utils.h"
#include "core/preferences/Preferences.h"
#include "drawing/Palette.h"

namespace sanovia {
namespace {

constexpr double kRoomAbove = 10.0;

constexpr PaperFont kDayFont{8};
constexpr double kDayHeight = 50.0;
constexpr double kDayStrip = 70.0;
constexpr double kDaySideMargins = 2.0;
constexpr double kDayTextMovedUp = 30.0;
// A fifth of red over the white of the paper.
constexpr QColor kSunday{255, 204, 204};

constexpr PaperFont kMonthFont{11};
constexpr double kMonthHeight = 18.0;
constexpr double kMonthStrip = 30.0;
constexpr double kMonthSpace = 2.0;
constexpr double kMonthTextDown = 2.0;
// A last month of no more blocks is left out.
constexpr double kBlocksOfShortMonth = 2.0;

// A date is written, upwards, only when it is too wide for its block.
BlockText dayText(const QRectF& block, const QString& text, const PaperText& paper) {
  const QSizeF size = paper.size(text, kDayFont);
  if (size.width() + kDaySideMargins <= block.width()) return {};
  return {.text = text,
          .at = {block.center().x() - size.width() / 2, block.bottom()},
          .isUpright = true,
          .pivot = {block.center().x(), block.bottom() + size.height() / 2},
          .towards = kDayTextMovedUp};
}

DateStrip strippedDays(const QStringList& days, const DayColumns& columns, double y, const PaperText& text) {
  const QString format = Utils::dateFormatForMetric(Preferences::isMetric());
  DateStrip strip{.font = kDayFont, .blocks = {}, .nextY = y + kDayStrip};
  for (qsizetype i = 0; i < days.size(); ++i) {
    const QRectF block(columns.x(static_cast<size_t>(i)), y + kRoomAbove,
                       static_cast<double>(columns.blockWidth()), kDayHeight);
    const bool isSunday = Utils::isSunday(Utils::convertString(days[i], Utils::databaseFormat()));
    strip.blocks.push_back(
        {block, isSunday ? kSunday : palette::blockGrey,
         dayText(block, Utils::convertFormat(days[i], Utils::databaseFormat(), format), text)});
  }
  return strip;
}

// Year and month of a day as the database has it: "yyyy-MM".
QStringView monthOf(const QString& day) { return QStringView(day).left(7); }

class MonthBands {
 public:
  MonthBands(const DayColumns& columns, double y, const PaperText& text)
      : _columns(columns),
        _text(text),
        _segment(columns.x(0), y + kRoomAbove, static_cast<double>(columns.blockWidth()), kMonthHeight),
        _strip{.font = kMonthFont, .blocks = {}, .nextY = y + kMonthStrip} {}

  DateStrip bands(const QStringList& days) {
    for (qsizetype i = 1; i < days.size(); ++i) {
      if (monthOf(days[i]) == monthOf(days[i - 1]))
        lengthen(days[i]);
      else
        close();
    }
    if (_segment.width() > kBlocksOfShortMonth * _columns.pitch()) close();
    return _strip;
  }

 private:
  // The label is first made on a month's second day; until then that of the month before stands.
  void lengthen(const QString& day) {
    _segment.setWidth(_segment.width() + _columns.pitch());
    if (monthOf(day) == _monthOfLabel) return;
    _monthOfLabel = monthOf(day).toString();
    _label =
        Utils::convertDate(Utils::convertString(day, Utils::databaseFormat()), QStringLiteral("MMM yyyy"));
  }

  void close() {
    StripBlock block{_segment, palette::blockGrey, {}};
    const double width = _text.size(_label, kMonthFont).width();
    if (_segment.width() > width) {
      block.text.text = _label;
      block.text.at = {_segment.center().x() - width / 2, _segment.y() + kMonthTextDown};
    }
    _strip.blocks.push_back(block);
    _segment.moveLeft(_segment.right() + kMonthSpace);
    _segment.setWidth(static_cast<double>(_columns.blockWidth()) - kMonthSpace);
  }

  const DayColumns& _columns;
  const PaperText& _text;
  QRectF _segment;
  QString _label;
  QString _monthOfLabel;
  DateStrip _strip;
};

}  // namespace

DateStrip dateStrip(const QStringList& days, const DayColumns& columns, double y, const PaperText& text) {
  return days.size() < kDaysOfMonthStrip ? strippedDays(days, columns, y, text)
                                         : MonthBands(columns, y, text).bands(days);
}

}  // namespace sanovia
