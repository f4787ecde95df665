#include "core/exchange/DiaryExport.h"

#include "core/database/Connection.h"
#include "core/database/DBManager.h"
#include "core/exchange/DiaryReader.h"
#include "core/exchange/DiaryTable.h"
#include "core/exchange/Fhir.h"
#include "core/foundation/WholeFile.h"

namespace sanovia {

ExchangeResult exportDiary(const QString& file, const ExchangeOptions& options) {
  const QString diary = DBManager::sharedInstance().databasePath();
  Connection connection(diary, options.patience);
  if (!connection.run("BEGIN")) return FileError{connection.error()};
  auto read = readDiary(connection, diary, options.progress);
  if (const auto* error = std::get_if<FileError>(&read)) return *error;

  auto& [days, rowsWithoutDay] = std::get<DiaryDays>(read);
  std::erase_if(days, [&options](const ExchangeDay& day) {
    return (!options.from.isEmpty() && day.date < options.from) ||
           (!options.to.isEmpty() && day.date > options.to);
  });
  const bool isFhir = options.format == ExchangeOptions::Format::Fhir;
  const QByteArray text = isFhir ? fhirOf(days, options.withPerson) : csvOf(days);
  if (auto error = writeWhole(file, text, options.streamPatience)) return *error;
  return ExchangeReport{.diary = diary, .days = std::ssize(days), .rowsWithoutDay = rowsWithoutDay};
}

}  // namespace sanovia
