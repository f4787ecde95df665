#include "paper/PaperDocument.h"

#include <QPageLayout>

#include <utility>

namespace sanovia {
namespace {

constexpr int kPointsPerInch = 72;

}  // namespace

PaperDocument::PaperDocument(DocumentInfo info) : _info(std::move(info)) {
  _buffer.open(QIODevice::WriteOnly);
  _writer.setResolution(kPointsPerInch);
}

void PaperDocument::beginPage(const QPageSize& size) {
  _writer.setPageLayout(QPageLayout(size, QPageLayout::Portrait, QMarginsF()));
  if (_painter.isActive())
    _writer.newPage();
  else
    _painter.begin(&_writer);
}

QByteArray PaperDocument::bytes(const std::vector<TypedFace>& faces) {
  _painter.end();
  return finishedPdf(_bytes, _info, faces);
}

}  // namespace sanovia
