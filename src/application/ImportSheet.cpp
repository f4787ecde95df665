#include "application/ImportSheet.h"

#include <QComboBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableWidget>
#include <QWheelEvent>

#include <utility>

#include "application/ImportWords.h"
#include "application/WaitCursor.h"
#include "core/backup/KeptImport.h"
#include "core/backup/Restore.h"
#include "core/foundation/Log.h"
#include "core/foundation/Paths.h"
#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"
#include "drawing/Fonts.h"
#include "drawing/Palette.h"
#include "ui/controls/Scroller.h"

namespace sanovia {
namespace {

constexpr QSize kImportSize(720, 740);
constexpr int kColumnsHeight = 96;
constexpr int kLinesHeight = 70;
constexpr int kLongestHeading = 260;  // of a column, in pixels
constexpr int kLongestName = 340;     // of a file

// Does not change under a wheel that passes by.
class StillBox : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

// The choice of a box whose first row chooses nothing.
template <class Value>
std::optional<Value> chosen(const QComboBox* box) {
  return box->currentIndex() == 0 ? std::nullopt : std::optional(static_cast<Value>(box->currentIndex() - 1));
}

QString cut(const QString& text, const QFont& font, Qt::TextElideMode mode, int width) {
  return QFontMetrics(font).elidedText(text, mode, width);
}

}  // namespace

ImportSheet::ImportSheet(QWidget* window, const QString& name, QByteArray file)
    : HouseSheet(window),
      _file(std::move(file)),
      _asked(new QWidget(this)),
      _tells(new QLabel(this)),
      _lines(new QListWidget(this)),
      _days(new QTableWidget(this)),
      _back(new QPushButton(word("import_back"), this)),
      _cancel(new QPushButton(word("Cancel"), this)),
      _import(new QPushButton(word("import_button"), this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  resize(kImportSize.boundedTo(window->size()));
  setHeading(
      filled(word("import_heading"), cut(name, fonts::system(kTextPixels), Qt::ElideMiddle, kLongestName)));
  auto* asked = new QVBoxLayout(_asked);
  asked->setContentsMargins({});
  asked->setSpacing(kGap);
  addColumns(asked);
  auto* choices = new QGridLayout;
  choices->setHorizontalSpacing(kMargin);
  _order = addChoice(choices, "import_order", {"import_by_file", "import_day_first", "import_month_first"});
  _units = addChoice(choices, "Units", {"import_by_file", "Metric", "US"});
  _several =
      addChoice(choices, "import_several", {"import_by_file", "import_mean", "import_first", "import_last"});
  _existing = addChoice(choices, "import_existing", {"import_replace", "import_keep"});
  asked->addLayout(choices);
  fields()->addWidget(_asked, 4);
  addLists();
  addButtons();
  walkByTab();
  look();
}

// Two beside each other, each below its title.
QComboBox* ImportSheet::addChoice(QGridLayout* choices, const char* title,
                                  std::initializer_list<const char*> words) {
  auto* box = new StillBox(this);
  for (const char* key : words) box->addItem(word(key));
  box->setAccessibleName(word(title));
  const int number = choices->count() / 2;
  const int row = number / 2 * 2;
  choices->addWidget(makeTitle(word(title), box), row, number % 2);
  choices->addWidget(box, row + 1, number % 2);
  choices->setColumnStretch(number % 2, 1);
  connect(box, &QComboBox::activated, this, &ImportSheet::look);
  return box;
}

// Each heading of the file beside what it is taken for.
void ImportSheet::addColumns(QVBoxLayout* rows) {
  auto* content = new QWidget(this);
  auto* form = new QFormLayout(content);
  form->setContentsMargins(0, 0, kGap, 0);
  form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  const QList<ColumnMeaning> list = columnMeanings();
  QStringList words;
  for (const ColumnMeaning& meaning : list) words.append(meaning.words);
  for (const FileColumn& column : columnsOfFile(_file)) {
    const QString number = QStringLiteral("(%1)").arg(_columns.size() + 1);
    const QString name = column.heading.isEmpty() ? number : column.heading;
    auto* box = new StillBox(content);
    box->addItems(words);
    box->setCurrentIndex(static_cast<int>(rowOfMeaning(list, column)));
    box->setAccessibleName(name);
    form->addRow(makeTitle(cut(name, fonts::system(kTextPixels), Qt::ElideRight, kLongestHeading), box), box);
    connect(box, &QComboBox::activated, this, &ImportSheet::look);
    _columns.append(box);
  }
  auto* scroll = new QScrollArea(this);
  scroll->setWidget(content);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setMinimumHeight(kColumnsHeight);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setVisible(!_columns.isEmpty());
  content->setObjectName(QStringLiteral("columns"));
  scroll->setStyleSheet(QStringLiteral("#columns { background: %1 }").arg(palette::white.name()));
  dressScroller(scroll->verticalScrollBar(), palette::teal);
  rows->addWidget(scroll, 1);
}

void ImportSheet::addLists() {
  _tells->setWordWrap(true);
  _tells->setTextFormat(Qt::PlainText);
  fields()->addWidget(_tells);
  _lines->setWordWrap(true);
  _lines->setMinimumHeight(kLinesHeight);
  _lines->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  fields()->addWidget(_lines, 1);
  _days->setEditTriggers(QAbstractItemView::NoEditTriggers);
  _days->setTabKeyNavigation(false);
  _days->setSelectionBehavior(QAbstractItemView::SelectRows);
  _days->setShowGrid(false);
  _days->setAccessibleName(word("import_days"));
  _days->verticalHeader()->hide();
  fields()->addWidget(_days, 1);
  _days->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  for (QScrollBar* bar :
       {_lines->verticalScrollBar(), _days->verticalScrollBar(), _days->horizontalScrollBar()})
    dressScroller(bar, palette::teal);
}

void ImportSheet::addButtons() {
  finish({_back, _cancel, _import});
  _back->hide();
  connect(_cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(_import, &QPushButton::clicked, this, &ImportSheet::store);
  connect(_back, &QPushButton::clicked, this, &ImportSheet::putBack);
}

void ImportSheet::walkByTab() {
  QList<QWidget*> way(_columns.begin(), _columns.end());
  way << _order << _units << _several << _existing << _lines << _days << _back << _cancel << _import;
  for (qsizetype i = 1; i < way.size(); ++i) setTabOrder(way[i - 1], way[i]);
  way.first()->setFocus();
}

ImportOptions ImportSheet::options() const {
  ImportOptions options;
  options.choices = {.dateOrder = chosen<DateOrder>(_order),
                     .units = chosen<UnitSystem>(_units),
                     .several = chosen<Several>(_several)};
  const QList<ColumnMeaning> list = columnMeanings();
  for (qsizetype i = 0; i < _columns.size(); ++i)
    options.choices.columns.insert(i, list.at(_columns.at(i)->currentIndex()).column);
  options.overwriting = _existing->currentIndex() == 0 ? Overwriting::Replace : Overwriting::Keep;
  return options;
}

void ImportSheet::tell(const QString& text, bool isGood) {
  _tells->setText(text);
  _tells->setStyleSheet(QStringLiteral("color: %1").arg((isGood ? palette::black : palette::red).name()));
}

void ImportSheet::look() {
  const WaitCursor waiting;
  const PreviewResult result = previewImport(_file, Paths::databaseFile(), options());
  const ImportTelling telling = tellingOf(result);
  tell(telling.summary, !telling.isRefused);
  _lines->clear();
  _lines->addItems(telling.lines);
  _lines->setAccessibleName(telling.linesName);
  _lines->setVisible(!telling.lines.isEmpty());
  const auto* preview = std::get_if<ImportPreview>(&result);
  _days->setVisible(preview != nullptr && !preview->days.empty());
  _import->setEnabled(preview != nullptr && preview->changesAnything());
  if (preview != nullptr) showDays(*preview);
}

void ImportSheet::showDays(const ImportPreview& preview) {
  const QList<QStringList> rows = shownDays(preview);
  const auto width = static_cast<int>(rows.first().size());
  _days->setRowCount(static_cast<int>(rows.size()) - 1);
  _days->setColumnCount(width);
  _days->setHorizontalHeaderLabels(rows.first());
  for (int row = 0; row < _days->rowCount(); ++row)
    for (int column = 0; column < width; ++column)
      _days->setItem(row, column, new QTableWidgetItem(rows[row + 1][column]));
  _days->resizeColumnsToContents();
  for (int column = 0; column < width; ++column)
    _days->setColumnWidth(column, _days->columnWidth(column) + kGap);
}

void ImportSheet::store() {
  const WaitCursor waiting;
  const auto [result, kept, isUnsafe] = importKeepingDiary(_file, options());
  if (const auto* error = std::get_if<FileError>(&result)) {
    logLine(error->text);
    return tell(filled(word(isUnsafe ? "import_unsafe" : "import_no_diary"), error->text), false);
  }
  const auto& done = std::get<ImportPreview>(result);
  if (!done.changesAnything()) return look();
  _kept = kept;
  tellDone(done);
  emit diaryChanged();
}

// What asked is gone, and the sheet is as large as what it says.
void ImportSheet::tellDone(const ImportPreview& done) {
  const QString days = filled(word("import_done"), done.newDays + done.changedDays);
  const bool isKept = !_kept.isEmpty();
  tell(isKept ? days + QLatin1Char('\n') + filled(word("import_kept"), QFileInfo(_kept).fileName()) : days,
       true);
  _lines->clear();
  _days->setRowCount(0);  // a screen reader finds the rows of a table that is hidden
  for (QWidget* gone : std::initializer_list<QWidget*>{_asked, _lines, _days, _import}) gone->hide();
  _back->setVisible(isKept);
  _cancel->setText(word("Close"));
  _cancel->setDefault(true);
  _cancel->setFocus(Qt::OtherFocusReason);
  resize(width(), minimumSizeHint().height());
}

void ImportSheet::putBack() {
  const WaitCursor waiting;
  const auto result = restoreWhole(_kept);
  if (const auto* error = std::get_if<FileError>(&result)) {
    logLine(error->text);
    return tell(word("restore_failed"), false);
  }
  tell(word("import_is_back"), true);
  _cancel->setFocus(Qt::OtherFocusReason);
  _back->hide();
  emit diaryChanged();
}

}  // namespace sanovia
