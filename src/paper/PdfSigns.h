// The map from the codes of a document's font to what is found, copied and read aloud for them.
#pragma once

#include <QString>

#include <map>

class QPDFObjectHandle;

namespace sanovia {

struct TypedFace;

using PdfSigns = std::map<unsigned, QString>;

// The signs of a map as the toolkit writes it: ranges of codes, each with the first of its signs or with a
// list of them.
PdfSigns readSigns(QPDFObjectHandle map);

void writeSigns(QPDFObjectHandle map, const PdfSigns& signs);

// The signs as typed. The codes are numbers of the face's glyphs in the order in which they were first drawn,
// from 1; those that the map does not name take the names of the glyphs that it does not reach. They are left
// when both are not equally many, since then something else was drawn. Of a face without glyphs nothing is
// known.
PdfSigns typedSigns(PdfSigns signs, const TypedFace& face);

}  // namespace sanovia
