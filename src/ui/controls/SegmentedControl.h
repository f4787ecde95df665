// A row of segments of which one is on. Its labels are relabelled together, under one key that joins them
// all, and can still be told apart in any language.
#pragma once

#include <QTabBar>

namespace sanovia {

class SegmentedControl : public QTabBar {
  Q_OBJECT

 public:
  explicit SegmentedControl(QWidget* parent = nullptr);

  int segmentCount() const { return count(); }
  // A null string for a segment that there is not.
  QString labelForSegment(qint64 segment) const;
  void setLabel(const QString& label, qint64 segment);

  // The label that the segment has in the layout file, whatever the language in force.
  QString labelForSegment1(qint64 segment) const;

  // All labels as the layout file has them, joined by ","; a null string while none were kept, as in English.
  const QString& identifier() const { return _identifier; }
  void setIdentifier(const QString& identifier) { _identifier = identifier; }

 private:
  QString _identifier;
};

}  // namespace sanovia
