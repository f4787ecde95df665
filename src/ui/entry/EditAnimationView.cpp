#include "ui/entry/EditAnimationView.h"

#include <QApplication>
#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>

#include "core/dates/Utils.h"
#include "core/diary/DayEntries.h"
#include "core/foundation/NotificationCenter.h"
#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"
#include "core/measures/EntryRules.h"
#include "core/measures/ValueText.h"
#include "core/preferences/Preferences.h"
#include "drawing/Palette.h"
#include "ui/controls/Announcement.h"
#include "ui/controls/Scroller.h"
#include "ui/controls/StepButton.h"
#include "ui/controls/WhiteSlider.h"
#include "ui/entry/ClearMark.h"
#include "ui/entry/NumberField.h"

namespace sanovia {
namespace {

// As many as the kind with the most measures has.
int fieldCount() {
  size_t count = 0;
  for (const qint64 type : {RecordType::general, RecordType::pressure, RecordType::blood})
    count = std::max(count, measuresOf(type, true).size());
  return static_cast<int>(count);
}

template <class Button>
Button* makeButton(QWidget* parent, const QString& stem) {
  auto* button = new Button(parent);
  button->setImageName(stem + QStringLiteral("-off"));
  button->setAlternateImageName(stem + QStringLiteral("-on"));
  button->setAllowsMixedState(true);
  return button;
}

}  // namespace

EditAnimationView::EditAnimationView(QWidget* parent)
    : AnimationView(parent),
      _scroller(new QScrollBar(Qt::Vertical, this)),
      _announcement(new Announcement(this)) {
  dressScroller(_scroller, palette::white);
  connect(_scroller, &QScrollBar::valueChanged, this, [this] {
    layoutControls();
    update();
  });
  connect(qApp, &QApplication::focusChanged, this,
          [this](const QWidget* /*old*/, const QWidget* now) { reveal(now); });
  makeTyping();
  setMovement(Up);
  _closeButton = makeButton<BaseColoredButton>(this, QStringLiteral("Cancel"));
  _closeSize = NamedImage::named(QStringLiteral("Clear-off")).size();
  connect(_closeButton, &QPushButton::clicked, this, &EditAnimationView::buttonClose);
  for (const bool isPlus : {true, false})
    for (int field = 1; field <= fieldCount(); ++field) {
      auto* button = makeButton<StepButton>(this, isPlus ? QStringLiteral("Plus") : QStringLiteral("Minus"));
      const int tag = _btnID + field + (isPlus ? 0 : kMinusOffset);
      button->setProperty("tag", tag);
      button->resize(static_cast<int>(panel::kButtonSize), static_cast<int>(panel::kButtonSize));
      connect(button, &StepButton::stepped, this, [this, tag] { buttonPressed(tag); });
      _buttons.append(button);
    }
  setType(RecordType::general);
  // A record may leave while the panel is on its way up, where a request to shut it is dropped.
  connect(this, &AnimationView::moved, this, [this] {
    if (opened() && isEmpty(_data)) animate();
  });
  NotificationCenter::defaultCenter().addObserver(this, changeMeasurementsNotification, [this] {
    if (!isEmpty(_data)) setData(_data);
    nameControls();
    update();
  });
}

// The keyboard goes elsewhere while the children end, which is no longer this panel's business.
EditAnimationView::~EditAnimationView() {
  disconnect(qApp, nullptr, this, nullptr);
  disconnect(_numberField, nullptr, this, nullptr);
}

int EditAnimationView::columnCount() const {
  return 1 + static_cast<int>(measuresOf(_type, Preferences::hasHeight()).size());
}

const Measure* EditAnimationView::measureOf(qint64 column) const {
  const std::span<const Measure> measures = measuresOf(_type, Preferences::hasHeight());
  return column < 1 || column > std::ssize(measures) ? nullptr : &measures[static_cast<size_t>(column - 1)];
}

void EditAnimationView::setType(qint64 type) {
  finishTyping();
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
  makeClearMarks();
  for (int field = 1; field <= fieldCount(); ++field)
    for (const int tag : {_btnID + field, _btnID + kMinusOffset + field})
      buttonOf(tag)->setVisible(sliderOf(field) != nullptr);
  layoutControls();
  walkByTab();
  nameControls();
}

void EditAnimationView::setData(const RecordRef& record) {
  finishTyping();
  _data = record;
  DayEntries::shared().open(record);
  loadSliders();
  placeClearMarks();
  nameControls();
  update();
}

// What somebody else has written of the day shows beside what was entered here.
void EditAnimationView::store() {
  if (DayEntries::shared().store(_data) != StoreOutcome::StoredOnOthers) return;
  loadSliders();
  update();
}

void EditAnimationView::loadSliders() {
  for (int column = 1; column < _sliders.size(); ++column) loadSlider(column);
}

void EditAnimationView::loadSlider(int column) {
  const Measure* measure = measureOf(column);
  WhiteSlider* slider = sliderOf(column);
  if (measure == nullptr || slider == nullptr) return;
  const std::optional<ChartValue> setUp = sliderSetUp(*measure, _data);
  slider->setTicks(nearestTick(*setUp, setUp->val()), tickCount(*setUp) - 1);
  speakSlider(column, *setUp);
}

// In the shown unit, which a screen reader's number must be in, too.
void EditAnimationView::speakSlider(int column, const ChartValue& setUp) {
  const Measure& measure = *measureOf(column);
  const QString value = stringOfData(column);
  const bool isNumber = isShownAsNumber(measure) && !value.isEmpty();
  const QString said = value.isEmpty() ? word("not_entered") : value;
  sliderOf(column)->setSpoken({.min = shownValue(static_cast<double>(setUp.min()), measure.unit),
                               .max = shownValue(static_cast<double>(setUp.max()), measure.unit),
                               .step = leastShownStep(measure),
                               .value = said,
                               .isNumber = isNumber});
  // A reader that is on a button hears the value that the button has made.
  for (const int tag : {_btnID + column, _btnID + kMinusOffset + column})
    buttonOf(tag)->setAccessibleDescription(said);
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
  store();
  speakSlider(column, *setUp);
  // Numbers are told as the slider's value.
  if (!isShownAsNumber(*measure)) _announcement->say(stringOfData(column));
  valueChanged();
}

void EditAnimationView::buttonPressed(int tag) {
  if (isEmpty(_data)) return;
  const int number = tag - _btnID;
  const bool isPlus = number < kMinusOffset;
  const int column = isPlus ? number : number - kMinusOffset;
  if (const Measure* measure = measureOf(column)) enterStep(*measure, _data, isPlus);
  changed();
  _announcement->say(stringOfData(column));
}

void EditAnimationView::buttonClose() { animate(); }

void EditAnimationView::valueChanged() {
  update(QRectF(panel::kValueStrip.topLeft(), QSizeF(width(), panel::kValueStrip.height()))
             .translated(0, -scrolled())
             .toAlignedRect());
  placeClearMarks();
}

QString EditAnimationView::tipAt(QPointF point) const {
  if (point.y() + scrolled() >= panel::kBandHeight) return {};
  const Measure* measure =
      measureOf(static_cast<qint64>(point.x() * static_cast<double>(_sliders.size()) / width()));
  return measure == nullptr ? QString() : titleWithUnit(*measure);
}

// The titles tell their units.
bool EditAnimationView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return AnimationView::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  QToolTip::showText(help->globalPos(), tipAt(QPointF(help->pos())), this);
  return true;
}

