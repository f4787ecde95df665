#include "ui/controls/Relabelling.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

#include "core/foundation/NotificationCenter.h"
#include "core/localisation/Language.h"
#include "ui/controls/SegmentedControl.h"

namespace sanovia {
namespace {

const char* const kKey = "languageKey";

QString keyOf(const QObject* control) { return control->property(kKey).toString(); }

// Hands on the text under the key, when the table has one.
template <class Show>
void showText(const QString& key, Show show) {
  const QString text = Language::stringForKey(key);
  if (!text.isEmpty()) show(text);
}

// Controls that have one text, known by the name of its property.
template <const char* property>
struct OneText {
  static void keep(QObject* control) { control->setProperty(kKey, control->property(property)); }
  static void refresh(QObject* control) {
    showText(keyOf(control), [control](const QString& text) { control->setProperty(property, text); });
  }
};
constexpr char kText[] = "text";
constexpr char kTitle[] = "title";
constexpr char kPlaceholder[] = "placeholderText";

// A field that is empty shows its text as a placeholder.
bool isEmptyField(const QObject* field) { return field->property(kText).toString().isEmpty(); }

void keepField(QObject* field) {
  field->setProperty(kKey, field->property(isEmptyField(field) ? kPlaceholder : kText));
}

void refreshField(QObject* field) {
  const char* shown =
      qobject_cast<QLineEdit*>(field) != nullptr && isEmptyField(field) ? kPlaceholder : kText;
  showText(keyOf(field), [=](const QString& text) { field->setProperty(shown, text); });
}

void keepChoices(QObject* control) {
  auto* choices = static_cast<QComboBox*>(control);
  for (int i = 0; i < choices->count(); ++i) choices->setItemData(i, choices->itemText(i), languageKeyRole);
}

void refreshChoices(QObject* control) {
  auto* choices = static_cast<QComboBox*>(control);
  for (int i = 0; i < choices->count(); ++i)
    showText(choices->itemData(i, languageKeyRole).toString(),
             [=](const QString& text) { choices->setItemText(i, text); });
}

void keepItem(QObject* item) {
  auto* action = static_cast<QAction*>(item);
  if (action->menu() == nullptr) action->setToolTip(action->text());
}

void refreshItem(QObject* item) {
  auto* action = static_cast<QAction*>(item);
  if (action->isSeparator()) return;
  showText(action->toolTip(), [action](const QString& text) { action->setText(text); });
}

// A menu has no place for a key: its present title is looked up, so that only the first language shows.
void refreshMenu(QObject* control) {
  auto* menu = static_cast<QMenu*>(control);
  showText(menu->title(), [menu](const QString& text) { menu->setTitle(text); });
  walkMenu(menu);
}

void keepSegments(QObject* control) {
  auto* segments = static_cast<SegmentedControl*>(control);
  QStringList labels;
  for (int i = 0; i < segments->segmentCount(); ++i) labels.append(segments->labelForSegment(i));
  segments->setIdentifier(labels.join(QLatin1Char(',')));
}

void refreshSegments(QObject* control) {
  auto* segments = static_cast<SegmentedControl*>(control);
  const QStringList keys = segments->identifier().split(QLatin1Char(','));
  for (int i = 0; i < keys.size(); ++i)
    showText(keys[i], [=](const QString& text) { segments->setLabel(text, i); });
}

void keepTabs(QObject* control) {
  auto* tabs = static_cast<QTabBar*>(control);
  for (int i = 0; i < tabs->count(); ++i) tabs->setTabData(i, tabs->tabText(i));
}

void refreshTabs(QObject* control) {
  auto* tabs = static_cast<QTabBar*>(control);
  for (int i = 0; i < tabs->count(); ++i)
    showText(tabs->tabData(i).toString(), [=](const QString& text) { tabs->setTabText(i, text); });
}

void keepNothing(QObject* /*control*/) {}

template <class Control>
bool isA(const QObject* control) {
  return qobject_cast<const Control*>(control) != nullptr;
}
bool isField(const QObject* control) { return isA<QLabel>(control) || isA<QLineEdit>(control); }

enum class Observes : quint8 { Never, UnlessEnglish, Always };

// What one kind of control keeps and does. A control is of the first kind that knows it.
struct Kind {
  bool (*is)(const QObject* control);
  void (*keep)(QObject* control);
  void (*refresh)(QObject* control);
  bool keepsInEnglish;
  Observes observes;
};

constexpr Kind kKinds[] = {
    {isField, keepField, refreshField, false, Observes::UnlessEnglish},
    {isA<QAbstractButton>, OneText<kText>::keep, OneText<kText>::refresh, false, Observes::UnlessEnglish},
    {isA<QComboBox>, keepChoices, refreshChoices, true, Observes::UnlessEnglish},
    {isA<QMenu>, keepNothing, refreshMenu, false, Observes::UnlessEnglish},
    {isA<QAction>, keepItem, refreshItem, true, Observes::Never},
    {isA<QGroupBox>, OneText<kTitle>::keep, OneText<kTitle>::refresh, false, Observes::UnlessEnglish},
    {isA<SegmentedControl>, keepSegments, refreshSegments, false, Observes::UnlessEnglish},
    {isA<QTabBar>, keepTabs, refreshTabs, true, Observes::Always},
};

const Kind* kindOf(const QObject* control) {
  for (const Kind& kind : kKinds)
    if (kind.is(control)) return &kind;
  return nullptr;
}

// What every widget may say beside its own text, and the hidden property that keeps the key.
struct SideText {
  const char* shown;
  const char* key;
};
constexpr SideText kSideTexts[] = {
    {"accessibleName", "languageKeyOfAccessibleName"},
    {"toolTip", "languageKeyOfToolTip"},
    {"windowTitle", "languageKeyOfWindowTitle"},
};

void keepSideTexts(QObject* control) {
  if (!control->isWidgetType()) return;
  for (const SideText& text : kSideTexts) control->setProperty(text.key, control->property(text.shown));
}

void refreshSideTexts(QObject* control) {
  if (!control->isWidgetType()) return;
  for (const SideText& side : kSideTexts)
    showText(control->property(side.key).toString(),
             [=](const QString& text) { control->setProperty(side.shown, text); });
}

QObjectList controlsOf(QWidget* root) { return QObjectList{root} + root->findChildren<QObject*>(); }

}  // namespace

void keepLanguageKeys(QWidget* root) {
  const bool inEnglish = Language::isEnglish();
  for (QObject* control : controlsOf(root)) {
    const Kind* kind = kindOf(control);
    if (kind != nullptr && (kind->keepsInEnglish || !inEnglish)) kind->keep(control);
    if (!inEnglish) keepSideTexts(control);
  }
  NotificationCenter::defaultCenter().addObserver(root, RefreshLanguageNotification, [=] {
    const Observes least = inEnglish ? Observes::Always : Observes::UnlessEnglish;
    for (QObject* control : controlsOf(root)) {
      const Kind* kind = kindOf(control);
      if (kind != nullptr && kind->observes >= least) kind->refresh(control);
      if (!inEnglish) refreshSideTexts(control);
    }
  });
}

void walkMenu(QMenu* menu) {
  for (QAction* item : menu->actions()) {
    if (item->menu() == nullptr)
      refreshItem(item);
    else
      walkMenu(item->menu());
  }
}

void refreshLanguageInView(QWidget* view) {
  refreshSideTexts(view);
  if (const Kind* kind = kindOf(view)) {
    kind->refresh(view);
    return;
  }
  for (QObject* child : view->children())
    if (child->isWidgetType()) refreshLanguageInView(static_cast<QWidget*>(child));
}

}  // namespace sanovia
