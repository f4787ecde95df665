// The summary as a person holds it: charts by number, pages, texts in five languages, the finished documents.
#include <QAbstractTextDocumentLayout>
#include <QProcess>
#include <QTextBlock>

#include "core/exchange/DiaryImport.h"
#include "core/foundation/Settings.h"
#include "core/localisation/Language.h"
#include "core/preferences/Preferences.h"
#include "paper/PrintSettings.h"
#include "summary/HealthSummary.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

const QDate kEnd(2026, 11, 22);

class SummaryPaper : public TestHome {
 protected:
  SummaryPaper() { setUp(u"en_US"_s, "Metric"); }
  ~SummaryPaper() override { PrintSettings::setPaperSize({}); }

  void setUp(const QString& locale, const char* measure) {
    setLocale(locale);
    Language::restart();
    Preferences::store(u"Анна Müller 王"_s, 1.7F, QString::fromLatin1(measure), at("1970-05-03T00:00:00"));
  }
  // Every value of every kind on each of the last days, the blood tests on every third.
  void fill(int days) {
    QByteArray csv =
        "date,temperature,wellbeing,appetite,weight,systolic,diastolic,pulse,ppressure,hemoglobin,crp,esr,"
        "albumin,wbc\n";
    for (int i = 0; i < days; ++i) {
      const int wave = i % 10;
      csv += kEnd.addDays(i + 1 - days).toString(Qt::ISODate).toLatin1() +
             QStringLiteral(",%1,%2,%3,%4,%5,80,70,%6,")
                 .arg(36 + wave * 0.2)
                 .arg(wave % 4)
                 .arg(wave % 2)
                 .arg(70.5 + wave)
                 .arg(105 + wave * 5)
                 .arg(25 + wave * 5)
                 .toLatin1() +
             ((days - 1 - i) % 3 == 0 ? "12.5,0.4,20,4.1,11\n" : ",,,,\n");
    }
    writeBytes(file(u"a.csv"_s), csv);
    EXPECT_TRUE(std::holds_alternative<ExchangeReport>(importDiary(file(u"a.csv"_s), {})));
  }
  HealthSummary lastDays(int days) { return {kEnd.addDays(1 - days), kEnd}; }

  static QString output(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0) << qPrintable(program);
    return QString::fromUtf8(process.readAllStandardOutput());
  }
  // Without line breaks, since a document breaks lines where it likes.
  QString pdfText(const QByteArray& pdf) {
    writeBytes(file(u"a.pdf"_s), pdf);
    output(u"qpdf"_s, {u"--check"_s, file(u"a.pdf"_s)});
    return output(u"pdftotext"_s, {u"-raw"_s, file(u"a.pdf"_s), u"-"_s}).simplified().remove(u' ');
  }
  SmallChart chartOf(int days, const DatedValues& values, MeasureId id, std::optional<NormLimits> norm) {
    const MeasureSummary row{&measure(id), values, *statisticsOf(values), norm, {}, {}};
    const SummaryFormat format;
    const TimeAxis axis = timeAxis(kEnd.addDays(1 - days), kEnd, 60, 460, kChartFont, format, _text);
    return smallChart(row, axis, {500, 40}, format, _text);
  }
  PaperText _text;
};

