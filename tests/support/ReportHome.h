// A home in which parts of a report are laid out, in English and metric measures unless a test says
// otherwise.
#pragma once

#include "core/foundation/Settings.h"
#include "core/localisation/Language.h"
#include "core/measures/Norms.h"
#include "report/Graph.h"
#include "support/TestHome.h"

namespace sanovia::test {

class ReportHome : public TestHome {
 protected:
  ReportHome() { setMeasure("Metric"); }

  void setMeasure(const char* measure) { set(settings.userMeasure, measure); }
  static void set(const Setting<QString>& setting, const char* value) {
    setting.store(QString::fromUtf8(value));
  }
  void setLanguage(const QString& locale) {
    setLocale(locale);
    Language::restart();
  }

  GraphContext context(size_t days, bool drawText = true) const {
    return {DayColumns(static_cast<qsizetype>(days)), drawText, QSizeF(35, 8), _text};
  }

  // Consecutive days from one of them on.
  static QStringList daysFrom(QDate first, qsizetype count) {
    QStringList days;
    for (qsizetype i = 0; i < count; ++i) days.append(first.addDays(i).toString(Qt::ISODate));
    return days;
  }

  PaperText _text;
};

// "text at y" of each mark, and whether its arrow is red: "r41.0@212.0/214.0".
inline QStringList described(const std::vector<GraphMark>& marks) {
  QStringList list;
  for (const GraphMark& mark : marks)
    list.append(QStringLiteral("%1%2@%3/%4")
                    .arg(mark.isRed ? QStringLiteral("r") : QStringLiteral("g"), mark.text.text)
                    .arg(mark.y, 0, 'f', 1)
                    .arg(mark.text.at.y(), 0, 'f', 1));
  return list;
}

}  // namespace sanovia::test
