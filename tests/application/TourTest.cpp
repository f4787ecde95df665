// The whole tour of a person with the real window: first run, preferences, a week of entries, charts,
// interval, report shown, saved and printed, language, quit and restart. Its pictures are those of the
// README.
#include <QDir>
#include <QPdfDocument>
#include <QPushButton>

#include "application/Papers.h"
#include "application/PreferencesSheet.h"
#include "application/ReportWindow.h"
#include "printing/CupsServer.h"
#include "report/SanoviaReport.h"
#include "support/LaunchedHome.h"
#include "ui/controls/BaseColoredButton.h"
#include "ui_Preferences.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class Tour : public LaunchedHome {
 protected:
  static void picture(QWidget* of, const QString& name) {
    QDir().mkpath(QStringLiteral(SANOVIA_TOUR_PICTURES));
    EXPECT_TRUE(of->grab().save(QStringLiteral(SANOVIA_TOUR_PICTURES "/tour-%1.png").arg(name)));
  }
  void setPreferences() {
    delegate->preferences();
    PreferencesSheet* sheet = delegate->preferencesSheet();
    sheet->outlets().tfName->setText(u"Emma Miller"_s);
    sheet->outlets().pbBirthday->setDate(QDate(1974, 5, 12));
    sheet->outlets().tfHeight->setStringValue(u"66"_s);
    picture(sheet, u"preferences"_s);
    sheet->outlets().btnOK->click();
  }
  // Presses the plus button of each field so many times.
  void enter(int row, const QList<int>& presses) {
    editRow(row);
    ASSERT_TRUE(waitForPanel(true));
    for (int field = 1; field <= presses.size(); ++field)
      for (int i = 0; i < presses[field - 1]; ++i)
        panel().buttonOf(EditAnimationView::_btnID + field)->click();
    if (row == 0 && presses.size() == 4) picture(delegate->window(), u"entry"_s);
    QTest::keyClick(&panel(), Qt::Key_Escape);
    ASSERT_TRUE(waitForPanel(false));
  }
  void openReport() {
    withoutLeakCheck([this] { ui().reportOutlet->click(); });
    ASSERT_TRUE(delegate->papers().reportWindow() != nullptr &&
                delegate->papers().reportWindow()->isVisible());
  }
};

TEST_F(Tour, FromTheFirstRunToTheNextOne) {
  const CupsServer server(file(u"cups"_s));
  answeredPath = file(u"report.pdf"_s);
  answeredPrinter.printer = CupsServer::kQueue;

  launch();
  setPreferences();
  for (int day = 0; day < 7; ++day) enter(day, {1 + day % 3, 1 + day % 2, 1 + day % 2, 3 + day});
  ui().bnPressure->click();
  for (int day = 0; day < 7; day += 2) enter(day, {2 + day, 2 + day, 2 + day});
  EXPECT_EQ(query(u"SELECT count(*) FROM general, pressure WHERE weight > 0"_s), texts({"28"})) << "7 by 4";
  ui().bnGeneral->click();
  picture(delegate->window(), u"table"_s);
  ui().bnCharts->click();
  delegate->didSelectDateFrom(at("2026-11-09T12:00:00"));
  ui().chartsView->selectDay(5);
  picture(delegate->window(), u"charts"_s);

  openReport();
  const ReportWindow* report = delegate->papers().reportWindow();
  EXPECT_EQ(report->document()->pageCount(), 2) << "general condition and blood pressure";
  QTest::qWait(500);  // the pages are rendered in the background
  picture(delegate->papers().reportWindow(), u"report"_s);
  SanoviaReport again(at("2026-11-09T00:00:00"), at("2026-11-15T23:59:59"), SeriesModeDay);
  const QByteArray expected = again.createReportData();
  QTest::keyClick(delegate->papers().reportWindow(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return QFile::exists(answeredPath); })) << "a key presses for a while";
  EXPECT_TRUE(bytesOf(answeredPath) == expected);
  report->printButton()->click();
  EXPECT_NE(server.printed(), QString());
  EXPECT_TRUE(bytesOf(server.paper()) == expected) << "the printed document is the report";
  EXPECT_EQ(askedOn, QList<QWidget*>(2, delegate->papers().reportWindow()));

  setLocale(u"de_DE"_s);
  relaunch();
  EXPECT_EQ(labels()[2], u"7 Tage"_s);
  picture(delegate->window(), u"german"_s);
  for (const QString& line : takeLog())
    EXPECT_TRUE(line.startsWith(u"This plugin does not support"_s)) << qPrintable(line);
}

}  // namespace
}  // namespace sanovia::test
