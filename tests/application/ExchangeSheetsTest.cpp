// Files in and out of the window: what the sheets show, ask and do.
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>

#include <csignal>
#include <sys/resource.h>

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
  // The sheet of a file with these bytes, in the place of an earlier one.
  ImportSheet& importing(const QByteArray& bytes) {
    if (auto* open = delegate->window()->findChild<ImportSheet*>()) open->reject();
    writeBytes(file(u"in.csv"_s), bytes);
    emit delegate->window()->fileDropped(file(u"in.csv"_s));
    return sheet<ImportSheet>();
  }
  static QString linesOf(const ImportSheet& sheet) {
    QStringList lines;
    for (int i = 0; i < sheet.linesList()->count(); ++i) lines.append(sheet.linesList()->item(i)->text());
    return lines.join(u'|');
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
  const QStringList told{
      u"Choose the order of dates.|Line 2, Date: \"10/11/2026\" is a date in two orders, and no other line decides"_s,
      u"Choose the units.|Line 2, Temperature: \"97.8\" is beyond what is plausible in °C; is it in °F?|Line 3"_s,
      u"Choose which reading counts.|Line 4, Date: \"2026-11-12\" stands in line 3 too"_s,
      u"New days: 2. Changed: 0. The same: 0.|"_s};
  QComboBox* const boxes[] = {import.orderBox(), import.unitsBox(), import.severalBox()};
  const int rows[] = {1, 2, 3};
  for (int i = 0; i < 4; ++i) {
    const QString all = import.tellsLabel()->text() + u'|' + linesOf(import);
    EXPECT_TRUE(all.contains(told[i])) << qPrintable(all);
    EXPECT_EQ(import.importButton()->isEnabled(), i == 3);
    if (i < 3) choose(boxes[i], rows[i]);
  }
  import.importButton()->click();
  EXPECT_EQ(query(u"SELECT gdate || ' ' || round(temperature, 1) FROM general ORDER BY gdate"_s),
            texts({"2026-11-10 36.6", "2026-11-12 38.0"}));
  EXPECT_EQ(std::pair(cell(3, 1), cell(3, 2)), std::pair(u"11/12/2026"_s, u"100.4"_s)) << "the table has it";

  for (auto* box : import.findChildren<QComboBox*>())
    EXPECT_EQ(QAccessible::queryAccessibleInterface(box)->relations(QAccessible::Label).size(), 1);
  auto& second = importing("Date,Sleep,Temperature\n2026-11-12,1,37\n");
  choose(second.columnBoxes().at(1), second.columnBoxes().at(1)->findText(u"Well-being"_s));
  EXPECT_TRUE(second.tellsLabel()->text().startsWith(u"New days: 0. Changed: 1."_s));
  EXPECT_EQ(linesOf(second), u"11/12/2026, Temperature, °F: 100.4 → 98.6"_s) << "as the diary shows it";
  choose(second.existingBox(), 1);
  EXPECT_EQ(linesOf(second), QString());
  EXPECT_TRUE(second.tellsLabel()->text().startsWith(u"New days: 0. Changed: 1."_s))
      << "by the chosen column";
  second.reject();
  EXPECT_EQ(query(u"SELECT count(*) FROM general WHERE wellbeing = 1"_s), texts({"0"}));
  EXPECT_FALSE(importing("Date,Temperature\n2026-11-12,38\n").importButton()->isEnabled()) << "all known";
}

