#include "report/SanoviaReport.h"

#include "core/database/DBManager.h"
#include "core/dates/Utils.h"
#include "core/foundation/Clock.h"
#include "core/foundation/Log.h"
#include "core/foundation/WholeFile.h"
#include "core/licensing/Licensing.h"
#include "core/localisation/Language.h"
#include "core/preferences/Preferences.h"
#include "paper/PaperDocument.h"
#include "paper/PrintSettings.h"
#include "report/ReportPainter.h"
#include "report/ReportSection.h"

namespace sanovia {
namespace {

// From this number of days between its ends on a report has no values below its graphs.
constexpr qint64 kDaysWithoutValues = 100;

// By the calendar, so that a day that the clocks shorten is a day.
qint64 daysBetween(const QDateTime& from, const QDateTime& to) {
  const auto onTheFace = [](const QDateTime& date) {
    const QDateTime local = date.toLocalTime();
    return QDateTime(local.date(), local.time(), Qt::UTC);
  };
  return Utils::daysBetweenDate(onTheFace(from), onTheFace(to));
}

// The page that the layout is made for.
QPageSize savedPage() {
  return QPageSize(QSizeF(page::kWidth, page::kHeight), QPageSize::Point, QString(), QPageSize::ExactMatch);
}

QString intervalText(const QDateTime& from, const QDateTime& to) {
  return Utils::convertDate(from, Utils::dateFormat()) + QStringLiteral(" - ") +
         Utils::convertDate(to, Utils::dateFormat());
}

template <class R>
bool hasRows(const QString& from, const QString& to) {
  return DBManager::sharedInstance().countOfRowsInTableBetweenDates(R::tableName(), R::dateKey(), from, to) !=
         0;
}

DocumentInfo infoOf(const QList<qint64>& sections, const QString& interval) {
  QStringList titles;
  for (const qint64 recordType : sections) titles.append(sectionTitle(recordType));
  return {.title = Language::stringForKey(QStringLiteral("Report")) + QLatin1Char(' ') + interval,
          .subject = titles.join(QStringLiteral(", ")),
          .language = Language::language(),
          .created = Clock::now()};
}

}  // namespace

SanoviaReport::SanoviaReport(const QDateTime& dateFrom, const QDateTime& dateTo, SeriesMode mode)
    : _dateFrom(dateFrom),
      _dateTo(dateTo),
      _series(dateFrom, dateTo, mode),
      _interval(intervalText(dateFrom, dateTo)),
      _columns(_series.count()),
      _drawText(daysBetween(dateFrom, dateTo) < kDaysWithoutValues) {}

QList<qint64> SanoviaReport::sections() const {
  const QString from = Utils::convertDate(_dateFrom, Utils::databaseFormat());
  const QString to = Utils::convertDate(_dateTo, Utils::databaseFormat());
  QList<qint64> sections;
  if (hasRows<General>(from, to)) sections.append(RecordType::general);
  if (hasRows<Pressure>(from, to)) sections.append(RecordType::pressure);
  if (hasRows<Blood>(from, to)) sections.append(RecordType::blood);
  return sections;
}

std::optional<FileError> SanoviaReport::createReport(const QString& path, int patience) {
  const QByteArray bytes = createData(savedPage());
  if (bytes.isEmpty()) return std::nullopt;
  std::optional<FileError> error = writeWhole(path, bytes, patience);
  if (error) logLine(QStringLiteral("report not written: ") + error->text);
  return error;
}

QByteArray SanoviaReport::createReportData() { return createData(PrintSettings::paperSize()); }

QByteArray SanoviaReport::createData(const QPageSize& firstPage) {
  const QList<qint64> kinds = sections();
  if (kinds.isEmpty()) return {};
  const PaperText text;
  const ReportSubject subject{.series = _series,
                              .interval = _interval,
                              .tableDates = tableDates(_series.days()),
                              .name = Preferences::name(),
                              .birthday = Preferences::birthday(),
                              .person = personOfPreferences(),
                              .isTrial = Licensing::isTrial()};
  PaperDocument document(infoOf(kinds, _interval));
  ReportPainter painter(document.painter(), text);
  const GraphContext context{
      .columns = _columns, .drawText = _drawText, .arrow = painter.arrowSize(), .text = text};
  const auto endPage = [&] {
    painter.drawText(pageFooter(_pageNumber++, text));
    if (subject.isTrial) painter.drawTrial(trialMark(text));
  };
  for (const qint64 recordType : kinds) {
    const ReportSection section = reportSection(recordType, subject, context);
    document.beginPage(firstPage);
    painter.drawSectionPage(section);
    endPage();
    for (size_t i = 1; i < section.table.size(); ++i) {
      document.beginPage(PrintSettings::paperSize());
      painter.drawTable(section.table[i]);
      endPage();
    }
  }
  return document.bytes(painter.drawnTexts().faces(text));
}

}  // namespace sanovia
