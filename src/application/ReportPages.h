// The pages of a finished document on the screen: they are zoomed, searched and copied from, and a screen
// reader meets the text of each.
#pragma once

#include <QAccessibleWidget>
#include <QPdfLink>
#include <QPdfSearchModel>
#include <QPdfView>

#include "application/PaperWindow.h"

namespace sanovia {

// Where pages of these sizes, in points, lie below each other on a view of that width: in pixels of the view,
// from the upper left corner of the first margin. A scale of 0 fits the widest page to the width.
QList<QRectF> pageRects(const QList<QSizeF>& sizes, double viewWidth, double scale, double margin,
                        double gap);

class ReportPages : public QPdfView, public PaperView {
  Q_OBJECT

 public:
  explicit ReportPages(QWidget* parent = nullptr);

  // Of another document, or of none: what was found is forgotten.
  void documentChanges();

  void zoomBy(double factor) override;
  void fitWidth() override;
  bool findText(const QString& text, bool forward) override;
  // Of the page that is shown.
  void copyText() override;
  // The text of a page, 0 for the first.
  QString textOf(int page) const;

  // A page in the viewport as it is scrolled now.
  QRectF rectOf(int page) const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QList<QRectF> rects() const;
  // Of the match, in the viewport.
  QList<QRectF> matchRects() const;
  void revealMatch();

  QPdfSearchModel _search;
  QPdfLink _match;
  int _matchOnPage = -1;  // -1 for none
};

// A document whose children are its pages, each named by its text.
class ReportPagesAccessible : public QAccessibleWidget {
 public:
  explicit ReportPagesAccessible(ReportPages* pages);
  ~ReportPagesAccessible() override;

  // Makes this interface the one of all pages of reports.
  static void install();

  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;

 private:
  ReportPages& pages() const;

  mutable QList<QAccessible::Id> _elements;
};

}  // namespace sanovia
