#include "ui/controls/SegmentedControl.h"

#include "core/localisation/Language.h"

namespace sanovia {

SegmentedControl::SegmentedControl(QWidget* parent) : QTabBar(parent) { setDrawBase(false); }

QString SegmentedControl::labelForSegment(qint64 segment) const {
  return segment < 0 || segment >= count() ? QString() : tabText(static_cast<int>(segment));
}

void SegmentedControl::setLabel(const QString& label, qint64 segment) {
  if (segment >= 0 && segment < count()) setTabText(static_cast<int>(segment), label);
}

QString SegmentedControl::labelForSegment1(qint64 segment) const {
  const QStringList keys = _identifier.isEmpty() ? QStringList() : _identifier.split(QLatin1Char(','));
  const bool isKept = !Language::isEnglish() && segment >= 0 && segment < keys.size();
  return isKept ? keys[static_cast<qsizetype>(segment)] : labelForSegment(segment);
}

}  // namespace sanovia
