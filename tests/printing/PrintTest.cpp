// Documents on their way to a real print server and to files.
#include <QAbstractButton>
#include <QApplication>
#include <QBuffer>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPushButton>
#include <QSpinBox>
#include <QTcpServer>
#include <QTest>

#include <cups/cups.h>
#include <functional>
#include <optional>
#include <stdexcept>

#include "application/PrintJob.h"
#include "printing/CupsServer.h"
#include "support/TestHome.h"

// What CUPS's reader of drivers never frees: the names of a driver's sides, each time the dialog asks for
// them.
extern "C" const char* __lsan_default_suppressions();  // NOLINT(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions() { return "leak:_ppdCacheCreateWithPPD\n"; }

namespace sanovia {

void PrintTo(const PrintOption& option, std::ostream* stream) {
  *stream << option.name.toStdString() << '=' << option.value.toStdString();
}

namespace test {
namespace {

using namespace Qt::StringLiterals;
using Sides = PrinterChoice::Sides;

// Longer than that no failure may hold the window up, in milliseconds.
constexpr qint64 kFreeze = 8000;

const QSizeF kA4(595, 842);
const QSizeF kLetter(612, 792);

QByteArray document(int pages) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  QPainter painter(&writer);
  for (int page = 1; page <= pages; ++page) {
    if (page > 1) writer.newPage();
    painter.drawText(100, 100, QString::number(page));
  }
  painter.end();
  return bytes;
}

void useServer(const QString& address) {
  qputenv("CUPS_SERVER", address.toLatin1());
  cupsSetServer(nullptr);  // looks again
}

class Printing : public TestHome {
 protected:
  ~Printing() override { qunsetenv("CUPS_SERVER"); }

