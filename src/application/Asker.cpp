#include "application/Asker.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrintEngine>
#include <QPrinter>
#include <QStandardPaths>

#include "paper/PrintSettings.h"

namespace sanovia {
namespace {

// Under this key the toolkit's engine keeps what its dialog offers beyond the properties of QPrinter. The
// toolkit has no public name for it.
constexpr auto kCupsOptions = QPrintEngine::PrintEnginePropertyKey(0xfe00);

PrinterChoice::Sides sidesOf(QPrinter::DuplexMode mode) {
  switch (mode) {
    case QPrinter::DuplexNone: return PrinterChoice::Sides::One;
    case QPrinter::DuplexLongSide: return PrinterChoice::Sides::LongEdge;
    case QPrinter::DuplexShortSide: return PrinterChoice::Sides::ShortEdge;
    case QPrinter::DuplexAuto: break;
  }
  return PrinterChoice::Sides::AsThePrinterIsSet;
}

// The engine holds names and values in turn; none where the toolkit prints without CUPS.
QList<std::pair<QString, QString>> furtherOptionsOf(const QPrinter& printer) {
  const QStringList texts = printer.printEngine()->property(kCupsOptions).toStringList();
  QList<std::pair<QString, QString>> options;
  for (qsizetype i = 0; i + 1 < texts.size(); i += 2) options.append({texts.at(i), texts.at(i + 1)});
  if (printer.pageOrder() == QPrinter::LastPageFirst) {
    options.append({QStringLiteral("outputorder"), QStringLiteral("reverse")});
  }
  return options;
}

PrinterChoice choiceOf(const QPrinter& printer) {
  PrinterChoice choice;
  choice.outputFile = printer.outputFileName();
  if (choice.outputFile.isEmpty()) choice.printer = printer.printerName();
  choice.copies = printer.copyCount();
  choice.collates = printer.collateCopies();
  if (printer.printRange() == QPrinter::PageRange) choice.pages = printer.pageRanges();
  choice.sides = sidesOf(printer.duplex());
  choice.inGrey = printer.colorMode() == QPrinter::GrayScale;
  choice.paper = printer.pageLayout().fullRectPoints().size();
  choice.furtherOptions = furtherOptionsOf(printer);
  return choice;
}

// A name filter for each ending, in their order.
QStringList filtersOf(const QStringList& endings) {
  QStringList filters;
  for (const QString& ending : endings)
    filters.append(QStringLiteral("%1 (*.%2)").arg(ending.toUpper(), ending));
  return filters;
}

// A name that a person wrote with a point in it gets its ending here, so that nobody has been asked yet
// whether to replace a file of that name.
void confirm(QWidget* window, const QString& path, const std::function<void(const QString&)>& answer) {
  const QString question =
      QCoreApplication::translate("QFileDialog", "%1 already exists.\nDo you want to replace it?");
  auto* box = new QMessageBox(QMessageBox::Warning, {}, question.arg(QFileInfo(path).fileName()),
                              QMessageBox::Yes | QMessageBox::No, window);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setDefaultButton(QMessageBox::No);
  QObject::connect(box, &QDialog::finished, window, [path, answer](int button) {
    if (button == QMessageBox::Yes) answer(path);
  });
  box->open();
}

// The toolkit's dialogs, which are the desk's own where it has some.
class DialogAsker : public Asker {
 public:
  void askFileName(QWidget* window, const FileQuestion& question,
                   std::function<void(const QString&)> answer) override {
    auto* dialog = new QFileDialog(window, question.title,
                                   QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    const QStringList endings = QStringList(question.ending) + question.furtherEndings;
    dialog->setNameFilters(filtersOf(endings));
    dialog->setDefaultSuffix(question.ending);
    QObject::connect(dialog, &QFileDialog::filterSelected, dialog, [dialog, endings](const QString& filter) {
      dialog->setDefaultSuffix(endings.value(filtersOf(endings).indexOf(filter)));
    });
    dialog->selectFile(question.proposedName);
    QObject::connect(dialog, &QFileDialog::fileSelected, window,
                     [window, dialog, endings, answer = std::move(answer)](const QString& path) {
                       const QString file = withEnding(path, QStringList(dialog->defaultSuffix()) + endings);
                       if (file != path && QFileInfo::exists(file))
                         confirm(window, file, answer);
                       else
                         answer(file);
                     });
    dialog->setWindowModality(Qt::WindowModal);
    dialog->show();
  }

  void askExistingFile(QWidget* window, const FileQuestion& question,
                       std::function<void(const QString&)> answer) override {
    auto* dialog = new QFileDialog(window, question.title,
                                   QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters(filtersOf(QStringList(question.ending) + question.furtherEndings) +
                           QStringList(QStringLiteral("* (*)")));
    QObject::connect(dialog, &QFileDialog::fileSelected, window, std::move(answer));
    dialog->setWindowModality(Qt::WindowModal);
    dialog->show();
  }

  void askPrinter(QWidget* window, std::function<void(const PrinterChoice&)> answer) override {
    auto printer = std::make_shared<QPrinter>();
    printer->setPageSize(PrintSettings::paperSize());
    auto* dialog = new QPrintDialog(printer.get(), window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOption(QAbstractPrintDialog::PrintToFile);
    QObject::connect(dialog, &QDialog::finished, window, [printer, answer = std::move(answer)](int result) {
      if (result == QDialog::Accepted) answer(choiceOf(*printer));
    });
    dialog->setWindowModality(Qt::WindowModal);
    dialog->show();
  }

  void tell(QWidget* window, const QString& text) override {
    auto* message = new QMessageBox(QMessageBox::Warning, QCoreApplication::applicationName(), text,
                                    QMessageBox::Ok, window);
    message->setAttribute(Qt::WA_DeleteOnClose);
    message->open();
  }
};

std::unique_ptr<Asker>& current() {
  static std::unique_ptr<Asker> asker;
  return asker;
}

}  // namespace

QString withEnding(const QString& path, const QStringList& endings) {
  for (const QString& ending : endings)
    if (path.endsWith(QLatin1Char('.') + ending, Qt::CaseInsensitive)) return path;
  return path + QLatin1Char('.') + endings.value(0);
}

Asker& Asker::shared() {
  if (!current()) current() = std::make_unique<DialogAsker>();
  return *current();
}

void Asker::setShared(std::unique_ptr<Asker> asker) { current() = std::move(asker); }

}  // namespace sanovia
