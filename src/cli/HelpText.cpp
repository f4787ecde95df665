#include "cli/HelpText.h"

#include "core/exchange/Columns.h"
#include "core/foundation/Paths.h"

namespace sanovia {
namespace {

QString columnLine(const QString& name, const char* meaning) {
  return QStringLiteral("  %1  %2\n").arg(name, -11).arg(QString::fromUtf8(meaning));
}

QString columnLines() {
  QString lines = columnLine(kExchangeDate, "the day, yyyy-MM-dd");
  for (const ExchangeColumn& column : exchangeColumns()) lines += columnLine(column.name, column.meaning);
  return lines;
}

}  // namespace

QString helpText() {
  const QString text = QStringLiteral(R"(Usage: sanovia-cli import FILE.csv
       sanovia-cli export FILE.csv
       sanovia-cli report [OPTION]... FILE.pdf
       sanovia-cli stats [OPTION]...
Exchanges the health diary with CSV files, writes the report for the doctor and
prints what an interval comes to.

Commands:
  import FILE.csv  Take the days of the file into the diary, all or, if anything
                   is wrong, none. A day that is there already keeps every value
                   that the file does not give.
  export FILE.csv  Write the whole diary to the file, one line for each day. A
                   new file can be read by you alone.
  report FILE.pdf  Write the report that the window's command saves. A file that
                   is there is replaced only by a whole new one.
  stats            Print the numbers of an interval, in the units of the columns
                   below: for each measure days with a value, mean, standard
                   deviation, median, least, greatest, first and last value, days
                   below, in and above the norm, and the mean of the equally long
                   interval before with the change.

Options of report and stats:
  --from DATE      The first day, yyyy-MM-dd; that of the window if not given.
  --to DATE        The last day; that of the window if not given.
  --json           stats: print JSON, in full precision.
  --paper PAPER    report: a4 or letter: the pages on which tables run on; as is
                   usual in your country if not given.

Options:
  -h, --help       Show this help.
  -v, --version    Show the version.

Columns, named in the first line of the file:
%1
Only the date has to be there, and an imported file may have its columns in any
order. An empty cell means that nothing was entered. Imported cells may be
parted by commas, semicolons or tabs; with semicolons, tabs or quotes a number
may have a decimal comma.

The diary:
  %2

Exit status:
  0  done
  1  wrong data, or a file or the diary cannot be read or written
  2  wrong usage
  3  nothing to report
)");
  return text.arg(columnLines(), Paths::databaseFile());
}

}  // namespace sanovia