TEST_F(ExchangeSheets, AnImportKeepsTheDiaryAndPutsItBack) {
  setLocale(u"de_DE"_s);
  launch();
  execute(u"INSERT INTO general (gdate, temperature) VALUES ('2026-11-15', 37.5)"_s);
  const QByteArray before = bytesOf(Paths::databaseFile());
  const QByteArray csv = "date,temperature\n2026-11-15,38\n2026-11-14,36.6\n";
  // Where no copy can be made, nothing is imported.
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit usual{};
  getrlimit(RLIMIT_FSIZE, &usual);
  const rlimit full{4096, usual.rlim_max};
  auto& refused = importing(csv);
  setrlimit(RLIMIT_FSIZE, &full);
  refused.importButton()->click();
  setrlimit(RLIMIT_FSIZE, &usual);
  EXPECT_TRUE(refused.tellsLabel()->text().startsWith(u"Es wurde nichts importiert, weil sich"_s));
  EXPECT_EQ(bytesOf(Paths::databaseFile()), before);

  auto& import = importing(csv);
  import.importButton()->click();
  EXPECT_EQ(cell(0, 2) + cell(1, 2), u"38.036.6"_s);
  EXPECT_TRUE(import.tellsLabel()->text().contains(u"als Kopie „Sanovia-2026-11-15-120000.db“"_s));
  EXPECT_TRUE(import.backButton()->isVisible() && !import.importButton()->isVisible());
  import.backButton()->click();
  EXPECT_EQ(query(u"SELECT gdate || temperature FROM general"_s), texts({"2026-11-1537.5"}));
  EXPECT_EQ(cell(0, 2) + cell(1, 2), u"37.5"_s) << "the table has it back";
  EXPECT_EQ(import.tellsLabel()->text(), u"Das Tagebuch ist wieder wie vor dem Import."_s);
}

TEST_F(ExchangeSheets, WhatIsRefusedChangesNoByteOfTheDiary) {
  launch();
  addRow("general");
  const QByteArray before = bytesOf(Paths::databaseFile());
  for (const QByteArray& bytes :
       {QByteArray("date,pulse\n2026-11-15,x\n"), QByteArray("pulse\n60\n"), noise(3, 900), QByteArray(),
        QByteArray("date,pulse\n01/02/2026,60\n"), QByteArray("date,pulse\n2026-11-15,\"60\n"),
        QByteArray("date,temperature\n2026-11-15,97.8\n"), QByteArray("date,pulse\n2026-11-31,60\n"),
        QByteArray("date,pulse\n2026-11-15,60\n2026-11-15,61\n"), QByteArray("date\n2026-11-15\n")}) {
    auto& import = importing(bytes);
    EXPECT_FALSE(import.importButton()->isEnabled()) << bytes.constData();
    import.importButton()->click();
    QTest::keyClick(&import, Qt::Key_Return);
    EXPECT_EQ(bytesOf(Paths::databaseFile()), before) << bytes.constData();
  }
}

// The prompt and the sheet, one after the other.
TEST_F(ExchangeSheets, TheSamplesComeInAsTheyDoAtThePrompt) {
  launch();
  const auto prompt = [](const QStringList& arguments) {
    QProcess process;
    process.start(QStringLiteral(SANOVIA_CLI), arguments);
    EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0)
        << process.readAllStandardError().data();
    return process.readAllStandardOutput();
  };
  for (const auto& [name, options, units, several] : {std::tuple("german.csv", "", 0, 0),
                                                      {"meter.csv", "--several=mean", 0, 1},
                                                      {"scale.csv", "", 0, 0},
                                                      {"us.csv", "--units=us", 2, 0},
                                                      {"watch.csv", "", 0, 0}}) {
    const QString sample = QStringLiteral(SANOVIA_SAMPLES "/import/") + QLatin1String(name);
    auto& import = importing(bytesOf(sample));
    choose(import.unitsBox(), units);
    choose(import.severalBox(), several);
    import.importButton()->click();
    const QByteArray bySheet = prompt({u"export"_s, u"-"_s});
    for (const char* table : {"general", "pressure", "blood"})
      execute(u"DELETE FROM %1"_s.arg(QLatin1String(table)));
    EXPECT_EQ(prompt({u"export"_s, u"-"_s}).count('\n'), 1);
    prompt(QStringList(u"import"_s) + QString::fromLatin1(options).split(u' ', Qt::SkipEmptyParts) +
           QStringList(sample));
    EXPECT_EQ(prompt({u"export"_s, u"-"_s}), bySheet) << name;
    EXPECT_GT(bySheet.count('\n'), 2) << name;
    for (const char* table : {"general", "pressure", "blood"})
      execute(u"DELETE FROM %1"_s.arg(QLatin1String(table)));
  }
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
