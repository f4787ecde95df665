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
  const QString text = QStringLiteral(R"help(Usage: sanovia-cli import [OPTION]... FILE
       sanovia-cli export [OPTION]... FILE
       sanovia-cli report [OPTION]... FILE.pdf
       sanovia-cli summary [OPTION]... FILE.pdf|FILE.html|-
       sanovia-cli stats [OPTION]...
       sanovia-cli backup FILE.db
       sanovia-cli restore [--missing] FILE.db
       sanovia-cli restore [--missing] --date DATE
       sanovia-cli restore --list
       sanovia-cli check [--repair]
Exchanges the health diary with CSV files, writes the report and the summary for
the doctor, and prints what an interval comes to; makes copies of the diary and
brings them back.

Commands:
  import FILE      Take the days of the file into the diary, all or, if anything
                   is wrong, none. A day that is there already keeps every value
                   that the file does not give. The present diary is kept as a
                   copy first. A file has at most 256 MiB.
  export FILE      Write the diary to the file, one line for each day. A new file
                   can be read by you alone.
  report FILE.pdf  Write the report that the window's command saves. A file that
                   is there is replaced only by a whole new one.
  summary FILE     Write the summary, one or two pages, as PDF or HTML by the
                   file's ending; for - as PDF to the standard output.
  stats            Print the numbers of an interval, in the units of the columns
                   below: for each measure days with a value, mean, standard
                   deviation, median, least, greatest, first and last value, days
                   below, in and above the norm, and the mean of the equally long
                   interval before with the change.
  backup FILE.db   Write a whole copy of the diary to the file.
  restore FILE.db  Put the diary back as a copy has it. The present diary is kept
                   as a copy first. A file that is no whole diary changes nothing.
  check            Tell what is wrong with the diary, one line each: its file and
                   tables, days with several rows, dates that are none, values
                   that a field cannot hold.

Options of restore and check:
  --list           restore: name the copies that are there.
  --date DATE      restore: the copy of that day, yyyy-MM-dd.
  --missing        restore: take over only the days and values that are missing.
  --repair         check: merge the rows of each day that has several.

A FILE of "-" is the standard input or output. What belongs to the diary, its
settings and its copies are never written over.

Options of import:
  --date-order ORDER
                   Where 01/02/2026 might be two days: dmy, mdy or ymd.
  --units SYSTEM   What columns without a unit are in: metric (Celsius, kilograms)
                   or us (Fahrenheit, pounds).
  --several CHOICE
                   What counts where a day has several readings: mean, first or
                   last.
  --keep           Keep the values that the diary has already.
  --dry-run        Say what would change, and store nothing.

Options of export:
  --format FORMAT  csv, or fhir for a FHIR R4 bundle of observations in JSON.
  --with-person    fhir: say whose they are, by name and date of birth.

Options of export, report, summary and stats:
  --from DATE      The first day, yyyy-MM-dd. If not given, that of the window; for
                   an export the first there is. An interval has at most 36525
                   days.
  --to DATE        The last day; the same.
  --json           import, stats, check and restore --list: print JSON.
  --paper PAPER    report, summary: a4 or letter, the paper of the summary and of
                   the report's tables that run on; what LC_PAPER says, or is
                   usual in your country, if not given.

Options:
  -h, --help       Show this help.
  -v, --version    Show the version.

Columns, named in the first line of the file:
%1
Only the date has to be there, and an imported file may have its columns in any
order, under these names, under those of the window in any of its languages, or
as blood pressure meters, scales and watches name them; "Weight (lb)" says its
unit. Columns that are not known are left out and named. Dates may also be
written 21.11.2026, 11/21/2026 or Nov 21, 2026, and have a time. An empty cell
means that nothing was entered. Cells may be parted by commas, semicolons or
tabs; with semicolons, tabs or quotes a number may have a decimal comma. The
text may be UTF-8, UTF-16 or Windows-1252. Without a column for the pulse
pressure it follows where a day has both pressures.

The diary:
  %2

Exit status:
  0  done
  1  wrong data, or a file or the diary cannot be read or written, or check has
     found something
  2  wrong usage
  3  nothing to report
)help");
  return text.arg(columnLines(), Paths::databaseFile());
}

}  // namespace sanovia
