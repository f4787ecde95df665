#include "report/ReportTable.h"

#include "dates/Utils.h"
#include "drawing/Palette.h"
#include "foundation/TextFormat.h"
#include "localisation/Language.h"
#include "measures/Norms.h"
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

constexpr qint64 kBestWellbeing = 3;
constexpr double kLowIndex = 18.5;
constexpr double kHighIndex = 25.0;
constexpr double kLowPulsePressure = 30.0;
constexpr double kHighPulsePressure = 100.0;

// A range of values in the norm, both limits included.
struct Range {
  double low;
  double high;
  bool holds(double value) const { return low <= value && value <= high; }
};

// What is printed below the title is the scale of the graph. The limits are held in double precision, which
// a value that is stored in single precision need not meet.
struct BloodColumn {
  float Blood::*member;
  const char* scale;
  Range norm;
  double raised;
};

constexpr double kNoLimit = 0.0;  // negative values are not written
constexpr BloodColumn kBloodColumns[] = {
    {&Blood::hemoglobin, "7 - 16", {12.0, 14.0}, 0}, {&Blood::crp, "0 - 5", {kNoLimit, 1.0}, 0},
    {&Blood::esp, "0 - 50", {15.0, 30.0}, 0},        {&Blood::albumin, "2 - 7", {3.4, 5.4}, 0},
    {&Blood::wbc, "3 - 20", {4.0, 10.0}, 3.0},
};

QString titleOf(const Measure& measure) {
  return Language::stringForKey(QString::fromLatin1(measure.chartTitleKey));
}

std::vector<TableHeading> headingsOf(qint64 recordType, bool hasHeight) {
  std::vector<TableHeading> headings;
  for (const Measure& measure : measuresOf(recordType, hasHeight)) headings.push_back({titleOf(measure)});
  return headings;
}

// Bold and red when it is out of the range; empty for a negative value.
TableCell cellOf(double value, const Range& range) {
  if (value < 0) return {};
  const bool isIn = range.holds(value);
  return {oneDecimal(value), !isIn, isIn ? palette::black : palette::red};
}

TableCell temperatureCell(double degrees) {
  if (degrees < 0) return {};
  return {oneDecimal(degrees), degrees > kBoldAbove || degrees < kBoldBelow,
          degrees >= kRedFrom || degrees < kRedBelow ? palette::red : kDark};
}

TableCell wellbeingCell(qint64 wellbeing) {
  if (wellbeing < 0) return {};
  return {Language::entryForKey(QStringLiteral("general_array1"), kBestWellbeing - wellbeing), wellbeing > 0,
          wellbeing == kBestWellbeing ? palette::red : palette::black};
}

// A value that was not entered reads as a low one.
TableCell appetiteCell(qint64 appetite) {
  const bool isLow = appetite <= 0;
  return {Language::entryForKey(QStringLiteral("fistula_array"), isLow ? 1 : 0), isLow,
          isLow ? palette::red : kDark};
}

// Without a height the limits are those of a person of one metre.
TableCell weightCell(double weight, double height) {
  if (weight < 0) return {};
  const bool isOut = weight > kHighIndex * height * height || weight < kLowIndex * height * height;
  return {oneDecimal(weight), false, isOut ? palette::red : palette::black};
}

TableCell indexCell(double weight, double height) {
  if (weight < 0 || !(height * height > 0)) return {};
  const double index = weight / (height * height);
  return {oneDecimal(index), false, index > kHighIndex || index < kLowIndex ? palette::red : palette::black};
}

Range rangeOf(const ChartValue& norm) {
  return {static_cast<double>(norm.min()), static_cast<double>(norm.max())};
}

}  // namespace

QStringList tableDates(const QStringList& days) {
  QStringList dates;
  dates.reserve(days.size());
  for (const QString& day : days)
    dates.append(Utils::convertFormat(day, Utils::databaseFormat(), Utils::dateFormat()));
  return dates;
}

std::vector<TablePage> generalTable(std::span<const General> generals, const QStringList& dates, double y,
                                    float height, const PaperText& text) {
  const bool hasHeight = height != kNoHeight;
  const std::vector<TableHeading> headings = headingsOf(RecordType::general, hasHeight);
  return TableFrame(headings, y, text).rows(dates, [&](size_t row) -> std::vector<TableCell> {
    const General& general = generals[row];
    if (general.pk < 0) return {};
    const auto metres = static_cast<double>(height);
    std::vector<TableCell> cells{temperatureCell(general.temperature), wellbeingCell(general.wellbeing),
                                 appetiteCell(general.appetite), weightCell(general.weight, metres)};
    if (hasHeight) cells.push_back(indexCell(general.weight, metres));
    return cells;
  });
}

std::vector<TablePage> pressureTable(std::span<const Pressure> pressures, const QStringList& dates, double y,
                                     qint64 age, const PaperText& text) {
  const Range systolic = rangeOf(Utils::pressureForAge(age, true));
  const Range diastolic = rangeOf(Utils::pressureForAge(age, false));
  const Range pulse = rangeOf(Utils::pulseForAge(static_cast<float>(age)));
  const std::vector<TableHeading> headings = headingsOf(RecordType::pressure, false);
  return TableFrame(headings, y, text).rows(dates, [&](size_t row) -> std::vector<TableCell> {
    const Pressure& pressure = pressures[row];
    if (pressure.pk < 0) return {};
    const auto cell = [](qint64 value, const Range& range) {
      return cellOf(static_cast<double>(value), range);
    };
    return {cell(pressure.systolic, systolic), cell(pressure.diastolic, diastolic),
            cell(pressure.pulse, pulse), cell(pressure.ppressure, {kLowPulsePressure, kHighPulsePressure})};
  });
}

std::vector<TablePage> bloodTable(std::span<const Blood> bloods, const QStringList& dates, double y,
                                  const PaperText& text) {
  std::vector<TableHeading> headings = headingsOf(RecordType::blood, false);
  for (size_t i = 0; i < headings.size(); ++i) {
    headings[i].scale = QString::fromLatin1(kBloodColumns[i].scale);
    headings[i].raised = kBloodColumns[i].raised;
  }
  return TableFrame(headings, y, text).rows(dates, [&](size_t row) {
    const Blood& blood = bloods[row];
    std::vector<TableCell> cells;
    if (blood.pk < 0) return cells;
    for (const BloodColumn& column : kBloodColumns)
      cells.push_back(cellOf(static_cast<double>(blood.*column.member), column.norm));
    return cells;
  });
}

}  // namespace sanovia
