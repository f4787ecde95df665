// The sheet that brings the diary back from a copy: it lists the copies, shows what would change, and
// restores the whole diary or takes over only what is missing. Nothing changes before that, and Cancel
// changes nothing.
#pragma once

#include <QString>

#include "application/HouseSheet.h"

class QRadioButton;
class QTreeWidget;

namespace sanovia {

class RestoreSheet : public HouseSheet {
  Q_OBJECT

 public:
  explicit RestoreSheet(QWidget* window);

  // Lists the copies that there are now, in the language in force. A diary that is damaged is said to be.
  void openFor(bool isDamaged);

  // Adds a file of the person's choice to the list, chosen.
  void choose(const QString& file);

 signals:
  void otherFileWanted();
  // The diary is another one.
  void restored();

 private:
  void addRow(const QString& title, const QString& file);
  QString chosenFile() const;
  void showPreview();
  void restore();
  void tell(const QString& text);

  QLabel* _intro;
  QTreeWidget* _copies;
  QPushButton* _other;
  QLabel* _preview;
  QRadioButton* _whole;
  QRadioButton* _missing;
  QPushButton* _cancel;
  QPushButton* _restore;
};

}  // namespace sanovia
