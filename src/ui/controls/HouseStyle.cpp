#include "ui/controls/HouseStyle.h"

#include <QToolTip>
#include <QWidget>

#include "drawing/Fonts.h"
#include "drawing/Palette.h"

namespace sanovia {
namespace {

const QString kHouseSheet = QStringLiteral(R"(
QMenuBar { background: @darkTeal; color: @white; padding: 2px 8px; }
QMenuBar::item { background: transparent; padding: 5px 12px; border-radius: 5px; }
QMenuBar::item:selected, QMenuBar::item:pressed { background: @teal; }
QMenu { background: @white; color: @black; border: 1px solid @teal; padding: 6px 0; }
QMenu::item { padding: 7px 28px 7px 20px; min-width: 190px; }
QMenu::item:selected { background: @teal; color: @white; }
QMenu::item:disabled { color: @lightGray; background: transparent; }
QMenu::separator { height: 1px; background: @blockGrey; margin: 6px 0; }

QDialog, QTextBrowser { background: @white; color: @black; }
QLabel { color: @black; }
QLineEdit, QDateTimeEdit, QComboBox { background: @white; color: @black; border: 1px solid @lightGray;
  border-radius: 6px; padding: 7px 10px; min-height: 20px;
  selection-background-color: @teal; selection-color: @white; }
QComboBox { padding: 7px 12px; combobox-popup: 0; }
QLineEdit:focus, QDateTimeEdit:focus, QComboBox:focus { border: 2px solid @teal; padding: 6px 9px; }
QComboBox:focus { padding: 6px 11px; }
QLineEdit[refused="true"] { border: 2px solid @red; padding: 6px 9px; }
QComboBox::drop-down, QDateTimeEdit::drop-down { border: none; width: 32px; subcontrol-position: center right; }
QComboBox::down-arrow, QDateTimeEdit::down-arrow { image: url(:/images/Chevron-down.svg); width: 14px; height: 14px; }
QComboBox QAbstractItemView { background: @white; color: @black; border: 1px solid @teal; outline: none;
  selection-background-color: @teal; selection-color: @white; }
QComboBox QAbstractItemView::item { min-height: 32px; padding: 0 10px; }
QPushButton { background: @white; color: @teal; border: 1px solid @teal; border-radius: 6px;
  padding: 8px 22px; min-width: 64px; min-height: 18px; outline: none; }
QPushButton:default { background: @teal; color: @white; }
QPushButton:hover { border-color: @darkTeal; }
QPushButton:pressed, QPushButton:default:hover { background: @darkTeal; color: @white; }
QPushButton:focus { border: 2px solid @darkTeal; padding: 7px 21px; }
QPushButton:disabled { color: @lightGray; border-color: @lightGray; background: @white; }

QListWidget, QTableWidget, QTreeWidget { background: @white; color: @black; border: 1px solid @lightGray;
  border-radius: 6px; outline: none; }
QListWidget:focus, QTableWidget:focus, QTreeWidget:focus { border-color: @teal; }
QListWidget::item { padding: 4px 8px; }
QTreeWidget::item { min-height: 28px; padding: 0 6px; }
QListWidget::item:selected, QTableWidget::item:selected, QTreeWidget::item:selected { background: @teal;
  color: @white; }
QHeaderView::section { background: @white; border: none; padding: 6px; }

QCalendarWidget, QCalendarWidget QWidget { background: @white; color: @black; }
QCalendarWidget { border: 1px solid @teal; }
QCalendarWidget QWidget#qt_calendar_navigationbar { min-height: 44px; }
QCalendarWidget QToolButton { background: transparent; border: none; border-radius: 6px; padding: 4px 10px;
  margin: 5px 2px; font-weight: bold; }
QCalendarWidget QToolButton:hover, QCalendarWidget QToolButton:focus { background: @blockGrey; }
QCalendarWidget QToolButton::menu-indicator { image: none; }
QCalendarWidget QToolButton#qt_calendar_prevmonth { qproperty-icon: url(:/images/Month-previous.svg);
  qproperty-iconSize: 22px; }
QCalendarWidget QToolButton#qt_calendar_nextmonth { qproperty-icon: url(:/images/Month-next.svg);
  qproperty-iconSize: 22px; }
QCalendarWidget QSpinBox { border: 1px solid @teal; border-radius: 6px; padding: 2px 4px; margin: 6px 2px;
  min-width: 64px; selection-background-color: @teal; selection-color: @white; }
QCalendarWidget QTableView { border: none; outline: none; alternate-background-color: @white;
  selection-background-color: @red; selection-color: @white; }
)");

constexpr int kToolTipPixels = 13;

struct Name {
  const char* name;
  QColor colour;
};
constexpr Name kNames[] = {
    {"@white", palette::white},        {"@black", palette::black},       {"@red", palette::red},
    {"@teal", palette::teal},          {"@darkTeal", palette::darkTeal}, {"@lightGray", palette::lightGray},
    {"@blockGrey", palette::blockGrey}};

QString sheetInColours() {
  QString sheet = kHouseSheet;
  for (const Name& name : kNames) sheet.replace(QLatin1String(name.name), name.colour.name());
  return sheet;
}

}  // namespace

void dressInHouseStyle(QWidget* root, int pixels) {
  root->setStyleSheet(sheetInColours());
  root->setFont(fonts::system(pixels));
  // Under a style sheet no widget takes the font of the one around it.
  for (QWidget* widget : root->findChildren<QWidget*>()) widget->setFont(fonts::system(pixels));
}

void dressToolTips() {
  QPalette colours = QToolTip::palette();
  colours.setColor(QPalette::ToolTipBase, palette::white);
  colours.setColor(QPalette::ToolTipText, palette::darkTeal);
  QToolTip::setPalette(colours);
  QToolTip::setFont(fonts::system(kToolTipPixels));
}

}  // namespace sanovia
