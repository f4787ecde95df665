#include "application/ImportSheet.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableWidget>

#include <utility>

#include "application/WaitCursor.h"
#include "core/exchange/Columns.h"
#include "core/foundation/Paths.h"
#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"
#include "core/measures/Catalogue.h"
#include "drawing/Fonts.h"
#include "drawing/Palette.h"
#include "ui/controls/HouseStyle.h"
#include "ui/controls/Scroller.h"

namespace sanovia {
namespace {

using Role = FileColumn::Role;

constexpr QSize kImportSize(720, 680);
constexpr int kImportMargin = 24;
constexpr int kImportGap = 12;
constexpr int kImportPixels = 14;
constexpr int kImportHeadingPixels = 20;
constexpr int kColumnsHeight = 170;
constexpr size_t kShownDays = 20;
constexpr size_t kShownReplaced = 3;
constexpr qsizetype kShownFaults = 4;

// What a column may be taken for, as the boxes list it.
struct Meaning {
  QString words;
  FileColumn column;
};

QString titleOf(size_t place) {
  for (qint64 kind = RecordType::general; kind <= RecordType::blood; ++kind)
    for (const Measure& row : storedMeasuresOf(kind))
      if (exchangePlace(QString::fromLatin1(row.exchangeName)) == place) return word(row.titleKey);
  return {};
}

QList<Meaning> meanings() {
  QList<Meaning> list{{word("import_left_out"), {}},
                      {word("date"), {.heading = {}, .role = Role::Date}},
                      {word("import_time"), {.heading = {}, .role = Role::Time}}};
  for (size_t place = 0; place < exchangeColumns().size(); ++place) {
    const FileColumn value{.heading = {}, .role = Role::Value, .place = place};
    list.append({titleOf(place), value});
    for (const FileUnit& unit : unitsOf(exchangeColumns()[place].name)) {
      FileColumn inUnit = value;
      inUnit.unit = &unit;
      list.append({titleOf(place) + QStringLiteral(", ") + QString::fromUtf8(unit.name), inUnit});
    }
  }
  return list;
}

bool isSame(const FileColumn& one, const FileColumn& other) {
  return one.role == other.role &&
         (one.role != Role::Value || (one.place == other.place && one.unit == other.unit));
}

QString columnTitle(const QString& name) {
  if (name.isEmpty()) return QStringLiteral("–");
  if (name == kExchangeDate) return word("date");
  const auto place = exchangePlace(name);
  return place ? titleOf(*place) : name;
}

QString faultWords(const ParseFault& fault) {
  const char* key = "import_fault";
  if (fault.line == 0 && !fault.mendedBy) return word("import_no_table");
  if (fault.mendedBy == Choice::DateOrder) key = "import_fault_order";
  if (fault.mendedBy == Choice::Units) key = "import_fault_units";
  if (fault.mendedBy == Choice::Several) key = "import_fault_several";
  return filled(filled(word(key), fault.line), columnTitle(fault.column));
}

// The choice of a box whose first row chooses nothing.
template <class Value>
std::optional<Value> chosen(const QComboBox* box) {
  return box->currentIndex() == 0 ? std::nullopt : std::optional(static_cast<Value>(box->currentIndex() - 1));
}

}  // namespace

ImportSheet::ImportSheet(QWidget* window, const QString& name, QByteArray file)
    : QDialog(window, Qt::Sheet),
      _file(std::move(file)),
      _days(new QTableWidget(this)),
      _tells(new QLabel(this)),
      _import(new QPushButton(word("import_button"), this)) {
  setWindowModality(Qt::WindowModal);
  setAttribute(Qt::WA_DeleteOnClose);
  resize(kImportSize);
  setWindowTitle(word("import_button"));
  auto* heading = new QLabel(filled(word("import_heading"), name), this);
  heading->setTextFormat(Qt::PlainText);
  heading->setWordWrap(true);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(kImportMargin, kImportMargin, kImportMargin, kImportMargin);
  rows->setSpacing(kImportGap);
  rows->addWidget(heading);
  addColumns(rows);
  auto* form = new QFormLayout;
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  _order = addChoice(form, "import_order", {"import_by_file", "import_day_first", "import_month_first"});
  _units = addChoice(form, "Units", {"import_by_file", "Metric", "US"});
  _several =
      addChoice(form, "import_several", {"import_by_file", "import_mean", "import_first", "import_last"});
  _existing = addChoice(form, "import_existing", {"import_replace", "import_keep"});
  rows->addLayout(form);
  _tells->setWordWrap(true);
  _tells->setTextFormat(Qt::PlainText);
  rows->addWidget(_tells);
  _days->setEditTriggers(QAbstractItemView::NoEditTriggers);
  _days->setAccessibleName(word("import_days"));
  _days->verticalHeader()->hide();
  rows->addWidget(_days, 1);
  auto* buttons = new QDialogButtonBox(this);
  QPushButton* cancel = buttons->addButton(word("Cancel"), QDialogButtonBox::RejectRole);
  buttons->addButton(_import, QDialogButtonBox::AcceptRole);
  rows->addWidget(buttons);
  dressInHouseStyle(this, kImportPixels);
  heading->setFont(fonts::system(kImportHeadingPixels));
  _import->setDefault(true);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(_import, &QPushButton::clicked, this, &ImportSheet::store);
  look();
}

QComboBox* ImportSheet::addChoice(QFormLayout* form, const char* title,
                                  std::initializer_list<const char*> words) {
  auto* box = new QComboBox(this);
  for (const char* key : words) box->addItem(word(key));
  box->setAccessibleName(word(title));
  form->addRow(new QLabel(word(title), this), box);
  connect(box, &QComboBox::activated, this, &ImportSheet::look);
  return box;
}

// Each heading of the file beside what it is taken for.
void ImportSheet::addColumns(QVBoxLayout* rows) {
  auto* content = new QWidget(this);
  auto* form = new QFormLayout(content);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  const QList<Meaning> list = meanings();
  for (const FileColumn& column : parseDays(_file).columns) {
    auto* box = new QComboBox(content);
    for (const Meaning& meaning : list) {
      box->addItem(meaning.words);
      if (isSame(meaning.column, column)) box->setCurrentIndex(box->count() - 1);
    }
    box->setAccessibleName(column.heading);
    auto* title = new QLabel(column.heading, content);
    title->setTextFormat(Qt::PlainText);
    form->addRow(title, box);
    connect(box, &QComboBox::activated, this, &ImportSheet::look);
    _columns.append(box);
  }
  auto* scroll = new QScrollArea(this);
  scroll->setWidget(content);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setMinimumHeight(kColumnsHeight);
  content->setObjectName(QStringLiteral("columns"));
  scroll->setStyleSheet(QStringLiteral("#columns { background: %1 }").arg(palette::white.name()));
  dressScroller(scroll->verticalScrollBar(), palette::teal);
  rows->addWidget(scroll, 1);
}

ImportOptions ImportSheet::options() const {
  ImportOptions options;
  options.choices = {.dateOrder = chosen<DateOrder>(_order),
                     .units = chosen<UnitSystem>(_units),
                     .several = chosen<Several>(_several)};
  const QList<Meaning> list = meanings();
  for (qsizetype i = 0; i < _columns.size(); ++i)
    options.choices.columns.insert(i, list.at(_columns.at(i)->currentIndex()).column);
  options.overwriting = _existing->currentIndex() == 0 ? Overwriting::Replace : Overwriting::Keep;
  return options;
}

void ImportSheet::look() {
  const WaitCursor waiting;
  const PreviewResult result = previewImport(_file, Paths::databaseFile(), options());
  const auto* preview = std::get_if<ImportPreview>(&result);
  QStringList lines;
  if (preview == nullptr) {
    lines.append(filled(word("import_no_diary"), std::get<FileError>(result).text));
  } else if (!preview->faults.empty()) {
    for (const ParseFault& fault : preview->faults) lines.append(faultWords(fault));
    lines.removeDuplicates();
    if (lines.size() > kShownFaults) lines = lines.first(kShownFaults) + QStringList(QStringLiteral("…"));
  } else {
    lines.append(filled(filled(filled(word("import_counts"), preview->newDays), preview->changedDays),
                        preview->sameDays));
    for (size_t i = 0; i < std::min(kShownReplaced, preview->replaced.size()); ++i) {
      const ReplacedValue& value = preview->replaced[i];
      lines.append(QStringLiteral("%1, %2: %3 → %4")
                       .arg(value.date, titleOf(value.place), exchangedText(value.place, value.before),
                            exchangedText(value.place, value.after)));
    }
    if (preview->replaced.size() > kShownReplaced) lines.append(QStringLiteral("…"));
  }
  const bool isGood = preview != nullptr && preview->faults.empty();
  _tells->setText(lines.join(QLatin1Char('\n')));
  _tells->setStyleSheet(QStringLiteral("color: %1").arg((isGood ? palette::black : palette::red).name()));
  _import->setEnabled(isGood && !preview->days.empty());
  showDays(preview == nullptr ? ImportPreview() : *preview);
}

// The first days as they would be stored, with the columns that one of them fills.
void ImportSheet::showDays(const ImportPreview& preview) {
  std::vector<size_t> places;
  for (size_t place = 0; place < exchangeColumns().size(); ++place)
    if (std::any_of(preview.days.begin(), preview.days.end(),
                    [place](const ExchangeDay& day) { return day.values[place].has_value(); }))
      places.push_back(place);
  const auto count = static_cast<int>(std::min(kShownDays, preview.days.size()));
  _days->setRowCount(count);
  _days->setColumnCount(static_cast<int>(places.size()) + 1);
  QStringList titles{word("date")};
  for (const size_t place : places) titles.append(titleOf(place));
  _days->setHorizontalHeaderLabels(titles);
  for (int row = 0; row < count; ++row) {
    const ExchangeDay& day = preview.days[static_cast<size_t>(row)];
    _days->setItem(row, 0, new QTableWidgetItem(day.date));
    for (int i = 0; i < std::ssize(places); ++i) {
      const auto place = places[static_cast<size_t>(i)];
      const auto& value = day.values[place];
      _days->setItem(row, i + 1, new QTableWidgetItem(value ? exchangedText(place, *value) : QString()));
    }
  }
  _days->resizeColumnsToContents();
}

void ImportSheet::store() {
  const WaitCursor waiting;
  const PreviewResult result = importBytes(_file, options());
  if (const auto* error = std::get_if<FileError>(&result)) {
    _tells->setText(filled(word("import_no_diary"), error->text));
    return;
  }
  emit imported();
  accept();
}

}  // namespace sanovia
