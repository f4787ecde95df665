// The command line tool: reads the arguments, runs one command and says how it went.
#include <QCommandLineParser>
#include <QGuiApplication>

#include <algorithm>
#include <memory>

#include "cli/Console.h"
#include "cli/CopyCommands.h"
#include "cli/ExportCommand.h"
#include "cli/HelpText.h"
#include "cli/ImportCommand.h"
#include "cli/ReportCommand.h"
#include "cli/StatsCommand.h"
#include "cli/SummaryCommand.h"
#include "core/foundation/OwnFiles.h"
#include "core/foundation/Paths.h"

namespace {

using namespace sanovia;

const QString kReport = QStringLiteral("report");
const QString kSummary = QStringLiteral("summary");

// Each is known to some of the commands.
const QCommandLineOption kFrom(QStringLiteral("from"), {}, QStringLiteral("date"));
const QCommandLineOption kTo(QStringLiteral("to"), {}, QStringLiteral("date"));
const QCommandLineOption kPaper(QStringLiteral("paper"), {}, QStringLiteral("paper"));
const QCommandLineOption kJson(QStringLiteral("json"));
const QCommandLineOption kDateOrder(QStringLiteral("date-order"), {}, QStringLiteral("order"));
const QCommandLineOption kUnits(QStringLiteral("units"), {}, QStringLiteral("system"));
const QCommandLineOption kSeveral(QStringLiteral("several"), {}, QStringLiteral("choice"));
const QCommandLineOption kKeep(QStringLiteral("keep"));
const QCommandLineOption kDryRun(QStringLiteral("dry-run"));
const QCommandLineOption kFormat(QStringLiteral("format"), {}, QStringLiteral("format"));
const QCommandLineOption kWithPerson(QStringLiteral("with-person"));

// The options of the commands about copies.
const QCommandLineOption kList(QStringLiteral("list"));
const QCommandLineOption kDate(QStringLiteral("date"), {}, QStringLiteral("date"));
const QCommandLineOption kMissing(QStringLiteral("missing"));
const QCommandLineOption kRepair(QStringLiteral("repair"));

QString valueOf(const QCommandLineParser& parser, const QCommandLineOption& option) {
  return parser.isSet(option) ? parser.value(option) : QString();
}

struct Command {
  QString name;
  QList<QCommandLineOption> options;
  int leastFiles;
  int mostFiles;
  // The file is null where none is given.
  int (*run)(const QString& file, const QCommandLineParser& parser);
};

const Command kCommands[] = {
    {QStringLiteral("import"),
     {kDateOrder, kUnits, kSeveral, kKeep, kDryRun, kJson},
     1,
     1,
     [](const QString& file, const QCommandLineParser& parser) {
       return runImport(file, {.dateOrder = valueOf(parser, kDateOrder),
                               .units = valueOf(parser, kUnits),
                               .several = valueOf(parser, kSeveral),
                               .keepsExisting = parser.isSet(kKeep),
                               .isDryRun = parser.isSet(kDryRun),
                               .inJson = parser.isSet(kJson)});
     }},
    {QStringLiteral("export"),
     {kFormat, kFrom, kTo, kWithPerson},
     1,
     1,
     [](const QString& file, const QCommandLineParser& parser) {
       return runExport(file, {.format = valueOf(parser, kFormat),
                               .from = valueOf(parser, kFrom),
                               .to = valueOf(parser, kTo),
                               .withPerson = parser.isSet(kWithPerson)});
     }},
    {kReport,
     {kFrom, kTo, kPaper},
     1,
     1,
     [](const QString& file, const QCommandLineParser& parser) {
       return runReport(
           file,
           {.from = valueOf(parser, kFrom), .to = valueOf(parser, kTo), .paper = valueOf(parser, kPaper)});
     }},
    {kSummary,
     {kFrom, kTo, kPaper},
     1,
     1,
     [](const QString& file, const QCommandLineParser& parser) {
       return runSummary(
           file,
           {.from = valueOf(parser, kFrom), .to = valueOf(parser, kTo), .paper = valueOf(parser, kPaper)});
     }},
    {QStringLiteral("stats"),
     {kFrom, kTo, kJson},
     0,
     0,
     [](const QString&, const QCommandLineParser& parser) {
       return runStats({valueOf(parser, kFrom), valueOf(parser, kTo), parser.isSet(kJson)});
     }},
    {QStringLiteral("backup"),
     {},
     1,
     1,
     [](const QString& file, const QCommandLineParser&) { return runBackup(file); }},
    {QStringLiteral("restore"),
     {kList, kDate, kMissing, kJson},
     0,
     1,
     [](const QString& file, const QCommandLineParser& parser) {
       return runRestore(
           file, {parser.isSet(kList), valueOf(parser, kDate), parser.isSet(kMissing), parser.isSet(kJson)});
     }},
    {QStringLiteral("check"),
     {kRepair, kJson},
     0,
     0,
     [](const QString&, const QCommandLineParser& parser) {
       return runCheck(parser.isSet(kRepair), parser.isSet(kJson));
     }},
};

bool takes(const Command& command, const QString& option) {
  return std::any_of(command.options.begin(), command.options.end(),
                     [&option](const QCommandLineOption& known) { return known.names().contains(option); });
}

// The commands that know an option, as a text.
QString takersOf(const QString& option) {
  QStringList names;
  for (const Command& command : kCommands)
    if (takes(command, option)) names.append(command.name);
  return names.join(QStringLiteral(" and "));
}

int runArguments(const QCommandLineParser& parser) {
  const QStringList words = parser.positionalArguments();
  if (words.isEmpty()) return refuse(QStringLiteral("no command given"));
  const QString& name = words.first();
  const auto* command = std::find_if(std::begin(kCommands), std::end(kCommands),
                                     [&name](const Command& known) { return known.name == name; });
  if (command == std::end(kCommands)) return refuse(QStringLiteral("unknown command \"%1\"").arg(name));
  for (const QString& option : parser.optionNames())
    if (!takes(*command, option))
      return refuse(QStringLiteral("--%1 is an option of %2").arg(option, takersOf(option)));
  if (words.size() < 1 + command->leastFiles)
    return refuse(name + QStringLiteral(" needs the name of a file"));
  if (words.size() > 1 + command->mostFiles)
    return refuse(name + (command->mostFiles == 0 ? QStringLiteral(" takes no file")
                                                  : QStringLiteral(" takes one file only")));
  return command->run(words.value(1), parser);
}

// A report and a summary need fonts, and so the half of the toolkit that paints, but neither a display nor a
// desktop.
std::unique_ptr<QCoreApplication> makeApplication(const QStringList& arguments, char** argv) {
  static int count = 1;  // options are read here and not by the toolkit
  if (!arguments.contains(kReport) && !arguments.contains(kSummary))
    return std::make_unique<QCoreApplication>(count, argv);
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
  parser.addOptions({help, version, kFrom, kTo, kPaper, kJson, kDateOrder, kUnits, kSeveral, kKeep, kDryRun,
                     kFormat, kWithPerson, kList, kDate, kMissing, kRepair});
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
