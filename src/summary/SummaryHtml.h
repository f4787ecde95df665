// The summary as one HTML file: the document's own HTML, with its charts as drawings within the file.
#pragma once

#include "summary/SummaryBuilder.h"

namespace sanovia {

// The width of the text is in pixels.
QByteArray summaryHtml(const BuiltSummary& built, const QString& title, double width);

// HTML of the document, or of a part of it, with the charts that it names put in.
QString withDrawings(QString html, const SummaryObjects& objects);

}  // namespace sanovia
