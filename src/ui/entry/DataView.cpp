#include "ui/entry/DataView.h"

#include <QVBoxLayout>

#include "core/foundation/NotificationCenter.h"
#include "core/preferences/Preferences.h"
#include "ui/charts/ChartsView.h"
#include "ui/charts/DayEditor.h"
#include "ui/entry/DayTableModel.h"
#include "ui/entry/MyTableView.h"

namespace sanovia {

DataView::DataView(QWidget* parent)
    : QWidget(parent), _model(new DayTableModel(this)), _table(new MyTableView(this)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(_table);
  setFocusProxy(_table);
  _table->setDayModel(_model);
  connect(_table, &MyTableView::doubleAction, this, &DataView::editData);
  NotificationCenter::defaultCenter().addObserver(this, changeMeasurementsNotification,
                                                  [this] { updateData(); });
}

void DataView::setDataSource(ChartsView* source) {
  _source = source;
  _model->setDataSource(source);
}

void DataView::setType(qint64 type) {
  if (_editor != nullptr && _editor->opened()) {
    _editor->setTarget({});
    _editor->animate();
  }
  _model->setColumns(tablePlan(type, Preferences::hasHeight()));
  updateData();
}

void DataView::updateData() { _table->reloadData(); }

bool DataView::readAgain() {
  if (!_source->readAgain()) return false;
  const int row = _table->selectedRow();
  updateData();
  if (row >= 0) _table->selectRow(row);
  return true;
}

void DataView::editData() {
  if (_beforeEditing && _table->selectedRow() >= 0) _beforeEditing();
  const int row = _table->selectedRow();
  if (_editor == nullptr || row < 0) return;
  _table->clearFocus();  // nobody has the keyboard meanwhile, else a screen reader would read out who
  setHidden(true);
  _editor->setTarget([this] { showWhenShut(); });
  _editor->setData(_source->dataAtIndex(_model->recordIndexOf(row)));
  _editor->animate();
}

void DataView::showWhenShut() {
  if (_editor->opened()) return;
  setHidden(false);
  _table->setFocus(Qt::OtherFocusReason);
}

}  // namespace sanovia
