// What a screen reader meets in a white slider: its name and its value as it is shown, a number with its
// range in the shown unit, words as words. A value set here is a change like a drag, and so are the two
// actions, which serve also where there is no number.
#pragma once

#include <QAccessibleWidget>

namespace sanovia {

class WhiteSlider;

class SliderAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit SliderAccessible(WhiteSlider* slider);

  // Makes this interface the one of all white sliders.
  static void install();

  // The number that is said; 0 for words.
  static double valueOf(const WhiteSlider& slider);

  void* interface_cast(QAccessible::InterfaceType type) override;
  QString text(QAccessible::Text kind) const override;
  QVariant currentValue() const override;
  void setCurrentValue(const QVariant& value) override;
  QVariant minimumValue() const override;
  QVariant maximumValue() const override;
  QVariant minimumStepSize() const override;
  QStringList actionNames() const override;
  void doAction(const QString& name) override;

 private:
  WhiteSlider& slider() const;
};

}  // namespace sanovia
