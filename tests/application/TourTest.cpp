// The whole tour of a person with the real window: first run, preferences, a week of entries, charts,
// interval, report shown, saved and printed, language, quit and restart. Its pictures are those of the
// README.
#include <QCalendarWidget>
#include <QDir>
#include <QPdfDocument>

#include <cups/cups.h>

#include "application/Asker.h"
#include "application/PreferencesSheet.h"
#include "application/ReportWindow.h"
#include "charts/ChartsView.h"
#include "controls/BaseColoredButton.h"
#include "entry/EditAnimationView.h"
#include "entry/MyTableView.h"
#include "foundation/SettingsStore.h"
#include "localisation/Language.h"
#include "printing/CupsServer.h"
#include "report/SanoviaReport.h"
#include "support/LaunchedHome.h"
#include "ui_Preferences.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

// Answers each question as a person who knows what they want.
class KnowingAsker : public Asker {
 public:
  explicit KnowingAsker(QString path) : _path(std::move(path)) {}
  void askFileName(QWidget* /*window*/, const FileQuestion& /*question*/,
                   std::function<void(const QString&)> answer) override {
    answer(_path);
  }
  void askPrinter(QWidget* /*window*/, std::function<void(const PrinterChoice&)> answer) override {
    answer({.printer = CupsServer::kQueue});
  }

 private:
  QString _path;
};

class Tour : public LaunchedHome {
 protected:
  Tour() { setLocale(u"en_US"_s); }
  ~Tour() override {
    Asker::setShared(nullptr);
    qunsetenv("CUPS_SERVER");
  }

  static void picture(QWidget* of, const QString& name) {
    QDir().mkpath(QStringLiteral(SANOVIA_TOUR_PICTURES));
    EXPECT_TRUE(of->grab().save(QStringLiteral(SANOVIA_TOUR_PICTURES "/tour-%1.png").arg(name)));
  }
  MyTableView& table() { return *ui().dataView->getTable(); }
  EditAnimationView& panel() { return *delegate->editView(); }
  void waitForPanel(bool open) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return panel().opened() == open && !panel().isAnimating(); }));
  }
  void openRow(int row) {
    table().selectRow(row);
    QTest::keyClick(&table(), Qt::Key_Return);
    waitForPanel(true);
  }
  // Presses the plus button of a field, 1 for the first.
  void plus(int field, int times) {
    for (int i = 0; i < times; ++i) panel().buttonOf(EditAnimationView::_btnID + field)->click();
  }
  void shutPanel() {
    QTest::keyClick(&panel(), Qt::Key_Escape);
    waitForPanel(false);
  }

  void setPreferences() {
    delegate->preferences();
    PreferencesSheet* sheet = delegate->preferencesSheet();
    sheet->outlets().tfName->setText(u"Emma Miller"_s);
    sheet->outlets().pbBirthday->setDate(QDate(1974, 5, 12));
    sheet->outlets().tfHeight->setStringValue(u"66"_s);
    picture(sheet, u"preferences"_s);
    sheet->outlets().btnOK->click();
    EXPECT_FALSE(sheet->isVisible());
  }
  void enterAWeek() {
    for (int day = 0; day < 7; ++day) {
      openRow(day);
      plus(1, 1 + day % 3);
      plus(2, 1 + day % 2);
      plus(3, 1 + day % 2);
      plus(4, 3 + day);
      if (day == 0) picture(delegate->window(), u"entry"_s);
      shutPanel();
    }
    ui().bnPressure->click();
    for (int day = 0; day < 7; day += 2) {
      openRow(day);
      for (const int field : {1, 2, 3}) plus(field, 2 + day);
      shutPanel();
    }
  }
};

TEST_F(Tour, FromTheFirstRunToTheNextOne) {
  const CupsServer server(file(u"cups"_s));
  qputenv("CUPS_SERVER", server.address().toLatin1());
  cupsSetServer(nullptr);  // looks again
  const QString saved = file(u"report.pdf"_s);
  Asker::setShared(std::make_unique<KnowingAsker>(saved));

  launch();
  delegate->window()->activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(delegate->window()));
  EXPECT_EQ(table().model()->rowCount(), 15);
  EXPECT_FALSE(ui().reportOutlet->isEnabled());
  picture(delegate->window(), u"first-run"_s);
  setPreferences();
  enterAWeek();
  EXPECT_EQ(query(u"SELECT count(*), count(weight) FROM general WHERE weight > 0"_s), texts({"7"}));
  EXPECT_EQ(query(u"SELECT count(*) FROM pressure"_s), texts({"4"}));

  ui().bnGeneral->click();
  picture(delegate->window(), u"table"_s);
  ui().bnCharts->click();
  delegate->didSelectDateFrom(at("2026-11-09T12:00:00"));
  EXPECT_EQ(ui().dateFieldInterval->text(), u"7 days"_s);
  ui().chartsView->selectDay(5);
  EXPECT_FALSE(ui().chartsView->dayText(101, 5).endsWith(u"not entered"_s));
  picture(delegate->window(), u"charts"_s);

  EXPECT_TRUE(ui().reportOutlet->isEnabled());
  withoutLeakCheck([this] { ui().reportOutlet->click(); });
  ReportWindow* report = delegate->reportWindow();
  ASSERT_TRUE(report != nullptr && report->isVisible());
  EXPECT_EQ(report->document()->pageCount(), 2) << "general condition and blood pressure";
  QTest::qWait(500);  // the pages are rendered in the background
  picture(report, u"report"_s);
  report->saveButton()->click();
  SanoviaReport again(at("2026-11-09T00:00:00"), at("2026-11-15T23:59:59"), SeriesModeDay);
  const QByteArray expected = again.createReportData();
  EXPECT_TRUE(expected.startsWith("%PDF"));
  EXPECT_EQ(QPdfDocument().load(saved), QPdfDocument::Error::None);
  report->printButton()->click();
  EXPECT_EQ(server.finishedJob(1).value(u"job-state"_s), u"completed"_s);
  EXPECT_TRUE(bytesOf(server.paper()) == expected) << "the printed document is the report";
  report->close();

  setLocale(u"de_DE"_s);
  relaunch();
  EXPECT_EQ(ui().bnCharts->text(), u"Diagramme"_s);
  EXPECT_EQ(ui().chartsView->buttons().first()->text(), u"Temperatur, °F"_s);
  EXPECT_EQ(ui().toolsView->mode(), 1);
  EXPECT_EQ(ui().dateFieldInterval->text(), u"7 Tage"_s);
  EXPECT_FALSE(ui().chartsView->dayText(102, 7).endsWith(u"nicht eingetragen"_s));
  picture(delegate->window(), u"german"_s);
  Language::setLanguage(Language::spanish());
  EXPECT_EQ(ui().bnCharts->text(), u"Gráficos"_s) << "every control follows at once";
  QStringList log = takeLog();
  log.removeIf([](const QString& line) { return line.startsWith(u"This plugin does not support"_s); });
  EXPECT_EQ(log, QStringList());
  quit();
}

}  // namespace
}  // namespace sanovia::test
