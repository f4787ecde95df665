// Every question to the person, in one replaceable place, so that a test never meets a dialog. A question
// returns at once; its answer comes later, and does not come at all when the person cancels.
#pragma once

#include <QList>
#include <QPageRanges>
#include <QSizeF>
#include <QString>

#include <functional>
#include <memory>
#include <utility>

class QWidget;

namespace sanovia {

// Where a file is to be written.
struct FileQuestion {
  QString title;
  QString proposedName;             // without an ending
  QString ending;                   // of the type, such as "pdf"; added when the person leaves it out
  QStringList furtherEndings = {};  // of the other types that may be chosen
};

// What is to be printed, and where. A file takes the document as it is: the rest is for printers.
struct PrinterChoice {
  enum class Sides : quint8 { AsThePrinterIsSet, One, LongEdge, ShortEdge };

  QString printer = {};     // its name; empty for a file
  QString outputFile = {};  // "print to file"; empty for a printer
  int copies = 1;
  bool collates = true;
  QPageRanges pages = {};  // none for all pages
  Sides sides = Sides::AsThePrinterIsSet;
  bool inGrey = false;  // otherwise as the printer is set
  QSizeF paper = {};    // in points, as the page lies; empty when unknown
  // What else the dialog offers for this printer, such as two pages on a sheet: names and values of CUPS.
  QList<std::pair<QString, QString>> furtherOptions = {};
};

// The path with one of those endings: it gets the first unless it has one, whatever other points are in its
// name.
QString withEnding(const QString& path, const QStringList& endings);

class Asker {
 public:
  virtual ~Asker() = default;

  // Asks for a file as a sheet on the window. Replacing a file has been agreed to when the path comes.
  virtual void askFileName(QWidget* window, const FileQuestion& question,
                           std::function<void(const QString& path)> answer) = 0;
  // Asks for a file that is there, of the question's endings; the name is not used.
  virtual void askExistingFile(QWidget* window, const FileQuestion& question,
                               std::function<void(const QString& path)> answer) = 0;
  // Asks for printer, copies and pages.
  virtual void askPrinter(QWidget* window, std::function<void(const PrinterChoice& choice)> answer) = 0;
  // Tells the person why what was asked for is not done; nobody waits for the answer.
  virtual void tell(QWidget* window, const QString& text) = 0;

  // The asker in force: dialogs, unless another one stands in for them.
  static Asker& shared();
  // Null brings the dialogs back.
  static void setShared(std::unique_ptr<Asker> asker);
};

}  // namespace sanovia
