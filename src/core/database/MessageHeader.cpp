#include "core/database/MessageHeader.h"

#include "core/database/Me.h"
#include "core/localisation/Language.h"

namespace sanovia {
namespace {

QString paragraph(const QString& titleKey, const QString& value) {
  const QString opening = QStringLiteral("<p font-size:12pt;") +
                          (Language::isEnglish() ? QStringLiteral("text-align:left' align = 'left'>")
                                                 : QStringLiteral("text-align:right' align = 'right'>"));
  return opening + Language::stringForKey(titleKey) + QStringLiteral("&nbsp;&nbsp;<b>") + value +
         QStringLiteral("</b>") + QStringLiteral("</p>");
}

}  // namespace

QString getMessageHeaderForDateFrom(const QString& dateFrom, const QString& dateTo, SeriesMode mode) {
  const Me me = Me::me();
  const QString granularity = Language::entryForKey(QStringLiteral("emode"), mode - 1);
  return paragraph(QStringLiteral("nameR"), me.name) + paragraph(QStringLiteral("yearR"), me.birthday) +
         paragraph(QStringLiteral("timeframeR"), dateFrom + QStringLiteral(" - ") + dateTo +
                                                     QStringLiteral(" (") + granularity +
                                                     QStringLiteral(")"));
}

}  // namespace sanovia
