// The PDF document that a report or a summary is painted into: pages of any size, whose unit is the point,
// and at the end its bytes.
#pragma once

#include <QBuffer>
#include <QDateTime>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include "paper/PdfFinish.h"

namespace sanovia {

// What the document says of itself.
struct DocumentInfo {
  QString title;
  QString subject;
  QString language;  // as BCP 47 names it: "de", "zh-Hans"
  QDateTime created;
};

class PaperDocument {
 public:
  explicit PaperDocument(DocumentInfo info);

  // Closes the page and begins the next one, which is of that size.
  void beginPage(const QPageSize& size);
  // Of the page that was begun last.
  QPainter& painter() { return _painter; }

  // Closes the document, which can then not be painted on any more. The faces are those of all texts in it.
  QByteArray bytes(const std::vector<TypedFace>& faces);

 private:
  DocumentInfo _info;
  QByteArray _bytes;
  QBuffer _buffer{&_bytes};
  QPdfWriter _writer{&_buffer};
  QPainter _painter;
};

}  // namespace sanovia