TEST_F(SummaryPaper, AChartReadsFromADayToTenYears) {
  const DatedValues one{{kEnd, 120}};
  const SmallChart day = chartOf(1, one, MeasureId::Systolic, NormLimits{110, 140});
  ASSERT_EQ(day.points.size(), 1U);
  EXPECT_EQ(day.points[0].at, QPointF(260, day.plot.top() + day.plot.height() * 20 / 30));
  EXPECT_EQ(day.marks.size(), 1U);

  DatedValues values;
  for (int i = 3652; i >= 0; --i) values.push_back({kEnd.addDays(-i), 100.0 + i % 50});
  const auto lastOf = [&](int days) { return DatedValues(values.end() - days, values.end()); };
  struct Case {
    int days;
    size_t least, most;
    bool hasRanges;
  };
  for (const Case& at : {Case{119, 119, 119, false},
                         {120, 18, 19, true},
                         {1094, 157, 158, true},
                         {1096, 36, 37, true},
                         {3653, 120, 121, true}}) {
    SCOPED_TRACE(at.days);
    const SmallChart chart = chartOf(at.days, lastOf(at.days), MeasureId::Systolic, NormLimits{110, 140});
    EXPECT_TRUE(chart.points.size() >= at.least && chart.points.size() <= at.most) << chart.points.size();
    EXPECT_EQ(!chart.ranges.empty(), at.hasRanges);
    EXPECT_TRUE(chart.marks.size() >= 3 && chart.marks.size() <= 12) << chart.marks.size();
    for (const SmallChart::Point& point : chart.points) EXPECT_TRUE(chart.plot.contains(point.at));
    for (size_t i = 0; i < chart.texts.size(); ++i) {
      const auto rectOf = [&](const TextMark& mark) {
        return QRectF(mark.at, _text.size(mark.text, mark.font)).adjusted(0, 1, 0, -1);
      };
      EXPECT_TRUE(QRectF(QPointF(), chart.size).adjusted(0, -2, 0, 2).contains(rectOf(chart.texts[i])));
      for (size_t j = 0; j < i; ++j)
        EXPECT_FALSE(rectOf(chart.texts[i]).intersects(rectOf(chart.texts[j])))
            << qPrintable(chart.texts[i].text);
    }
  }
  const TimeMark mark =
      timeAxis(kEnd.addDays(-3652), kEnd, 60, 460, kChartFont, SummaryFormat(), _text).marks.front();
  EXPECT_TRUE(mark.day == QDate(2017, 1, 1) && mark.text == u"2017"_s) << qPrintable(mark.text);
  // Days without a value widen the distance, and equal values have a scale, too.
  const SmallChart gap =
      chartOf(11, {{kEnd.addDays(-10), 70}, {kEnd.addDays(-9), 70}, {kEnd, 70}}, MeasureId::Weight, {});
  EXPECT_NEAR(gap.points[2].at.x() - gap.points[1].at.x(), 9 * (gap.points[1].at.x() - gap.points[0].at.x()),
              1e-6);
  EXPECT_DOUBLE_EQ(gap.points[0].at.y(), gap.plot.center().y());
}

TEST_F(SummaryPaper, TakesTwoPagesAtMostAndPartsNoMeasure) {
  fill(3653);
  for (const QPageSize::PageSizeId paper : {QPageSize::A4, QPageSize::Letter})
    for (const int days : {1, 14, 365, 3653}) {
      SCOPED_TRACE(testing::Message() << days << " days on paper " << paper);
      const PageRoom room{QPageSize(paper)};
      const IntervalSummary numbers = readSummary(kEnd.addDays(1 - days), kEnd, summaryPersonOfPreferences());
      const PagedSummary paged = pagedSummary(numbers, room, kEnd, _text);
      EXPECT_EQ(paged.pages, 2);
      const QTextDocument& document = *paged.built.document;
      ASSERT_EQ(paged.built.measures.size(), 14U);
      for (const MeasurePlace& place : paged.built.measures) {
        const auto rectAt = [&](int position) {
          return document.documentLayout()->blockBoundingRect(document.findBlock(position));
        };
        EXPECT_EQ(std::floor(rectAt(place.first).top() / room.body.height()),
                  std::floor((rectAt(place.last).bottom() - 1) / room.body.height()));
      }
      const qsizetype tested = std::ssize(paged.plan.tests->days);
      const auto shown = static_cast<qsizetype>(paged.layout.testedDays);
      EXPECT_EQ(tested, (days + 2) / 3);
      EXPECT_TRUE(shown == tested || shown > 5) << shown;
      const QString text = document.toPlainText();
      EXPECT_EQ(text.contains(u"not shown: %1"_s.arg(tested - shown)), shown < tested);
      EXPECT_TRUE(text.contains(u"11.0 H"_s) && text.contains(kEnd.toString(u"d MMM yyyy"_s)));
    }
}

