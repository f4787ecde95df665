#include "ui/controls/SliderAccessible.h"

#include "ui/controls/WhiteSlider.h"

namespace sanovia {
namespace {

QAccessibleInterface* sliderInterface(const QString& /*className*/, QObject* object) {
  auto* slider = qobject_cast<WhiteSlider*>(object);
  return slider == nullptr ? nullptr : new SliderAccessible(slider);
}

double stepOf(const WhiteSlider& slider) {
  return (slider.spoken().max - slider.spoken().min) / slider.lastTick();
}

}  // namespace

SliderAccessible::SliderAccessible(WhiteSlider* slider) : QAccessibleWidget(slider, QAccessible::Slider) {}

void SliderAccessible::install() {
  static const bool installed = (QAccessible::installFactory(sliderInterface), true);
  Q_UNUSED(installed)
}

double SliderAccessible::valueOf(const WhiteSlider& slider) {
  return slider.spoken().min + slider.tick() * stepOf(slider);
}

WhiteSlider& SliderAccessible::slider() const { return *static_cast<WhiteSlider*>(widget()); }

void* SliderAccessible::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

QString SliderAccessible::text(QAccessible::Text kind) const {
  return kind == QAccessible::Value ? slider().spoken().value : QAccessibleWidget::text(kind);
}

QVariant SliderAccessible::currentValue() const { return valueOf(slider()); }

void SliderAccessible::setCurrentValue(const QVariant& value) {
  slider().moveTo(qRound((value.toDouble() - slider().spoken().min) / stepOf(slider())));
}

QVariant SliderAccessible::minimumValue() const { return slider().spoken().min; }

QVariant SliderAccessible::maximumValue() const { return slider().spoken().max; }

QVariant SliderAccessible::minimumStepSize() const { return stepOf(slider()); }

}  // namespace sanovia
