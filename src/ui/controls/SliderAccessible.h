// What a screen reader meets in a white slider: its name, its value as it is shown, its range and its step,
// all in stored units. A value set here is a change like a drag.
#pragma once

#include <QAccessibleWidget>

namespace sanovia {

class WhiteSlider;

class SliderAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit SliderAccessible(WhiteSlider* slider);

  // Makes this interface the one of all white sliders.
  static void install();

  static double valueOf(const WhiteSlider& slider);

  void* interface_cast(QAccessible::InterfaceType type) override;
  QString text(QAccessible::Text kind) const override;
  QVariant currentValue() const override;
  void setCurrentValue(const QVariant& value) override;
  QVariant minimumValue() const override;
  QVariant maximumValue() const override;
  QVariant minimumStepSize() const override;

 private:
  WhiteSlider& slider() const;
};

}  // namespace sanovia
