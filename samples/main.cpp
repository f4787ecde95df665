// Writes the sample diary to a file.
#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

#include "SampleDiary.h"
#include "core/exchange/DiaryTable.h"
#include "core/foundation/Clock.h"
#include "core/foundation/WholeFile.h"

namespace {

int fail(int status, const QString& text) {
  std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace sanovia;
  const QCoreApplication application(argc, argv);
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("Writes a sample diary of one year as a CSV file."));
  parser.addHelpOption();
  const QCommandLineOption end(QStringLiteral("end"), QStringLiteral("The last day; today if not given."),
                               QStringLiteral("yyyy-MM-dd"));
  parser.addOption(end);
  parser.addPositionalArgument(QStringLiteral("FILE.csv"), QStringLiteral("The file to write."));
  parser.process(application);
  if (parser.positionalArguments().size() != 1)
    return fail(2, QStringLiteral("sanovia-sample-diary: give the name of one file (see --help)"));

  QDate lastDay = Clock::now().date();
  if (parser.isSet(end)) {
    if (!isDiaryDate(parser.value(end)))
      return fail(2, QStringLiteral("sanovia-sample-diary: --end takes a date of the form yyyy-MM-dd"));
    lastDay = QDate::fromString(parser.value(end), Qt::ISODate);
  }
  const auto error = writeWhole(parser.positionalArguments().first(), sampleDiary(lastDay));
  return error ? fail(1, error->text) : 0;
}
