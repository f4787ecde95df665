#include "cli/ReportCommand.h"

#include <QFile>

#include <algorithm>
#include <optional>

#include "cli/Console.h"
#include "core/database/Statement.h"
#include "core/dates/Utils.h"
#include "core/diary/DateInterval.h"
#include "core/exchange/DiaryTable.h"
#include "core/foundation/Paths.h"
#include "core/foundation/WholeFile.h"
#include "core/measures/RecordRef.h"
#include "core/preferences/Preferences.h"
#include "report/PrintSettings.h"
#include "report/SanoviaReport.h"

namespace sanovia {
namespace {

struct Mode {
  const char* name;
  SeriesMode mode;
};
constexpr Mode kModes[] = {{"day", SeriesModeDay}, {"week", SeriesModeWeek}, {"month", SeriesModeMonth}};

struct Paper {
  const char* name;
  QPageSize::PageSizeId size;
};
constexpr Paper kPapers[] = {{"a4", QPageSize::A4}, {"letter", QPageSize::Letter}};

// How long to wait for another program to release the diary, in milliseconds.
constexpr int kPatience = 2000;

// The row of that name; the first one when no name was given, null when there is none such.
template <class Row, size_t N>
const Row* named(const Row (&rows)[N], const QString& name) {
  if (name.isNull()) return rows;
  const Row* row =
      std::find_if(rows, rows + N, [&](const Row& known) { return name == QLatin1String(known.name); });
  return row == rows + N ? nullptr : row;
}

struct Interval {
  QDateTime from;
  QDateTime to;
};

QString databaseText(const QDateTime& date) { return Utils::convertDate(date, Utils::databaseFormat()); }

// What was given, for the rest what the window would show. Invalid dates for a text that is no date.
Interval intervalOf(const ReportOptions& options) {
  const auto given = [](const QString& text) {
    return isDiaryDate(text) ? QDate::fromString(text, Qt::ISODate).startOfDay() : QDateTime();
  };
  QDateTime to = options.to.isNull() ? DateInterval::storedEndOrNow() : given(options.to);
  QDateTime from = options.from.isNull() ? DateInterval::storedStart() : given(options.from);
  if (options.from.isNull()) {
    if (!from.isValid()) from = Utils::date2WeeksAgo();
    if (options.to.isNull() && from > to) from = to;
  }
  return {from.isValid() ? Utils::dayStart(from) : from, to.isValid() ? Utils::dayEnd(to) : to};
}

// What is wrong with the interval, or nothing.
std::optional<QString> wrongInterval(const Interval& interval, const ReportOptions& options) {
  const QString noDate = QStringLiteral("%1: \"%2\" is no date of the form yyyy-MM-dd");
  if (!interval.from.isValid()) return noDate.arg(QStringLiteral("--from"), options.from);
  if (!interval.to.isValid()) return noDate.arg(QStringLiteral("--to"), options.to);
  if (interval.from <= interval.to) return std::nullopt;
  return QStringLiteral("the report would end on %1, before it starts on %2")
      .arg(databaseText(interval.to), databaseText(interval.from));
}

// Why the diary cannot be read, or nothing; the report itself would take it for empty.
std::optional<QString> unreadableDiary() {
  Connection connection(Paths::databaseFile(), kPatience);
  for (const QString& table : {General::tableName(), Pressure::tableName(), Blood::tableName()})
    static_cast<void>(Statement(connection, QStringLiteral("SELECT COUNT(*) FROM ") + table).nextRow());
  return connection.isGood() ? std::nullopt : std::optional(connection.error());
}

}  // namespace

int runReport(const QString& file, const ReportOptions& options) {
  const Mode* mode = named(kModes, options.mode);
  if (mode == nullptr) return refuse(QStringLiteral("--mode takes day, week or month"));
  const Paper* paper = named(kPapers, options.paper);
  if (paper == nullptr) return refuse(QStringLiteral("--paper takes a4 or letter"));
  const Interval interval = intervalOf(options);
  if (const auto wrong = wrongInterval(interval, options)) return fail(Failed, *wrong);
  const QString days =
      QStringLiteral("from %1 to %2").arg(databaseText(interval.from), databaseText(interval.to));
  const QString nothing = QStringLiteral("Nothing to report: the diary is empty %1.").arg(days);
  if (!QFile::exists(Paths::databaseFile())) return fail(NothingToReport, nothing);
  if (const auto reason = unreadableDiary()) return fail(Failed, *reason);
  if (isSameFile(file, Paths::databaseFile()))
    return fail(Failed, file + QStringLiteral(": is the diary itself, which a report may not replace"));

  // The window does the same before its first report.
  Preferences::fillInMissingDefaults();
  if (!options.paper.isNull()) PrintSettings::setPaperSize(QPageSize(paper->size));
  SanoviaReport report(interval.from, interval.to, mode->mode);
  if (report.isEmpty()) return fail(NothingToReport, nothing);
  if (const auto error = report.createReport(file)) return fail(Failed, error->text);
  say(QStringLiteral("Wrote the report %1 to %2.").arg(days, file));
  return Done;
}

}  // namespace sanovia
