// The summary as one HTML file: the document's own HTML, with its charts as drawings within the file.
#pragma once

#include "summary/SummaryBuilder.h"

namespace sanovia {

QByteArray summaryHtml(const BuiltSummary& built, const QString& title);

// HTML of the document, or of a part of it, with the charts that it names put in.
QString withDrawings(QString html, const SummaryObjects& objects);

}  // namespace sanovia
