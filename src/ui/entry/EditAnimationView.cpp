#include "ui/entry/EditAnimationView.h"

#include <QKeyEvent>

#include <algorithm>

#include "core/dates/Utils.h"
#include "core/foundation/NotificationCenter.h"
#include "core/localisation/Language.h"
#include "core/measures/EntryRules.h"
#include "core/measures/ValueText.h"
#include "core/preferences/Preferences.h"
#include "ui/controls/BaseColoredButton.h"
#include "ui/controls/WhiteSlider.h"

namespace sanovia {
namespace {

constexpr int kRepeatDelay = 400;     // milliseconds until a held button repeats
constexpr int kRepeatInterval = 100;  // milliseconds

// As many as the kind with the most measures has.
int fieldCount() {
  size_t count = 0;
  for (const qint64 type : {RecordType::general, RecordType::pressure, RecordType::blood})
    count = std::max(count, measuresOf(type, true).size());
  return static_cast<int>(count);
}

BaseColoredButton* makeButton(QWidget* parent, const QString& stem) {
  auto* button = new BaseColoredButton(parent);
  button->setImageName(stem + QStringLiteral("-off"));
  button->setAlternateImageName(stem + QStringLiteral("-on"));
  button->setAllowsMixedState(true);
  return button;
}

}  // namespace

EditAnimationView::EditAnimationView(QWidget* parent) : AnimationView(parent) {
  setMovement(Up);
  _closeButton = makeButton(this, QStringLiteral("Cancel"));
  _closeSize = NamedImage::named(QStringLiteral("Clear-off")).size();
  connect(_closeButton, &QPushButton::clicked, this, &EditAnimationView::buttonClose);
  for (const bool isPlus : {true, false})
    for (int field = 1; field <= fieldCount(); ++field) {
      BaseColoredButton* button = makeButton(this, isPlus ? QStringLiteral("Plus") : QStringLiteral("Minus"));
      const int tag = _btnID + field + (isPlus ? 0 : kMinusOffset);
      button->setProperty("tag", tag);
      button->setAutoRepeat(true);
      button->setAutoRepeatDelay(kRepeatDelay);
      button->setAutoRepeatInterval(kRepeatInterval);
      button->resize(static_cast<int>(panel::kButtonSize), static_cast<int>(panel::kButtonSize));
      connect(button, &QPushButton::clicked, this, [this, tag] { buttonPressed(tag); });
      _buttons.append(button);
    }
  setType(RecordType::general);
  // A record may leave while the panel is on its way up, where a request to shut it is dropped.
  connect(this, &AnimationView::moved, this, [this] {
    if (opened() && isEmpty(_data)) animate();
  });
  NotificationCenter::defaultCenter().addObserver(this, changeMeasurementsNotification, [this] {
    nameControls();
    update();
  });
}

int EditAnimationView::columnCount() const {
  return 1 + static_cast<int>(measuresOf(_type, Preferences::hasHeight()).size());
}

const Measure* EditAnimationView::measureOf(qint64 column) const {
  const std::span<const Measure> measures = measuresOf(_type, Preferences::hasHeight());
  return column < 1 || column > std::ssize(measures) ? nullptr : &measures[static_cast<size_t>(column - 1)];
}

void EditAnimationView::setType(qint64 type) {
  if (type != _type) _data = {};
  _type = type;
  qDeleteAll(_sliders);
  _sliders.fill(nullptr, columnCount());
  _icons.clear();
  for (int column = 0; column < columnCount(); ++column)
    _icons.append(NamedImage::named(imageOfColumn(column)));
  for (int column = 1; column < columnCount(); ++column) {
    if (!isEntered(*measureOf(column))) continue;
    _sliders[column] = new WhiteSlider(this);
    _sliders[column]->show();
    connect(_sliders[column], &WhiteSlider::moved, this, [this, column] { sliderChanged(column); });
  }
  for (int field = 1; field <= fieldCount(); ++field)
    for (const int tag : {_btnID + field, _btnID + kMinusOffset + field})
      buttonOf(tag)->setVisible(sliderOf(field) != nullptr);
  layoutControls();
  walkByTab();
  nameControls();
}

void EditAnimationView::setData(const RecordRef& record) {
  _data = record;
  for (int column = 1; column < _sliders.size(); ++column) loadSlider(column);
  nameControls();
  update();
}

void EditAnimationView::loadSlider(int column) {
  const Measure* measure = measureOf(column);
  WhiteSlider* slider = sliderOf(column);
  if (measure == nullptr || slider == nullptr) return;
  const std::optional<ChartValue> setUp = sliderSetUp(*measure, _data);
  slider->setTicks(nearestTick(*setUp, setUp->val()), tickCount(*setUp) - 1);
  speakSlider(column, *setUp);
}

void EditAnimationView::speakSlider(int column, const ChartValue& setUp) {
  sliderOf(column)->setSpoken({.min = static_cast<double>(setUp.min()),
                               .max = static_cast<double>(setUp.max()),
                               .value = stringOfData(column)});
}

QString EditAnimationView::stringOfData(qint64 column) const {
  if (const Measure* measure = measureOf(column)) return valueText(*measure, _data);
  if (column != 0 || isEmpty(_data)) return {};
  const QString date = dateOf(_data);
  return _type == RecordType::general
             ? Utils::convertFormat(date, Utils::databaseFormat(), QStringLiteral("dd MMM, YYYY"))
             : date;
}

WhiteSlider* EditAnimationView::sliderOf(int column) const { return _sliders.value(column); }

BaseColoredButton* EditAnimationView::buttonOf(int tag) const {
  for (BaseColoredButton* button : _buttons)
    if (button->property("tag").toInt() == tag) return button;
  return nullptr;
}

void EditAnimationView::sliderChanged(int column) {
  const Measure* measure = measureOf(column);
  if (isEmpty(_data) || measure == nullptr) return;
  const std::optional<ChartValue> setUp = sliderSetUp(*measure, _data);
  enterSliderValue(*measure, _data, tickValue(*setUp, sliderOf(column)->tick()));
  store(_data);
  speakSlider(column, *setUp);
  valueChanged();
}

void EditAnimationView::buttonPressed(int tag) {
  if (isEmpty(_data)) return;
  const int number = tag - _btnID;
  const bool isPlus = number < kMinusOffset;
  const Measure* measure = measureOf(isPlus ? number : number - kMinusOffset);
  if (measure != nullptr) enterStep(*measure, _data, isPlus);
  store(_data);
  for (int column = 1; column < _sliders.size(); ++column) loadSlider(column);
  valueChanged();
}

void EditAnimationView::buttonClose() { animate(); }

void EditAnimationView::valueChanged() {
  update(QRectF(panel::kValueStrip.topLeft(), QSizeF(width(), panel::kValueStrip.height())).toAlignedRect());
}

void EditAnimationView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && opened()) animate();
  event->accept();  // no key of the panel reaches the views behind it
}

