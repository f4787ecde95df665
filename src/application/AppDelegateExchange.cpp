// The commands of AppDelegate that bring files of other programs in and write files for them.
#include <QFileInfo>

#include "application/AppDelegate.h"
#include "application/Asker.h"
#include "application/ExportSheet.h"
#include "application/FileWriting.h"
#include "application/ImportSheet.h"
#include "application/MainWindow.h"
#include "core/dates/Utils.h"
#include "core/diary/DayEntries.h"
#include "core/exchange/DiaryExport.h"
#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"
#include "ui_MainWindow.h"

namespace sanovia {
namespace {

QString dayText(const QDateTime& date) { return Utils::convertDate(date, Utils::databaseFormat()); }

}  // namespace

void AppDelegate::importFile() {
  const FileQuestion question{.title = word("import_button"),
                              .proposedName = {},
                              .ending = QStringLiteral("csv"),
                              .furtherEndings = {QStringLiteral("txt"), QStringLiteral("tsv")}};
  Asker::shared().askExistingFile(_window.get(), question, [this](const QString& path) { importFrom(path); });
}

void AppDelegate::importFrom(const QString& path) {
  const auto file = readWhole(path, kLargestImport);
  if (std::holds_alternative<FileError>(file)) {
    Asker::shared().tell(_window.get(), filled(word("import_unreadable"), QFileInfo(path).fileName()));
    return;
  }
  DayEntries::shared().storePending();
  auto* sheet = new ImportSheet(_window.get(), QFileInfo(path).fileName(), std::get<QByteArray>(file));
  connect(sheet, &ImportSheet::diaryChanged, this, &AppDelegate::didRestore);
  sheet->open();
}

void AppDelegate::exportFile() {
  auto* sheet = new ExportSheet(_window.get());
  connect(sheet, &QDialog::accepted, this, [this, sheet] {
    ExchangeOptions options{.withPerson = sheet->hasPerson(), .streamPatience = kPipePatience};
    if (sheet->isFhir()) options.format = ExchangeOptions::Format::Fhir;
    if (sheet->isIntervalOnly()) {
      options.from = dayText(getStartDate());
      options.to = dayText(getEndDate());
    }
    writeWhereAsked(_window.get(),
                    {.question = {.title = word("export_heading"),
                                  .proposedName = Language::stringForKey(QStringLiteral("Untitled")),
                                  .ending = sheet->isFhir() ? QStringLiteral("json") : QStringLiteral("csv")},
                     .write = [options](const QString& path) -> std::optional<FileError> {
                       DayEntries::shared().storePending();
                       const ExchangeResult result = exportDiary(path, options);
                       const auto* error = std::get_if<FileError>(&result);
                       return error == nullptr ? std::nullopt : std::optional(*error);
                     },
                     .failedWord = "export_failed"});
  });
  sheet->open();
}

}  // namespace sanovia
