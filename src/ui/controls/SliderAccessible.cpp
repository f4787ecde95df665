#include "ui/controls/SliderAccessible.h"

#include "ui/controls/WhiteSlider.h"

namespace sanovia {
namespace {

QAccessibleInterface* sliderInterface(const QString& /*className*/, QObject* object) {
  auto* slider = qobject_cast<WhiteSlider*>(object);
  return slider == nullptr ? nullptr : new SliderAccessible(slider);
}

}  // namespace

SliderAccessible::SliderAccessible(WhiteSlider* slider) : QAccessibleWidget(slider, QAccessible::Slider) {}

void SliderAccessible::install() {
  static const bool installed = (QAccessible::installFactory(sliderInterface), true);
  Q_UNUSED(installed)
}

double SliderAccessible::valueOf(const WhiteSlider& slider) { return slider.spoken().value.toDouble(); }

WhiteSlider& SliderAccessible::slider() const { return *static_cast<WhiteSlider*>(widget()); }

void* SliderAccessible::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::ValueInterface)
    return slider().spoken().isNumber ? static_cast<QAccessibleValueInterface*>(this) : nullptr;
  return QAccessibleWidget::interface_cast(type);
}

QString SliderAccessible::text(QAccessible::Text kind) const {
  return kind == QAccessible::Value ? slider().spoken().value : QAccessibleWidget::text(kind);
}

QVariant SliderAccessible::currentValue() const { return valueOf(slider()); }

void SliderAccessible::setCurrentValue(const QVariant& value) {
  const WhiteSlider::Spoken& spoken = slider().spoken();
  slider().moveTo(qRound((value.toDouble() - spoken.min) / (spoken.max - spoken.min) * slider().lastTick()));
}

QVariant SliderAccessible::minimumValue() const { return slider().spoken().min; }

QVariant SliderAccessible::maximumValue() const { return slider().spoken().max; }

QVariant SliderAccessible::minimumStepSize() const { return slider().spoken().step; }

QStringList SliderAccessible::actionNames() const {
  return QStringList{increaseAction(), decreaseAction()} + QAccessibleWidget::actionNames();
}

void SliderAccessible::doAction(const QString& name) {
  if (name == increaseAction())
    slider().moveTo(slider().tick() + 1);
  else if (name == decreaseAction())
    slider().moveTo(slider().tick() - 1);
  else
    QAccessibleWidget::doAction(name);
}

}  // namespace sanovia
