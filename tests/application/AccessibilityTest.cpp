// What a screen reader finds: the strip, the table and the calendar by role, name, value and action.
#include <QAccessible>

#include "controls/Popover.h"
#include "database/General.h"
#include "entry/MyTableView.h"
#include "support/LaunchedHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class AccessibilityTest : public LaunchedHome {
 protected:
  AccessibilityTest() {
    QAccessible::setActive(true);
    General record(u"2026-11-15"_s);
    record.temperature = 37.5;
    record.update();
    setLocale(u"de_DE"_s);
    launch();
  }

  // The first element below the root with that role and name; null when there is none or it cannot be seen.
  static QAccessibleInterface* find(QAccessibleInterface* root, QAccessible::Role role, const QString& name) {
    if (root == nullptr || root->state().invisible) return nullptr;
    if (root->role() == role && root->text(QAccessible::Name) == name) return root;
    for (int i = 0; i < root->childCount(); ++i)
      if (QAccessibleInterface* found = find(root->child(i), role, name)) return found;
    return nullptr;
  }
  QAccessibleInterface* find(QAccessible::Role role, const char* name) {
    return find(QAccessible::queryAccessibleInterface(delegate->window()), role, QString::fromUtf8(name));
  }
  static void press(QAccessibleInterface* element) {
    ASSERT_NE(element, nullptr);
    ASSERT_NE(element->actionInterface(), nullptr);
    element->actionInterface()->doAction(element->actionInterface()->actionNames().value(0));
  }
  static QAccessible::Role roleOf(const QWidget* widget) {
    return QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget))->role();
  }
};

TEST_F(AccessibilityTest, OperatesTheStrip) {
  const QAccessible::Role role = roleOf(ui().bnGeneral);
  for (const char* name : {"Allgemein", "Blutdruck", "Blutwerte", "Tabelle", "Diagramme"})
    EXPECT_NE(find(role, name), nullptr) << name;
  EXPECT_TRUE(find(role, "Allgemein")->state().checked);
  press(find(role, "Blutdruck"));
  EXPECT_EQ(ui().toolsView->type(), 1);
  EXPECT_TRUE(find(role, "Blutdruck")->state().checked);
  EXPECT_FALSE(find(role, "Allgemein")->state().checked);
  EXPECT_NE(find(QAccessible::Button, "Bericht"), nullptr);
  EXPECT_NE(find(QAccessible::StaticText, "15 Tage"), nullptr);
}

TEST_F(AccessibilityTest, ReadsAndSelectsInTheTable) {
  QAccessibleInterface* table = QAccessible::queryAccessibleInterface(ui().dataView->getTable());
  ASSERT_NE(table->tableInterface(), nullptr);
  EXPECT_EQ(table->tableInterface()->rowCount(), 15);
  EXPECT_EQ(table->tableInterface()->columnDescription(2), u"Temperatur, °C"_s);
  EXPECT_EQ(table->tableInterface()->cellAt(0, 1)->text(QAccessible::Name), u"15/11/2026"_s);
  EXPECT_EQ(table->tableInterface()->cellAt(0, 2)->text(QAccessible::Name), u"37.5"_s);
  EXPECT_FALSE(table->tableInterface()->cellAt(0, 0)->text(QAccessible::Name).isEmpty());
  table->tableInterface()->selectRow(3);
  EXPECT_EQ(ui().dataView->getTable()->selectedRow(), 3);
}

TEST_F(AccessibilityTest, PicksADayInTheCalendar) {
  press(find(QAccessible::Button, "Startdatum"));
  const QAccessible::Role role = roleOf(delegate->calendarView()->findChild<QWidget*>(u"c1"_s));
  QAccessibleInterface* picked = find(role, "Sonntag, 1. November 2026");
  ASSERT_NE(picked, nullptr) << "the popover is in the accessible tree";
  EXPECT_TRUE(picked->state().checked);
  EXPECT_TRUE(find(role, "Montag, 16. November 2026")->state().disabled);
  press(find(role, "Dienstag, 10. November 2026"));
  EXPECT_TRUE(delegate->calendarPopover()->isHidden());
  EXPECT_EQ(find(role, "Dienstag, 10. November 2026"), nullptr) << "gone with the popover";
  EXPECT_NE(find(QAccessible::StaticText, "6 Tage"), nullptr);
}

}  // namespace
}  // namespace sanovia::test
