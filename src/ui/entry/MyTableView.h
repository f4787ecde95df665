// The table itself: striped rows in teal, the selected row in red, an edit button at the head of each row. A
// double click, Return, Enter and the edit button all ask for the row to be edited. The first arrow selects
// the row on top; until then a mark around the rows tells that the table has the keyboard.
#pragma once

#include <QTableView>

#include <optional>

namespace sanovia {

class DayTableModel;

class MyTableView : public QTableView {
  Q_OBJECT

 public:
  explicit MyTableView(QWidget* parent = nullptr);

  // Puts the model in and the header that belongs to it.
  void setDayModel(DayTableModel* model);
  const DayTableModel* dayModel() const { return _model; }
  // Gives the columns the widths of the plan, in whole points that add up to the view's width.
  void fitColumns();

  // -1 while no row is selected.
  int selectedRow() const;
  // Reads the rows and columns anew; the selected row stays selected as long as there is one at its place.
  void reloadData();
  // A line in the free part below the last row; empty for none.
  void setHint(const QString& hint);
  const QString& hint() const { return _hint; }
  // The row whose edit button is held down; -1 for none.
  int pressedRow() const { return _pressedRow; }

 signals:
  void doubleAction();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  // The row that a key selects while none is selected; nothing for a key that selects none.
  std::optional<int> firstRowFor(int key) const;
  void paintHint(QPainter& painter) const;
  int editButtonAt(const QPoint& point) const;
  void placeScroller();

  DayTableModel* _model = nullptr;
  QScrollBar* _scroller;  // lies over the rows, so that they keep the whole width
  QString _hint;
  int _pressedRow = -1;
};

}  // namespace sanovia
