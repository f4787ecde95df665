#include "cli/CopyCommands.h"

#include <QFile>
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

int listCopies() {
  for (const DiaryCopy& copy : diaryCopies()) {
    const auto summary = summaryOf(copy.file);
    if (const auto* error = std::get_if<FileError>(&summary)) {
      say(error->text);
      continue;
    }
    const auto& known = std::get<CopySummary>(summary);
    say(QStringLiteral("%1  %2, last entry %3  %4%5")
            .arg(copy.date.toString(Qt::ISODate), countOf(known.days, "day"),
                 known.lastEntry.isEmpty() ? QStringLiteral("none") : known.lastEntry, copy.file,
                 copy.isKept ? QStringLiteral("  (kept before a change)") : QString()));
  }
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

int repair() {
  const auto kept = keepDiary();
  if (const auto* error = std::get_if<FileError>(&kept)) return fail(Failed, error->text);
  const auto merged = mergeDoubleDays();
  if (const auto* error = std::get_if<FileError>(&merged)) return fail(Failed, error->text);
  say(QStringLiteral("Merged %1 that had several rows. The earlier diary is kept as %2.")
          .arg(countOf(std::get<qint64>(merged), "day"), std::get<QString>(kept)));
  return runCheck(false);
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
  if (options.lists) return listCopies();
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

int runCheck(bool repairs) {
  if (!QFile::exists(Paths::databaseFile())) {
    say(QStringLiteral("There is no diary yet."));
    return Done;
  }
  const auto result = checkDiary();
  if (const auto* error = std::get_if<FileError>(&result)) return fail(Failed, error->text);
  const auto& findings = std::get<QStringList>(result);
  const bool hasDoubleDays =
      findings.indexOf(QRegularExpression(QStringLiteral("^\\w+: \\S+ has \\d+ rows$"))) != -1;
  if (repairs && hasDoubleDays) return repair();
  for (const QString& finding : findings) say(finding);
  if (!findings.isEmpty()) return Failed;
  say(QStringLiteral("The diary is whole."));
  return Done;
}

}  // namespace sanovia
