#include "application/PreferencesSheet.h"

#include <QCalendarWidget>
#include <QStyledItemDelegate>
#include <QTextCharFormat>

#include "core/dates/Utils.h"
#include "core/foundation/Clock.h"
#include "core/foundation/NotificationCenter.h"
#include "core/foundation/TextFormat.h"
#include "core/preferences/Preferences.h"
#include "drawing/Fonts.h"
#include "drawing/Palette.h"
#include "ui/controls/HouseStyle.h"
#include "ui/controls/Relabelling.h"
#include "ui_Preferences.h"

namespace sanovia {
namespace {

constexpr int kSheetTextPixels = 14;
constexpr int kHeadingPixels = 20;
constexpr int kReasonPixels = 12;
constexpr int kOK = 1;  // the tag of the button that stores
constexpr QSize kPickerSize(340, 290);
const QDate kOldestBirthday(1900, 1, 1);

// About noon in Greenwich, as far as it is the same day here: then it is so in nearly every zone, and the day
// stays itself wherever the person moves.
QDateTime birthMoment(const QDate& day) {
  const QDateTime noon(day, QTime(12, 0));
  const QDateTime moment =
      qBound(QDateTime(day, QTime(11, 0), Qt::UTC), noon.toUTC(), QDateTime(day, QTime(12, 0), Qt::UTC))
          .toLocalTime();
  return moment.date() == day ? moment : noon;
}

void setColour(QWidget* label, const QColor& colour) {
  label->setStyleSheet(QStringLiteral("color: %1;").arg(colour.name()));
}

}  // namespace

PreferencesSheet::PreferencesSheet(QWidget* window)
    : QDialog(window, Qt::Sheet), _ui(std::make_unique<Ui::Preferences>()) {
  _ui->setupUi(this);
  setWindowModality(Qt::WindowModal);
  dressInHouseStyle(this, kSheetTextPixels);
  _ui->heading->setFont(fonts::system(kHeadingPixels));
  _ui->whyRefused->setFont(fonts::system(kReasonPixels));
  setColour(_ui->whyRefused, palette::red);
  for (QLabel* label : {_ui->lbName, _ui->lbBirthday, _ui->lbMeasure, _ui->lbHeight})
    setColour(label, palette::red);
  _ui->pbMeasure->setItemDelegate(new QStyledItemDelegate(this));  // the rows' height is the sheet's to say
  setUpBirthday();
  keepLanguageKeys(this);
  updateFormatters();
  connect(_ui->pbMeasure, &QComboBox::activated, this, &PreferencesSheet::changeMetrics);
  connect(_ui->tfHeight, &HeightField::changed, this, &PreferencesSheet::showWhyRefused);
  for (QPushButton* button : {_ui->btnOK, _ui->btnCancel})
    connect(button, &QPushButton::clicked, this, [this, button] { buttonPressed(button); });
}

PreferencesSheet::~PreferencesSheet() = default;

// The page of the picker turns by years as well as by months, and shows nothing that a birthday has no use
// for.
void PreferencesSheet::setUpBirthday() {
  auto* page = new QCalendarWidget(this);
  page->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  page->setHorizontalHeaderFormat(QCalendarWidget::ShortDayNames);
  page->setFirstDayOfWeek(QLocale().firstDayOfWeek());
  page->setLocale(QLocale());
  page->setFont(fonts::system(kSheetTextPixels));
  QTextCharFormat day;
  day.setForeground(palette::black);
  for (const Qt::DayOfWeek weekend : {Qt::Saturday, Qt::Sunday}) page->setWeekdayTextFormat(weekend, day);
  page->setMinimumSize(kPickerSize);
  _ui->pbBirthday->setCalendarWidget(page);
  _ui->pbBirthday->setLocale(QLocale());
}

void PreferencesSheet::checkUserDefaultData() {
  _ui->btnOK->setDefault(true);
  _ui->tfName->setText(Preferences::name());
  // What is no measure is treated as US throughout.
  const QString measure = Preferences::isMetric() ? Preferences::metric() : Preferences::us();
  _ui->pbMeasure->setCurrentIndex(_ui->pbMeasure->findData(measure, languageKeyRole));
  updateFormatters();
  const float height = Utils::convertToInches(Preferences::height(), !Preferences::isMetric());
  _ui->tfHeight->setStringValue(QString::number(static_cast<double>(height), 'f', 2));
  const QDateTime birthday = Preferences::birthday();
  const QDate today = Clock::now().date();
  QDateTimeEdit* picker = _ui->pbBirthday;
  // Nobody's birthday lies outside, but one that is stored is shown as it is.
  picker->setDateRange(birthday.isValid() ? qMin(kOldestBirthday, birthday.date()) : kOldestBirthday,
                       birthday.isValid() ? qMax(today, birthday.date()) : today);
  if (birthday.isValid())
    picker->setDateTime(birthday);
  else
    Preferences::storeBirthday(birthMoment(picker->date()));
}

void PreferencesSheet::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  _ui->tfName->setFocus(Qt::OtherFocusReason);
  _ui->tfName->selectAll();
}

QString PreferencesSheet::measure() const { return _ui->pbMeasure->currentData(languageKeyRole).toString(); }

bool PreferencesSheet::isMetric() const { return measure() == Preferences::metric(); }

void PreferencesSheet::changeMetrics() {
  HeightField* field = _ui->tfHeight;
  const bool wasMetric = field->format().maximum == HeightFormat::forMeasure(true).maximum;
  if (wasMetric == isMetric()) return;
  const float height = isMetric() ? Utils::convertFromInches(field->floatValue(), true)
                                  : Utils::convertToInches(field->floatValue(), true);
  const bool hadNumber = field->hasNumber();
  updateFormatters();
  if (hadNumber) field->setFloatValue(height);
}

void PreferencesSheet::updateFormatters() {
  _ui->tfHeight->setFormat(HeightFormat::forMeasure(isMetric()));
  _ui->pbBirthday->setDisplayFormat(isMetric() ? QStringLiteral("dd/MM/yyyy") : QStringLiteral("MM/dd/yyyy"));
}

void PreferencesSheet::showWhyRefused() {
  const HeightFormat& format = _ui->tfHeight->format();
  // A number and its unit stay in one line.
  const auto limit = [&format](float height) {
    return format.text(height).replace(QLatin1Char(' '), QChar(QChar::Nbsp));
  };
  QString reason;
  if (!_ui->tfHeight->isTaken())
    reason = filled(filled(Language::stringForKey(QStringLiteral("height_limits")), limit(format.minimum)),
                    limit(format.maximum));
  _ui->whyRefused->setText(reason);
  _ui->tfHeight->setAccessibleDescription(reason);
}

void PreferencesSheet::buttonPressed(const QObject* sender) {
  const int tag = sender->property("tag").toInt();
  if (tag == kOK) {
    if (!_ui->tfHeight->isTaken()) {
      _ui->tfHeight->setFocus(Qt::OtherFocusReason);
      _ui->tfHeight->selectAll();
      return;
    }
    const float height = Utils::convertFromInches(_ui->tfHeight->floatValue(), !isMetric());
    const bool isSameMeasure = Preferences::measure() == measure();
    Preferences::store(_ui->tfName->text(), height, measure(), birthMoment(_ui->pbBirthday->date()));
    if (!isSameMeasure) NotificationCenter::defaultCenter().post(changeMeasurementsNotification);
  }
  done(tag);
}

}  // namespace sanovia
