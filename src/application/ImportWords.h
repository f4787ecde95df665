// What the sheet of an import says: what columns may be taken for, what stands against the file, and what
// would change, all in the language and the measures in force.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "core/exchange/DiaryImport.h"

namespace sanovia {

// What a column may be taken for, as a box lists it.
struct ColumnMeaning {
  QString words;
  FileColumn column;
};

QList<ColumnMeaning> columnMeanings();

// The row of that list; the first one, for a column that is left out, where there is none.
qsizetype rowOfMeaning(const QList<ColumnMeaning>& meanings, const FileColumn& column);

// "Line 12, Temperature: ...", with the column's visible title.
QString faultLine(const ParseFault& fault);

struct ImportTelling {
  // What would change, or what to do about the faults.
  QString summary;
  // The faults, or the values that would be replaced, and what these lines are.
  QStringList lines = {};
  QString linesName = {};
  bool isRefused = false;
};

ImportTelling tellingOf(const PreviewResult& result);

// The first days as the diary would show them, with the columns that one of the days fills: titles first.
QList<QStringList> shownDays(const ImportPreview& preview);

}  // namespace sanovia
