// The strip at the top of the main window: five toggle buttons, three for the kind of record and two for the
// view. It keeps the buttons, the table, the charts and the editor in step and holds no state of its own.
#pragma once

#include <QWidget>

class QAbstractButton;

namespace sanovia {

class ChartsView;
class DataView;
class DayEditor;

class ToolsView : public QWidget {
  Q_OBJECT

 public:
  // View modes.
  static constexpr qint64 kTable = 0;
  static constexpr qint64 kCharts = 1;

  struct Outlets {
    QAbstractButton* bnGeneral;
    QAbstractButton* bnPressure;
    QAbstractButton* bnBlood;
    QAbstractButton* bnData;
    QAbstractButton* bnCharts;
    ChartsView* chartsView;
    QWidget* chartsScrollView;  // what encloses the charts
    DataView* dataView;
  };

  explicit ToolsView(QWidget* parent = nullptr) : QWidget(parent) {}

  // Nothing of it is owned. To be called once, before anything else.
  void setOutlets(const Outlets& outlets);
  // Null while there is no editor.
  void setEditor(DayEditor* editor) { _editor = editor; }

  // The kind of record shown, as the charts have it.
  qint64 type() const;
  void changeType(qint64 type);

  // The view mode: charts whenever the table is hidden.
  qint64 mode() const;
  // A number that is no mode hides neither view and turns both of their buttons off.
  void changeMode(qint64 mode);

  // Gives the keyboard to the view that shows; the table has it if both are showing.
  void focusShownView();

  // The action of the five buttons; any other sender is ignored.
  void buttonPressed(QAbstractButton* sender);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void closeEditor();

  Outlets _outlets{};
  DayEditor* _editor = nullptr;
};

}  // namespace sanovia
