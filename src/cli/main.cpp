// The command line tool: reads the arguments, runs one exchange or one report and says how it went.
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
#include "core/exchange/DiaryExport.h"
#include "core/exchange/DiaryImport.h"

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
  say(closingText(command, file, std::get<ExchangeReport>(result)));
  return Done;
}

const QString kReport = QStringLiteral("report");

// The options of the report.
const QCommandLineOption kFrom(QStringLiteral("from"), {}, QStringLiteral("date"));
const QCommandLineOption kTo(QStringLiteral("to"), {}, QStringLiteral("date"));
const QCommandLineOption kMode(QStringLiteral("mode"), {}, QStringLiteral("mode"));
const QCommandLineOption kPaper(QStringLiteral("paper"), {}, QStringLiteral("paper"));

QString valueOf(const QCommandLineParser& parser, const QCommandLineOption& option) {
  return parser.isSet(option) ? parser.value(option) : QString();
}

int runArguments(const QCommandLineParser& parser) {
  const QStringList words = parser.positionalArguments();
  if (words.isEmpty()) return refuse(QStringLiteral("no command given"));
  const QString& name = words.first();
  const auto* command = std::find_if(std::begin(kCommands), std::end(kCommands),
                                     [&](const Command& known) { return known.name == name; });
  const bool isReport = name == kReport;
  if (!isReport && command == std::end(kCommands))
    return refuse(QStringLiteral("unknown command \"%1\"").arg(name));
  for (const QCommandLineOption& option : {kFrom, kTo, kMode, kPaper})
    if (!isReport && parser.isSet(option))
      return refuse(QStringLiteral("--%1 is an option of report").arg(option.names().first()));
  if (words.size() < 2) return refuse(name + QStringLiteral(" needs the name of a file"));
  if (words.size() > 2) return refuse(name + QStringLiteral(" takes one file only"));
  if (!isReport) return runCommand(*command, words[1]);
  return runReport(words[1], {.from = valueOf(parser, kFrom),
                              .to = valueOf(parser, kTo),
                              .mode = valueOf(parser, kMode),
                              .paper = valueOf(parser, kPaper)});
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
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments.append(QString::fromLocal8Bit(argv[i]));
  const std::unique_ptr<QCoreApplication> application = makeApplication(arguments, argv);

  QCommandLineParser parser;
  const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});
  const QCommandLineOption version(QStringList{QStringLiteral("v"), QStringLiteral("version")});
  parser.addOptions({help, version, kFrom, kTo, kMode, kPaper});
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