  // False with one line in the log, before the person gives up.
  void expectFailure(const QByteArray& pdf, const PrinterChoice& choice, const QString& reason) {
    SCOPED_TRACE(choice.printer.toStdString() + " " + choice.outputFile.toStdString());
    takeLog();
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(printDocument(pdf, choice));
    EXPECT_LT(timer.elapsed(), kFreeze);
    const QStringList log = takeLog();
    ASSERT_EQ(log.size(), 1) << log.join(u'\n').toStdString();
    EXPECT_TRUE(log.first().startsWith(u"Nothing was printed: "_s + reason)) << log.first().toStdString();
  }
};

TEST_F(Printing, HandsTheVeryBytesToTheQueue) {
  const CupsServer server(file(u"cups"_s));
  useServer(server.address());
  const PrinterChoice choice{.printer = CupsServer::kQueue};
  const QByteArray large = "%PDF-1.4\n" + noise(7, CupsServer::kGreatestDocument - 9999);
  int job = 0;
  for (const QByteArray& pdf : {document(1), document(5), large}) {
    SCOPED_TRACE(pdf.size());
    EXPECT_TRUE(printDocument(pdf, choice));
    const QMap<QString, QString> attributes = server.finishedJob(++job);
    EXPECT_EQ(attributes.value(u"job-state"_s), u"completed"_s);
    EXPECT_EQ(attributes.value(u"job-name"_s), u"Sanovia"_s);
    EXPECT_EQ(attributes.value(u"document-format"_s), u"application/pdf"_s);
    EXPECT_TRUE(bytesOf(server.paper()) == pdf);
  }
  EXPECT_EQ(takeLog(), QStringList());
}

TEST_F(Printing, SendsTheChoiceAsAttributesOfTheJob) {
  const CupsServer server(file(u"cups"_s));
  useServer(server.address());
  EXPECT_TRUE(printDocument(document(5), {.printer = CupsServer::kQueue,
                                          .copies = 3,
                                          .collates = false,
                                          .pages = QPageRanges::fromString(u"2-3,5"_s),
                                          .sides = Sides::LongEdge,
                                          .inGrey = true,
                                          .paper = kA4,
                                          .furtherOptions = {{u"number-up"_s, u"2"_s}}}));
  const QMap<QString, QString> attributes = server.finishedJob(1);
  const std::pair<const char*, const char*> expected[] = {
      {"copies", "3"},
      {"multiple-document-handling", "separate-documents-uncollated-copies"},
      {"page-ranges", "2-3,5-5"},
      {"sides", "two-sided-long-edge"},
      {"media", "iso_a4_210x297mm"},
      {"print-color-mode", "monochrome"},
      {"number-up", "2"},
  };
  for (const auto& [name, value] : expected) {
    EXPECT_EQ(attributes.value(QString::fromLatin1(name)), QString::fromLatin1(value)) << name;
  }
}

TEST_F(Printing, NamesAChoiceInTheWordsOfTheServer) {
  const QPageRanges someOf = QPageRanges::fromString(u"1,4-6"_s);
  const PrintOption one{"copies", "1"};
  const std::pair<PrinterChoice, QList<PrintOption>> rows[] = {
      {{}, {one}},
      {{.copies = 0}, {one}},
      {{.copies = 2},
       {{"copies", "2"}, {"multiple-document-handling", "separate-documents-collated-copies"}}},
      {{.copies = 2, .collates = false},
       {{"copies", "2"}, {"multiple-document-handling", "separate-documents-uncollated-copies"}}},
      {{.pages = someOf}, {one, {"page-ranges", "1,4-6"}}},
      {{.sides = Sides::One}, {one, {"sides", "one-sided"}}},
      {{.sides = Sides::LongEdge}, {one, {"sides", "two-sided-long-edge"}}},
      {{.sides = Sides::ShortEdge}, {one, {"sides", "two-sided-short-edge"}}},
      {{.inGrey = true}, {one, {"ColorModel", "Gray"}, {"print-color-mode", "monochrome"}}},
      {{.paper = kA4}, {one, {"media", "iso_a4_210x297mm"}}},
      {{.paper = kA4.transposed()}, {one, {"media", "iso_a4_210x297mm"}}},
      {{.paper = kLetter}, {one, {"media", "na_letter_8.5x11in"}}},
      {{.furtherOptions = {{u"number-up"_s, u"2"_s}, {u"job-billing"_s, u""_s}}}, {{"number-up", "2"}, one}},
  };
  for (const auto& [choice, expected] : rows) EXPECT_EQ(printOptions(choice), expected);
}

TEST_F(Printing, GivesUpWhereThereIsNoServerOrAMuteOne) {
  const PrinterChoice choice{.printer = CupsServer::kQueue};
  QTcpServer mute;
  ASSERT_TRUE(mute.listen(QHostAddress::LocalHost));
  const QString address = u"127.0.0.1:%1"_s.arg(mute.serverPort());
  useServer(address);
  expectFailure(document(1), choice, u"no print server answers"_s);
  mute.close();
  useServer(address);
  expectFailure(document(1), choice, u"no print server answers"_s);
  useServer(u"no.such.host.invalid:631"_s);
  expectFailure(document(1), choice, u"no print server answers"_s);
}

TEST_F(Printing, TellsTheLogWhatTheServerRejects) {
  const CupsServer server(file(u"cups"_s));
  useServer(server.address());
  expectFailure(document(1), {.printer = u"another"_s}, u"there is no printer \"another\""_s);
  expectFailure(document(1), {}, u"there is no printer \"\""_s);
  expectFailure(QByteArray(), {.printer = CupsServer::kQueue}, u"the document is empty"_s);
  expectFailure(document(1), {.printer = CupsServer::kClosedQueue}, u"Destination"_s);
  EXPECT_FALSE(server.hasJob(1));

  expectFailure("%PDF-1.4\n" + noise(7, CupsServer::kGreatestDocument * 2), {.printer = CupsServer::kQueue},
                u"the server did not take the document"_s);
  EXPECT_EQ(server.finishedJob(1).value(u"job-state"_s), u"canceled"_s) << "half a document is none";
  EXPECT_FALSE(QFile::exists(server.paper()));
}

TEST_F(Printing, WritesAFileAsAWhole) {
  const QString path = file(u"paper.pdf"_s);
  const QByteArray pdf = document(2);
  EXPECT_TRUE(printDocument(document(1), {.outputFile = path}));
  EXPECT_TRUE(
      printDocument(pdf, {.outputFile = path, .copies = 3, .pages = QPageRanges::fromString(u"2"_s)}));
  EXPECT_TRUE(bytesOf(path) == pdf);
  expectFailure(QByteArray(), {.outputFile = path}, u"the document is empty"_s);
  EXPECT_TRUE(bytesOf(path) == pdf);
  ASSERT_TRUE(QDir().mkpath(dataFolder()));
  expectFailure(pdf, {.outputFile = file(u"missing/paper.pdf"_s)}, file(u"missing/paper.pdf"_s));
  expectFailure(pdf, {.outputFile = dataFolder()}, dataFolder());
}

// The real dialog, operated by its controls.
class PrinterDialog : public Printing {
 protected:
  // Opens the dialog and has it operated; the choice when it was accepted.
  std::optional<PrinterChoice> ask(const std::function<void(QPrintDialog&)>& operate) {
    QWidget window;
    window.show();
    std::optional<PrinterChoice> choice;
    Asker::shared().askPrinter(&window, [&](const PrinterChoice& answer) { choice = answer; });
    auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
    EXPECT_TRUE(dialog);
    if (dialog) operate(*dialog);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return choice;
  }
  template <class T>
  static T& control(QPrintDialog& dialog, const char* name) {
    T* found = dialog.findChild<T*>(QString::fromLatin1(name));
    if (!found) throw std::runtime_error(std::string("the dialog has no ") + name);
    return *found;
  }
  static void pick(QPrintDialog& dialog, const QString& printer) {
    auto& printers = control<QComboBox>(dialog, "printers");
    printers.setCurrentIndex(printers.findText(printer));
    EXPECT_EQ(printers.currentText(), printer);
  }
  static void click(QPrintDialog& dialog, const char* name) {
    control<QAbstractButton>(dialog, name).click();
  }
  static void accept(QPrintDialog& dialog) {
    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
  }
};

TEST_F(PrinterDialog, GivesAllThatWasChosen) {
  const CupsServer server(file(u"cups"_s));
  useServer(server.address());
  const auto choice = ask([](QPrintDialog& dialog) {
    pick(dialog, CupsServer::kClosedQueue);
    control<QSpinBox>(dialog, "copies").setValue(3);
    click(dialog, "collate");
    click(dialog, "reverse");
    click(dialog, "printRange");
    control<QSpinBox>(dialog, "from").setValue(2);
    control<QSpinBox>(dialog, "to").setValue(3);
    click(dialog, "duplexShort");
    accept(dialog);
  });
  ASSERT_TRUE(choice);
  EXPECT_EQ(choice->printer, CupsServer::kClosedQueue);
  EXPECT_EQ(choice->outputFile, QString());
  EXPECT_EQ(choice->copies, 3);
  EXPECT_FALSE(choice->collates);
  EXPECT_EQ(choice->pages.toString(), u"2-3"_s);
  EXPECT_EQ(choice->sides, Sides::ShortEdge);
  EXPECT_FALSE(choice->inGrey);
  EXPECT_EQ(choice->paper, kLetter) << "the printer's own";
  for (const auto& [name, value] :
       {std::pair(u"number-up"_s, u"1"_s), std::pair(u"outputorder"_s, u"reverse"_s)}) {
    EXPECT_TRUE(choice->furtherOptions.contains(std::pair(name, value))) << name.toStdString();
  }
}

TEST_F(PrinterDialog, GivesAFileWhereThereIsNoPrinter) {
  useServer(u"127.0.0.1:1"_s);
  const QString path = file(u"paper.pdf"_s);
  const auto choice = ask([&path](QPrintDialog& dialog) {
    control<QLineEdit>(dialog, "filename").setText(path);
    accept(dialog);
  });
  ASSERT_TRUE(choice);
  EXPECT_EQ(choice->outputFile, path);
  EXPECT_EQ(choice->printer, QString());
  EXPECT_TRUE(choice->pages.isEmpty());
}

TEST_F(PrinterDialog, IsSilentWhenCancelled) {
  EXPECT_FALSE(ask([](QPrintDialog& dialog) { dialog.reject(); }));
}

}  // namespace
}  // namespace test
}  // namespace sanovia
