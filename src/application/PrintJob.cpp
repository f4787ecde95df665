#include "application/PrintJob.h"

#include <cups/cups.h>
#include <memory>

#include "core/foundation/Log.h"
#include "core/foundation/WholeFile.h"
#include "paper/PrintSettings.h"

namespace sanovia {
namespace {

// As the queue shows it.
constexpr const char* kJobTitle = "Sanovia";

// How long a server may be silent before it is given up, since the window waits for it: at first, and once it
// has shown that it is there.
constexpr int kConnectPatience = 3000;  // milliseconds
constexpr double kFirstPatience = 3;    // seconds
constexpr double kJobPatience = 15;     // seconds

// The name under which drivers older than CUPS's own word for it know colour. It is offered by the dialog,
// and what is chosen there must not meet a default under the other name.
constexpr const char* kDriversColour = "ColorModel";

constexpr double kPointsPerInch = 72;
constexpr double kHundredthsOfMillimetrePerInch = 2540;

struct Closer {
  void operator()(http_t* connection) const { httpClose(connection); }
  void operator()(cups_dest_t* printer) const { cupsFreeDests(1, printer); }
  void operator()(cups_dinfo_t* info) const { cupsFreeDestInfo(info); }
  void operator()(ipp_t* message) const { ippDelete(message); }
};
template <class T>
using Owned = std::unique_ptr<T, Closer>;

// The options as CUPS holds them; one that comes again replaces the former.
class OptionList {
 public:
  OptionList() = default;
  ~OptionList() { cupsFreeOptions(_count, _options); }
  OptionList(const OptionList&) = delete;
  OptionList& operator=(const OptionList&) = delete;

  void add(const char* name, const char* value) { _count = cupsAddOption(name, value, _count, &_options); }
  void remove(const char* name) { _count = cupsRemoveOption(name, _count, &_options); }
  int count() const { return _count; }
  cups_option_t* options() const { return _options; }

