// The table mode of the main window: one row per day of the interval, newest first. It owns the columns and
// what a row does when it is activated; the rows are the charts'.
#pragma once

#include <QWidget>

#include <functional>

namespace sanovia {

class ChartsView;
class DayEditor;
class DayTableModel;
class MyTableView;

class DataView : public QWidget {
  Q_OBJECT

 public:
  explicit DataView(QWidget* parent = nullptr);

  // Neither is owned. Without an editor no row can be edited.
  void setDataSource(ChartsView* source);
  void setEditor(DayEditor* editor) { _editor = editor; }

  // What is to run before a row is opened; it may read the rows anew.
  void setBeforeEditing(std::function<void()> action) { _beforeEditing = std::move(action); }

  MyTableView* getTable() const { return _table; }

  // Builds the columns of the kind of record anew. An editor that is open slides shut and tells nobody.
  void setType(qint64 type);
  // Reads the rows anew.
  void updateData();
  // Has the charts read the diary again if somebody else has changed it, and reads the rows anew if they did.
  // The selection stays. Whether they did.
  bool readAgain();

  // Opens the editor on the selected row's record and hides the table behind it. Nothing happens while no row
  // is selected.
  void editData();
  // What follows when the editor has moved: once it is shut the table is back, with the keyboard.
  void showWhenShut();

 private:
  ChartsView* _source = nullptr;
  DayEditor* _editor = nullptr;
  std::function<void()> _beforeEditing;
  DayTableModel* _model;
  MyTableView* _table;
};

}  // namespace sanovia
