// The text of the summary on the screen: to be selected, copied, found and read aloud. What is copied has no
// signs of charts in its plain text, and the charts themselves in its HTML.
#pragma once

#include <QTextEdit>

#include <memory>

#include "application/PaperWindow.h"
#include "summary/HealthSummary.h"

namespace sanovia {

class SummaryView : public QTextEdit, public PaperView {
  Q_OBJECT

 public:
  explicit SummaryView(QWidget* parent);
  ~SummaryView() override;

  // From its beginning, at the size in force.
  void showSummary(std::shared_ptr<HealthSummary> summary);
  // Null before the first.
  const std::shared_ptr<HealthSummary>& summary() const { return _summary; }

  // One is the size of the screen; what is selected stays so.
  void setZoom(double zoom);
  double zoom() const { return _zoom; }

  void zoomBy(double factor) override { setZoom(_zoom * factor); }
  void fitWidth() override;
  bool findText(const QString& text, bool forward) override;
  // What is selected, or all.
  void copyText() override;

 protected:
  QMimeData* createMimeDataFromSelection() const override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void lay();

  std::shared_ptr<HealthSummary> _summary;
  BuiltSummary _built{};
  double _zoom = 1;
};

}  // namespace sanovia
