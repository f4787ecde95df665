// The tables of a report: where their pages end, and what stands in their cells.
#include "drawing/Palette.h"
#include "report/ReportTable.h"
#include "support/ReportHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr QColor kDark{51, 51, 51};

class ReportTables : public ReportHome {
 protected:
  std::vector<TablePage> generalPages(qsizetype days, double y, float height = 1.75F) {
    const std::vector<General> generals(static_cast<size_t>(days), General(u"2026-11-01"_s));
    return generalTable(generals, datesOf(days), y, height, _text);
  }
  static QStringList datesOf(qsizetype days) { return tableDates(daysFrom({2026, 11, 1}, days)); }

  // What stands right of the date in the only row: "36.5 dark, Good black bold".
  QString rowOf(const TablePage& page, size_t headings) {
    QStringList cells;
    for (size_t i = headings + 1; i < page.texts.size(); ++i) {
      const TextMark& cell = page.texts[i];
      const char* color = cell.color == palette::red ? " red" : cell.color == kDark ? " dark" : " black";
      cells.append(cell.text + QLatin1String(color) + (cell.font.isBold ? u" bold"_s : QString()));
    }
    return cells.join(u", "_s);
  }
};

int rowsOf(const TablePage& page) { return static_cast<int>(page.rules.size()) - 1; }

// Each table begins where its section's graphs end; the second number is that of 61 days and more.
TEST_F(ReportTables, EachPageHoldsItsRows) {
  const std::pair<double, int> starts[] = {{614, 7},  {574, 10}, {524, 14}, {484, 16},
                                           {544, 12}, {504, 15}, {648, 5},  {608, 8}};
  for (const auto& [y, rows] : starts) {
    const std::vector<TablePage> pages = generalPages(rows + 51 + 2, y);
    ASSERT_EQ(pages.size(), 3U) << y;
    EXPECT_EQ(rowsOf(pages[0]) - 1, rows) << y << ": the heading has a rule of its own";
    EXPECT_EQ(rowsOf(pages[1]), 51);
    EXPECT_EQ(rowsOf(pages[2]), 2);
    EXPECT_EQ(generalPages(rows, y).size(), 1U) << "a table that ends with its page begins no other";
  }
}

TEST_F(ReportTables, StripesEndBeforeTheFoot) {
  const std::vector<TablePage> pages = generalPages(60, 614);
  EXPECT_EQ(pages[0].stripes[1], QRectF(30 + 3 * 92.0, 614, 92, 120));
  EXPECT_EQ(pages[1].stripes.size(), 3U);
  EXPECT_EQ(pages[1].stripes[0].bottom(), 734);
  EXPECT_EQ(pages[1].rules.back(), QLineF(30, 744, 582, 744));
  EXPECT_EQ(pages[2].stripes[0].height(), 2 * 14);
  EXPECT_EQ(generalPages(3, 614)[0].stripes[0].height(), 5 * 14) << "the heading counts for two rows";
  EXPECT_EQ(generalPages(3, 614, -1)[0].stripes.size(), 2U);
  EXPECT_EQ(generalPages(3, 614, -1)[0].stripes[0].width(), 110.4);
  EXPECT_EQ(pages[1].texts[0].text, u"08/11/2026"_s) << "headings are not repeated";
  EXPECT_EQ(pages[1].texts[0].at.y(), 44 - (9 + _text.descent({9}) + 3));
}

TEST_F(ReportTables, GeneralCellsTellWhatIsOut) {
  struct Case {
    double temperature;
    qint64 wellbeing, appetite;
    double weight;
    float height;
    const char* row;
  };
  const Case cases[] = {
      {35.4, 0, 0, 70, 1.75F, "35.4 red bold, Poor black, Good red bold, 70.0 black, 22.9 black"},
      {35.5, 1, 1, 80, 1.75F, "35.5 dark bold, Fair black bold, Poor dark, 80.0 red, 26.1 red"},
      {36.0, 2, 1, 50, 1.75F, "36.0 dark, Good black bold, Poor dark, 50.0 red, 16.3 red"},
      {37.0, 3, 1, 70, -1, "37.0 red, Very good red bold, Poor dark, 70.0 red"},
      {37.1, -1, -1, -1, 1.75F, "37.1 red bold, Good red bold"},
      {-1, -1, 1, 0, 1.75F, "Poor dark, 0.0 red, 0.0 red"},
      {-1, 9, 1, 20, -1, "Poor dark, 20.0 black"},
  };
  setMeasure("US");  // is not asked for in the table
  for (const Case& entry : cases) {
    General general(u"2026-11-01"_s);
    general.pk = 1;
    general.temperature = entry.temperature;
    general.wellbeing = entry.wellbeing;
    general.appetite = entry.appetite;
    general.weight = entry.weight;
    const size_t headings = entry.height < 0 ? 4 : 5;
    const auto pages = generalTable(std::span(&general, 1), datesOf(1), 614, entry.height, _text);
    EXPECT_EQ(rowOf(pages[0], headings), QString::fromUtf8(entry.row)) << entry.row;
    general.pk = -1;
    const auto blank = generalTable(std::span(&general, 1), datesOf(1), 614, entry.height, _text);
    EXPECT_EQ(rowOf(blank[0], headings), QString());
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
    pressure.systolic = values[0];
    pressure.diastolic = values[1];
    pressure.pulse = values[2];
    pressure.ppressure = values[3];
    EXPECT_EQ(rowOf(pressureTable(std::span(&pressure, 1), datesOf(1), 544, 59, _text)[0], 4),
              QString::fromUtf8(row));
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
    blood.hemoglobin = values[0];
    blood.crp = values[1];
    blood.esp = values[2];
    blood.albumin = values[3];
    blood.wbc = values[4];
    EXPECT_EQ(rowOf(bloodTable(std::span(&blood, 1), datesOf(1), 648, _text)[0], 10), QString::fromUtf8(row));
  }
}

TEST_F(ReportTables, HeadingsStandOverTheirColumns) {
  const Blood blood(u"2026-11-01"_s);
  const std::vector<TextMark> texts = bloodTable(std::span(&blood, 1), datesOf(1), 648, _text)[0].texts;
  const double line = 9 + _text.descent({9});
  EXPECT_EQ(texts[0].text, u"Hemoglobin"_s);
  EXPECT_NEAR(texts[0].at.y(), 676 - line - 14, 1e-9);
  EXPECT_NEAR(texts[0].at.x() + _text.size(u"Hemoglobin"_s, {9, true}).width() / 2, 30 + 1.5 * 92, 1e-9);
  EXPECT_EQ(texts[1].text, u"7 - 16"_s);
  EXPECT_NEAR(texts[1].at.y(), 676 - line, 1e-9);
  EXPECT_EQ(texts[8].text, u"WBC"_s);
  EXPECT_NEAR(texts[8].at.y(), 676 - line - 3 - 14, 1e-9) << "the last heading is raised";
  EXPECT_EQ(texts[10].text, u"01/11/2026"_s);
}

}  // namespace
}  // namespace sanovia::test