 private:
  int _count = 0;
  cups_option_t* _options = nullptr;
};

bool failed(const QString& reason) {
  logLine(QStringLiteral("Nothing was printed: ") + reason);
  return false;
}
bool failedAtServer() { return failed(QString::fromUtf8(cupsLastErrorString())); }

// Empty for a paper of no known size.
QByteArray mediaName(const QSizeF& paper) {
  if (paper.isEmpty()) return {};
  const auto hundredths = [](double points) {
    return qRound(points / kPointsPerInch * kHundredthsOfMillimetrePerInch);
  };
  // A sheet is named upright, whichever way it is printed on.
  const pwg_media_t* media = pwgMediaForSize(hundredths(qMin(paper.width(), paper.height())),
                                             hundredths(qMax(paper.width(), paper.height())));
  return media ? media->pwg : nullptr;
}

QByteArray sidesName(PrinterChoice::Sides sides) {
  switch (sides) {
    case PrinterChoice::Sides::One: return CUPS_SIDES_ONE_SIDED;
    case PrinterChoice::Sides::LongEdge: return CUPS_SIDES_TWO_SIDED_PORTRAIT;
    case PrinterChoice::Sides::ShortEdge: return CUPS_SIDES_TWO_SIDED_LANDSCAPE;
    case PrinterChoice::Sides::AsThePrinterIsSet: break;
  }
  return {};
}

void setPatience(http_t* connection, double seconds) {
  httpSetTimeout(
      connection, seconds, [](http_t*, void*) { return 0; }, nullptr);
}

// Null for a server that does not answer. CUPS looks for printers on connections of its own, too, on which it
// would wait for minutes; therefore the server is asked for something small before.
Owned<http_t> connectToServer() {
  Owned<http_t> connection(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                                        kConnectPatience, nullptr));
  if (!connection) return nullptr;
  setPatience(connection.get(), kFirstPatience);
  const Owned<ipp_t> answer(cupsDoRequest(connection.get(), ippNewRequest(IPP_OP_CUPS_GET_DEFAULT), "/"));
  setPatience(connection.get(), kJobPatience);
  return answer ? std::move(connection) : nullptr;
}

// The name as the dialog gives it: "printer" or "printer/instance".
Owned<cups_dest_t> findPrinter(http_t* connection, const QString& name) {
  if (name.isEmpty()) return nullptr;
  const QByteArray printer = name.section(QLatin1Char('/'), 0, 0).toUtf8();
  const QByteArray instance = name.section(QLatin1Char('/'), 1).toUtf8();
  return Owned<cups_dest_t>(
      cupsGetNamedDest(connection, printer.constData(), instance.isEmpty() ? nullptr : instance.constData()));
}

bool isGood(ipp_status_t status) { return status < IPP_STATUS_REDIRECTION_OTHER_SITE; }

bool streamDocument(http_t* connection, cups_dest_t* printer, cups_dinfo_t* info, int job,
                    const QByteArray& pdf) {
  return cupsStartDestDocument(connection, printer, info, job, kJobTitle, CUPS_FORMAT_PDF, 0, nullptr, 1) ==
             HTTP_STATUS_CONTINUE &&
         cupsWriteRequestData(connection, pdf.constData(), static_cast<size_t>(pdf.size())) ==
             HTTP_STATUS_CONTINUE &&
         isGood(cupsFinishDestDocument(connection, printer, info));
}

bool sendToPrinter(const QByteArray& pdf, const PrinterChoice& choice) {
  const Owned<http_t> connection = connectToServer();
  if (!connection) return failed(QStringLiteral("no print server answers"));
  const Owned<cups_dest_t> printer = findPrinter(connection.get(), choice.printer);
  if (!printer) return failed(QStringLiteral("there is no printer \"%1\"").arg(choice.printer));
  const Owned<cups_dinfo_t> info(cupsCopyDestInfo(connection.get(), printer.get()));
  if (!info) return failedAtServer();

  OptionList options;
  for (int i = 0; i < printer->num_options; ++i) {
    options.add(printer->options[i].name, printer->options[i].value);  // what is set for it by default
  }
  for (const PrintOption& option : printOptions(choice)) {
    if (option.name == kDriversColour) options.remove(CUPS_PRINT_COLOR_MODE);
    options.add(option.name.constData(), option.value.constData());
  }
  int job = 0;
  if (!isGood(cupsCreateDestJob(connection.get(), printer.get(), info.get(), &job, kJobTitle, options.count(),
                                options.options()))) {
    return failedAtServer();
  }
  if (streamDocument(connection.get(), printer.get(), info.get(), job, pdf)) return true;
  cupsCancelDestJob(connection.get(), printer.get(), job);  // half a document is none
  return failed(QStringLiteral("the server did not take the document"));
}

bool writeToFile(const QByteArray& pdf, const QString& file) {
  const std::optional<FileError> error = writeWhole(file, pdf, kConnectPatience);
  return error ? failed(error->text) : true;
}

}  // namespace

QList<PrintOption> printOptions(const PrinterChoice& choice) {
  QList<PrintOption> options;
  const auto add = [&options](const char* name, const QByteArray& value) {
    if (!value.isEmpty()) options.append({name, value});
  };
  for (const auto& [name, value] : choice.furtherOptions) add(name.toUtf8().constData(), value.toUtf8());
  add(CUPS_COPIES, QByteArray::number(qMax(1, choice.copies)));
  if (choice.copies > 1) {
    add("multiple-document-handling",
        choice.collates ? "separate-documents-collated-copies" : "separate-documents-uncollated-copies");
  }
  add("page-ranges", choice.pages.toString().toLatin1());
  add(CUPS_SIDES, sidesName(choice.sides));
  add(CUPS_MEDIA, mediaName(choice.paper));
  // The document is larger than the sheet then.
  if (!choice.paper.isEmpty() && !PrintSettings::hasRoom(choice.paper)) add("print-scaling", "fit");
  if (choice.inGrey) {
    add(kDriversColour, "Gray");
    add(CUPS_PRINT_COLOR_MODE, CUPS_PRINT_COLOR_MODE_MONOCHROME);
  }
  return options;
}

bool printDocument(const QByteArray& pdf, const PrinterChoice& choice) {
  if (pdf.isEmpty()) return failed(QStringLiteral("the document is empty"));
  return choice.outputFile.isEmpty() ? sendToPrinter(pdf, choice) : writeToFile(pdf, choice.outputFile);
}

}  // namespace sanovia
