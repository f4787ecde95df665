// The command line tool: reads the arguments, runs one exchange and says how it went.
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <unistd.h>

#include "HelpText.h"
#include "ProgressLine.h"
#include "exchange/DiaryExport.h"
#include "exchange/DiaryImport.h"

namespace {

using namespace sanovia;

enum ExitStatus : int { Done = 0, Failed = 1, WrongUsage = 2 };

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

void write(FILE* stream, const QByteArray& bytes) {
  std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
  std::fflush(stream);
}

void say(const QString& text) { write(stdout, text.toLocal8Bit() + '\n'); }

// Whatever stands in the text, names of files included, it comes out as one line.
int fail(ExitStatus status, QString text) {
  std::replace_if(
      text.begin(), text.end(), [](QChar sign) { return sign.category() == QChar::Other_Control; }, u'?');
  write(stderr, text.toLocal8Bit() + '\n');
  return status;
}

int refuse(const QString& reason) {
  return fail(WrongUsage,
              QStringLiteral("sanovia-cli: ") + reason + QStringLiteral(" (see sanovia-cli --help)"));
}

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
  if (const auto* error = std::get_if<ExchangeError>(&result)) return fail(Failed, error->text);
  say(closingText(command, file, std::get<ExchangeReport>(result)));
  return Done;
}

int runArguments(const QStringList& words) {
  if (words.isEmpty()) return refuse(QStringLiteral("no command given"));
  const auto* command = std::find_if(std::begin(kCommands), std::end(kCommands),
                                     [&](const Command& known) { return known.name == words.first(); });
  if (command == std::end(kCommands))
    return refuse(QStringLiteral("unknown command \"%1\"").arg(words.first()));
  if (words.size() < 2) return refuse(command->name + QStringLiteral(" needs the name of a file"));
  if (words.size() > 2) return refuse(command->name + QStringLiteral(" takes one file only"));
  return runCommand(*command, words[1]);
}

}  // namespace

int main(int argc, char** argv) {
  // Failures are told here, so that the log has nothing to add on a person's screen.
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  const QCoreApplication application(argc, argv);

  QCommandLineParser parser;
  const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});
  const QCommandLineOption version(QStringList{QStringLiteral("v"), QStringLiteral("version")});
  parser.addOptions({help, version});
  if (!parser.parse(application.arguments())) {
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
  return runArguments(parser.positionalArguments());
}
