// Where the strip and the graphs of a report stand, by number, and that many days drawn at once look like
// days drawn one after the other.
#include <QImage>
#include <QPainter>

#include <functional>
#include <random>

#include "drawing/Palette.h"
#include "report/DateStrip.h"
#include "report/Graphs.h"
#include "report/ReportPainter.h"
#include "support/DayList.h"
#include "support/ReportHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class ReportGraph : public ReportHome {
 protected:
  Graph graphAt(double y, MeasureId id, const DayValues& days, float height, bool drawText = true) {
    // Outlives the graph, which asks it nothing later.
    const GraphContext context = this->context(days.size(), drawText);
    return reportGraph(measure(id), context, days, y, {.age = 59, .height = height});
  }
};
class ReportStrip : public ReportHome {};

// 2026-11-01 is a Sunday.
TEST_F(ReportStrip, DatesAreWrittenOnlyWhereTheyDoNotFit) {
  const DateStrip week = dateStrip(daysFrom({2026, 11, 1}, 7), DayColumns(7), 104, _text);
  ASSERT_EQ(week.blocks.size(), 7U);
  for (size_t i = 0; i < 7; ++i) {
    EXPECT_EQ(week.blocks[i].color, i == 0 ? QColor(255, 204, 204) : palette::blockGrey);
    EXPECT_TRUE(week.blocks[i].text.text.isNull());
  }
  EXPECT_EQ(week.blocks[0].rect, QRectF(100, 114, DayColumns(7).blockWidth(), 50));

  setMeasure("US");
  const DateStrip month = dateStrip(daysFrom({2026, 11, 1}, 20), DayColumns(20), 104, _text);
  const auto& [rect, color, text] = month.blocks[2];
  EXPECT_EQ(text.text, u"11/03/2026"_s);
  EXPECT_TRUE(text.isUpright);
  EXPECT_EQ(text.towards, 30);
  EXPECT_NEAR(text.pivot.x(), rect.center().x(), 1e-9);
  EXPECT_NEAR(text.pivot.y(), 164 + _text.size(text.text, month.font).height() / 2, 1e-9);
  EXPECT_EQ(text.at.y(), 164);
}

TEST_F(ReportStrip, From61DaysOnItShowsMonths) {
  const auto strip = [&](qsizetype days) {
    return dateStrip(daysFrom({2026, 6, 30}, days), DayColumns(days), 104, _text);
  };
  EXPECT_EQ(strip(60).blocks.size(), 60U);
  // The last day of a month and two whole ones; a closing month of two days is left out.
  for (const auto& [days, blocks] : {std::pair(62, 3U), {65, 3U}, {66, 4U}})
    EXPECT_EQ(strip(days).blocks.size(), blocks) << days;
  const DayColumns columns(62);
  const DateStrip months = strip(62);
  EXPECT_TRUE(months.blocks[0].text.text.isEmpty()) << "a label is first made on a second day";
  EXPECT_EQ(months.blocks[2].text.text, u"Aug 2026"_s);
  EXPECT_EQ(months.blocks[0].rect, QRectF(100, 114, columns.blockWidth(), 18));
  const auto& [rect, color, text] = months.blocks[1];
  EXPECT_EQ(text.text, u"Jul 2026"_s);
  EXPECT_NEAR(rect.x(), 102 + columns.blockWidth(), 1e-4);
  EXPECT_NEAR(rect.width(), columns.blockWidth() - 2 + 30 * columns.pitch(), 1e-4);
  EXPECT_NEAR(text.at.x() + _text.size(text.text, months.font).width() / 2, rect.center().x(), 1e-9);
  EXPECT_EQ(text.at.y(), 116);
}

// "y colour width" of each line across the days.
QString linesOf(const Graph& graph) {
  QStringList list;
  for (const GraphLine& entry : graph.lines) {
    EXPECT_EQ(entry.line, QLineF(70, entry.line.y1(), 612, entry.line.y1()));
    const char color = entry.color == palette::white ? 'w' : entry.color == palette::darkGray ? 'd' : 'b';
    list += QStringLiteral("%1%2%3").arg(entry.line.y1(), 0, 'f', 1).arg(QLatin1Char(color)).arg(entry.width);
  }
  return list.join(u' ');
}

QString textsBelow(const Graph& graph) {
  QStringList list;
  for (const BlockText& label : graph.labels) list += label.text;
  return list.join(u' ');
}

// What the graph writes and draws besides its days, and the y of its first day's dot or bar: title, texts
// below, lines, place, marks.
QString summary(const Graph& graph) {
  const DayPlan& first = graph.days[0];
  const QString place = QString::number(first.dot ? first.dot->y() : first.fill.top(), 'f', 1);
  return QStringList{graph.title.text, textsBelow(graph), linesOf(graph), place,
                     described(graph.marks).join(u' ')}
      .join(u"; "_s);
}

