#include "summary/HealthSummary.h"

#include "core/foundation/Clock.h"
#include "paper/PrintSettings.h"
#include "summary/SummaryHtml.h"

namespace sanovia {

HealthSummary::HealthSummary(const QDate& from, const QDate& to)
    : _numbers(readSummary(from, to, summaryPersonOfPreferences())) {}

const PagedSummary& HealthSummary::paged() {
  const QPageSize paper = PrintSettings::paperSize();
  if (!_paged || _paper != paper) {
    _paper = paper;
    _paged = pagedSummary(_numbers, PageRoom(paper), Clock::now().date(), _text);
  }
  return *_paged;
}

QByteArray HealthSummary::pdf() { return summaryPdf(paged(), _paper, Clock::now(), _text); }

QByteArray HealthSummary::html() {
  const PagedSummary& pages = paged();
  return summaryHtml(onScreen(kScreenScale), pages.plan.title + u' ' + pages.plan.interval,
                     width() * kScreenScale);
}

BuiltSummary HealthSummary::onScreen(double scale) {
  const PagedSummary& pages = paged();
  SummaryLayout layout = pages.layout;
  layout.scale = scale;
  layout.pageEnds.clear();
  layout.isLegendOnNewPage = false;
  return buildSummary(pages.plan, layout, _text);
}

double HealthSummary::width() { return paged().plan.form.width; }

}  // namespace sanovia