TEST_F(SummaryPaper, TellsEachMeasureInTheUnitsInForce) {
  writeBytes(file(u"a.csv"_s),
             "date,temperature,wellbeing,weight,systolic,hemoglobin,crp\n2026-11-19,36,,70,120,,\n"
             "2026-11-20,36.1,,70,120,,\n2026-11-21,37.5,3,72,108,11.9,\n2026-11-22,36.9,0,71,150,14,1.1\n");
  EXPECT_TRUE(std::holds_alternative<ExchangeReport>(importDiary(file(u"a.csv"_s), {})));
  setUp(u"en_US"_s, "US");
  const IntervalSummary numbers = readSummary(kEnd.addDays(-1), kEnd, summaryPersonOfPreferences());
  const SummaryPlan plan = summaryPlan(numbers, {500, 40}, kEnd, _text);
  const auto textsOf = [](const MeasureRow& row) {
    return QStringList{row.days,         row.mean,       row.least.value, row.least.day, row.greatest.value,
                       row.greatest.day, row.last.value, row.last.day,    row.norm,      row.share,
                       row.outside,      row.change,     row.words}
        .replaceInStrings(QString(QChar::Nbsp), u" "_s);
  };
  const std::vector<MeasureRow>& general = plan.sections[0].rows;
  EXPECT_EQ(textsOf(general[0]), texts({"2", "98.96 ± 0.76", "98.4", "22 Nov 2026", "99.5", "21 Nov 2026",
                                        "98.4", "22 Nov 2026", "97.3–99.1", "50%", "H 1", "+2.07", ""}));
  EXPECT_EQ(textsOf(general[1]).last(), u"Very good 1 (50%) · Poor 1 (50%)"_s) << "from the best";
  EXPECT_EQ(textsOf(general[2]), texts({"2", "157.63 ± 1.56", "156.5", "22 Nov 2026", "158.7", "21 Nov 2026",
                                        "156.5", "22 Nov 2026", "117.9–159.3", "100%", "", "+3.31", ""}));
  const MeasureRow& systolic = plan.sections[1].rows[0];
  EXPECT_EQ(textsOf(systolic), texts({"2", "129.0 ± 29.7", "108", "21 Nov 2026", "150", "22 Nov 2026", "150",
                                      "22 Nov 2026", "110–140", "0%", "L 1 · H 1", "+9.0", ""}));
  const ShareBar bar = shareBar({2, 1, 1}, _text);
  EXPECT_TRUE(bar.below->left() == bar.frame.left() && bar.below->width() == bar.frame.width() / 2);
  EXPECT_TRUE(bar.above->right() == bar.frame.right() && bar.above->width() == bar.frame.width() / 4);
  EXPECT_TRUE(systolic.bar->below && systolic.bar->above);
  EXPECT_FALSE(general[0].bar->below || general[2].bar->above);
  const SmallChart& chart = systolic.chart;
  EXPECT_TRUE(chart.norm->top() > chart.plot.top() && chart.norm->bottom() < chart.plot.bottom() &&
              chart.norm->height() > chart.plot.height() / 2);
  EXPECT_TRUE(chart.points[0].isOut && chart.points[1].isOut && !general[2].chart.points[0].isOut);
  EXPECT_TRUE(chart.points[0].at.y() > chart.norm->bottom() && chart.points[1].at.y() < chart.norm->top());
  EXPECT_EQ(plan.tests->days, (std::vector<QStringList>{texts({"22 Nov 2026", "14.0", "1.1 H"}),
                                                        texts({"21 Nov 2026", "11.9 L", ""})}));
  const SummaryFormat format;
  EXPECT_EQ(format.number(-0.001, 2) + format.number(INFINITY, 1), u"0.00–"_s);
  EXPECT_EQ(format.percent(999, 1000) + format.percent(1, 1000) + format.percent(1000, 1000),
            u">99%<1%100%"_s);
  EXPECT_TRUE(plan.legend.join(u' ').contains(u"19 Nov 2026 – 20 Nov 2026"_s));
}

