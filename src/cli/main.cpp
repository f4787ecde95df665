// The command line tool: reads the arguments, runs one command and says how it went.
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QGuiApplication>

#include <algorithm>
#include <memory>
#include <unistd.h>

#include "cli/Console.h"
#include "cli/HelpText.h"
#include "cli/ProgressLine.h"
#include "cli/ReportCommand.h"
#include "cli/StatsCommand.h"
#include "core/exchange/DiaryExport.h"
#include "core/exchange/DiaryImport.h"
#include "core/foundation/OwnFiles.h"
#include "core/foundation/Paths.h"

namespace {

using namespace sanovia;

struct Command {
  QString name;
  // For the progress line and for the closing one.
  QByteArray verb;
  QString participle;
  ExchangeResult (*run)(const QString& file, const ExchangeOptions& options);
};

const Command kCommands[] = {
    {QStringLiteral("import"), "Importing", QStringLiteral("Imported"), importDiary},
    {QStringLiteral("export"), "Exporting", QStringLiteral("Exported"), exportDiary},
};

QString counted(qint64 count, const QString& noun) {
  return QString::number(count) + QLatin1Char(' ') + noun + (count == 1 ? QString() : QStringLiteral("s"));
}

QString closingText(const Command& command, const QString& file, const ExchangeReport& report) {
  const bool isExport = command.run == exportDiary;
  QString text = command.participle + QLatin1Char(' ') + counted(report.days, QStringLiteral("day")) +
                 (isExport ? QStringLiteral(" to ") + file : QStringLiteral(" into ") + report.diary);
  if (report.rowsWithoutDay > 0)
    text += QStringLiteral(", leaving out ") + counted(report.rowsWithoutDay, QStringLiteral("row")) +
            QStringLiteral(" without a valid date");
  return text + QLatin1Char('.');
}

int runCommand(const Command& command, const QString& file) {
  ProgressLine line(command.verb);
  QElapsedTimer timer;
  timer.start();
  ExchangeOptions options;
  if (isatty(fileno(stderr)) != 0)
    options.progress = [&](qint64 done, qint64 total) {
      const QByteArray text = line.advance(timer.elapsed(), done, total);
      if (!text.isEmpty()) write(stderr, text);
    };

  const ExchangeResult result = command.run(file, options);
  write(stderr, line.clear());
  if (const auto* error = std::get_if<FileError>(&result)) return fail(Failed, error->text);
  const auto& report = std::get<ExchangeReport>(result);
  const QString text = closingText(command, file, report);
  if (command.run != exportDiary || !isStandardOutput(file))
    say(text);
  else if (report.rowsWithoutDay > 0)
    write(stderr, text.toLocal8Bit() + '\n');
  return Done;
}

const QString kReport = QStringLiteral("report");

// The options of the commands that read an interval.
const QCommandLineOption kFrom(QStringLiteral("from"), {}, QStringLiteral("date"));
const QCommandLineOption kTo(QStringLiteral("to"), {}, QStringLiteral("date"));
const QCommandLineOption kPaper(QStringLiteral("paper"), {}, QStringLiteral("paper"));
const QCommandLineOption kJson(QStringLiteral("json"));

QString valueOf(const QCommandLineParser& parser, const QCommandLineOption& option) {
  return parser.isSet(option) ? parser.value(option) : QString();
}

struct IntervalCommand {
  QString name;
  QList<QCommandLineOption> options;
  bool takesFile;
  // The file is empty for a command that takes none.
  int (*run)(const QString& file, const QCommandLineParser& parser);
};

const IntervalCommand kIntervalCommands[] = {
    {kReport,
     {kFrom, kTo, kPaper},
     true,
     [](const QString& file, const QCommandLineParser& parser) {
       return runReport(
           file,
           {.from = valueOf(parser, kFrom), .to = valueOf(parser, kTo), .paper = valueOf(parser, kPaper)});
     }},
    {QStringLiteral("stats"),
     {kFrom, kTo, kJson},
     false,
     [](const QString&, const QCommandLineParser& parser) {
       return runStats({valueOf(parser, kFrom), valueOf(parser, kTo), parser.isSet(kJson)});
     }},
};

bool takes(const IntervalCommand& command, const QString& option) {
  return std::any_of(command.options.begin(), command.options.end(),
                     [&option](const QCommandLineOption& known) { return known.names().contains(option); });
}

// The commands that know an option, as a text.
QString takersOf(const QString& option) {
  QStringList names;
  for (const IntervalCommand& command : kIntervalCommands)
    if (takes(command, option)) names.append(command.name);
  return names.join(QStringLiteral(" and "));
}

int runArguments(const QCommandLineParser& parser) {
  const QStringList words = parser.positionalArguments();
  if (words.isEmpty()) return refuse(QStringLiteral("no command given"));
  const QString& name = words.first();
  const auto isNamed = [&name](const auto& known) { return known.name == name; };
  const auto* exchange = std::find_if(std::begin(kCommands), std::end(kCommands), isNamed);
  const auto* other = std::find_if(std::begin(kIntervalCommands), std::end(kIntervalCommands), isNamed);
  const bool isExchange = exchange != std::end(kCommands);
  if (!isExchange && other == std::end(kIntervalCommands))
    return refuse(QStringLiteral("unknown command \"%1\"").arg(name));
  for (const QString& option : parser.optionNames())
    if (isExchange || !takes(*other, option))
      return refuse(QStringLiteral("--%1 is an option of %2").arg(option, takersOf(option)));
  const qsizetype files = isExchange || other->takesFile ? 1 : 0;
  if (words.size() < 1 + files) return refuse(name + QStringLiteral(" needs the name of a file"));
  if (words.size() > 1 + files)
    return refuse(name +
                  (files == 0 ? QStringLiteral(" takes no file") : QStringLiteral(" takes one file only")));
  return isExchange ? runCommand(*exchange, words[1]) : other->run(words.value(1), parser);
}

// A report needs fonts, and so the half of the toolkit that paints, but neither a display nor a desktop.
std::unique_ptr<QCoreApplication> makeApplication(const QStringList& arguments, char** argv) {
  static int count = 1;  // options are read here and not by the toolkit
  if (!arguments.contains(kReport)) return std::make_unique<QCoreApplication>(count, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qunsetenv("QT_QPA_PLATFORMTHEME");
  return std::make_unique<QGuiApplication>(count, argv);
}

}  // namespace

int main(int argc, char** argv) {
  // Failures are told here, so that the log has nothing to add on a person's screen.
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  Paths::ignoreRelativeVariables();
  OwnFiles::keepPrivate();
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments.append(QString::fromLocal8Bit(argv[i]));
  const std::unique_ptr<QCoreApplication> application = makeApplication(arguments, argv);

  QCommandLineParser parser;
  const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});
  const QCommandLineOption version(QStringList{QStringLiteral("v"), QStringLiteral("version")});
  parser.addOptions({help, version, kFrom, kTo, kPaper, kJson});
  if (!parser.parse(arguments)) {
    QString reason = parser.errorText();
    if (reason.endsWith(QLatin1Char('.'))) reason.chop(1);
    return refuse(reason.left(1).toLower() + reason.mid(1));
  }
  if (parser.isSet(help)) {
    write(stdout, helpText().toLocal8Bit());
    return Done;
  }
  if (parser.isSet(version)) {
    say(QStringLiteral("sanovia-cli " SANOVIA_VERSION));
    return Done;
  }
  return runArguments(parser);
}