void EditAnimationView::resizeEvent(QResizeEvent* event) {
  AnimationView::resizeEvent(event);
  layoutControls();
}

void EditAnimationView::layoutControls() {
  const EditPanelPlan where = plan();
  for (int column = 1; column < _sliders.size(); ++column) {
    if (sliderOf(column) == nullptr) continue;
    const EditPanelColumn& place = where.columns[static_cast<size_t>(column)];
    sliderOf(column)->setGeometry(QRect(place.slider.topLeft().toPoint(), place.slider.size().toSize()));
    buttonOf(_btnID + column)->move(place.plus.toPoint());
    buttonOf(_btnID + kMinusOffset + column)->move(place.minus.toPoint());
  }
  _closeButton->setGeometry(where.closeButton.toRect());
}

// Field by field from left to right, from plus to minus, and the close button last.
void EditAnimationView::walkByTab() {
  QWidget* before = this;
  const auto next = [&before](QWidget* widget) {
    setTabOrder(before, widget);
    before = widget;
  };
  for (int column = 1; column < _sliders.size(); ++column) {
    if (sliderOf(column) == nullptr) continue;
    next(buttonOf(_btnID + column));
    next(sliderOf(column));
    next(buttonOf(_btnID + kMinusOffset + column));
  }
  next(_closeButton);
}

void EditAnimationView::nameControls() {
  for (int column = 1; column < _sliders.size(); ++column) {
    if (sliderOf(column) == nullptr) continue;
    const Measure* measure = measureOf(column);
    if (measure == nullptr) continue;
    const QString field = word(measure->titleKey);
    sliderOf(column)->setAccessibleName(titleOf(measure->titleKey, measure->unit));
    buttonOf(_btnID + column)->setAccessibleName(field + QLatin1Char(' ') + word("plus"));
    buttonOf(_btnID + kMinusOffset + column)->setAccessibleName(field + QLatin1Char(' ') + word("minus"));
  }
  _closeButton->setAccessibleName(word("Close"));
  setAccessibleName(word("date") + QLatin1Char(' ') + dateText(_data));
}

}  // namespace sanovia
