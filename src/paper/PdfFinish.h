// What the toolkit's writer of documents leaves undone, done to its finished bytes: what the document says of
// itself, once for programs and once as XMP; an identity; names that tell that the fonts are subsets; and
// signs that are found by who searches for them.
#pragma once

#include <QByteArray>

#include <vector>

#include "paper/DrawnTexts.h"

namespace sanovia {

struct DocumentInfo;

// The same bytes, information and faces give the same document. The faces are those that drew it, in the
// order in which they were first drawn with. Bytes that are no whole document come back as they are, with a
// line in the log.
QByteArray finishedPdf(const QByteArray& bytes, const DocumentInfo& info,
                       const std::vector<TypedFace>& faces);

}  // namespace sanovia
