#include "ui/controls/Scroller.h"

#include <QColor>
#include <QScrollArea>
#include <QScrollBar>

namespace sanovia {
namespace {

constexpr int kAtRest = 150;  // of 255
constexpr int kUnderPointer = 220;

const QString kScrollerSheet = QStringLiteral(
    "QScrollBar { background: transparent; border: none; margin: 2px 2px 2px 0; }"
    "QScrollBar:vertical { width: %3px; }"
    "QScrollBar:horizontal { height: %3px; }"
    "QScrollBar::handle { background: %1; border-radius: 4px; min-height: 32px; min-width: 32px; }"
    "QScrollBar::handle:hover { background: %2; }"
    "QScrollBar::add-line, QScrollBar::sub-line { height: 0; width: 0; }"
    "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }");

QString withAlpha(QColor color, int alpha) {
  color.setAlpha(alpha);
  return color.name(QColor::HexArgb);
}

}  // namespace

void dressScroller(QScrollBar* bar, const QColor& handle) {
  bar->setStyleSheet(
      kScrollerSheet.arg(withAlpha(handle, kAtRest), withAlpha(handle, kUnderPointer)).arg(kScrollerWidth));
}

QScrollArea* scrolledSideways(QWidget* content, const QColor& handle) {
  auto* area = new QScrollArea;
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setWidgetResizable(true);
  area->setWidget(content);
  dressScroller(area->horizontalScrollBar(), handle);
  return area;
}

}  // namespace sanovia
