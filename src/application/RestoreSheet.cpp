#include "application/RestoreSheet.h"

#include <QBoxLayout>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>

#include "application/WaitCursor.h"
#include "core/backup/Copies.h"
#include "core/backup/Restore.h"
#include "core/foundation/Log.h"
#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"
#include "core/measures/ValueText.h"

namespace sanovia {
namespace {

constexpr QSize kListSize(520, 190);
constexpr int kPreviewHeight = 92;  // four lines
constexpr int kDateWidth = 275;
constexpr int kDaysWidth = 80;

enum Column : quint8 { DateOfCopy, Days, LastEntry };
constexpr int kFileRole = Qt::UserRole;

QString previewText(const RestorePreview& preview) {
  const QString days = filled(filled(word("restore_days_now_then"), preview.daysNow), preview.daysThen);
  const QString only = filled(filled(word("restore_days_only"), preview.onlyNow), preview.onlyThen);
  return days + QLatin1Char('\n') + only + QLatin1Char('\n') +
         filled(word("restore_values_missing"), preview.missingValues);
}

}  // namespace

RestoreSheet::RestoreSheet(QWidget* window)
    : HouseSheet(window),
      _intro(new QLabel(this)),
      _copies(new QTreeWidget(this)),
      _other(new QPushButton(this)),
      _preview(new QLabel(this)),
      _whole(new QRadioButton(this)),
      _missing(new QRadioButton(this)),
      _cancel(new QPushButton(this)),
      _restore(new QPushButton(this)) {
  for (QWidget* widget : std::initializer_list<QWidget*>{_intro, _copies}) fields()->addWidget(widget);
  fields()->addWidget(_other, 0, Qt::AlignLeft);
  for (QWidget* widget : std::initializer_list<QWidget*>{_preview, _whole, _missing})
    fields()->addWidget(widget);
  for (QLabel* label : {_intro, _preview}) label->setWordWrap(true);
  _preview->setMinimumHeight(kPreviewHeight);
  _preview->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  _copies->setMinimumSize(kListSize);
  _copies->setRootIsDecorated(false);
  _copies->setUniformRowHeights(true);
  _copies->header()->setStretchLastSection(true);
  _other->setAutoDefault(false);
  finish({_cancel, _restore});
  connect(_copies, &QTreeWidget::currentItemChanged, this, &RestoreSheet::showPreview);
  connect(_other, &QPushButton::clicked, this, &RestoreSheet::otherFileWanted);
  connect(_cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(_restore, &QPushButton::clicked, this, &RestoreSheet::restore);
}

void RestoreSheet::openFor(bool isDamaged) {
  const WaitCursor waiting;
  setHeading(word("restore_heading"));
  _intro->setText(word(isDamaged ? "restore_damaged" : "restore_intro"));
  _intro->ensurePolished();
  _intro->setFixedHeight(_intro->heightForWidth(kListSize.width()));
  _copies->setHeaderLabels({word("restore_copy"), word("restore_days"), word("restore_last")});
  _copies->setAccessibleName(word("restore_copies"));
  _other->setText(word("restore_other"));
  _whole->setText(word("restore_whole"));
  _missing->setText(word("restore_missing"));
  _cancel->setText(word("Cancel"));
  _restore->setText(word("restore_do"));
  _whole->setChecked(true);
  _missing->setEnabled(!isDamaged);  // nothing can be laid over what cannot be read
  _copies->clear();
  for (const DiaryCopy& copy : diaryCopies()) {
    const QString day = dateText(copy.date.toString(Qt::ISODate));
    addRow(copy.isKept ? filled(word("restore_kept"), day) : day, copy.file);
  }
  _copies->setColumnWidth(DateOfCopy, kDateWidth);
  _copies->setColumnWidth(Days, kDaysWidth);
  if (_copies->topLevelItemCount() > 0) _copies->setCurrentItem(_copies->topLevelItem(0));
  showPreview();
  adjustSize();
  open();
  _copies->setFocus(Qt::OtherFocusReason);
}

void RestoreSheet::addRow(const QString& title, const QString& file) {
  const auto summary = summaryOf(file);
  auto* row = new QTreeWidgetItem(_copies, {title});
  row->setData(DateOfCopy, kFileRole, file);
  if (const auto* known = std::get_if<CopySummary>(&summary)) {
    row->setText(Days, QLocale().toString(known->days));
    row->setText(LastEntry, known->lastEntry.isEmpty() ? QString() : dateText(known->lastEntry));
  }
}

void RestoreSheet::choose(const QString& file) {
  addRow(QFileInfo(file).fileName(), file);
  _copies->setCurrentItem(_copies->topLevelItem(_copies->topLevelItemCount() - 1));
}

QString RestoreSheet::chosenFile() const {
  const QTreeWidgetItem* row = _copies->currentItem();
  return row == nullptr ? QString() : row->data(DateOfCopy, kFileRole).toString();
}

void RestoreSheet::tell(const QString& text) {
  _preview->setText(text);
  _preview->setAccessibleName(text);
}

void RestoreSheet::showPreview() {
  const QString file = chosenFile();
  _restore->setEnabled(false);
  if (file.isEmpty()) return tell(word("restore_none"));
  const auto preview = previewRestore(file);
  if (const auto* error = std::get_if<FileError>(&preview)) {
    logLine(error->text);
    return tell(filled(word("restore_refused"), QFileInfo(file).fileName()));
  }
  _restore->setEnabled(true);
  tell(previewText(std::get<RestorePreview>(preview)));
}

void RestoreSheet::restore() {
  const WaitCursor waiting;
  const QString file = chosenFile();
  const auto result = _missing->isChecked() ? restoreMissing(file) : restoreWhole(file);
  if (const auto* error = std::get_if<FileError>(&result)) {
    logLine(error->text);
    return tell(word("restore_failed"));
  }
  accept();
  emit restored();
}

}  // namespace sanovia