void EditAnimationView::resizeEvent(QResizeEvent* event) {
  AnimationView::resizeEvent(event);
  placeScroller();
  layoutControls();
}

int EditAnimationView::scrolled() const { return _scroller->value(); }

void EditAnimationView::placeScroller() {
  const int hidden = qMax(0, panel::kLeastHeight - height());
  _scroller->setRange(0, hidden);
  _scroller->setPageStep(height());
  _scroller->setSingleStep(panel::kScrollStep);
  _scroller->setVisible(hidden > 0);
  _scroller->setGeometry(width() - kScrollerWidth, 0, kScrollerWidth, height());
  _scroller->raise();
}

void EditAnimationView::reveal(const QWidget* control) {
  if (control == nullptr || control->parentWidget() != this) return;
  const QRect place = control->geometry();
  if (place.top() < 0)
    _scroller->setValue(scrolled() + place.top());
  else if (place.bottom() > height())
    _scroller->setValue(scrolled() + qMin(place.bottom() - height() + 1, place.top()));
}

// Also that of a slider that does not take it for itself.
void EditAnimationView::wheelEvent(QWheelEvent* event) {
  if (_scroller->maximum() > 0) QCoreApplication::sendEvent(_scroller, event);
  event->accept();
}

void EditAnimationView::layoutControls() {
  const EditPanelPlan where = plan();
  for (int column = 1; column < _sliders.size(); ++column) {
    if (sliderOf(column) == nullptr) continue;
    const EditPanelColumn& place = where.columns[static_cast<size_t>(column)];
    const QPoint up(0, -scrolled());
    sliderOf(column)->setGeometry(QRect(place.slider.topLeft().toPoint() + up, place.slider.size().toSize()));
    buttonOf(_btnID + column)->move(place.plus.toPoint() + up);
    buttonOf(_btnID + kMinusOffset + column)->move(place.minus.toPoint() + up);
  }
  placeField();
  placeClearMarks();
  _closeButton->setGeometry(where.closeButton.toRect().translated(0, -scrolled()));
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
    sliderOf(column)->setAccessibleName(titleWithUnit(*measure));
    buttonOf(_btnID + column)->setAccessibleName(field + QLatin1Char(' ') + word("plus"));
    buttonOf(_btnID + kMinusOffset + column)->setAccessibleName(field + QLatin1Char(' ') + word("minus"));
    const QString clear = filled(word("clear_value"), field);
    clearMarkOf(column)->setAccessibleName(clear);
    clearMarkOf(column)->setToolTip(clear);
  }
  _closeButton->setAccessibleName(word("Close"));
  setAccessibleName(word("date") + QLatin1Char(' ') + dateText(_data));
}

}  // namespace sanovia