TEST_F(SummaryPaper, UsesTheRoomOfItsPagesAndNamesEachOfThem) {
  fill(30);
  const PageRoom room{QPageSize(QPageSize::A4)};
  IntervalSummary numbers = readSummary(kEnd.addDays(-29), kEnd, summaryPersonOfPreferences());
  const QByteArray pdf = lastDays(30).pdf();
  for (const char* page : {"1", "2"}) {
    writeBytes(file(u"a.pdf"_s), pdf);
    const QString number = QString::fromLatin1(page);
    const QString text = output(u"pdftotext"_s, {u"-f"_s, number, u"-l"_s, number, file(u"a.pdf"_s), u"-"_s});
    EXPECT_TRUE(text.contains(u"Анна Müller 王 · 24 Oct 2026 – 22 Nov 2026"_s)) << page;
    EXPECT_TRUE(text.contains(u"Page %1 of 2"_s.arg(number)));
  }
  numbers.measures.resize(5);
  const PagedSummary one = pagedSummary(numbers, room, kEnd, _text);
  for (const QSizeF& label : {QSizeF(200, 150), QSizeF(60, 60)}) {
    const PagedSummary tiny =
        pagedSummary(numbers, PageRoom(QPageSize(label, QPageSize::Point)), kEnd, _text);
    EXPECT_GE(tiny.pages, 1) << "whatever paper a printer has, it ends";
  }
  EXPECT_TRUE(one.pages == 1 && one.plan.form.chartHeight > 60 && one.layout.remarkLines >= 5);
  Preferences::store(QString(150, u'W'), 1.7F, Preferences::metric(), at("1970-05-03T00:00:00"));
  EXPECT_TRUE(pdfText(lastDays(1).pdf()).contains(u"WWW…·22Nov2026Page1of"_s)) << "a name is cut to its room";
}

TEST_F(SummaryPaper, IsFoundAsTypedInFiveLanguages) {
  fill(40);
  struct Words {
    const char* locale;
    const char* measure;
    QStringList found;
  };
  const Words all[] = {
      {"en_US", "US",
       texts(
           {"Summary", "22 Nov 2026", "98.42 ± 1.05", "°F", "Very good 8 (20%)", "66.9 in", "Page 1 of 2"})},
      {"de_DE", "Metric",
       texts({"Zusammenfassung", "22. Nov. 2026", "36,90 ± 0,58", "3. Mai 1970 (56 Jahre)", "75,0"})},
      {"es_ES", "Metric", texts({"Resumen", "22 nov 2026", "36,90 ± 0,58", "Página 1 de 2"})},
      {"ru_RU", "Metric", texts({"Сводка", "22 нояб. 2026", "36,90 ± 0,58", "Систолическое", "3 мая 1970"})},
      {"zh_CN", "Metric",
       texts({"摘要", "2026年11月22日", "36.90 ± 0.58", "第 1 页", "1970年5月3日 (56 岁)"})}};
  for (const Words& words : all) {
    SCOPED_TRACE(words.locale);
    setUp(QString::fromLatin1(words.locale), words.measure);
    HealthSummary summary = lastDays(40);
    const QByteArray pdf = summary.pdf();
    EXPECT_EQ(pdf, lastDays(40).pdf());
    EXPECT_TRUE(pdf.contains("/Lang (" + Language::language().toLatin1() + ')')) << "how it is read aloud";
    const QString text = pdfText(pdf);
    for (const QString& word : words.found + texts({"Анна Müller 王", "L 4 · H 8"}))
      EXPECT_TRUE(text.contains(QString(word).remove(u' '))) << qPrintable(word);
    const QString html = QString::fromUtf8(summary.html());
    EXPECT_TRUE(html.startsWith(u"<!DOCTYPE"_s) &&
                html.contains(u"<html lang=\"%1\">"_s.arg(Language::language())));
    EXPECT_EQ(html.count(u"<img src=\"data:image/svg+xml;base64,"_s), html.count(u"<img"_s));
    EXPECT_TRUE(html.contains(words.found[2]));
    EXPECT_EQ(takeLog(), QStringList());
  }
}

TEST_F(SummaryPaper, SaysWhatItDoesNotKnow) {
  fill(3);
  Preferences::store({}, -1, Preferences::metric(), {});
  HealthSummary summary = lastDays(3);
  const QString text = summary.onScreen(1).document->toPlainText();
  EXPECT_EQ(text.count(u"no date of birth"_s), 5) << "at four measures and in the legend";
  EXPECT_EQ(text.count(u"no height"_s), 1);
  EXPECT_FALSE(text.contains(u"BMI"_s));
  EXPECT_TRUE(HealthSummary(kEnd.addYears(-9), kEnd.addYears(-8)).isEmpty());
}

}  // namespace
}  // namespace sanovia::test
