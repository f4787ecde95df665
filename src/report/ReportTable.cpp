#include "report/ReportTable.h"

#include "core/dates/Utils.h"
#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"
#include "drawing/Palette.h"
#include "report/TableFrame.h"

namespace sanovia {
namespace {

// A fifth of white, for values that are in the norm where the others are red.
constexpr QColor kDark{51, 51, 51};

// Degrees Celsius. What is bold and what is red differ.
constexpr double kBoldAbove = 37.0;
constexpr double kBoldBelow = 36.0;
constexpr double kRedFrom = 37.0;
constexpr double kRedBelow = 35.5;

constexpr double kBestWellbeing = 3;

using Limits = ReportPlace::Limits;

bool holds(const Limits& limits, double value) { return limits.low <= value && value <= limits.high; }

// The limits of what stays black, in double precision, which a value that is stored in single precision need
// not meet. Those of the weight are those of the index: without a height they are those of a person of one
// metre.
Limits limitsOf(const Measure& row, const Person& person) {
  const double height = static_cast<double>(person.height);
  const NormRule& index = measure(MeasureId::BodyMassIndex).norm;
  if (row.form == ChartForm::Weight) return {index.low * height * height, index.high * height * height};
  if (row.report.tableLimits) return *row.report.tableLimits;
  if (row.norm.of == NormRule::Of::Everybody) return {row.norm.low, row.norm.high};
  const NormBand norm = normOf(row, person).value_or(NormBand{});
  return {static_cast<double>(norm.low), static_cast<double>(norm.high)};
}

TableCell temperatureCell(double degrees) {
  return {oneDecimal(degrees), degrees > kBoldAbove || degrees < kBoldBelow,
          degrees >= kRedFrom || degrees < kRedBelow ? palette::red : kDark};
}

TableCell wellbeingCell(double wellbeing) {
  return {
      Language::entryForKey(QStringLiteral("general_array1"), static_cast<int>(kBestWellbeing - wellbeing)),
      wellbeing > 0, wellbeing == kBestWellbeing ? palette::red : palette::black};
}

// A value that was not entered reads as a low one.
TableCell appetiteCell(double appetite) {
  const bool isLow = appetite <= 0;
  return {Language::entryForKey(QStringLiteral("fistula_array"), isLow ? 1 : 0), isLow,
          isLow ? palette::red : kDark};
}

// Out of the limits it is red, and bold where that is asked for.
TableCell limitedCell(double value, const Limits& limits, bool isBoldOutside) {
  const bool isIn = holds(limits, value);
  return {oneDecimal(value), isBoldOutside && !isIn, isIn ? palette::black : palette::red};
}

// The cells of one measure, a row each. Negative values are not written.
class Column {
 public:
  Column(const Measure& measure, std::vector<DayValue> days, const Person& person)
      : _form(measure.form),
        _days(std::move(days)),
        _limits(limitsOf(measure, person)),
        _height(static_cast<double>(person.height)) {}

  TableCell cell(size_t row) const {
    const double value = _days[row].value.value_or(kNotEntered);
    if (_form == ChartForm::Appetite) return appetiteCell(value);
    if (value < 0) return {};
    switch (_form) {
      case ChartForm::Temperature: return temperatureCell(value);
      case ChartForm::Wellbeing: return wellbeingCell(value);
      case ChartForm::Weight: return limitedCell(value, _limits, false);
      case ChartForm::BodyMassIndex: return indexCell(value);
      default: return limitedCell(value, _limits, true);
    }
  }

 private:
  TableCell indexCell(double weight) const {
    const double square = _height * _height;
    return square > 0 ? limitedCell(weight / square, _limits, false) : TableCell();
  }

  ChartForm _form;
  std::vector<DayValue> _days;
  Limits _limits;
  double _height;
};

// What is printed below the title of a blood test is the scale of its graph.
TableHeading headingOf(const Measure& measure) {
  const bool hasScale = measure.form == ChartForm::Blood && measure.scale;
  const auto scale = [&] {
    return QStringLiteral("%1 - %2")
        .arg(static_cast<double>(measure.scale->low))
        .arg(static_cast<double>(measure.scale->high));
  };
  return {.title = Language::stringForKey(QString::fromLatin1(measure.chartTitleKey)),
          .scale = hasScale ? scale() : QString(),
          .raised = measure.report.headingRaised};
}

}  // namespace

QStringList tableDates(const QStringList& days) {
  QStringList dates;
  dates.reserve(days.size());
  for (const QString& day : days)
    dates.append(Utils::convertFormat(day, Utils::databaseFormat(), Utils::dateFormat()));
  return dates;
}

template <class Record>
std::vector<TablePage> reportTable(qint64 recordType, std::span<const Record> records,
                                   const QStringList& dates, double y, const Person& person,
                                   const PaperText& text) {
  std::vector<TableHeading> headings;
  std::vector<Column> columns;
  for (const Measure& measure : measuresOf(recordType, person.height != kUnknownHeight)) {
    headings.push_back(headingOf(measure));
    columns.emplace_back(measure, dayValues(measure, records), person);
  }
  return TableFrame(headings, y, text).rows(dates, [&](size_t row) {
    std::vector<TableCell> cells;
    if (records[row].pk < 0) return cells;
    for (const Column& column : columns) cells.push_back(column.cell(row));
    return cells;
  });
}

template std::vector<TablePage> reportTable(qint64, std::span<const General>, const QStringList&, double,
                                            const Person&, const PaperText&);
template std::vector<TablePage> reportTable(qint64, std::span<const Pressure>, const QStringList&, double,
                                            const Person&, const PaperText&);
template std::vector<TablePage> reportTable(qint64, std::span<const Blood>, const QStringList&, double,
                                            const Person&, const PaperText&);

}  // namespace sanovia
