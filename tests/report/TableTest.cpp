// The tables of a report: where their pages end, and what stands in their cells.
#include <algorithm>
#include <tuple>

#include "drawing/Palette.h"
#include "report/ReportSection.h"
#include "support/ArtificialMeasure.h"
#include "support/ReportHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr QColor kDark{51, 51, 51};

class ReportTables : public ReportHome {
 protected:
  template <class R>
  std::vector<TablePage> table(qint64 type, std::span<const R> records, double y,
                               const Person& person = {59, -1}) {
    return reportTable(type, records, datesOf(std::ssize(records)), y, person, _text);
  }
  std::vector<TablePage> generalPages(int days, double y, float height = 1.75F) {
    const std::vector<General> generals(static_cast<size_t>(days), General(u"2026-11-01"_s));
    return table<General>(RecordType::general, generals, y, {.age = -1, .height = height});
  }
  static QStringList datesOf(qsizetype days) { return tableDates(daysFrom({2026, 11, 1}, days)); }

  // What stands right of the date in the only row: "36.5 dark, Good black bold".
  QString rowOf(const TablePage& page) {
    const auto date = std::ranges::find(page.texts, u"01/11/2026"_s, &TextMark::text);
    if (date == page.texts.end()) return u"no date"_s;
    QStringList cells;
    for (auto cell = date + 1; cell != page.texts.end(); ++cell) {
      const char* color = cell->color == palette::red ? " red" : cell->color == kDark ? " dark" : " black";
      cells.append(cell->text + QLatin1String(color) + (cell->font.isBold ? u" bold"_s : QString()));
    }
    return cells.join(u", "_s);
  }
};

int rowsOf(const TablePage& page) { return static_cast<int>(page.rules.size()) - 1; }

// As a table begins where its section's graphs end.
TEST_F(ReportTables, EachPageHoldsItsRows) {
  for (const auto& [y, rows] : {std::pair(614, 7), {574, 10}, {524, 14}, {484, 16}, {648, 5}}) {
    const std::vector<TablePage> pages = generalPages(rows + 51 + 2, y);
    ASSERT_EQ(pages.size(), 3U) << y;
    EXPECT_EQ(rowsOf(pages[0]) - 1, rows) << y << ": the heading has a rule of its own";
    EXPECT_EQ(rowsOf(pages[1]), 51);
    EXPECT_EQ(rowsOf(pages[2]), 2);
    EXPECT_EQ(generalPages(rows, y).size(), 1U) << "a table that ends with its page begins no other";
  }
}

TEST_F(ReportTables, GeneralCellsTellWhatIsOut) {
  const struct {
    double temperature;
    qint64 wellbeing, appetite;
    double weight;
    float height;
    const char* row;
  } cases[] = {
      {35.4, 0, 0, 70, 1.75F, "35.4 red bold, Poor black, Good red bold, 70.0 black, 22.9 black"},
      {35.5, 1, 1, 80, 1.75F, "35.5 dark bold, Fair black bold, Poor dark, 80.0 red, 26.1 red"},
      {36.0, 2, 1, 50, 1.75F, "36.0 dark, Good black bold, Poor dark, 50.0 red, 16.3 red"},
      {37.0, 3, 1, 70, -1, "37.0 red, Very good red bold, Poor dark, 70.0 red"},
      {37.1, -1, -1, -1, 1.75F, "37.1 red bold, Good red bold"},
      {-1, -1, 1, 0, 1.75F, "Poor dark, 0.0 red, 0.0 red"},
      {-1, 9, 1, 20, -1, "Poor dark, 20.0 black"},
  };
  setMeasure("US");  // is not asked for in the table
  for (const auto& [temperature, wellbeing, appetite, weight, height, row] : cases) {
    General general(u"2026-11-01"_s);
    general.temperature = temperature;
    general.wellbeing = wellbeing;
    general.appetite = appetite;
    general.weight = weight;
    for (const qint64 pk : {1, -1}) {
      general.pk = pk;
      EXPECT_EQ(
          rowOf(table<General>(RecordType::general, {&general, 1}, 614, {.age = -1, .height = height})[0]),
          pk < 0 ? QString() : QString::fromUtf8(row));
    }
  }
}

