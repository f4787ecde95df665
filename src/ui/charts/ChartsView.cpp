#include "ui/charts/ChartsView.h"

#include <QPaintEvent>
#include <QPainter>

#include "core/diary/DayEntries.h"
#include "core/diary/DiaryWatch.h"
#include "core/foundation/NotificationCenter.h"
#include "core/licensing/Licensing.h"
#include "core/localisation/Language.h"
#include "core/measures/ValueText.h"
#include "core/preferences/Preferences.h"
#include "drawing/Fonts.h"
#include "drawing/Palette.h"
#include "ui/charts/ChartMeasures.h"
#include "ui/charts/ChartsAccessible.h"
#include "ui/controls/FocusMark.h"

namespace sanovia {
namespace {

const QString kColumnPrefix = QStringLiteral("col");
constexpr int kDateColumn = 1;
constexpr int kFirstMeasure = 2;

}  // namespace

ChartsView::ChartsView(QWidget* parent) : PropertiesView(parent) {
  ChartsAccessible::install();
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  new FocusSides(this);
  NotificationCenter::defaultCenter().addObserver(this, changeMeasurementsNotification,
                                                  [this] { addPropertyViews(); });
}

std::vector<Property> ChartsView::viewsArray() const {
  return propertiesOf(type(), Preferences::hasHeight());
}

void ChartsView::initValues() {
  _selectedDay = 0;
  _mode = SeriesModeDay;
  _records.clear();
  setDateFrom();
  setDateTo();
  updateValues();
}

void ChartsView::setMode(SeriesMode mode) {
  _mode = mode;
  updateValues();
  update();
}

void ChartsView::setDateFrom() {
  if (_interval.startDate) _dateFrom = _interval.startDate();
  updateValues();
  update();
}

void ChartsView::setDateTo() {
  if (_interval.endDate) _dateTo = _interval.endDate();
  updateValues();
  update();
}

void ChartsView::updateValues() {
  _records.load(_dateFrom, _dateTo, _mode);
  emit chartsChanged();
}

bool ChartsView::readAgain() {
  DayEntries::shared().storePending();
  if (!DiaryWatch::shared().isChanged()) return false;
  updateValues();
  update();
  return true;
}

RecordRef ChartsView::dataAtIndex(qint64 index) const { return _records.at(type(), index); }

ColumnPlan ChartsView::columnPlan() const {
  std::vector<PropertyState> states;
  for (const ChartsButton* button : buttons()) states.push_back({button->tag(), button->isChecked()});
  return sanovia::columnPlan(type(), states);
}

BlockRow ChartsView::initBlocks() const { return {static_cast<double>(width()), countOfDays()}; }

void ChartsView::layoutSubviews() {
  const ColumnPlan column = columnPlan();
  for (const PropertyPlace& place : column.places)
    buttonOf(place.tag)->setGeometry(0, static_cast<int>(place.buttonY), width(), chart::kButtonHeight);
  setFixedHeight(static_cast<int>(column.height));
  update();
  emit chartsChanged();
}

const Measure* ChartsView::measureOf(qint64 tag) const { return measureOfTag(type(), tag); }

ChartInputs ChartsView::chartInputs() const {
  const auto words = [](const char* key) { return Language::arrayForKey(QString::fromLatin1(key)); };
  return {
      .width = static_cast<double>(width()),
      .blocks = initBlocks(),
      .selectedDay = _selectedDay,
      .selectedDate = dateText(dataAtIndex(_selectedDay - 1)),
      .hasLabels = Utils::daysBetweenDate(_dateFrom, _dateTo) < chart::kDaysWithoutLabels,
      .isMetric = Preferences::isMetric(),
      .person = personOfPreferences(),
      .wellbeingWords = words("general_array1"),
      .appetiteWords = words("fistula_array"),
      .text = textMeasure(fonts::system(chart::fontSize1)),
      .dateText = textMeasure(fonts::system(chart::dateFontSize)),
      .arrow = _painter.arrowSize(),
      .trialWord = Licensing::isTrial() ? Language::stringForKey(QStringLiteral("trialversion")) : QString(),
      .trialText = textMeasure(fonts::system(chart::trialFontSize))};
}

std::optional<ChartPlan> ChartsView::chartPlan(const ChartInputs& in, const PropertyPlace& place) const {
  const Measure* measure = measureOf(place.tag);
  if (!place.isOn || measure == nullptr) return std::nullopt;
  return planChart(in, place, *measure, _records.valuesOf(*measure));
}

void ChartsView::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.fillRect(event->rect(), palette::white);
  const ChartInputs inputs = chartInputs();
  for (const PropertyPlace& place : columnPlan().places) {
    const std::optional<ChartPlan> plan = chartPlan(inputs, place);
    if (!plan) continue;
    const Reach reach = _painter.reachOf(*plan);
    if (event->rect().top() <= reach.bottom && event->rect().bottom() >= reach.top)
      _painter.paint(painter, *plan);
  }
}

qint64 ChartsView::numberOfRows() const {
  const bool isKnown = type() == RecordType::general || type() == RecordType::pressure;
  return _records.count(isKnown ? type() : RecordType::blood);
}

QString ChartsView::objectValue(const QString& columnIdentifier, qint64 row) const {
  if (!columnIdentifier.startsWith(kColumnPrefix)) return {};
  const qint64 index = numberOfRows() - 1 - row;
  const int column = QStringView(columnIdentifier).mid(kColumnPrefix.size()).toInt();
  if (column == kDateColumn) return cellText(nullptr, index);
  // The properties of the charts are the columns after the date.
  const Measure* measure = measureOf(chart::firstTag + column - kFirstMeasure);
  return measure == nullptr ? QString() : cellText(measure, index);
}

QString ChartsView::cellText(const Measure* measure, qint64 index) const {
  const RecordRef record = dataAtIndex(index);
  if (isEmpty(record)) return {};
  return measure == nullptr ? dateText(record) : valueText(*measure, record);
}

}  // namespace sanovia
