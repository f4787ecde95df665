// The charts, bars and ruled lines of the summary within its text: what the toolkit's text engine asks for
// their size and their painting. They stand in the text as images with names of their own.
#pragma once

#include <QObject>
#include <QTextImageFormat>
#include <QTextObjectInterface>

#include <variant>
#include <vector>

#include "summary/SummaryBar.h"
#include "summary/SummaryChart.h"

namespace sanovia {

// Lines to write on.
struct RuledLines {
  QSizeF size;
  int count;
};

using SummaryObject = std::variant<SmallChart, ShareBar, RuledLines>;

class SummaryObjects : public QObject, public QTextObjectInterface {
  Q_OBJECT
  Q_INTERFACES(QTextObjectInterface)

 public:
  // The scale is that of the whole document.
  SummaryObjects(double scale, const PaperText& text, QObject* parent);

  // The format under which the object stands in the text, with what is said of it to who cannot see it.
  QTextImageFormat add(SummaryObject object, const QString& words);

  // The texts of the object of that format, in the order in which they are drawn.
  const std::vector<TextMark>& textsOf(const QTextFormat& format) const;

  // The object as a drawing of its own, and how many there are.
  size_t count() const { return _objects.size(); }
  QByteArray svg(size_t place) const;
  static QString nameOf(size_t place);

  QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
  void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
                  const QTextFormat& format) override;

 private:
  const SummaryObject* objectOf(const QTextFormat& format) const;

  double _scale;
  const PaperText& _text;
  std::vector<SummaryObject> _objects;
};

}  // namespace sanovia
