// Filling of the format texts that the language tables hold and of the system's own number formats. The
// formats are data, so they never reach printf: whatever stands in them, the result is a text.
#pragma once

#include <QString>
#include <QStringList>

namespace sanovia {

// The format with its first conversion ("%d", "%ld", "%@", "%s" or a float conversion) replaced by the text.
// A format without one is returned as it stands, a null format gives a null text.
QString filled(const QString& format, const QString& value);
QString filled(const QString& format, qint64 value);
// The same for as many conversions as there are texts, from left to right; what stands in a text is no
// conversion.
QString filled(const QString& format, const QStringList& values);

// "%0.1f": one decimal with a point, in every locale.
QString oneDecimal(double value);

}  // namespace sanovia