// Each where its section has it, of a person of 59: systolic 110 to 140 around 120.
TEST_F(ReportGraph, EachHasItsUnitsMarksAndLines) {
  using enum MeasureId;
  const std::vector<double> fevers{38.1, 43, kNoValue, kNoRecord}, levels{0, 1}, one{70}, none(2, kNoValue),
      wide{50, 80, kNoRecord}, pressures{115, 135}, thick{18, 7};
  struct {
    MeasureId id;
    double y;
    std::vector<double> days;
    const char* graph;
    const char* measure = "Metric";
    float height = 1.75F;
  } const cases[] = {
      {Temperature, 174, fevers,
       "Chart: Temperature, °C; 38.1 43.0; 241.7w1; 225.4; "
       "r41.0@190.0/188.0 g36.6@237.7/235.7 r35.0@255.0/252.0"},
      {Temperature, 174, fevers,
       "Chart: Temperature, °F; 100.6 109.4; 241.7w1; 225.4; "
       "r105.8@190.0/188.0 g97.9@237.7/235.7 r95.0@255.0/252.0",
       "US"},
      {Wellbeing, 284, levels, "Chart: Well-being; ; 334.0w0.5 324.0w0.5 314.0w0.5; 334.0; "},
      {Appetite, 364, levels, "Chart: Appetite; ; 394.0w0.5; 394.0; "},
      {Weight, 424, one,
       "Chart: Weight, kg; 70.0; 566.6d0.5 491.9d0.5 417.3d0.5; 466.5; "
       "r67.0@485.0/483.0 r73.0@436.0/434.0"},
      {Weight, 424, wide,
       "Chart: Weight, kg; 50.0 80.0; 476.9b0.5 464.5b0.5 452.0b0.5; 485.3; "
       "r47.0@485.0/483.0 r83.0@436.0/434.0 g56.7@468.9/466.9 g66.6@456.5/456.5 g76.6@444.0/442.0"},
      {Weight, 424, wide,
       "Chart: Weight, lb; 110.2 176.4; 476.9b0.5 464.5b0.5 452.0b0.5; 485.3; "
       "r103.6@485.0/483.0 r183.0@436.0/434.0 g124.9@468.9/466.9 g146.8@456.5/456.5 g168.8@444.0/442.0",
       "US"},
      {Weight, 424, one,
       "Chart: Weight, kg; 70.0; 466.5d0.5 466.5d0.5 466.5d0.5; 466.5; "
       "r67.0@485.0/483.0 r73.0@436.0/434.0 g70.0@458.5/456.5 g70.0@458.5/458.5 g70.0@458.5/456.5",
       "Metric", -1},
      {Weight, 424, none,
       "Chart: Weight, kg; ; 444.2b0.5 444.3b0.5 444.3b0.5; 0.0; "
       "r9997.0@485.0/483.0 r3.0@436.0/434.0"},
      {BodyMassIndex, 514, wide,
       "Chart: BMI; 16.3 26.1; 566.9b0.5 554.5b0.5 542.1b0.5; 575.2; "
       "r27.1@530.0/528.0 r15.3@575.0/572.0 g18.5@562.9/560.9 r25.0@538.1/536.1"},
      {BodyMassIndex, 514, wide,
       "Chart: BMI; ; 573.7b0.5 556.5b0.5 539.3b0.5; 0.0; "
       "r26.0@530.0/528.0 r17.5@575.0/572.0 g18.5@569.7/567.7 r25.0@535.3/533.3",
       "Metric", 0},
      {Systolic, 174, pressures,
       "Chart: Systolic; 115 135; 222.8w0.5; 229.0; "
       "r140@190.0/190.0 g120@220.0/220.0 r110@235.0/234.0"},
      {PulsePressure, 444, one,
       "Chart: Pulse pressure; 70; 501.3w0.5; 483.5; "
       "r100@460.0/460.0 g40@498.6/498.6 r30@505.0/504.0"},
      {Hemoglobin, 188, thick,
       "Chart: Hemoglobin; 18.0 7.0; 228.0w0.5 218.0w0.5; 198.0; "
       "r16.0@204.0/202.0 r7.0@249.0/246.0 g12.0@224.0/222.0 g14.0@214.0/212.0"},
      {Crp, 278, levels,
       "Chart: CRP; 0.0 1.0; 343.0w0.5 334.0w0.5; 343.0; "
       "r5.0@294.0/292.0 r0.0@339.0/336.0 g0.0@339.0/337.0 g1.0@330.0/328.0"},
  };
  for (const auto& [id, y, days, expected, system, height] : cases) {
    setMeasure(system);
    const Graph graph = graphAt(y, id, dayList(days), height);
    EXPECT_EQ(summary(graph), QString::fromUtf8(expected));
    const Graph empty = graphAt(y, id, {}, height);
    EXPECT_EQ(empty.title.text, graph.title.text);
    EXPECT_TRUE(empty.marks.empty() && empty.days.empty() && empty.lines.empty());
  }
}

