#include "ui/charts/PropertiesView.h"

#include "core/foundation/Settings.h"
#include "core/measures/RecordRef.h"
#include "ui/charts/ChartMeasures.h"

namespace sanovia {
namespace {

constexpr double kFoot = 10.0;

const Setting<QList<qint64>>& openChartsOf(qint64 type) {
  if (type == RecordType::general) return settings.openGeneral;
  return type == RecordType::pressure ? settings.openPressure : settings.openBlood;
}

}  // namespace

PropertiesView::PropertiesView(QWidget* parent) : QWidget(parent) {}

void PropertiesView::addPropertyView(const Property& property) {
  auto* button = new ChartsButton(this);
  button->resize(width(), chart::kButtonHeight);
  button->setText(property.title);
  const NamedImage image = NamedImage::named(property.imgTitle);
  button->setImage(image, image.isNull() ? ImagePosition::Overlaps : ImagePosition::Left);
  button->setTag(property.tag);
  connect(button, &QPushButton::clicked, this, &PropertiesView::buttonTabClicked);
  button->show();
  _buttons.append(button);
}

void PropertiesView::addPropertyViews() {
  // First of all: the first question to the language loads its table, which has the buttons rebuilt.
  const std::vector<Property> properties = viewsArray();
  const QList<qint64> selected = openChartsOf(_type).value();
  // Whoever rebuilds the buttons from a click on one of them still needs it.
  for (ChartsButton* button : std::as_const(_buttons)) {
    button->hide();
    button->deleteLater();
  }
  _buttons.clear();
  for (const Property& property : properties) {
    addPropertyView(property);
    _buttons.last()->setChecked(selected.contains(property.tag));
  }
  layoutSubviews();
}

ChartsButton* PropertiesView::buttonOf(qint64 tag) const {
  for (ChartsButton* button : _buttons)
    if (button->tag() == tag) return button;
  return nullptr;
}

QList<qint64> PropertiesView::tagsOfSelectedButton() const {
  QList<qint64> tags;
  for (auto button = _buttons.rbegin(); button != _buttons.rend(); ++button)
    if ((*button)->isChecked()) tags.append((*button)->tag());
  return tags;
}

bool PropertiesView::isButtonSelected(qint64 tag) const { return tagsOfSelectedButton().contains(tag); }

void PropertiesView::openPropertiesByType(qint64 tag) {
  if (ChartsButton* button = buttonOf(tag)) button->click();
}

void PropertiesView::buttonTabClicked() {
  openChartsOf(_type).store(tagsOfSelectedButton());
  SettingsStore::standard().synchronize();
  layoutSubviews();
}

void PropertiesView::layoutSubviews() {
  int y = 0;
  int height = 0;
  for (ChartsButton* button : std::as_const(_buttons)) {
    button->setGeometry(0, y, width(), button->height());
    y = static_cast<int>(y + button->height() + chart::kButtonGap);
    height += button->height();
  }
  setFixedHeight(height + static_cast<int>(kFoot));
  update();
}

void PropertiesView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  for (ChartsButton* button : std::as_const(_buttons)) button->resize(width(), button->height());
}

}  // namespace sanovia
