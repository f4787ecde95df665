// Files in and out of the window: what the sheets show, ask and do.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>

#include "application/ExportSheet.h"
#include "application/ImportSheet.h"
#include "core/foundation/Paths.h"
#include "support/LaunchedHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class ExchangeSheets : public LaunchedHome {
 protected:
  template <class Sheet>
  Sheet& sheet() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    auto* found = delegate->window()->findChild<Sheet*>();
    EXPECT_NE(found, nullptr);
    return *found;
  }
  static void choose(QComboBox* box, int row) {
    box->setCurrentIndex(row);
    emit box->activated(row);
  }
};

TEST_F(ExchangeSheets, AnImportAsksWhatTheFileLeavesOpenAndShowsWhatItDid) {
  launch();
  answeredPath = file(u"visit.csv"_s);
  writeBytes(answeredPath,
             "Date,Temperature,Sleep\n10/11/2026,97.8,7\n12/11/2026,98.6,8\n12/11/2026,100.4,8\n");
  ui().miImport->trigger();
  auto& import = sheet<ImportSheet>();
  const QStringList told{u"Line 2, Date: this may be two days. Choose the order of the dates."_s,
                         u"Line 2, Temperature: nobody has this value. Choose the units."_s,
                         u"Line 4, Date: the day has several readings. Choose which counts."_s,
                         u"New days: 2. Changed: 0. The same: 0."_s};
  QComboBox* const boxes[] = {import.orderBox(), import.unitsBox(), import.severalBox()};
  const int rows[] = {1, 2, 3};
  for (int i = 0; i < 4; ++i) {
    EXPECT_TRUE(import.tellsLabel()->text().startsWith(told[i])) << qPrintable(import.tellsLabel()->text());
    EXPECT_EQ(import.importButton()->isEnabled(), i == 3);
    if (i < 3) choose(boxes[i], rows[i]);
  }
  import.importButton()->click();
  EXPECT_EQ(query(u"SELECT gdate || ' ' || round(temperature, 1) FROM general ORDER BY gdate"_s),
            texts({"2026-11-10 36.6", "2026-11-12 38.0"}));
  EXPECT_EQ(std::pair(cell(3, 1), cell(3, 2)), std::pair(u"11/12/2026"_s, u"100.4"_s)) << "the table has it";

  writeBytes(answeredPath, "Date,Sleep\n2026-11-12,1\n");
  emit delegate->window()->fileDropped(answeredPath);
  auto& second = sheet<ImportSheet>();
  choose(second.columnBoxes().at(1), second.columnBoxes().at(1)->findText(u"Well-being"_s));
  EXPECT_TRUE(second.tellsLabel()->text().startsWith(u"New days: 0. Changed: 1."_s));
  second.reject();
  EXPECT_EQ(query(u"SELECT count(*) FROM general WHERE wellbeing = 1"_s), texts({"0"}));
}

TEST_F(ExchangeSheets, AnExportHasTheDaysAndTheWordsThatWereAskedFor) {
  launch();
  addRow("pressure", "2026-11-14");
  addRow("pressure", "2020-01-01");
  execute(u"UPDATE pressure SET pulse = 60"_s);
  for (const bool isFhir : {false, true}) {
    answeredPath = file(isFhir ? u"out.json"_s : u"out.csv"_s);
    ui().miExport->trigger();
    auto& ask = sheet<ExportSheet>();
    ask.formatBox()->setCurrentIndex(isFhir ? 1 : 0);
    ask.daysBox()->setCurrentIndex(isFhir ? 1 : 0);
    ask.personBox()->setChecked(true);
    ask.accept();
    const QByteArray bytes = bytesOf(answeredPath);
    EXPECT_EQ(bytes.contains("2020-01-01"), !isFhir);
    EXPECT_EQ(bytes.contains("8867-4") && bytes.contains("Patient"), isFhir);
  }
  answeredPath = Paths::settingsFile();
  ui().miExport->trigger();
  sheet<ExportSheet>().accept();
  EXPECT_TRUE(questions.last().contains(u"belongs to the diary"_s));
}

}  // namespace
}  // namespace sanovia::test