TEST_F(ReportGraph, RowsHaveWordsAndCurvesARampOfTheirNorm) {
  const Graph wellbeing = graphAt(284, MeasureId::Wellbeing, dayList({0}), -1);
  EXPECT_EQ(wellbeing.rowLabels.front().word, u"Very good"_s);
  EXPECT_EQ(wellbeing.rowLabels.back().word, u"Poor"_s);
  EXPECT_EQ(graphAt(364, MeasureId::Appetite, dayList({0}), -1).rowLabels[0].word, u"Good"_s);
  EXPECT_EQ(described(graphAt(424, MeasureId::Weight, dayList({70}), 1.75F).ramp), u"491.9g 489.0g 444.0g"_s);
  EXPECT_EQ(described(graphAt(174, MeasureId::Systolic, dayList({115, 135}), -1).ramp),
            u"239.0r 222.8g 197.8r"_s);
  EXPECT_EQ(described(graphAt(278, MeasureId::Crp, dayList({0}), -1).ramp), u"343.0g 334.0g 298.0r"_s);
}

TEST_F(ReportGraph, CurvesBreakAtADayWithoutARecord) {
  using enum MeasureId;
  for (const MeasureId id : {Weight, BodyMassIndex, Pulse, Crp}) {
    const Graph graph = graphAt(5, id, dayList({50, kNoRecord, 60, kNoValue, 70}), 1.75F);
    EXPECT_TRUE(!graph.days[2].line && graph.days[4].line) << measure(id).titleKey;
  }
}

// The days of a graph one after the other, each covering what was there.
void drawInTurn(QPainter& painter, const Graph& graph, const QFont& font) {
  painter.setFont(font);
  for (const DayPlan& day : graph.days) {
    painter.fillRect(day.block, palette::blockGrey);
    if (day.filledWith == DayPlan::Fill::Graded) painter.fillRect(day.fill, graph.ramp);
    painter.setPen(palette::black);
    if (day.label >= 0) drawBlockText(painter, graph.labels[static_cast<size_t>(day.label)]);
    if (!day.dot) continue;
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::darkGray);
    painter.drawEllipse(*day.dot, 2, 2);
    painter.setPen(QPen(palette::darkGray, 0.5, Qt::SolidLine, Qt::FlatCap));
    if (day.line) painter.drawLine(*day.line);
  }
}

QImage drawn(const std::function<void(QPainter&)>& draw) {
  constexpr int kScale = 8;
  QImage image(612 * kScale, 100 * kScale, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.scale(kScale, kScale);
  draw(painter);
  return image;
}

// How many pixels in a thousand differ clearly.
double difference(const QImage& one, const QImage& other) {
  double differing = 0;
  for (int y = 0; y < one.height(); ++y)
    for (int x = 0; x < one.width(); ++x)
      differing += std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) > 40;
  return 1000 * differing / (one.width() * one.height());
}

TEST_F(ReportGraph, CellsHaveTheirColoursOnPaper) {
  const Graph graph = graphAt(5, MeasureId::Appetite, dayList({0, 1}), -1);
  const QImage image = drawn([&](QPainter& painter) {
    ReportPainter(painter, _text).drawSectionPage({{}, {}, {graph}, {TablePage()}});
  });
  const auto colour = [&](size_t day) {
    return image.pixelColor((graph.days[day].fill.center() * 8).toPoint());
  };
  EXPECT_EQ(std::pair(colour(0), colour(1)), std::pair(palette::red, palette::green));
}

TEST_F(ReportGraph, DaysDrawnAtOnceLookLikeDaysDrawnInTurn) {
  std::mt19937 random(7);
  // Of 200 and more days the blocks cover the dots of the days before.
  for (const size_t count : {70U, 200U, 365U}) {
    std::vector<double> days(count, kNoRecord);
    for (double& day : days)  // also above the scale and on both its ends
      if (random() % 6 != 0) day = static_cast<double>(random() % 560) / 10;
    Graph graph = graphAt(5, MeasureId::Esr, dayList(days), -1, count < 100);
    graph.marks.clear();
    graph.lines.clear();
    graph.title = {};
    const QImage inTurn =
        drawn([&](QPainter& painter) { drawInTurn(painter, graph, _text.font(graph.font)); });
    const QImage atOnce = drawn([&](QPainter& painter) {
      ReportPainter(painter, _text).drawSectionPage({{}, {}, {graph}, {TablePage()}});
    });
    EXPECT_LT(difference(inTurn, atOnce), 2.0) << count;
  }
}

}  // namespace
}  // namespace sanovia::test
