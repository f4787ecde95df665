#include "application/Asker.h"

#include <QFileDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QStandardPaths>

namespace sanovia {
namespace {

PrinterChoice::Sides sidesOf(QPrinter::DuplexMode mode) {
  switch (mode) {
    case QPrinter::DuplexNone: return PrinterChoice::Sides::One;
    case QPrinter::DuplexLongSide: return PrinterChoice::Sides::LongEdge;
    case QPrinter::DuplexShortSide: return PrinterChoice::Sides::ShortEdge;
    case QPrinter::DuplexAuto: break;
  }
  return PrinterChoice::Sides::AsThePrinterIsSet;
}

PrinterChoice choiceOf(const QPrinter& printer) {
  PrinterChoice choice;
  choice.outputFile = printer.outputFileName();
  if (choice.outputFile.isEmpty()) choice.printer = printer.printerName();
  choice.copies = printer.copyCount();
  choice.collates = printer.collateCopies();
  choice.firstPage = printer.fromPage();
  choice.lastPage = printer.toPage();
  choice.sides = sidesOf(printer.duplex());
  choice.inColour = printer.colorMode() == QPrinter::Color;
  return choice;
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
    dialog->setNameFilter(QStringLiteral("%1 (*.%2)").arg(question.ending.toUpper(), question.ending));
    dialog->setDefaultSuffix(question.ending);
    dialog->selectFile(question.proposedName);
    QObject::connect(dialog, &QFileDialog::fileSelected, window, std::move(answer));
    dialog->setWindowModality(Qt::WindowModal);
    dialog->show();
  }

  void askPrinter(QWidget* window, std::function<void(const PrinterChoice&)> answer) override {
    auto printer = std::make_shared<QPrinter>();
    auto* dialog = new QPrintDialog(printer.get(), window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOption(QAbstractPrintDialog::PrintToFile);
    QObject::connect(dialog, &QDialog::finished, window, [printer, answer = std::move(answer)](int result) {
      if (result == QDialog::Accepted) answer(choiceOf(*printer));
    });
    dialog->setWindowModality(Qt::WindowModal);
    dialog->show();
  }
};

std::unique_ptr<Asker>& current() {
  static std::unique_ptr<Asker> asker;
  return asker;
}

}  // namespace

Asker& Asker::shared() {
  if (!current()) current() = std::make_unique<DialogAsker>();
  return *current();
}

void Asker::setShared(std::unique_ptr<Asker> asker) { current() = std::move(asker); }

}  // namespace sanovia
