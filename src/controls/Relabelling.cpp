#include "controls/Relabelling.h"

#include <QAbstractButton>
#include <QVariant>

#include "foundation/NotificationCenter.h"
#include "localisation/Language.h"

namespace sanovia {
namespace {

// A property that shows text, and the hidden property that keeps its key.
struct Text {
  const char* shown;
  const char* key;
};

constexpr Text kButtonText = {"text", "languageKeyOfText"};
constexpr Text kTexts[] = {
    kButtonText,
    {"accessibleName", "languageKeyOfAccessibleName"},
    {"toolTip", "languageKeyOfToolTip"},
};

QList<QWidget*> widgetsOf(QWidget* root) { return QList<QWidget*>{root} + root->findChildren<QWidget*>(); }

void keepKeys(QWidget* widget) {
  const bool isButton = qobject_cast<QAbstractButton*>(widget) != nullptr;
  for (const Text& text : kTexts)
    if (isButton || text.shown != kButtonText.shown)
      widget->setProperty(text.key, widget->property(text.shown));
}

void relabel(QWidget* widget) {
  for (const Text& text : kTexts) {
    const QString translated = Language::stringForKey(widget->property(text.key).toString());
    if (!translated.isEmpty()) widget->setProperty(text.shown, translated);
  }
}

}  // namespace

void keepLanguageKeys(QWidget* root) {
  if (Language::isEnglish()) return;
  for (QWidget* widget : widgetsOf(root)) keepKeys(widget);
  NotificationCenter::defaultCenter().addObserver(root, RefreshLanguageNotification, [root] {
    for (QWidget* widget : widgetsOf(root)) relabel(widget);
  });
}

}  // namespace sanovia
