#include "charts/ChartsView.h"

#include <QPaintEvent>
#include <QPainter>

#include "charts/ChartMeasures.h"
#include "charts/ChartsAccessible.h"
#include "drawing/Fonts.h"
#include "drawing/Palette.h"
#include "foundation/NotificationCenter.h"
#include "licensing/Licensing.h"
#include "localisation/Language.h"
#include "measures/ValueText.h"
#include "preferences/Preferences.h"

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

const Measure* ChartsView::measureOf(qint64 tag) const {
  const std::span<const Measure> measures = measuresOf(type(), true);
  const qint64 place = tag - chart::firstTag;
  return place < 0 || place >= std::ssize(measures) ? nullptr : &measures[static_cast<size_t>(place)];
}

ChartInputs ChartsView::chartInputs() const {
  const auto words = [](const char* key) { return Language::arrayForKey(QString::fromLatin1(key)); };
  return {
      .width = static_cast<double>(width()),
      .blocks = initBlocks(),
      .selectedDay = _selectedDay,
      .selectedDate = dateText(dataAtIndex(_selectedDay - 1)),
      .hasLabels = Utils::daysBetweenDate(_dateFrom, _dateTo) < chart::kDaysWithoutLabels,
      .isMetric = Preferences::isMetric(),
      .height = Preferences::height(),
      .age = Utils::age(Preferences::birthday()),
      .wellbeingWords = words("general_array1"),
      .appetiteWords = words("fistula_array"),
      .text = textMeasure(fonts::system(chart::fontSize1)),
      .dateText = textMeasure(fonts::system(chart::dateFontSize)),
      .arrow = _painter.arrowSize(),
      .trialWord = Licensing::isTrial() ? Language::stringForKey(QStringLiteral("trialversion")) : QString(),
      .trialText = textMeasure(fonts::system(chart::trialFontSize))};
}

std::optional<ChartPlan> ChartsView::chartPlan(const ChartInputs& in, const PropertyPlace& place) const {
  const qint64 param = place.tag - chart::firstTag;
  if (!place.isOn) return std::nullopt;
  if (type() == RecordType::pressure) return planPressure(in, place, _records.pressures(), param);
  if (type() == RecordType::blood) return planBlood(in, place, _records.bloods(), param);
  if (type() != RecordType::general) return std::nullopt;
  const std::vector<General>& days = _records.generals();
  switch (param) {
    case 0: return planTemperature(in, place, days);
    case 1: return planGeneral(in, place, days);
    case 2: return planAppetite(in, place, days);
    case 3: return planWeight(in, place, days);
    case 4: return in.height > 0 ? std::optional(planBMI(in, place, days)) : std::nullopt;
    default: return std::nullopt;
  }
}

void ChartsView::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.fillRect(event->rect(), palette::white);
  const ChartInputs inputs = chartInputs();
  for (const PropertyPlace& place : columnPlan().places)
    if (event->rect().intersects(QRectF(0, place.chartY, width(), place.chartHeight).toAlignedRect()))
      if (const std::optional<ChartPlan> plan = chartPlan(inputs, place)) _painter.paint(painter, *plan);
}

qint64 ChartsView::numberOfRows() const {
  const bool isKnown = type() == RecordType::general || type() == RecordType::pressure;
  return _records.count(isKnown ? type() : RecordType::blood);
}

QString ChartsView::objectValue(const QString& columnIdentifier, qint64 row) const {
  const RecordRef record = dataAtIndex(numberOfRows() - 1 - row);
  if (isEmpty(record) || !columnIdentifier.startsWith(kColumnPrefix)) return {};
  const int column = QStringView(columnIdentifier).mid(kColumnPrefix.size()).toInt();
  if (column == kDateColumn) return dateText(record);
  const std::span<const Measure> measures = measuresOf(type(), true);
  const int place = column - kFirstMeasure;
  return place < 0 || place >= std::ssize(measures) ? QString()
                                                    : valueText(measures[static_cast<size_t>(place)], record);
}

}  // namespace sanovia
