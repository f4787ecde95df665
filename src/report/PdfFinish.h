// What the toolkit's writer of documents leaves undone, done to its finished bytes: the document's subject,
// its language and the moment at which it was made; names that tell that the fonts are subsets; and signs
// that are found by who searches for them.
#pragma once

#include <QByteArray>

namespace sanovia {

struct DocumentInfo;

// Bytes that are not built as the toolkit builds them come back as they are.
QByteArray finishedPdf(const QByteArray& bytes, const DocumentInfo& info);

// The sign as a person types it: one that the toolkit takes for another because both look the same in the
// font. Chinese signs that are also radicals come as radicals, spaces as tabs.
char16_t typedSign(char16_t sign);

}  // namespace sanovia
