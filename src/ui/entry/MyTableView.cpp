#include "ui/entry/MyTableView.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include "drawing/Palette.h"
#include "ui/charts/ChartsView.h"
#include "ui/controls/FocusMark.h"
#include "ui/controls/Scroller.h"
#include "ui/entry/DayCellDelegate.h"
#include "ui/entry/DayTableAccessible.h"
#include "ui/entry/DayTableModel.h"
#include "ui/entry/IconHeader.h"

namespace sanovia {
namespace {

constexpr int kHintMargin = 24;

}  // namespace

MyTableView::MyTableView(QWidget* parent)
    : QTableView(parent), _scroller(new QScrollBar(Qt::Vertical, this)) {
  DayTableAccessible::install();
  QPalette colours = palette();
  colours.setColor(QPalette::Base, palette::teal);
  setPalette(colours);
  setFrameShape(QFrame::NoFrame);
  setShowGrid(false);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setTabKeyNavigation(false);
  setCornerButtonEnabled(false);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setItemDelegate(new DayCellDelegate(this));
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setMinimumSectionSize(1);
  verticalHeader()->setDefaultSectionSize(ChartsView::heightOfRow());

  dressScroller(_scroller, palette::white);
  QScrollBar* own = verticalScrollBar();
  connect(own, &QScrollBar::rangeChanged, this, &MyTableView::placeScroller);
  connect(own, &QScrollBar::valueChanged, _scroller, &QScrollBar::setValue);
  connect(_scroller, &QScrollBar::valueChanged, own, &QScrollBar::setValue);
}

void MyTableView::setDayModel(DayTableModel* model) {
  _model = model;
  setModel(model);
  setHorizontalHeader(new IconHeader(model, this));
  connect(model, &QAbstractItemModel::modelReset, this, &MyTableView::fitColumns);
}

void MyTableView::reloadData() {
  const int row = selectedRow();
  const int scrolled = verticalScrollBar()->value();
  _model->reloadData();
  if (row >= 0 && row < _model->rowCount()) selectRow(row);
  verticalScrollBar()->setValue(scrolled);
}

void MyTableView::fitColumns() {
  if (_model == nullptr) return;
  const std::vector<TableColumn>& columns = _model->columns();
  float right = 0.0F;
  int placed = 0;
  for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
    right += plannedWidth(columns[static_cast<size_t>(i)], static_cast<float>(width()));
    const int edge = qRound(right);
    setColumnWidth(i, edge - placed);
    placed = edge;
  }
}

int MyTableView::selectedRow() const {
  const QModelIndexList rows =
      selectionModel() == nullptr ? QModelIndexList() : selectionModel()->selectedRows();
  return rows.isEmpty() ? -1 : rows.first().row();
}

int MyTableView::editButtonAt(const QPoint& point) const {
  const QModelIndex index = indexAt(point);
  const bool isButton = index.isValid() && _model != nullptr &&
                        _model->columns()[static_cast<size_t>(index.column())].identifier == kEditColumn;
  return isButton ? index.row() : -1;
}

void MyTableView::setHint(const QString& hint) {
  if (_hint == hint) return;
  _hint = hint;
  setAccessibleDescription(hint);
  viewport()->update();
}

void MyTableView::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  QPainter painter(viewport());
  if (!_hint.isEmpty()) paintHint(painter);
  if (hasFocus() && selectedRow() < 0) drawFocusMark(painter, viewport()->rect());
}

void MyTableView::paintHint(QPainter& painter) const {
  const QRect rows = viewport()->rect();
  const int free = rowViewportPosition(_model->rowCount() - 1) + ChartsView::heightOfRow();
  const QRect room = rows.adjusted(kHintMargin, qMax(0, free) + kHintMargin, -kHintMargin, 0);
  painter.setFont(DayCellDelegate::cellFont());
  painter.setPen(palette::white);
  const int flags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;
  if (painter.boundingRect(room, flags, _hint).bottom() <= rows.bottom())
    painter.drawText(room, flags, _hint);
}

// What is painted over the rows does not scroll with them.
void MyTableView::scrollContentsBy(int dx, int dy) {
  QTableView::scrollContentsBy(dx, dy);
  viewport()->update();
}

void MyTableView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  viewport()->update();
  if (hasFocus() && deselected.isEmpty() && !selected.isEmpty()) DayTableAccessible::tellFocus(*this);
}

std::optional<int> MyTableView::firstRowFor(int key) const {
  switch (key) {
    case Qt::Key_Down:
    case Qt::Key_Up:
    case Qt::Key_PageDown:
    case Qt::Key_PageUp:
    case Qt::Key_Home: return 0;
    case Qt::Key_End: return _model->rowCount() - 1;
    default: return std::nullopt;
  }
}

void MyTableView::keyPressEvent(QKeyEvent* event) {
  const std::optional<int> first = selectedRow() < 0 ? firstRowFor(event->key()) : std::nullopt;
  if (first && *first < _model->rowCount()) return selectRow(*first);
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    emit doubleAction();
  else
    QTableView::keyPressEvent(event);
}

void MyTableView::mousePressEvent(QMouseEvent* event) {
  QTableView::mousePressEvent(event);
  if (event->button() == Qt::LeftButton) _pressedRow = editButtonAt(event->pos());
  viewport()->update();
}

void MyTableView::mouseReleaseEvent(QMouseEvent* event) {
  QTableView::mouseReleaseEvent(event);
  const int pressed = std::exchange(_pressedRow, -1);
  viewport()->update();
  if (pressed >= 0 && editButtonAt(event->pos()) == pressed) emit doubleAction();
}

void MyTableView::mouseDoubleClickEvent(QMouseEvent* event) {
  QTableView::mouseDoubleClickEvent(event);
  const bool onRow = event->button() == Qt::LeftButton && indexAt(event->pos()).isValid();
  // On the edit button the first click has asked already.
  if (onRow && editButtonAt(event->pos()) < 0) emit doubleAction();
}

void MyTableView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  fitColumns();
  placeScroller();
}

void MyTableView::placeScroller() {
  const QScrollBar* own = verticalScrollBar();
  _scroller->setRange(own->minimum(), own->maximum());
  _scroller->setPageStep(own->pageStep());
  _scroller->setSingleStep(own->singleStep());
  _scroller->setValue(own->value());
  _scroller->setVisible(own->maximum() > own->minimum());
  const QRect rows = viewport()->geometry();
  _scroller->setGeometry(rows.right() + 1 - kScrollerWidth, rows.top(), kScrollerWidth, rows.height());
  _scroller->raise();
}

}  // namespace sanovia
