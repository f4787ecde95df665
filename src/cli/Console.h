// How the command line tool speaks: results to the standard output, each failure as one line to the standard
// error, and what it ends with.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdio>

namespace sanovia {

enum ExitStatus : int { Done = 0, Failed = 1, WrongUsage = 2, NothingToReport = 3 };

void write(FILE* stream, const QByteArray& bytes);

void say(const QString& text);

// "1 day", "2 days"
QString counted(qint64 count, const QString& noun);

// Says how a file was written: nothing where the file is the standard output itself.
void remark(const QString& file, const QString& text);

// Whatever stands in the text, names of files included, it comes out as one line. The status is handed back.
int fail(ExitStatus status, QString text);

// For wrong usage.
int refuse(const QString& reason);

}  // namespace sanovia
