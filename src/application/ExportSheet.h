// The sheet that asks what an export is to hold, before the file is asked for.
#pragma once

#include "application/HouseSheet.h"

class QCheckBox;
class QComboBox;

namespace sanovia {

class ExportSheet : public HouseSheet {
  Q_OBJECT

 public:
  explicit ExportSheet(QWidget* window);

  QComboBox* formatBox() const { return _format; }
  QComboBox* daysBox() const { return _days; }
  QCheckBox* personBox() const { return _person; }

  bool isFhir() const;
  bool isIntervalOnly() const;
  // Never where the format does not say whose the days are.
  bool hasPerson() const;

 private:
  QComboBox* _format;
  QComboBox* _days;
  QCheckBox* _person;
};

}  // namespace sanovia