TEST_F(ReportTables, PressureAndBloodCellsTellWhatIsOut) {
  Pressure pressure(u"2026-11-01"_s);
  pressure.pk = 0;  // an average
  const std::pair<std::array<qint64, 4>, const char*> pressures[] = {
      {{140, 70, 64, 100}, "140.0 black, 70.0 black, 64.0 black, 100.0 black"},
      {{141, 69, 85, 29}, "141.0 red bold, 69.0 red bold, 85.0 red bold, 29.0 red bold"},
      {{-1, 0, -1, -5}, "0.0 red bold"},
  };
  for (const auto& [values, row] : pressures) {
    std::tie(pressure.systolic, pressure.diastolic, pressure.pulse, pressure.ppressure) =
        std::tuple_cat(values);
    EXPECT_EQ(rowOf(table<Pressure>(RecordType::pressure, {&pressure, 1}, 544)[0]), QString::fromUtf8(row));
  }
  Blood blood(u"2026-11-01"_s);
  blood.pk = 1;
  const std::pair<std::array<float, 5>, const char*> bloods[] = {
      {{12, 0, 15, 3.4F, 4}, "12.0 black, 0.0 black, 15.0 black, 3.4 black, 4.0 black"},
      // The upper limit of albumin is below its neighbour in single precision.
      {{14, 1, 30, 5.4F, 10}, "14.0 black, 1.0 black, 30.0 black, 5.4 red bold, 10.0 black"},
      {{11.9F, 1.1F, 14.9F, 3.3F, -1}, "11.9 red bold, 1.1 red bold, 14.9 red bold, 3.3 red bold"},
  };
  for (const auto& [values, row] : bloods) {
    std::tie(blood.hemoglobin, blood.crp, blood.esp, blood.albumin, blood.wbc) = std::tuple_cat(values);
    EXPECT_EQ(rowOf(table<Blood>(RecordType::blood, {&blood, 1}, 648)[0]), QString::fromUtf8(row));
  }
}

TEST_F(ReportTables, HeadingsStandOverTheirColumns) {
  const Blood blood(u"2026-11-01"_s);
  const std::vector<TextMark> texts = table<Blood>(RecordType::blood, {&blood, 1}, 648)[0].texts;
  const double line = 9 + _text.descent({9});
  EXPECT_EQ(texts[0].text, u"Hemoglobin"_s);
  EXPECT_NEAR(texts[0].at.y(), 676 - line - 14, 1e-9);
  EXPECT_NEAR(texts[0].at.x() + _text.size(u"Hemoglobin"_s, {9, true}).width() / 2, 30 + 1.5 * 92, 1e-9);
  EXPECT_EQ(texts[1].text, u"7 - 16"_s);
  EXPECT_NEAR(texts[1].at.y(), 676 - line, 1e-9);
  EXPECT_EQ(texts[8].text, u"WBC"_s);
  EXPECT_NEAR(texts[8].at.y(), 676 - line - 3 - 14, 1e-9) << "the last heading is raised";
}

TEST_F(ReportTables, AMeasureThatIsAddedHasItsGraphAndItsColumn) {
  const ArtificialMeasure artificial;
  const QDateTime day = at("2026-11-01T12:00:00");
  Blood blood(u"2026-11-01"_s);
  blood.wbc = 30;
  blood.update();
  const DateSeries series(Utils::dayStart(day), Utils::dayEnd(day), SeriesModeDay);
  const ReportSubject subject{series, u"-"_s, datesOf(1), u"Ann"_s, {}, {59, -1}, false};
  const ReportSection section = reportSection(RecordType::blood, subject, context(1));
  ASSERT_EQ(section.graphs.size(), 6U);
  EXPECT_EQ(section.graphs[5].title.text, u"Chart: Name:"_s);
  EXPECT_EQ(section.graphs[5].marks[0].text.text, u"40.0"_s);
  ASSERT_EQ(section.table.size(), 2U) << "six graphs fill the page";
  EXPECT_EQ(rowOf(section.table[1]), u"30.0 red bold, 30.0 red bold"_s);
  EXPECT_EQ(section.table[0].texts[11].text, u"0 - 40"_s);
}

}  // namespace
}  // namespace sanovia::test
