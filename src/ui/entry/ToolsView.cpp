#include "ui/entry/ToolsView.h"

#include <QAbstractButton>
#include <QPainter>

#include "core/diary/DayEntries.h"
#include "drawing/NamedImage.h"
#include "ui/charts/ChartsView.h"
#include "ui/charts/DayEditor.h"
#include "ui/entry/DataView.h"
#include "ui/entry/MyTableView.h"

namespace sanovia {
namespace {

// Buttons carry the value that they stand for.
const char* const kTag = "tag";

}  // namespace

void ToolsView::setOutlets(const Outlets& outlets) {
  _outlets = outlets;
  for (QAbstractButton* button :
       {outlets.bnGeneral, outlets.bnPressure, outlets.bnBlood, outlets.bnData, outlets.bnCharts})
    connect(button, &QAbstractButton::clicked, this, [this, button] { buttonPressed(button); });
}

void ToolsView::buttonPressed(QAbstractButton* sender) {
  const QList<QAbstractButton*> types{_outlets.bnGeneral, _outlets.bnPressure, _outlets.bnBlood};
  const QList<QAbstractButton*> modes{_outlets.bnData, _outlets.bnCharts};
  for (const QList<QAbstractButton*>& group : {types, modes})
    if (group.contains(sender))
      for (QAbstractButton* button : group) button->setChecked(button == sender);
  if (types.contains(sender)) changeType(sender->property(kTag).toLongLong());
  if (modes.contains(sender)) changeMode(sender->property(kTag).toLongLong());
}

qint64 ToolsView::type() const { return _outlets.chartsView->type(); }

void ToolsView::closeEditor() {
  DayEntries::shared().storePending();
  if (_editor == nullptr || !(_editor->opened() || _editor->isAnimating())) return;
  _editor->setTarget({});
  // A panel on its way up hears no request to shut, but does not stay without a record.
  if (!_editor->opened()) _editor->setData({});
  _editor->animate();
}

// The order matters: the table reads its rows from the charts.
void ToolsView::changeType(qint64 type) {
  closeEditor();
  const bool chartsAreOn = _outlets.bnCharts->isChecked();
  _outlets.chartsScrollView->setHidden(!chartsAreOn);
  _outlets.chartsView->setType(type);
  _outlets.chartsView->addPropertyViews();
  _outlets.chartsView->update();
  _outlets.dataView->setType(type);
  _outlets.dataView->setHidden(chartsAreOn);
  if (_editor != nullptr) _editor->setType(type);
  _outlets.bnGeneral->setChecked(type == RecordType::general);
  _outlets.bnPressure->setChecked(type == RecordType::pressure);
  _outlets.bnBlood->setChecked(type == RecordType::blood);
}

qint64 ToolsView::mode() const { return _outlets.dataView->isHidden() ? kCharts : kTable; }

void ToolsView::changeMode(qint64 mode) {
  closeEditor();
  // A view that is hidden with the keyboard would hand it on, and the charts would scroll to who gets it.
  if (_outlets.chartsView->hasFocus()) _outlets.chartsView->clearFocus();
  _outlets.chartsScrollView->setHidden(mode == kTable);
  _outlets.dataView->setHidden(mode == kCharts);
  _outlets.bnData->setChecked(mode == kTable);
  _outlets.bnCharts->setChecked(mode == kCharts);
  focusShownView();
}

// The table comes last.
void ToolsView::focusShownView() {
  if (!_outlets.chartsView->isHidden()) _outlets.chartsView->setFocus(Qt::OtherFocusReason);
  if (!_outlets.dataView->isHidden()) _outlets.dataView->getTable()->setFocus(Qt::OtherFocusReason);
}

void ToolsView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  NamedImage::named(QStringLiteral("Top-gradient")).drawInRect(painter, rect());
}

}  // namespace sanovia
