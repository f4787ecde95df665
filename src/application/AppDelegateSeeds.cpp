// The makers of test data of AppDelegate, for development: nothing in the program calls them.
#include <QRandomGenerator>

#include "application/AppDelegate.h"
#include "core/database/Blood.h"
#include "core/database/General.h"
#include "core/database/Pressure.h"
#include "core/foundation/Log.h"

namespace sanovia {
namespace {

quint32 random(quint32 bound) { return QRandomGenerator::global()->generate() % bound; }

// A random number of tenths, from 0 to (bound - 1) / 10, above the base.
double tenths(quint32 bound, double base) { return random(bound) / 10.0 + base; }

double single(double value) { return static_cast<double>(static_cast<float>(value)); }

// Fills the table of the record's kind unless it has rows, and logs the count with the kind's own words.
template <class Record, class Fill>
void seed(const QList<QDateTime>& dates, const QString& operation, const QString& kind, Fill fill) {
  DBManager& database = DBManager::sharedInstance();
  const qint32 before = database.countOfRowsInTable(Record::tableName());
  if (before != 0) {
    logLine(QStringLiteral("%1 already initialized, records count = %2").arg(kind).arg(before));
    return;
  }
  for (const QDateTime& date : dates) {
    Record record(Utils::convertDate(date, Utils::databaseFormat()));
    fill(record);
    record.add();
  }
  logLine(QStringLiteral("%1(), records count = %2")
              .arg(operation)
              .arg(database.countOfRowsInTable(Record::tableName())));
}

}  // namespace

void AppDelegate::initGeneral(const QList<QDateTime>& dates) {
  seed<General>(dates, QStringLiteral("initGeneral"), QStringLiteral("General"), [](General& record) {
    record.temperature = single(tenths(40, 36.2));
    record.wellbeing = random(4);
    record.appetite = random(2);
    record.weight = single(tenths(40, 60.0));
  });
}

void AppDelegate::initPressure(const QList<QDateTime>& dates) {
  seed<Pressure>(dates, QStringLiteral("initPressure"), QStringLiteral("Pressure"), [](Pressure& record) {
    record.systolic = static_cast<qint64>(tenths(100, 115.0));
    record.diastolic = static_cast<qint64>(tenths(100, 75.0));
    record.pulse = static_cast<qint64>(tenths(100, 60.0));
    record.ppressure = record.systolic - record.diastolic;
  });
}

void AppDelegate::initBloods(const QList<QDateTime>& dates) {
  seed<Blood>(dates, QStringLiteral("initBloods"), QStringLiteral("Bloods"), [](Blood& record) {
    record.hemoglobin = static_cast<float>(tenths(90, 7.0));
    record.crp = static_cast<float>(tenths(50, 0.0));
    record.esp = static_cast<float>(random(50));
    record.albumin = static_cast<float>(random(5) + 2);
    record.wbc = static_cast<float>(random(17) + 3);
  });
}

}  // namespace sanovia
