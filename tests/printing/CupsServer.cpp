#include "printing/CupsServer.h"

#include <QDir>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

#include <cups/cups.h>
#include <gtest/gtest.h>
#include <utility>
#ifdef Q_OS_LINUX
#include <csignal>
#include <sys/prctl.h>
#endif

#include "support/TestHome.h"

namespace sanovia::test {
namespace {

constexpr int kPatience = 10000;  // milliseconds

const QString kProgram = QStringLiteral("/usr/sbin/cupsd");
const QString kHelpers = QStringLiteral("/usr/lib/cups/daemon");

constexpr const char* kFolders = R"(ServerRoot %1/etc
ServerKeychain %1/etc
StateDir %1/state
CacheDir %1/cache
RequestRoot %1/spool
TempDir %1/tmp
DataDir %1/data
ServerBin %1/bin
Printcap %1/printcap
AccessLog %1/log/access
ErrorLog %1/log/error
PageLog %1/log/page
)";
constexpr const char* kBehaviour = R"(Listen 127.0.0.1:%1
MaxRequestSize %2
Browsing No
DefaultAuthType None
PreserveJobHistory Yes
<Location />
Order allow,deny
Allow all
</Location>
<Policy default>
JobPrivateAccess all
JobPrivateValues none
<Limit All>
Order allow,deny
</Limit>
</Policy>
)";
// Without a driver, so that no filter touches a document: what arrives at the device is what was sent.
constexpr const char* kQueues = R"(<Printer %1>
DeviceURI paper:%2
State Idle
Accepting Yes
</Printer>
<Printer %3>
DeviceURI paper:%2
State Idle
Accepting No
</Printer>
)";

// What a printer with colour and two sides tells of itself.
constexpr const char* kDriver = R"ppd(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "PAPER.PPD"
*Manufacturer: "Sanovia"
*Product: "(Paper)"
*ModelName: "Sanovia Paper"
*ShortNickName: "Sanovia Paper"
*NickName: "Sanovia Paper"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*OpenUI *PageSize/Media Size: PickOne
*DefaultPageSize: Letter
*PageSize Letter/Letter: ""
*PageSize A4/A4: ""
*CloseUI: *PageSize
*DefaultImageableArea: Letter
*ImageableArea Letter: "0 0 612 792"
*ImageableArea A4: "0 0 595 842"
*DefaultPaperDimension: Letter
*PaperDimension Letter: "612 792"
*PaperDimension A4: "595 842"
*OpenUI *Duplex/Sides: PickOne
*DefaultDuplex: None
*Duplex None/One: ""
*Duplex DuplexNoTumble/Long Edge: ""
*Duplex DuplexTumble/Short Edge: ""
*CloseUI: *Duplex
)ppd";

// The device: puts the document into the file that its address names.
constexpr const char* kDevice = R"(#!/bin/sh
[ $# -eq 0 ] || cat "$6" >"${DEVICE_URI#paper:}"
)";

quint16 freePort() {
  QTcpServer server;
  EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
  return server.serverPort();
}

bool answers(quint16 port) {
  QTcpSocket socket;
  socket.connectToHost(QHostAddress(QHostAddress::LocalHost), port);
  return socket.waitForConnected(100);
}

}  // namespace

const QString CupsServer::kQueue = QStringLiteral("sanovia-paper");
const QString CupsServer::kClosedQueue = QStringLiteral("sanovia-closed");

CupsServer::CupsServer(QString folder) : _folder(std::move(folder)), _port(freePort()) {
  writeConfiguration();
#ifdef Q_OS_LINUX
  _process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
#endif
  _process.start(kProgram,
                 {QStringLiteral("-f"), QStringLiteral("-c"), _folder + QStringLiteral("/etc/cupsd.conf"),
                  QStringLiteral("-s"), _folder + QStringLiteral("/etc/cups-files.conf")});
  EXPECT_TRUE(_process.waitForStarted()) << "no " << kProgram.toStdString() << ": ./check installs it";
  EXPECT_TRUE(
      QTest::qWaitFor([this] { return _process.state() != QProcess::Running || answers(_port); }, kPatience));
  EXPECT_EQ(_process.state(), QProcess::Running) << _process.readAllStandardError().toStdString();
}

CupsServer::~CupsServer() {
  _process.kill();
  _process.waitForFinished();
}

void CupsServer::writeConfiguration() const {
  for (const char* name : {"state", "cache", "spool", "tmp", "log"}) {
    EXPECT_TRUE(QDir().mkpath(_folder + QLatin1Char('/') + QLatin1String(name)));
  }
  const auto write = [this](const char* name, const QString& text) {
    writeBytes(_folder + QLatin1Char('/') + QLatin1String(name), text.toUtf8());
  };
  write("etc/cups-files.conf", QString::fromLatin1(kFolders).arg(_folder));
  write("etc/cupsd.conf", QString::fromLatin1(kBehaviour).arg(_port).arg(kGreatestDocument));
  write("etc/printers.conf", QString::fromLatin1(kQueues).arg(kQueue, paper(), kClosedQueue));
  write("data/mime/mime.types", QStringLiteral("application/pdf pdf string(0,%PDF)\n"));
  write("data/mime/mime.convs", QString());
  write("etc/ppd/sanovia-closed.ppd", QString::fromLatin1(kDriver));
  const QString device = _folder + QStringLiteral("/bin/backend/paper");
  write("bin/backend/paper", QString::fromLatin1(kDevice));
  EXPECT_TRUE(QFile::setPermissions(device, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
  EXPECT_TRUE(QFile::link(kHelpers, _folder + QStringLiteral("/bin/daemon")));
}

QMap<QString, QString> CupsServer::attributesOf(int job) const {
  http_t* connection =
      httpConnect2("127.0.0.1", _port, nullptr, AF_INET, HTTP_ENCRYPTION_NEVER, 1, kPatience, nullptr);
  ipp_t* request = ippNewRequest(IPP_OP_GET_JOB_ATTRIBUTES);
  const QByteArray uri = QStringLiteral("ipp://127.0.0.1/jobs/%1").arg(job).toLatin1();
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "job-uri", nullptr, uri.constData());
  ipp_t* response = cupsDoRequest(connection, request, "/jobs");
  QMap<QString, QString> attributes;
  for (auto* attribute = ippFirstAttribute(response); attribute; attribute = ippNextAttribute(response)) {
    if (ippGetGroupTag(attribute) != IPP_TAG_JOB || !ippGetName(attribute)) continue;
    QByteArray text(4096, '\0');
    ippAttributeString(attribute, text.data(), static_cast<size_t>(text.size()));
    attributes.insert(QString::fromUtf8(ippGetName(attribute)), QString::fromUtf8(text.constData()));
  }
  ippDelete(response);
  httpClose(connection);
  return attributes;
}

QMap<QString, QString> CupsServer::finishedJob(int job) const {
  QMap<QString, QString> attributes;
  EXPECT_TRUE(QTest::qWaitFor(
      [&] {
        attributes = attributesOf(job);
        const QString state = attributes.value(QStringLiteral("job-state"));
        return !QStringList(
                    {QStringLiteral("pending"), QStringLiteral("processing"), QStringLiteral("pending-held")})
                    .contains(state);
      },
      kPatience))
      << attributes.value(QStringLiteral("job-state")).toStdString();
  return attributes;
}

}  // namespace sanovia::test
