// Hands a finished document to a printer: its very bytes, through CUPS, with what the person has chosen as
// attributes of the job.
#pragma once

#include <QByteArray>
#include <QList>

#include "application/Asker.h"

namespace sanovia {

// One attribute of a job, in CUPS's own words.
struct PrintOption {
  QByteArray name;
  QByteArray value;
  bool operator==(const PrintOption&) const = default;
};

// What the choice asks of the printer. Where a name comes twice, the later one counts.
QList<PrintOption> printOptions(const PrinterChoice& choice);

// Prints the document or, for an output file, writes it there as a whole. An empty document prints nothing
// and leaves the file alone. False, with a line in the log, when it did not come to the queue or the file: no
// print server, no such printer, a server that takes longer than some seconds to answer. The server is the
// one that CUPS finds for every program, by CUPS_SERVER or its own settings; a question for a password is
// asked as the dialog for printers asks it.
bool printDocument(const QByteArray& pdf, const PrinterChoice& choice);

}  // namespace sanovia
