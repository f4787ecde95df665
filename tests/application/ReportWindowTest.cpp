// The window of the report: that it shows, finds, saves and tells what the diary holds now.
#include <QAccessible>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPdfDocument>
#include <QPushButton>
#include <QScrollBar>

#include "application/Papers.h"
#include "application/ReportPages.h"
#include "application/ReportWindow.h"
#include "paper/PrintSettings.h"
#include "support/LaunchedHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class ReportShown : public LaunchedHome {
 protected:
  ReportShown() {
    launch();
    execute(u"INSERT INTO pressure (pdate, systolic, diastolic, pulse) VALUES ('2026-11-15', 123, 80, 70)"_s);
    delegate->dataIsPresent();
    withoutLeakCheck([this] { delegate->openReport(); });
    EXPECT_TRUE(QTest::qWaitForWindowActive(delegate->papers().reportWindow()));
  }
  ~ReportShown() override { PrintSettings::setPaperSize({}); }
  ReportWindow& window() { return *delegate->papers().reportWindow(); }
  void activate() {
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&window(), &activation);
  }
};

TEST_F(ReportShown, IsMadeAnewAfterAChangeAloneAndSavedAsItIsShown) {
  const QByteArray first = window().bytes();
  activate();
  EXPECT_EQ(window().bytes(), first);
  execute(u"UPDATE pressure SET systolic = 177, ppressure = 97"_s);
  answeredPath = file(u"saved.pdf"_s);
  activate();
  EXPECT_TRUE(window().pages()->textOf(0).contains(u"177"_s));
  execute(u"UPDATE pressure SET systolic = 155"_s);
  window().saveButton()->click();
  EXPECT_EQ(bytesOf(answeredPath), window().bytes());
  EXPECT_TRUE(window().pages()->textOf(0).contains(u"177"_s)) << "what is shown, whatever has come since";
  answeredPath = file(u"no folder/saved.pdf"_s);
  window().saveButton()->click();
  EXPECT_TRUE(window().line()->text().startsWith(u"The report was not saved: "_s));
  execute(u"DELETE FROM pressure"_s);
  activate();
  EXPECT_GT(window().document()->pageCount(), 0) << "what is shown stays when nothing is left";
}

TEST_F(ReportShown, IsFoundInZoomedCopiedAndRead) {
  ReportPages& pages = *window().pages();
  EXPECT_TRUE(pages.findText(u"pulse"_s, true) && pages.findText(u"pulse"_s, false));
  EXPECT_EQ(window().findField()->visibleRegion().boundingRect(), window().findField()->rect());
  QTest::keyClicks(window().findField(), u"nowhere"_s);
  QTest::keyClick(window().findField(), Qt::Key_Return);
  EXPECT_EQ(window().line()->text(), u"Not found"_s);
  pages.copyText();
  EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(u"Blood pressure"_s));
  const double width = pages.rectOf(0).width();
  pages.zoomBy(1.25);
  EXPECT_NEAR(pages.rectOf(0).width(), width * 1.25, 2);
  pages.fitWidth();
  EXPECT_NEAR(pages.rectOf(0).width(), width, 2);
  QAccessibleInterface* document = QAccessible::queryAccessibleInterface(&pages);
  ASSERT_EQ(document->childCount(), window().document()->pageCount());
  EXPECT_TRUE(document->child(0)->text(QAccessible::Name).contains(u"Blood pressure"_s));
  EXPECT_EQ(document->indexOfChild(document->child(0)), 0);
}

TEST_F(ReportShown, IsPrintedOnThePaperThatWasChosenAndSaysWhenItIsNot) {
  window().resize(820, 500);
  window().pages()->verticalScrollBar()->setValue(100);
  answeredPrinter = {.outputFile = file(u"printed.pdf"_s), .paper = {842, 595}};
  window().printButton()->click();
  EXPECT_EQ(bytesOf(answeredPrinter.outputFile), window().bytes());
  EXPECT_NEAR(window().document()->pagePointSize(0).height(), 842, 1) << "A4, upright";
  EXPECT_EQ(window().pages()->verticalScrollBar()->value(), 100);
  EXPECT_EQ(window().line()->text(), QString());
  answeredPrinter.paper = {420, 595};
  window().printButton()->click();
  EXPECT_NEAR(window().document()->pagePointSize(0).height(), 842, 1) << "A5 has no room for the days";
  answeredPrinter.outputFile = file(u"no folder/printed.pdf"_s);
  window().printButton()->click();
  EXPECT_FALSE(window().line()->text().isEmpty());
}

TEST_F(ReportShown, HasItsEndingAndThePaperOfItsPlace) {
  EXPECT_EQ(withEnding(u"Report 01.02.2026"_s, {u"pdf"_s}), u"Report 01.02.2026.pdf"_s);
  EXPECT_EQ(withEnding(u"a.PDF"_s, {u"svg"_s, u"pdf"_s}), u"a.PDF"_s);
  const QByteArray all = qgetenv("LC_ALL");
  qunsetenv("LC_ALL");
  EXPECT_EQ(PrintSettings::paperSize().id(), QPageSize::Letter);
  qputenv("LC_PAPER", "de_DE.UTF-8");
  EXPECT_EQ(PrintSettings::paperSize().id(), QPageSize::A4);
  qunsetenv("LC_PAPER");
  if (!all.isNull()) qputenv("LC_ALL", all);
}

}  // namespace
}  // namespace sanovia::test
