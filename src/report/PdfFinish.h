// What the toolkit's writer of documents leaves undone, done to its finished bytes: the document's subject,
// its language and the moment at which it was made; names that tell that the fonts are subsets; and signs
// that are found by who searches for them.
#pragma once

#include <QByteArray>
#include <QHash>

class QFont;

namespace sanovia {

struct DocumentInfo;

// Signs that the toolkit names wrongly, since it goes by the first sign that looks the same in the font, and
// what a person types for them.
using TypedSigns = QHash<char16_t, char16_t>;

// Those of a text in a font: many a Chinese sign is a radical, too.
TypedSigns typedSigns(const QString& text, const QFont& font);

// Bytes that are not built as the toolkit builds them come back as they are.
QByteArray finishedPdf(const QByteArray& bytes, const DocumentInfo& info, const TypedSigns& signs);

}  // namespace sanovia
