// A column of full-width toggle buttons, one for each property of the kind of record shown. Which of them are
// on is remembered for each kind in the settings.
#pragma once

#include <QList>
#include <QWidget>

#include "ui/charts/ChartsButton.h"
#include "ui/charts/Property.h"

namespace sanovia {

class PropertiesView : public QWidget {
  Q_OBJECT

 public:
  explicit PropertiesView(QWidget* parent = nullptr);

  // The kind of record. A number that names no kind is kept and has no properties.
  qint64 type() const { return _type; }
  void setType(qint64 type) { _type = type; }

  // The properties of the kind, in the order of their buttons.
  virtual std::vector<Property> viewsArray() const { return {}; }

  // Makes all buttons anew, in the language and units in force, on or off as the settings have it.
  void addPropertyViews();

  // In the order of the list.
  const QList<ChartsButton*>& buttons() const { return _buttons; }
  // Null for a tag without a button.
  ChartsButton* buttonOf(qint64 tag) const;

  // The tags of the buttons that are on, from the last button to the first.
  QList<qint64> tagsOfSelectedButton() const;
  bool isButtonSelected(qint64 tag) const;
  // Turns the button over as a click does; a tag without a button does nothing.
  void openPropertiesByType(qint64 tag);

  // Places the buttons and takes on the height that they need.
  virtual void layoutSubviews();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void addPropertyView(const Property& property);
  // Remembers which buttons are on.
  void buttonTabClicked();

  qint64 _type = 0;
  QList<ChartsButton*> _buttons;
};

}  // namespace sanovia
