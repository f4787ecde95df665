#include "application/HouseSheet.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "drawing/Fonts.h"
#include "drawing/Palette.h"
#include "ui/controls/ColoredView.h"
#include "ui/controls/HouseStyle.h"

namespace sanovia {
namespace {

constexpr int kTitlePixels = 20;
constexpr int kBandHeight = 18;  // above and below the title

}  // namespace

HouseSheet::HouseSheet(QWidget* window)
    : QDialog(window, Qt::Sheet), _heading(new QLabel(this)), _fields(new QVBoxLayout) {
  setWindowModality(Qt::WindowModal);
  auto* band = new ColoredView(this);
  auto* title = new QHBoxLayout(band);
  title->setContentsMargins(kMargin, kBandHeight, kMargin, kBandHeight);
  title->addWidget(_heading);
  _heading->setTextFormat(Qt::PlainText);
  _fields->setContentsMargins(kMargin, kGap * 2, kMargin, kGap * 2);
  _fields->setSpacing(kGap);
  auto* sheet = new QVBoxLayout(this);
  sheet->setContentsMargins(0, 0, 0, 0);
  sheet->setSpacing(0);
  sheet->addWidget(band);
  sheet->addLayout(_fields);
}

void HouseSheet::setHeading(const QString& text) {
  setWindowTitle(text);
  _heading->setText(text);
}

// A box is called by what it holds unless a label names it, and such a label would take a single & for a key.
QLabel* HouseSheet::makeTitle(const QString& text, QWidget* field) {
  auto* title = new QLabel(QString(text).replace(QLatin1Char('&'), QStringLiteral("&&")), this);
  title->setTextFormat(Qt::PlainText);
  title->setBuddy(field);
  title->setStyleSheet(QStringLiteral("color: ") + palette::red.name());
  return title;
}

void HouseSheet::finish(const QList<QPushButton*>& buttons) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kGap);
  row->addStretch();
  for (QPushButton* button : buttons) {
    button->setAutoDefault(false);
    row->addWidget(button);
  }
  buttons.last()->setDefault(true);
  _fields->addLayout(row);
  dressInHouseStyle(this, kTextPixels);
  _heading->setFont(fonts::system(kTitlePixels));
  _heading->setStyleSheet(QStringLiteral("color: ") + palette::white.name());
}

}  // namespace sanovia
