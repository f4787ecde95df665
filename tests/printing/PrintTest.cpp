// Documents on their way to a real print server and to files.
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QLineEdit>
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

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;
using Sides = PrinterChoice::Sides;

// Longer than that no failure may hold the window up, in milliseconds.
constexpr qint64 kFreeze = 8000;

const QSizeF kA4(595, 842);
const QSizeF kLetter(612, 792);

// The server looks at no more of a document than its head.
QByteArray document(qsizetype size = 999) { return "%PDF-1.4\n" + noise(7, size - 9); }

class Printing : public TestHome {
 protected:
  ~Printing() override { qunsetenv("CUPS_SERVER"); }

  // False with one line in the log, before the person gives up.
  void expectFailure(const QByteArray& pdf, const PrinterChoice& choice, const QString& reason) {
    SCOPED_TRACE(reason.toStdString());
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(printDocument(pdf, choice));
    EXPECT_LT(timer.elapsed(), kFreeze);
    const QStringList log = takeLog();
    ASSERT_EQ(log.size(), 1);
    EXPECT_TRUE(log.first().startsWith(u"Nothing was printed: "_s + reason)) << log.first().toStdString();
  }
};

TEST_F(Printing, HandsTheVeryBytesAndTheChoiceToTheQueue) {
  const CupsServer server(file(u"cups"_s));
  const PrinterChoice choice{.printer = CupsServer::kQueue,
                             .copies = 3,
                             .collates = false,
                             .pages = QPageRanges::fromString(u"2-3,5-5"_s),
                             .sides = Sides::LongEdge,
                             .inGrey = true,
                             .paper = kA4};
  const QByteArray pdf = document(CupsServer::kGreatestDocument - 9999);
  EXPECT_TRUE(printDocument(pdf, choice));
  const QString printed = server.printed();
  EXPECT_TRUE(printed.startsWith(u"title=Sanovia copies=3 type=application/pdf "_s));
  for (const auto& [name, value] : printOptions(choice))
    EXPECT_TRUE(printed.contains(QString::fromLatin1(name + '=' + value + ' '))) << qPrintable(printed);
  EXPECT_TRUE(bytesOf(server.paper()) == pdf);
  EXPECT_EQ(takeLog(), QStringList());
}

TEST_F(Printing, NamesAChoiceInTheWordsOfTheServer) {
  const PrintOption one{"copies", "1"}, two{"copies", "2"};
  const PrintOption together{"multiple-document-handling", "separate-documents-collated-copies"};
  const PrintOption apart{"multiple-document-handling", "separate-documents-uncollated-copies"};
  const std::pair<PrinterChoice, QList<PrintOption>> rows[] = {
      {{}, {one}},
      {{.copies = 0}, {one}},
      {{.copies = 2}, {two, together}},
      {{.copies = 2, .collates = false}, {two, apart}},
      {{.pages = QPageRanges::fromString(u"1,4-6"_s)}, {one, {"page-ranges", "1,4-6"}}},
      {{.sides = Sides::One}, {one, {"sides", "one-sided"}}},
      {{.sides = Sides::LongEdge}, {one, {"sides", "two-sided-long-edge"}}},
      {{.sides = Sides::ShortEdge}, {one, {"sides", "two-sided-short-edge"}}},
      {{.inGrey = true}, {one, {"ColorModel", "Gray"}, {"print-color-mode", "monochrome"}}},
      {{.paper = kA4.transposed()}, {one, {"media", "iso_a4_210x297mm"}}},
      {{.paper = kLetter}, {one, {"media", "na_letter_8.5x11in"}}},
      {{.paper = {420, 595}}, {one, {"media", "iso_a5_148x210mm"}, {"print-scaling", "fit"}}},
      {{.furtherOptions = {{u"number-up"_s, u"2"_s}, {u"job-billing"_s, u""_s}}}, {{"number-up", "2"}, one}},
  };
  for (const auto& [choice, expected] : rows)
    EXPECT_TRUE(printOptions(choice) == expected) << expected.last().value.constData();
}

TEST_F(Printing, GivesUpWhereThereIsNoServerOrAMuteOne) {
  QTcpServer mute;
  ASSERT_TRUE(mute.listen(QHostAddress::LocalHost));
  for (const QString& address :
       {u"127.0.0.1:%1"_s.arg(mute.serverPort()), u"127.0.0.1:1"_s, u"no.such.host.invalid:631"_s}) {
    useServer(address);
    expectFailure(document(), {.printer = CupsServer::kQueue}, u"no print server answers"_s);
  }
}

