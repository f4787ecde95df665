#include "HelpText.h"

#include <algorithm>

#include "exchange/Columns.h"
#include "foundation/Paths.h"

namespace sanovia {
namespace {

struct Meaning {
  const char* column;
  const char* text;
};

// Only the words; which columns there are, and in what order, the catalogue says.
constexpr Meaning kMeanings[] = {
    {"date", "the day, yyyy-MM-dd"},
    {"temperature", "degrees Celsius"},
    {"wellbeing", "0 (worst) to 3 (best)"},
    {"appetite", "0 (poor) or 1 (good)"},
    {"weight", "kilograms"},
    {"systolic", "mmHg, whole number"},
    {"diastolic", "mmHg, whole number"},
    {"pulse", "beats a minute, whole number"},
    {"ppressure", "pulse pressure: mmHg, whole number, may be below 0 but not -1"},
    {"hemoglobin", "g/dl"},
    {"crp", "C-reactive protein: mg/dl"},
    {"esr", "erythrocyte sedimentation rate: mm/h"},
    {"albumin", "g/dl"},
    {"wbc", "white blood cells: thousands per microlitre"},
};

QString columnLine(const QString& name) {
  const auto* meaning = std::find_if(std::begin(kMeanings), std::end(kMeanings), [&](const Meaning& entry) {
    return name == QLatin1String(entry.column);
  });
  const QString text = meaning == std::end(kMeanings) ? QString() : QString::fromUtf8(meaning->text);
  return QStringLiteral("  %1  %2\n").arg(name, -11).arg(text);
}

QString columnLines() {
  QString lines = columnLine(kExchangeDate);
  for (const ExchangeColumn& column : exchangeColumns()) lines += columnLine(column.name);
  return lines;
}

}  // namespace

QString helpText() {
  const QString text = QStringLiteral(R"(Usage: sanovia-cli import FILE.csv
       sanovia-cli export FILE.csv
       sanovia-cli report [OPTION]... FILE.pdf
Exchanges the health diary with CSV files and writes the report for the doctor.

Commands:
  import FILE.csv  Take the days of the file into the diary, all or, if anything
                   is wrong, none. A day that is there already keeps every value
                   that the file does not give.
  export FILE.csv  Write the whole diary to the file, one line for each day. A
                   new file can be read by you alone.
  report FILE.pdf  Write the report that the window's command saves. A file that
                   is there is replaced only by a whole new one.

Options of report:
  --from DATE      The first day, yyyy-MM-dd; that of the window if not given.
  --to DATE        The last day; that of the window if not given.
  --mode MODE      day, week or month: what one column stands for. Weeks and
                   months show means and run on until today.
  --paper PAPER    a4 or letter: the pages on which tables run on; as is usual
                   in your country if not given.

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
