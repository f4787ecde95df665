// The granularity of a date series. The numbers are those that a caller passes and a test names.
#pragma once

#include <QtGlobal>

namespace sanovia {

using SeriesMode = qint32;

inline constexpr SeriesMode SeriesModeDay = 1;
inline constexpr SeriesMode SeriesModeWeek = 2;
inline constexpr SeriesMode SeriesModeMonth = 3;

}  // namespace sanovia
