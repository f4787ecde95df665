#include "cli/CopyCommands.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include "cli/Console.h"
#include "core/backup/Copies.h"
#include "core/backup/DiaryCheck.h"
#include "core/backup/Restore.h"
#include "core/foundation/Paths.h"

namespace sanovia {
namespace {

QString countOf(qint64 count, const char* noun) {
  return QString::number(count) + QLatin1Char(' ') + QLatin1String(noun) +
         (count == 1 ? QString() : QStringLiteral("s"));
}

void writeJson(const QJsonDocument& document) { write(stdout, document.toJson(QJsonDocument::Indented)); }

QString lineOf(const DiaryCopy& copy, const CopySummary& known) {
  return QStringLiteral("%1  %2, last entry %3  %4%5")
      .arg(copy.date.toString(Qt::ISODate), countOf(known.days, "day"),
           known.lastEntry.isEmpty() ? QStringLiteral("none") : known.lastEntry, copy.file,
           copy.isKept ? QStringLiteral("  (kept before a change)") : QString());
}

// What is not known is null.
QJsonObject objectOf(const DiaryCopy& copy, const CopySummary& known) {
  return {{QStringLiteral("date"), copy.date.toString(Qt::ISODate)},
          {QStringLiteral("days"), known.days},
          {QStringLiteral("lastEntry"), known.lastEntry.isEmpty() ? QJsonValue() : known.lastEntry},
          {QStringLiteral("file"), copy.file},
          {QStringLiteral("kept"), copy.isKept}};
}

// That there is none is said where it is in nobody's way.
int listCopies(bool inJson) {
  QJsonArray list;
  const auto copies = diaryCopies();
  if (copies.empty() && !inJson) write(stderr, "There is no copy yet.\n");
  for (const DiaryCopy& copy : copies) {
    const auto summary = summaryOf(copy.file);
    if (const auto* error = std::get_if<FileError>(&summary)) {
      write(stderr, (error->text + QLatin1Char('\n')).toLocal8Bit());
      continue;
    }
    const auto& known = std::get<CopySummary>(summary);
    if (inJson)
      list.append(objectOf(copy, known));
    else
      say(lineOf(copy, known));
  }
  if (inJson) writeJson(QJsonDocument(list));
  return Done;
}

// The file that is meant, or the exit status.
std::variant<QString, int> chosenFile(const QString& file, const QString& date) {
  if (!file.isNull() && !date.isNull()) return refuse(QStringLiteral("restore takes a file or --date"));
  if (date.isNull() && file.isNull()) return refuse(QStringLiteral("restore needs the name of a file"));
  if (date.isNull()) return file;
  const QDate day = QDate::fromString(date, Qt::ISODate);
  if (!day.isValid())
    return fail(Failed, QStringLiteral("--date: \"%1\" is no date of the form yyyy-MM-dd").arg(date));
  const auto copy = copyOf(day);
  if (!copy)
    return fail(Failed,
                QStringLiteral("There is no copy of %1; restore --list names those there are.").arg(date));
  return copy->file;
}

int tellFindings(const QStringList& findings, bool inJson) {
  if (inJson) {
    writeJson(QJsonDocument(QJsonObject{{QStringLiteral("diary"), Paths::databaseFile()},
                                        {QStringLiteral("whole"), findings.isEmpty()},
                                        {QStringLiteral("findings"), QJsonArray::fromStringList(findings)}}));
  } else {
    for (const QString& finding : findings) say(finding);
    if (findings.isEmpty()) say(QStringLiteral("The diary is whole."));
  }
  return findings.isEmpty() ? Done : Failed;
}

int repair(bool inJson) {
  const auto kept = keepDiary();
  if (const auto* error = std::get_if<FileError>(&kept)) return fail(Failed, error->text);
  const auto merged = mergeDoubleDays();
  if (const auto* error = std::get_if<FileError>(&merged)) return fail(Failed, error->text);
  if (!inJson)
    say(QStringLiteral("Merged %1 that had several rows. The earlier diary is kept as %2.")
            .arg(countOf(std::get<qint64>(merged), "day"), std::get<QString>(kept)));
  return runCheck(false, inJson);
}

}  // namespace

int runBackup(const QString& file) {
  if (const auto error = backUpTo(file)) return fail(Failed, error->text);
  remark(file, QStringLiteral("Wrote a copy of the diary to %1.").arg(file));
  return Done;
}

int runRestore(const QString& file, const RestoreOptions& options) {
  if (options.lists && (!file.isNull() || !options.date.isNull() || options.onlyMissing))
    return refuse(QStringLiteral("restore --list takes nothing else"));
  if (options.inJson && !options.lists) return refuse(QStringLiteral("--json goes with restore --list"));
  if (options.lists) return listCopies(options.inJson);
  const auto chosen = chosenFile(file, options.date);
  if (const int* status = std::get_if<int>(&chosen)) return *status;
  const auto& source = std::get<QString>(chosen);
  const auto result = options.onlyMissing ? restoreMissing(source) : restoreWhole(source);
  if (const auto* error = std::get_if<FileError>(&result)) return fail(Failed, error->text);
  const auto& report = std::get<RestoreReport>(result);
  const QString kept = report.kept.isEmpty()
                           ? QString()
                           : QStringLiteral(" The earlier diary is kept as %1.").arg(report.kept);
  say(options.onlyMissing
          ? QStringLiteral("Took over %1 of %2 from %3.%4")
                .arg(countOf(report.values, "value"), countOf(report.days, "day"), source, kept)
          : QStringLiteral("Restored %1 from %2.%3").arg(countOf(report.days, "day"), source, kept));
  return Done;
}

int runCheck(bool repairs, bool inJson) {
  if (!QFile::exists(Paths::databaseFile())) {
    if (inJson) return tellFindings({}, true);
    say(QStringLiteral("There is no diary yet."));
    return Done;
  }
  const auto result = checkDiary();
  if (const auto* error = std::get_if<FileError>(&result)) return fail(Failed, error->text);
  const auto& findings = std::get<QStringList>(result);
  const bool hasDoubleDays =
      findings.indexOf(QRegularExpression(QStringLiteral("^\\w+: \\S+ has \\d+ rows$"))) != -1;
  return repairs && hasDoubleDays ? repair(inJson) : tellFindings(findings, inJson);
}

}  // namespace sanovia
