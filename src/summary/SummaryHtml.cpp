#include "summary/SummaryHtml.h"

#include <QtMath>

#include "core/localisation/Language.h"

namespace sanovia {
namespace {

// A browser sets the sheet as wide as the charts in the middle of its window, cells begin at their tops as on
// paper, and shades are printed.
const QString kSheetStyle = QStringLiteral(
    "<style>body { width: %1px; margin: 24px auto !important; print-color-adjust: exact; } "
    "td { vertical-align: top; }</style></head>");

}  // namespace

QString withDrawings(QString html, const SummaryObjects& objects) {
  for (size_t place = 0; place < objects.count(); ++place) {
    const QString name = u'"' + SummaryObjects::nameOf(place) + u'"';
    if (!html.contains(name)) continue;
    const QString drawing = QString::fromLatin1(objects.svg(place).toBase64());
    html.replace(name, QStringLiteral("\"data:image/svg+xml;base64,") + drawing + u'"');
  }
  return html;
}

QByteArray summaryHtml(const BuiltSummary& built, const QString& title, double width) {
  QString html = withDrawings(built.document->toHtml(), *built.objects);
  html.replace(html.indexOf(QLatin1String("<html>")), 6,
               QStringLiteral("<html lang=\"%1\">").arg(Language::language()));
  if (!html.contains(QLatin1String("<title>")))
    html.replace(QLatin1String("<head>"),
                 QStringLiteral("<head><title>%1</title>").arg(title.toHtmlEscaped()));
  html.replace(QLatin1String("</head>"), kSheetStyle.arg(qCeil(width)));
  return html.toUtf8();
}

}  // namespace sanovia