TEST_F(Printing, TellsTheLogWhatTheServerRejects) {
  const CupsServer server(file(u"cups"_s));
  const PrinterChoice open{.printer = CupsServer::kQueue};
  expectFailure(document(), {.printer = u"another"_s}, u"there is no printer \"another\""_s);
  expectFailure(document(), {}, u"there is no printer \"\""_s);
  expectFailure({}, open, u"the document is empty"_s);
  expectFailure(document(), {.printer = CupsServer::kClosedQueue}, u"Destination"_s);
  expectFailure(document(CupsServer::kGreatestDocument * 2), open, u"the server did not take the document"_s);
  EXPECT_EQ(server.printed(), QString()) << "half a document is none";
}

// The rest is held where whole files are written.
TEST_F(Printing, WritesAFileAsAWhole) {
  const QString path = file(u"paper.pdf"_s);
  const QByteArray pdf = document();
  EXPECT_TRUE(printDocument(pdf, {.outputFile = path, .copies = 3}));
  expectFailure({}, {.outputFile = path}, u"the document is empty"_s);
  EXPECT_TRUE(bytesOf(path) == pdf);
  expectFailure(pdf, {.outputFile = file(u"missing/paper.pdf"_s)}, file(u"missing/paper.pdf"_s));
}

// The real dialog, operated by its controls.
class PrinterDialog : public Printing {
 protected:
  // Has the dialog operated and then accepted, unless that has shut it; the choice when it was accepted.
  std::optional<PrinterChoice> ask(const std::function<void(QPrintDialog&)>& operate) {
    QWidget window;
    window.show();
    std::optional<PrinterChoice> choice;
    Asker::shared().askPrinter(&window, [&](const PrinterChoice& answer) { choice = answer; });
    auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) throw std::runtime_error("there is no dialog");
    operate(*dialog);
    if (dialog->isVisible()) dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return choice;
  }
  template <class T>
  static T& control(QPrintDialog& dialog, const char* name) {
    T* found = dialog.findChild<T*>(QString::fromLatin1(name));
    return found != nullptr ? *found : throw std::runtime_error(std::string("the dialog has no ") + name);
  }
};

TEST_F(PrinterDialog, GivesAllThatWasChosen) {
  const CupsServer server(file(u"cups"_s));
  const auto choice = ask([](QPrintDialog& dialog) {
    control<QComboBox>(dialog, "printers").setCurrentText(CupsServer::kClosedQueue);
    for (const char* chosen : {"printRange", "duplexShort"}) control<QAbstractButton>(dialog, chosen).click();
    for (const auto& [field, value] : {std::pair("copies", 3), {"from", 2}, {"to", 3}})
      control<QSpinBox>(dialog, field).setValue(value);
    for (const char* chosen : {"collate", "reverse"}) control<QAbstractButton>(dialog, chosen).click();
  });
  ASSERT_TRUE(choice);
  EXPECT_EQ(choice->printer, CupsServer::kClosedQueue);
  EXPECT_EQ(choice->copies, 3);
  EXPECT_FALSE(choice->collates || choice->inGrey);
  EXPECT_EQ(choice->pages.toString(), u"2-3"_s);
  EXPECT_EQ(choice->sides, Sides::ShortEdge);
  EXPECT_EQ(choice->paper, kLetter) << "the printer's own";
  EXPECT_TRUE(choice->furtherOptions.contains(std::pair(u"outputorder"_s, u"reverse"_s)));
}

TEST_F(PrinterDialog, GivesAFileWhereThereIsNoPrinterAndNothingWhenCancelled) {
  useServer(u"127.0.0.1:1"_s);
  const QString path = file(u"paper.pdf"_s);
  const auto choice =
      ask([&path](QPrintDialog& dialog) { control<QLineEdit>(dialog, "filename").setText(path); });
  ASSERT_TRUE(choice);
  EXPECT_EQ(choice->outputFile, path);
  EXPECT_EQ(choice->printer, QString());
  EXPECT_TRUE(choice->pages.isEmpty());
  EXPECT_FALSE(ask([](QPrintDialog& dialog) { dialog.reject(); }));
}

}  // namespace
}  // namespace sanovia::test
