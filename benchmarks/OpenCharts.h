// The view of the charts over the last days of a diary of ten years, with all properties open.
#pragma once

#include <QImage>

#include "BenchmarkDiary.h"
#include "ui/charts/ChartsView.h"

namespace sanovia::benchmarks {

std::vector<ChartPlan> plansOf(const ChartsView& view);

struct OpenCharts {
  static constexpr int kWidth = 1200;

  BenchmarkDiary diary;
  ChartsView view;
  QImage picture;  // of the view's size

  OpenCharts(qint64 type, int64_t days);

  std::vector<ChartPlan> plans() const { return plansOf(view); }
};

// Without the children, which are the buttons.
inline void renderTo(QImage& picture, QWidget& view) { view.render(&picture, {}, {}, {}); }

// Paints the plans as whoever knows the toolkit would: what is of one colour at once, cut at nothing. One
// path for each colour would be no floor: the toolkit takes seconds for one of thousands of parts.
void paintBare(QPainter& painter, const std::vector<ChartPlan>& plans);

}  // namespace sanovia::benchmarks
