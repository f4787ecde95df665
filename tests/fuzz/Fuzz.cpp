// Feeds files that are nearly right to whatever reads files: CSV from other programs, settings, diaries. One
// number makes one case, always the same. A crash, a hang and a value that no field can hold end the program.
//
// Usage: sanovia_fuzz FIRST COUNT
#include <QDir>
#include <QTemporaryDir>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <unistd.h>

#include "core/database/DBManager.h"
#include "core/diary/DateInterval.h"
#include "core/exchange/Columns.h"
#include "core/exchange/DiaryExport.h"
#include "core/exchange/DiaryImport.h"
#include "core/foundation/Paths.h"
#include "core/foundation/Settings.h"
#include "core/preferences/Preferences.h"

namespace {

using namespace sanovia;

constexpr unsigned kPatience = 20;  // seconds for one case
unsigned long current = 0;

const QByteArray kFiles[] = {
    "date,temperature,weight,systolic,diastolic\r\n2026-01-02,36.6,\"80,5\",120,80\r\n2026-01-03,,,121,\r\n",
    "Date;Time;Weight (lb);Temperature;Comments\n21/11/2026;8:05 pm;180;98.6;\"a "
    "\"\"b\"\"\"\n11/11/2026;;179;;-\n",
    "\xEF\xBB\xBF"
    "Datum\tPuls (bpm)\tH\xC3\xA4moglobin (g/l)\nNov 21, 2026\t60\t142\n"};
const QByteArray kSettings =
    "[General]\nSanoviaWindow=1 2 800 900\ndateFrom=2026-06-30T22:15:00Z\ndateTo=2026-11-02T09:30:00Z\n"
    "healthInfoType=1\nprefBlood=102\npropertiesGeneral=\"104,-101\"\nuserBirthday=1980-01-01 00:00:00 "
    "+0000\n"
    "userHeight=1.7\nuserName=@Variant(x)\n";
const char* const kWords[] = {"\"",
                              ",",
                              ";",
                              "\n",
                              "\r",
                              "\0",
                              "-1",
                              "1e999",
                              "nan",
                              "2026-02-30",
                              "99999999999",
                              "\xFF\xFE",
                              "\xEF\xBB\xBF",
                              "@Variant(\\0\\0\\0\\x7f)",
                              "@Invalid()",
                              "%",
                              "[",
                              "=",
                              "temperature",
                              "0001-01-01"};

class Mutator {
 public:
  explicit Mutator(unsigned long seed) : _random(seed) {}

  size_t below(size_t limit) {
    return limit == 0 ? 0 : std::uniform_int_distribution<size_t>(0, limit - 1)(_random);
  }

  QByteArray changed(QByteArray bytes, size_t most) {
    for (size_t i = 1 + below(most); i > 0; --i) {
      const auto place = static_cast<qsizetype>(below(static_cast<size_t>(bytes.size())));
      const auto length = static_cast<qsizetype>(1 + below(40));
      switch (below(5)) {
        case 0: bytes.remove(place, length); break;
        case 1: bytes.insert(place, kWords[below(std::size(kWords))]); break;
        case 2:
          bytes.insert(place, bytes.mid(place, length).repeated(static_cast<qsizetype>(1 + below(30))));
          break;
        default:
          if (!bytes.isEmpty()) bytes[place] = static_cast<char>(below(256));
      }
    }
    return bytes;
  }

 private:
  std::mt19937_64 _random;
};

void write(const QString& path, const QByteArray& bytes) {
  QDir().mkpath(QFileInfo(path).path());
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) std::abort();
}

void readCsv(Mutator& mutator) {
  FileChoices choices;
  if (mutator.below(2) == 0) choices.dateOrder = DateOrder::MonthDayYear;
  if (mutator.below(2) == 0) choices.units = UnitSystem::Us;
  if (mutator.below(2) == 0) choices.several = static_cast<Several>(mutator.below(3));
  const ParsedFile file = parseDays(mutator.changed(kFiles[mutator.below(std::size(kFiles))], 6), choices);
  for (const ExchangeDay& day : file.days)
    for (size_t i = 0; i < day.values.size(); ++i) {
      const ExchangeColumn& column = exchangeColumns()[i];
      if (day.values[i] && !(*day.values[i] >= column.holdsFrom && *day.values[i] <= column.holdsTo))
        std::abort();
    }
}

void readSettings(Mutator& mutator) {
  SettingsStore::closeStandard();
  write(Paths::settingsFile(), mutator.changed(kSettings, 8));
  DateInterval::testDateInterval();
  if (DateInterval::storedStart().daysTo(DateInterval::storedEndOrNow()) > DateInterval::kMostDays)
    std::abort();
  static_cast<void>(settings.openGeneral.value());
  static_cast<void>(settings.windowFrame.value());
  static_cast<void>(Preferences::birthday());
  Preferences::fillInMissingDefaults();
}

void readDiary(Mutator& mutator, const QByteArray& diary) {
  DBManager::releaseSharedInstance();
  write(Paths::databaseFile(), mutator.changed(diary, 3));
  static_cast<void>(exportDiary(Paths::dataFolder() + QStringLiteral("/out.csv")));
  static_cast<void>(importBytes(kFiles[0]));
  static_cast<void>(Pressure::pressureByDate(QStringLiteral("2026-01-02")));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const QTemporaryDir home;
  qputenv("XDG_DATA_HOME", home.path().toUtf8());
  qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  std::signal(SIGALRM, [](int) {
    std::fprintf(stderr, "case %lu takes too long\n", current);
    std::abort();
  });
  if (!std::holds_alternative<ImportPreview>(importBytes(kFiles[0]))) return 1;
  QFile file(Paths::databaseFile());
  if (!file.open(QIODevice::ReadOnly)) return 1;
  const QByteArray diary = file.readAll();
  const unsigned long first = std::strtoul(argv[1], nullptr, 10);
  for (current = first; current < first + std::strtoul(argv[2], nullptr, 10); ++current) {
    alarm(kPatience);
    Mutator mutator(current);
    if (current % 10 != 0)
      readCsv(mutator);
    else if (current % 20 != 0)
      readSettings(mutator);
    else
      readDiary(mutator, diary);
  }
  return 0;
}
