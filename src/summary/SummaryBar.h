// The bar of a measure's share in the norm: below it hatched, in it white, above it dark, with the letters L
// and H at its ends, so that it reads without colours. In points from the upper left corner.
#pragma once

#include <QLineF>
#include <QRectF>

#include <vector>

#include "paper/PaperText.h"
#include "summary/Statistics.h"

namespace sanovia {

struct ShareBar {
  QSizeF size = {};
  QRectF frame = {};
  std::optional<QRectF> below = {};
  std::optional<QRectF> above = {};
  std::vector<QLineF> hatch = {};  // over what lies below
  std::vector<TextMark> texts = {};
};

inline constexpr char kBelowLetter[] = "L";
inline constexpr char kAboveLetter[] = "H";

ShareBar shareBar(const NormCounts& counts, const PaperText& text);

}  // namespace sanovia
