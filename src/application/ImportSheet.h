// The sheet that shows what a file would do to the diary, asks what the file leaves open, and stores all of
// it or nothing.
#pragma once

#include <QDialog>

#include "core/exchange/DiaryImport.h"

class QComboBox;
class QFormLayout;
class QLabel;
class QPushButton;
class QTableWidget;
class QVBoxLayout;

namespace sanovia {

class ImportSheet : public QDialog {
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
  // What would change, or what stands against it.
  QLabel* tellsLabel() const { return _tells; }

 signals:
  // The diary has what the sheet showed.
  void imported();

 private:
  QComboBox* addChoice(QFormLayout* form, const char* title, std::initializer_list<const char*> words);
  void addColumns(QVBoxLayout* rows);
  ImportOptions options() const;
  void look();
  void showDays(const ImportPreview& preview);
  void store();

  QByteArray _file;
  QComboBox* _order;
  QComboBox* _units;
  QComboBox* _several;
  QComboBox* _existing;
  QList<QComboBox*> _columns;
  QTableWidget* _days;
  QLabel* _tells;
  QPushButton* _import;
};

}  // namespace sanovia
