// The sheet that shows what a file would do to the diary, asks what the file leaves open, and stores all of
// it or nothing. Then it offers the way back, to the copy that was made before.
#pragma once

#include "application/HouseSheet.h"
#include "core/exchange/DiaryImport.h"

class QComboBox;
class QGridLayout;
class QListWidget;
class QTableWidget;

namespace sanovia {

class ImportSheet : public HouseSheet {
  Q_OBJECT

 public:
  ImportSheet(QWidget* window, const QString& name, QByteArray file);

  QComboBox* orderBox() const { return _order; }
  QComboBox* unitsBox() const { return _units; }
  QComboBox* severalBox() const { return _several; }
  QComboBox* existingBox() const { return _existing; }
  // What the columns are taken for, one box a column.
  const QList<QComboBox*>& columnBoxes() const { return _columns; }
  QPushButton* importButton() const { return _import; }
  // Shown once something was stored and the diary as it was before is kept.
  QPushButton* backButton() const { return _back; }
  // What would change or was done, or that something stands against it.
  QLabel* tellsLabel() const { return _tells; }
  // What stands against it, or what would be replaced.
  QListWidget* linesList() const { return _lines; }

 signals:
  // The diary is another one: as the sheet showed, or as it was before.
  void diaryChanged();

 private:
  QComboBox* addChoice(QGridLayout* choices, const char* title, std::initializer_list<const char*> words);
  void addColumns(QVBoxLayout* rows);
  void addLists();
  void addButtons();
  void walkByTab();
  ImportOptions options() const;
  void look();
  void showDays(const ImportPreview& preview);
  void store();
  void tellDone(const ImportPreview& done);
  void putBack();
  void tell(const QString& text, bool isGood);

  QByteArray _file;
  QString _kept;
  QWidget* _asked;  // everything that leads to the import
  QComboBox* _order;
  QComboBox* _units;
  QComboBox* _several;
  QComboBox* _existing;
  QList<QComboBox*> _columns;
  QLabel* _tells;
  QListWidget* _lines;
  QTableWidget* _days;
  QPushButton* _back;
  QPushButton* _cancel;
  QPushButton* _import;
};

}  // namespace sanovia
