// The window of the summary: its ways in and out, and that who cannot see it has every number of the page.
#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>

#include "application/Papers.h"
#include "application/ReportWindow.h"
#include "application/SummaryView.h"
#include "application/SummaryWindow.h"
#include "core/foundation/Settings.h"
#include "support/LaunchedHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class SummaryInWindow : public LaunchedHome {
 protected:
  SummaryInWindow() {
    settings.userMeasure.store(u"Metric"_s);
    settings.userBirthday.store(u"1970-05-03 00:00:00 +0000"_s);
    settings.dateFrom.store(at("2026-07-01T00:00:00"));
  }
  // A value of each kind on every third day from July on.
  void fill() {
    for (QDate day(2026, 7, 1); day < QDate(2026, 11, 16); day = day.addDays(3)) {
      const int wave = day.dayOfYear() % 7;
      execute(
          u"INSERT INTO general (user_pk, gdate, temperature, wellbeing, appetite, weight) "
          "VALUES (0, '%1', %2, %3, 1, %4)"_s.arg(day.toString(Qt::ISODate))
              .arg(36 + wave * 0.3)
              .arg(wave % 4)
              .arg(70.1 + wave));
      execute(
          u"INSERT INTO pressure (user_pk, pdate, systolic, diastolic, pulse, ppressure) "
          "VALUES (0, '%1', %2, 80, 66, %3)"_s.arg(day.toString(Qt::ISODate))
              .arg(110 + wave * 7)
              .arg(30 + wave * 7));
      execute(
          u"INSERT INTO blood (user_pk, bdate, hemoglobin, crp, esp, albumin, wbc) "
          "VALUES (0, '%1', 12.5, %2, 20, 4.1, 11)"_s.arg(day.toString(Qt::ISODate))
              .arg(0.3 * wave));
    }
  }
  void launchFilled() {
    launch();
    fill();
    delegate->didSelectDateFrom(at("2026-07-01T00:00:00"));
  }
  SummaryWindow& window() { return *delegate->papers().summaryWindow(); }
  SummaryView& view() { return *window().view(); }
  static QString spoken(QWidget* widget) {
    QAccessibleTextInterface* text = QAccessible::queryAccessibleInterface(widget)->textInterface();
    return text->text(0, text->characterCount());
  }
  QString printed() {
    writeBytes(file(u"a.pdf"_s), view().summary()->pdf());
    QProcess reader;
    reader.start(u"pdftotext"_s, {u"-raw"_s, file(u"a.pdf"_s), u"-"_s});
    EXPECT_TRUE(reader.waitForFinished());
    return QString::fromUtf8(reader.readAllStandardOutput());
  }
};

TEST_F(SummaryInWindow, SaysEveryNumberOfThePage) {
  launchFilled();
  press(Qt::Key_R, Qt::ControlModifier | Qt::ShiftModifier);
  ASSERT_NE(delegate->papers().summaryWindow(), nullptr);
  const QString text = spoken(&view());
  const QString paper = printed();
  static const QRegularExpression number(u"\\d[\\d.,]*\\d|\\d"_s);
  int count = 0;
  for (auto found = number.globalMatch(paper); found.hasNext(); ++count) {
    const QString shown = found.next().captured();
    EXPECT_TRUE(text.contains(shown)) << qPrintable(shown);
  }
  EXPECT_GT(count, 300);
  EXPECT_TRUE(text.contains(u"1 Jul 2026 – 15 Nov 2026"_s));
}

TEST_F(SummaryInWindow, IsFoundCopiedAndMadeLarger) {
  launchFilled();
  delegate->openSummary();
  QLineEdit* field = window().findField();
  field->setFocus();
  QTest::keyClicks(field, u"Hemoglobin"_s);
  QTest::keyClick(field, Qt::Key_Return);
  EXPECT_EQ(view().textCursor().selectedText(), u"Hemoglobin"_s);
  const int first = view().textCursor().position();
  const double width = view().document()->size().width();
  view().setZoom(2);
  EXPECT_TRUE(view().textCursor().selectedText() == u"Hemoglobin"_s &&
              view().document()->size().width() > 1.9 * width);
  window().findField()->setText(u"nowhere"_s);
  QTest::keyClick(field, Qt::Key_Return);
  EXPECT_EQ(view().textCursor().position(), first);
  EXPECT_TRUE(view().findText(u"hemoglobin"_s, false)) << "around its end";
  view().selectAll();
  view().copy();
  const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
  EXPECT_FALSE(copied->text().contains(QChar::ObjectReplacementCharacter));
  EXPECT_TRUE(copied->text().contains(u"Hemoglobin"_s) && copied->html().contains(u"data:image/svg+xml"_s));
}

TEST_F(SummaryInWindow, IsSavedAsItIsShownAndTellsWhatFailed) {
  launch();
  delegate->saveSummary();
  delegate->openSummary();
  EXPECT_EQ(questions.size(), 2) << "told that there is nothing";
  EXPECT_EQ(delegate->papers().summaryWindow(), nullptr);
  fill();
  delegate->didSelectDateFrom(at("2026-07-01T00:00:00"));
  withoutLeakCheck([this] { delegate->openReport(); });
  delegate->didSelectDateFrom(at("2026-11-01T00:00:00"));
  delegate->papers().reportWindow()->summaryButton()->click();
  EXPECT_TRUE(view().toPlainText().contains(u"1 Nov 2026 –"_s)) << "the interval in force";
  questions.clear();
  answeredPath = file(u"a.html"_s);
  window().saveButton()->click();
  EXPECT_TRUE(bytesOf(answeredPath).contains("1 Nov 2026"));
  answeredPath = file(u"b.pdf"_s);
  window().saveButton()->click();
  EXPECT_EQ(bytesOf(answeredPath), view().summary()->pdf());
  answeredPath = file(u"missing/a.pdf"_s);
  window().saveButton()->click();
  EXPECT_TRUE(window().line()->text().startsWith(u"The summary was not saved: "_s));
  window().printButton()->click();
  ASSERT_EQ(questions.size(), 4);
  EXPECT_TRUE(questions[0] == u"Save Summary…|Summary|pdf"_s && questions[3] == u"printer"_s);
  answeredPrinter = {.outputFile = file(u"printed.pdf"_s)};
  window().printButton()->click();
  EXPECT_EQ(bytesOf(answeredPrinter.outputFile), view().summary()->pdf());
  execute(u"UPDATE pressure SET systolic = 199 WHERE pdate = '2026-11-13'"_s);
  QEvent activation(QEvent::WindowActivate);
  QCoreApplication::sendEvent(&window(), &activation);
  EXPECT_TRUE(view().toPlainText().contains(u"199"_s)) << "made anew after a change";
}

}  // namespace
}  // namespace sanovia::test
