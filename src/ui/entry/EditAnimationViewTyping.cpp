// Values of the edit panel that are typed, and values that are taken back.
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>

#include "core/localisation/Language.h"
#include "core/measures/EntryRules.h"
#include "core/measures/TypedValue.h"
#include "core/measures/ValueText.h"
#include "drawing/Fonts.h"
#include "drawing/Palette.h"
#include "ui/controls/Announcement.h"
#include "ui/controls/WhiteSlider.h"
#include "ui/entry/ClearMark.h"
#include "ui/entry/EditAnimationView.h"
#include "ui/entry/NumberField.h"

namespace sanovia {

void EditAnimationView::makeTyping() {
  _numberField = new NumberField(this);
  _numberField->hide();
  connect(_numberField, &NumberField::entered, this, &EditAnimationView::takeTyped);
  connect(_numberField, &NumberField::givenUp, this, [this] { shutField(true); });
  connect(_numberField, &NumberField::left, this, &EditAnimationView::finishTyping);
  connect(_numberField, &QLineEdit::textEdited, this, [this] { showHint({}); });
  _typedHint = new QLabel(this);
  _typedHint->setAlignment(Qt::AlignCenter);
  _typedHint->setWordWrap(true);
  _typedHint->setFont(fonts::system(panel::kHintPixels));
  _typedHint->setStyleSheet(
      QStringLiteral("background: %1; color: %2; border: 1px solid %2; border-radius: 6px;"
                     " padding: 4px;")
          .arg(palette::white.name(), palette::darkRed.name()));
  _typedHint->hide();
}

void EditAnimationView::makeClearMarks() {
  qDeleteAll(_clearMarks);
  _clearMarks.fill(nullptr, columnCount());
  for (int column = 1; column < columnCount(); ++column) {
    if (sliderOf(column) == nullptr) continue;
    _clearMarks[column] = new ClearMark(this);
    connect(_clearMarks[column], &QAbstractButton::clicked, this, [this, column] { takeBack(column); });
  }
}

void EditAnimationView::placeClearMarks() {
  const QFontMetricsF metrics(fonts::verdana(panel::kValuePixels));
  const EditPanelPlan where = plan();
  for (int column = 1; column < _clearMarks.size(); ++column) {
    if (_clearMarks[column] == nullptr) continue;
    const QString value = stringOfData(column);
    const QPointF place =
        clearMarkPlace(where.columns[static_cast<size_t>(column)].centre, metrics.horizontalAdvance(value),
                       metrics.height(), ClearMark::kSide);
    _clearMarks[column]->move(place.toPoint() - QPoint(0, scrolled()));
    _clearMarks[column]->setVisible(!value.isEmpty() && column != _typedColumn);
  }
}

void EditAnimationView::placeField() {
  if (!isTyping()) return;
  const FieldPlan where = fieldPlan(plan().columns[static_cast<size_t>(_typedColumn)].centre, width(),
                                    static_cast<int>(_sliders.size()));
  _numberField->setGeometry(where.field.translated(0, -scrolled()));
  _typedHint->setGeometry(where.hint.translated(0, -scrolled()));
  if (!_typedHint->text().isEmpty())
    _typedHint->resize(where.hint.width(), _typedHint->heightForWidth(where.hint.width()));
}

void EditAnimationView::openField(int column) {
  if (isEmpty(_data) || sliderOf(column) == nullptr || !opened() || isAnimating()) return;
  finishTyping();
  _typedColumn = column;
  _isConfirming = false;
  _numberField->setText(stringOfData(column));
  _numberField->setAccessibleName(titleWithUnit(*measureOf(column)));
  showHint({});
  placeField();
  placeClearMarks();
  _numberField->show();
  _numberField->raise();
  _numberField->setFocus();
  _numberField->selectAll();
}

void EditAnimationView::showHint(const QString& hint) {
  if (hint.isEmpty()) _isConfirming = false;
  _typedHint->setText(hint);
  _typedHint->setVisible(!hint.isEmpty());
  _numberField->setRefused(!hint.isEmpty());
  _numberField->setAccessibleDescription(hint);
  placeField();
  _typedHint->raise();
}

// The field goes; the slider of its column gets the keyboard if the field has had it.
void EditAnimationView::shutField(bool handsBack) {
  if (!isTyping()) return;
  const int column = _typedColumn;
  _typedColumn = 0;
  _typedHint->hide();
  if (handsBack) sliderOf(column)->setFocus(Qt::OtherFocusReason);
  _numberField->hide();
  placeClearMarks();
  update();
}

bool EditAnimationView::storeTyped(int column, const QString& text) {
  const Measure& measure = *measureOf(column);
  const TypedValue typed = typedValue(measure, text);
  if (typed.fate == TypedValue::Fate::Nothing || text == stringOfData(column)) return true;
  const bool isConfirmed = typed.fate == TypedValue::Fate::Implausible && _isConfirming;
  if (typed.fate != TypedValue::Fate::Good && !isConfirmed) {
    showHint(typedHint(measure, typed.fate));
    _isConfirming = typed.fate == TypedValue::Fate::Implausible;
    return false;
  }
  enterTypedValue(measure, _data, typed.stored);
  changed();
  return true;
}

void EditAnimationView::takeTyped(int next) {
  const int column = _typedColumn;
  if (!isTyping() || !storeTyped(column, _numberField->text())) return;
  int to = column + next;
  while (to > 0 && to < _sliders.size() && sliderOf(to) == nullptr) to += next;
  shutField(true);
  if (sliderOf(to) != nullptr) sliderOf(to)->setFocus(Qt::TabFocusReason);
}

// What can be taken without a question is taken, the rest is given up.
void EditAnimationView::finishTyping() {
  if (!isTyping()) return;
  const int column = _typedColumn;
  const QString text = _numberField->text();
  const bool isGood = typedValue(*measureOf(column), text).fate == TypedValue::Fate::Good;
  shutField(false);
  if (isGood) storeTyped(column, text);
}

void EditAnimationView::takeBack(int column) {
  const Measure* measure = measureOf(column);
  if (isEmpty(_data) || measure == nullptr || !storedValue(*measure, _data)) return;
  takeBackValue(*measure, _data);
  changed();
  _announcement->say(word("not_entered"));
}

void EditAnimationView::changed() {
  store();
  loadSliders();
  valueChanged();
}

int EditAnimationView::focusedColumn() const {
  for (int column = 1; column < _sliders.size(); ++column)
    if (sliderOf(column) != nullptr && sliderOf(column) == focusWidget()) return column;
  return 0;
}

void EditAnimationView::keyPressEvent(QKeyEvent* event) {
  event->accept();  // no key of the panel reaches the views behind it
  if (event->key() == Qt::Key_Escape && opened()) return animate();
  const int column = focusedColumn();
  const bool isPlain = (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == Qt::NoModifier;
  if (column == 0 || !isPlain) return;
  if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) return takeBack(column);
  if (!beginsValue(*measureOf(column), event->text())) return;
  openField(column);
  if (isTyping()) _numberField->insert(event->text());
}

void EditAnimationView::mouseDoubleClickEvent(QMouseEvent* event) {
  const double y = event->position().y() + scrolled();
  if (y < panel::kValueStrip.top() || y >= panel::kValueStrip.bottom()) return;
  openField(static_cast<int>(event->position().x() * static_cast<double>(_sliders.size()) / width()));
}

}  // namespace sanovia
