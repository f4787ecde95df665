// What the commands hand on: rows as text, charts as pictures.
#include <QClipboard>
#include <QFile>
#include <QImage>
#include <QMimeData>

#include "support/LaunchedHome.h"
#include "ui/charts/ChartsPicture.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

using HandOn = LaunchedHome;

TEST_F(HandOn, CopiesTheSelectedRowOrAllAsTextAndTable) {
  launch();
  execute(u"INSERT INTO pressure VALUES (NULL, 0, '2026-11-14', 128, 81, 66, 47)"_s);
  ui().miPressure->trigger();
  ui().miLast7->trigger();
  table().clearSelection();
  ui().miCopy->trigger();
  EXPECT_EQ(QGuiApplication::clipboard()->text().count(u'\n'), 8) << "the titles and seven days";
  table().selectRow(1);
  ui().miCopy->trigger();
  const QMimeData* content = QGuiApplication::clipboard()->mimeData();
  EXPECT_EQ(content->text().section(u'\n', 1), u"11/14/2026\t128\t81\t66\t47\n"_s);
  EXPECT_TRUE(content->html().contains(u"<td>128</td><td>81</td>"_s));
  ui().miCharts->trigger();
  ui().miCopy->trigger();
  const auto image = QGuiApplication::clipboard()->image();
  EXPECT_EQ(image.size(), ui().chartsView->size() * 2);
}

TEST_F(HandOn, SavesTheOpenChartsAsAPictureOfEachKind) {
  launch();
  EXPECT_FALSE(delegate->validateMenuItem(ui().miSaveCharts)) << "the table shows";
  ui().miCharts->trigger();
  for (const qint64 tag : ui().chartsView->tagsOfSelectedButton()) ui().chartsView->openPropertiesByType(tag);
  EXPECT_FALSE(delegate->validateMenuItem(ui().miSaveCharts)) << "no chart is open";
  const qint64 first = ui().chartsView->buttons()[0]->tag();
  ui().chartsView->openPropertiesByType(first);
  EXPECT_TRUE(delegate->validateMenuItem(ui().miSaveCharts));

  ChartsView& charts = *ui().chartsView;
  const PicturePlan plan = picturePlan(charts.columnPlan(), charts.width());
  ASSERT_EQ(plan.parts.size(), 1U);
  const PropertyPlace place = *charts.columnPlan().placeOf(first);
  EXPECT_EQ(plan.parts[0].source.height(),
            static_cast<int>(place.chartY + place.chartHeight - place.buttonY));
  EXPECT_GE(plan.parts[0].top, plan.detail.bottom());
  const PictureHeading heading{u"Ann & Bob"_s, u"General"_s};
  const QImage image = QImage::fromData(pictureBytes(charts, heading, u"png"_s));
  EXPECT_EQ(image.size(), plan.size * 2);
  const QRect button(plan.parts[0].source.translated(0, plan.parts[0].top - plan.parts[0].source.top()));
  EXPECT_EQ(image.pixelColor(button.center().x() * 2, button.top() * 2 + 6), palette::lightTeal);
  EXPECT_TRUE(pictureBytes(charts, heading, u"svg"_s).contains("Ann &amp; Bob"));
  EXPECT_TRUE(pictureBytes(charts, heading, u"pdf"_s).startsWith("%PDF"));
}

}  // namespace
}  // namespace sanovia::test
