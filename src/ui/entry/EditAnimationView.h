// The panel that slides over the main view and edits one day's record. Each field has a slider and a pair of
// plus and minus buttons; every change goes into the record and into the diary at once, so that there is
// nothing to save and nothing to cancel. The panel changes the very record that it is given and keeps no
// copy.
#pragma once

#include <QVector>

#include "core/dates/ChartValue.h"
#include "core/measures/Catalogue.h"
#include "drawing/NamedImage.h"
#include "ui/charts/DayEditor.h"
#include "ui/entry/AnimationView.h"
#include "ui/entry/EditPanelPlan.h"

class QLabel;
class QScrollBar;

namespace sanovia {

class Announcement;
class BaseColoredButton;
class ClearMark;
class NumberField;
class WhiteSlider;

class EditAnimationView : public AnimationView, public DayEditor {
  Q_OBJECT

 public:
  // Tags of the controls: sliders have their column's number, plus and minus buttons lie above the boundary.
  static constexpr int _btnID = 600;
  static constexpr int kMinusOffset = 10;

  explicit EditAnimationView(QWidget* parent = nullptr);
  ~EditAnimationView() override;

  bool opened() const override { return AnimationView::opened(); }
  bool isAnimating() const override { return AnimationView::isAnimating(); }
  void setTarget(std::function<void()> action) override { AnimationView::setTarget(std::move(action)); }
  void animate() override { AnimationView::animate(); }

  qint64 type() const { return _type; }
  // Makes the sliders of the kind of record. Their ranges come with the next setData(); a record of another
  // kind is let go. A panel that arrives open without a record shuts again.
  void setType(qint64 type) override;
  const RecordRef& data() const { return _data; }
  // Shows the record; stores nothing. Empty for no record: then no control does anything.
  void setData(const RecordRef& record) override;

  // The text of a column's value, column 0 being the date; empty for an unset one and outside the columns.
  QString stringOfData(qint64 column) const;

  // The slider of a column, null for a column without one.
  WhiteSlider* sliderOf(int column) const;
  // The plus or minus button with the tag, null when there is none.
  BaseColoredButton* buttonOf(int tag) const;
  BaseColoredButton* closeButton() const { return _closeButton; }

  // Opens the field in which the value of a column is typed, in the place of the value and with the value
  // selected; nothing happens for a column without a slider and while the panel is not open.
  void openField(int column);
  bool isTyping() const { return _typedColumn != 0; }
  NumberField* numberField() const { return _numberField; }
  // Makes the value of a column one that was never entered.
  void takeBack(int column);
  // The cross beside a column's value, null for a column without a slider.
  ClearMark* clearMarkOf(int column) const { return _clearMarks.value(column); }

  // What a tool tip over a title says: the title with its unit; empty elsewhere.
  QString tipAt(QPointF point) const;

  // Paints a plus or a minus sign that fills the rectangle.
  static void drawSign(QPainter& painter, bool isPlus, const QRectF& rect);

  // Actions of the controls.
  void sliderChanged(int column);
  void buttonPressed(int tag);
  void buttonClose();

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  int columnCount() const;
  const Measure* measureOf(qint64 column) const;
  QString titleOfColumn(int column) const;
  QString imageOfColumn(int column) const;
  EditPanelPlan plan() const;
  // How far the panel is scrolled down, where it is lower than its content.
  int scrolled() const;
  void placeScroller();
  // Brings a control of the panel into sight.
  void reveal(const QWidget* control);
  void paintBand(QPainter& painter, const EditPanelPlan& where) const;
  void paintField(QPainter& painter, const EditPanelPlan& where) const;
  void layoutControls();
  void store();
  void loadSliders();
  void loadSlider(int column);
  void speakSlider(int column, const ChartValue& setUp);
  void nameControls();
  void walkByTab();
  void valueChanged();

  void makeTyping();
  void makeClearMarks();
  void placeClearMarks();
  void placeField();
  // Why what was typed is not taken; empty takes the hint away.
  void showHint(const QString& hint);
  void shutField(bool handsBack);
  // Whether the text of a column's field is done with.
  bool storeTyped(int column, const QString& text);
  // Return, or Tab to the next or the last field.
  void takeTyped(int next);
  void finishTyping();
  // Stores the record and shows what it holds now.
  void changed();
  // The column whose slider has the keyboard, 0 for none.
  int focusedColumn() const;

  qint64 _type = RecordType::general;
  RecordRef _data;
  QVector<WhiteSlider*> _sliders;  // by column, null where there is none
  QVector<NamedImage> _icons;      // by column
  QSizeF _closeSize;
  QVector<BaseColoredButton*> _buttons;
  BaseColoredButton* _closeButton;
  QScrollBar* _scroller;
  Announcement* _announcement;
  QVector<ClearMark*> _clearMarks;  // by column, null where there is none
  NumberField* _numberField = nullptr;
  QLabel* _typedHint = nullptr;
  int _typedColumn = 0;        // 0 while nothing is typed
  bool _isConfirming = false;  // the next Return keeps what is not plausible
};

}  // namespace sanovia
