#include "application/SummaryView.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QTextDocumentFragment>
#include <QWheelEvent>

#include <algorithm>

#include "drawing/Palette.h"
#include "summary/SummaryHtml.h"

namespace sanovia {
namespace {

constexpr double kSheetMargin = 24;
constexpr double kLeastSummaryZoom = 0.5;
constexpr double kMostSummaryZoom = 4;
constexpr double kWheelStep = 1.1;

}  // namespace

SummaryView::SummaryView(QWidget* parent) : QTextEdit(parent) {
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setLineWrapMode(QTextEdit::FixedPixelWidth);
  QPalette colours = palette();
  colours.setColor(QPalette::Base, palette::white);
  colours.setColor(QPalette::Text, palette::black);
  colours.setColor(QPalette::Highlight, palette::red);
  colours.setColor(QPalette::HighlightedText, palette::white);
  setPalette(colours);
}

SummaryView::~SummaryView() { setDocument(nullptr); }

void SummaryView::showSummary(std::shared_ptr<HealthSummary> summary) {
  setDocument(nullptr);
  _built = {};
  _summary = std::move(summary);
  lay();
  moveCursor(QTextCursor::Start);
}

void SummaryView::lay() {
  const double scale = kScreenScale * _zoom;
  const double margin = kSheetMargin * _zoom;
  BuiltSummary built = _summary->onScreen(scale);
  built.document->setDocumentMargin(margin);
  setDocument(built.document.get());
  setLineWrapColumnOrWidth(qRound(_summary->width() * scale + 2 * margin));
  _built = std::move(built);
}

void SummaryView::setZoom(double zoom) {
  _zoom = std::clamp(zoom, kLeastSummaryZoom, kMostSummaryZoom);
  if (!_summary) return;
  const QTextCursor before = textCursor();
  const int anchor = before.anchor();
  const int position = before.position();
  lay();
  QTextCursor after(document());
  after.setPosition(anchor);
  after.setPosition(position, QTextCursor::KeepAnchor);
  setTextCursor(after);
}

void SummaryView::fitWidth() {
  if (_summary) setZoom(viewport()->width() / (_summary->width() * kScreenScale + 2 * kSheetMargin));
}

bool SummaryView::findText(const QString& text, bool forward) {
  const QTextDocument::FindFlags way = forward ? QTextDocument::FindFlags() : QTextDocument::FindBackward;
  if (find(text, way)) return true;
  const QTextCursor before = textCursor();
  moveCursor(forward ? QTextCursor::Start : QTextCursor::End);
  if (find(text, way)) return true;
  setTextCursor(before);
  return false;
}

void SummaryView::copyText() {
  const QTextCursor before = textCursor();
  if (!before.hasSelection()) selectAll();
  copy();
  setTextCursor(before);
}

void SummaryView::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy))
    copyText();
  else
    QTextEdit::keyPressEvent(event);
}

// The toolkit's own data would be made anew when somebody asks for it.
QMimeData* SummaryView::createMimeDataFromSelection() const {
  auto* content = new QMimeData;
  const QTextDocumentFragment selected = textCursor().selection();
  content->setText(selected.toPlainText().remove(QChar::ObjectReplacementCharacter));
  if (_built.objects != nullptr) content->setHtml(withDrawings(selected.toHtml(), *_built.objects));
  return content;
}

void SummaryView::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) return QTextEdit::wheelEvent(event);
  zoomBy(event->angleDelta().y() > 0 ? kWheelStep : 1 / kWheelStep);
  event->accept();
}

}  // namespace sanovia
