#include "paper/PrintSettings.h"

#include <QLocale>
#include <QSizeF>

#include <algorithm>

namespace sanovia {
namespace {

constexpr QLocale::Territory kLetterCountries[] = {
    QLocale::Belize,     QLocale::Canada,     QLocale::Chile,        QLocale::Colombia,  QLocale::CostaRica,
    QLocale::Guatemala,  QLocale::Mexico,     QLocale::Nicaragua,    QLocale::Panama,    QLocale::Philippines,
    QLocale::PuertoRico, QLocale::ElSalvador, QLocale::UnitedStates, QLocale::Venezuela,
};

constexpr QSizeF kLeastPaper(594, 791);  // points; a printer's A4 and Letter may be a point short

QSizeF upright(const QSizeF& paper) { return paper.width() > paper.height() ? paper.transposed() : paper; }

QPageSize& chosen() {
  static QPageSize size;
  return size;
}

// LC_ALL, which goes before LC_PAPER, is in the locale already.
QLocale localeOfPaper() {
  const QString named = qEnvironmentVariable("LC_PAPER");
  return named.isEmpty() || !qEnvironmentVariableIsEmpty("LC_ALL") ? QLocale() : QLocale(named);
}

QPageSize usual() {
  const bool isLetter = std::find(std::begin(kLetterCountries), std::end(kLetterCountries),
                                  localeOfPaper().territory()) != std::end(kLetterCountries);
  return QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4);
}

}  // namespace

QPageSize PrintSettings::paperSize() { return chosen().isValid() ? chosen() : usual(); }

void PrintSettings::setPaperSize(const QPageSize& size) { chosen() = size; }

bool PrintSettings::hasRoom(const QSizeF& points) {
  const QSizeF paper = upright(points);
  return paper.width() >= kLeastPaper.width() && paper.height() >= kLeastPaper.height();
}

void PrintSettings::choosePaper(const QSizeF& points) {
  if (hasRoom(points))
    setPaperSize(QPageSize(upright(points), QPageSize::Point, QString(), QPageSize::FuzzyMatch));
}

}  // namespace sanovia
