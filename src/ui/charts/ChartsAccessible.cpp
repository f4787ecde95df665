#include "ui/charts/ChartsAccessible.h"

#include <QPointer>

#include "ui/charts/ChartsView.h"

namespace sanovia {
namespace {

QAccessibleInterface* chartsInterface(const QString& /*className*/, QObject* object) {
  auto* view = qobject_cast<ChartsView*>(object);
  return view == nullptr ? nullptr : new ChartsAccessible(view);
}

QRect onScreen(const ChartsView& view, const QRectF& rect) {
  const QRect aligned = rect.toAlignedRect();
  return {view.mapToGlobal(aligned.topLeft()), aligned.size()};
}

// What the elements have in common: they are no objects of the toolkit.
class Element : public QAccessibleInterface {
 public:
  Element(ChartsView* view, qint64 tag) : _view(view), _tag(tag) {}

  bool isValid() const override { return _view != nullptr && _view->columnPlan().placeOf(_tag) != nullptr; }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return parent() == nullptr ? nullptr : parent()->window(); }
  void setText(QAccessible::Text, const QString&) override {}

  bool isOf(qint64 tag) const { return _tag == tag; }

 protected:
  ChartsAccessible* viewInterface() const {
    return static_cast<ChartsAccessible*>(QAccessible::queryAccessibleInterface(_view));
  }

  QPointer<ChartsView> _view;
  qint64 _tag;
};

class DayElement : public Element, public QAccessibleActionInterface {
 public:
  DayElement(ChartsView* view, qint64 tag, qint64 day) : Element(view, tag), _day(day) {}

  qint64 day() const { return _day; }

  bool isValid() const override { return Element::isValid() && _day <= _view->initBlocks().count(); }
  QAccessibleInterface* parent() const override { return viewInterface()->chartElement(_tag); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QAccessible::Role role() const override { return QAccessible::ListItem; }
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? _view->dayText(_tag, _day) : QString();
  }
  QRect rect() const override { return onScreen(*_view, _view->dayRect(_tag, _day)); }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.focusable = true;
    state.selectable = true;
    state.selected = _view->selectedDay() == _day;
    state.focused = viewInterface()->focusChild() == this;
    state.invisible = !_view->isVisible();
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }
  QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
  void doAction(const QString& name) override {
    if (!actionNames().contains(name)) return;
    _view->setFocus(Qt::OtherFocusReason);
    _view->selectDay(_day);
    if (name == pressAction()) _view->editSelectedDay();
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  qint64 _day;
};

class ChartElement : public Element {
 public:
  using Element::Element;

  QAccessibleInterface* parent() const override { return viewInterface(); }
  int childCount() const override { return static_cast<int>(_view->initBlocks().count()); }
  QAccessibleInterface* child(int index) const override {
    return index < 0 || index >= childCount() ? nullptr : viewInterface()->dayElement(_tag, index + 1);
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    const auto* day = dynamic_cast<const DayElement*>(child);
    return day != nullptr && day->isOf(_tag) ? static_cast<int>(day->day()) - 1 : -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    const std::optional<DayHit> hit = _view->hitAt(_view->mapFromGlobal(QPointF(x, y)));
    return hit && hit->tag == _tag ? child(static_cast<int>(hit->day) - 1) : nullptr;
  }
  QAccessible::Role role() const override { return QAccessible::Chart; }
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? _view->buttonOf(_tag)->text() : QString();
  }
  QRect rect() const override {
    const ColumnPlan column = _view->columnPlan();
    const PropertyPlace* place = column.placeOf(_tag);
    return onScreen(*_view, {0, place->chartY, static_cast<double>(_view->width()), place->chartHeight});
  }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.invisible = !_view->isVisible();
    return state;
  }
};

}  // namespace

ChartsAccessible::ChartsAccessible(ChartsView* view) : QAccessibleWidget(view, QAccessible::Grouping) {
  _connections = {QObject::connect(view, &ChartsView::chartsChanged, view, [this] { forgetElements(); }),
                  QObject::connect(view, &ChartsView::selectionMoved, view, [this] { tellFocus(); })};
}

ChartsAccessible::~ChartsAccessible() {
  for (const QMetaObject::Connection& connection : _connections) QObject::disconnect(connection);
}

void ChartsAccessible::install() {
  static const bool installed = (QAccessible::installFactory(chartsInterface), true);
  Q_UNUSED(installed)
}

ChartsView& ChartsAccessible::view() const { return *static_cast<ChartsView*>(widget()); }

QAccessibleInterface* ChartsAccessible::element(const Key& key) const {
  const auto known = _elements.constFind(key);
  if (known != _elements.cend()) return QAccessible::accessibleInterface(*known);
  ChartsView* charts = &view();
  QAccessibleInterface* made = key.second == 0
                                   ? static_cast<QAccessibleInterface*>(new ChartElement(charts, key.first))
                                   : new DayElement(charts, key.first, key.second);
  _elements.insert(key, QAccessible::registerAccessibleInterface(made));
  return made;
}

void ChartsAccessible::forgetElements() {
  for (const QAccessible::Id id : std::as_const(_elements)) QAccessible::deleteAccessibleInterface(id);
  _elements.clear();
}

QList<QAccessibleInterface*> ChartsAccessible::children() const {
  QList<QAccessibleInterface*> children;
  for (const PropertyPlace& place : view().columnPlan().places) {
    children.append(QAccessible::queryAccessibleInterface(view().buttonOf(place.tag)));
    if (place.isOn) children.append(chartElement(place.tag));
  }
  return children;
}

int ChartsAccessible::childCount() const { return static_cast<int>(children().size()); }

QAccessibleInterface* ChartsAccessible::child(int index) const { return children().value(index); }

int ChartsAccessible::indexOfChild(const QAccessibleInterface* child) const {
  return static_cast<int>(children().indexOf(const_cast<QAccessibleInterface*>(child)));
}

QAccessibleInterface* ChartsAccessible::childAt(int x, int y) const {
  for (QAccessibleInterface* child : children())
    if (child->rect().contains(x, y)) return child;
  return nullptr;
}

QAccessibleInterface* ChartsAccessible::focusChild() const {
  const qint64 day = view().selectedDay();
  if (!view().hasFocus() || day < 1 || day > view().initBlocks().count())
    return QAccessibleWidget::focusChild();
  for (const PropertyPlace& place : view().columnPlan().places)
    if (place.isOn) return dayElement(place.tag, day);
  return QAccessibleWidget::focusChild();
}

void ChartsAccessible::tellFocus() const {
  QAccessibleInterface* focused = focusChild();
  if (focused == nullptr || focused->object() != nullptr) return;
  QAccessibleEvent event(focused, QAccessible::Focus);
  QAccessible::updateAccessibility(&event);
}

}  // namespace sanovia
