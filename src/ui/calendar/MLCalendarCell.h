// One day of the month page: a button that paints itself in the colours of its owner.
#pragma once

#include <QDateTime>
#include <QPointer>
#include <QPushButton>

namespace sanovia {

class MLCalendarView;

class MLCalendarCell : public QPushButton {
  Q_OBJECT

 public:
  explicit MLCalendarCell(QWidget* parent = nullptr);

  void setOwner(MLCalendarView* owner);

  // A midnight in UTC; invalid for a cell outside the month, of which nothing shows but background.
  const QDateTime& representedDate() const { return _representedDate; }
  void setRepresentedDate(const QDateTime& date);

  bool selected() const { return isChecked(); }
  void setSelected(bool selected) { setChecked(selected); }

  // Whether it is the present day in UTC. Between midnight in UTC and local midnight that is not the local
  // day.
  bool isToday() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPointer<MLCalendarView> _owner;
  QDateTime _representedDate;
};

}  // namespace sanovia
