#include "printing/CupsServer.h"

#include <QDir>
#include <QTcpServer>
#include <QTest>

#include <csignal>
#include <cups/cups.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <utility>

#include "support/TestHome.h"

namespace sanovia::test {
namespace {

constexpr int kServerPatience = 10000;  // milliseconds

const QString kProgram = QStringLiteral("/usr/sbin/cupsd");
const QString kHelpers = QStringLiteral("/usr/lib/cups/daemon");

// Where the server would reach into the machine's own folders: each is one of the test's, of the same name.
const char* const kFolders[] = {"ServerRoot",  "ServerKeychain", "StateDir", "CacheDir",
                                "RequestRoot", "TempDir",        "DataDir",  "ServerBin",
                                "Printcap",    "AccessLog",      "ErrorLog", "PageLog"};
constexpr const char* kBehaviour = R"(Listen 127.0.0.1:%1
MaxRequestSize %2
Browsing No
DefaultAuthType None
<Policy default>
JobPrivateValues none
<Limit All>
</Limit>
</Policy>
)";
// Without a driver, so that no filter touches a document: what arrives at the device is what was sent.
constexpr const char* kQueueEntry = R"(<Printer %1>
DeviceURI paper:%2
State Idle
Accepting %3
</Printer>
)";

// What a printer with colour and two sides tells of itself.
constexpr const char* kDriver = R"ppd(*PPD-Adobe: "4.3"
*LanguageEncoding: ISOLatin1
*NickName: "Sanovia Paper"
*ColorDevice: True
*OpenUI *PageSize: PickOne
*DefaultPageSize: Letter
*PageSize Letter: ""
*CloseUI: *PageSize
*PaperDimension Letter: "612 792"
*ImageableArea Letter: "0 0 612 792"
*OpenUI *Duplex: PickOne
*DefaultDuplex: None
*Duplex None: ""
*Duplex DuplexNoTumble: ""
*Duplex DuplexTumble: ""
*CloseUI: *Duplex
)ppd";

// The device: puts the document into the file that its address names, and what was asked for with it beside
// it.
constexpr const char* kDevice = R"(#!/bin/sh
[ $# -ne 0 ] || exit 0
cat "$6" >"${DEVICE_URI#paper:}"
echo "title=$3 copies=$4 type=$CONTENT_TYPE $5 " >"${DEVICE_URI#paper:}.asked"
)";

quint16 freePort() {
  QTcpServer server;
  EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
  return server.serverPort();
}

}  // namespace

const QString CupsServer::kQueue = QStringLiteral("sanovia-paper");
const QString CupsServer::kClosedQueue = QStringLiteral("sanovia-closed");

CupsServer::CupsServer(QString folder) : _folder(std::move(folder)), _port(freePort()) {
  writeConfiguration();
  _process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
  _process.start(kProgram, {QStringLiteral("-f"), QStringLiteral("-c"),
                            _folder + QStringLiteral("/ServerRoot/cupsd.conf"), QStringLiteral("-s"),
                            _folder + QStringLiteral("/ServerRoot/cups-files.conf")});
  EXPECT_TRUE(_process.waitForStarted()) << "no " << kProgram.toStdString() << ": ./check installs it";
  useServer(QStringLiteral("127.0.0.1:%1").arg(_port));
  EXPECT_TRUE(QTest::qWaitFor([this] { return activeJobs() >= 0; }, kServerPatience))
      << _process.readAllStandardError().toStdString();
}

CupsServer::~CupsServer() {
  _process.kill();
  _process.waitForFinished();
  qunsetenv("CUPS_SERVER");
}

void CupsServer::writeConfiguration() const {
  const auto write = [this](const char* name, const QString& text) {
    writeBytes(_folder + QLatin1Char('/') + QLatin1String(name), text.toUtf8());
  };
  const auto queue = [this](const QString& name, const char* accepts) {
    return QString::fromLatin1(kQueueEntry).arg(name, paper(), QLatin1String(accepts));
  };
  QString folders;
  for (const char* name : kFolders) folders += QStringLiteral("%1 %2/%1\n").arg(QLatin1String(name), _folder);
  for (const char* name : {"StateDir", "CacheDir", "RequestRoot", "TempDir"})
    EXPECT_TRUE(QDir().mkpath(_folder + QLatin1Char('/') + QLatin1String(name)));
  write("ServerRoot/cups-files.conf", folders);
  write("ServerRoot/cupsd.conf", QString::fromLatin1(kBehaviour).arg(_port).arg(kGreatestDocument));
  write("ServerRoot/printers.conf", queue(kQueue, "Yes") + queue(kClosedQueue, "No"));
  write("ServerRoot/ppd/sanovia-closed.ppd", QString::fromLatin1(kDriver));
  write("DataDir/mime/mime.types", QStringLiteral("application/pdf pdf string(0,%PDF)\n"));
  write("DataDir/mime/mime.convs", QString());
  write("ServerBin/backend/paper", QString::fromLatin1(kDevice));
  EXPECT_TRUE(QFile::setPermissions(_folder + QStringLiteral("/ServerBin/backend/paper"),
                                    QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
  EXPECT_TRUE(QFile::link(kHelpers, _folder + QStringLiteral("/ServerBin/daemon")));
}

QString CupsServer::printed() const {
  EXPECT_TRUE(QTest::qWaitFor([this] { return activeJobs() == 0; }, kServerPatience));
  return QFile::exists(paper()) ? QString::fromUtf8(bytesOf(paper() + QStringLiteral(".asked"))) : QString();
}

int CupsServer::activeJobs() const {
  cups_job_t* jobs = nullptr;
  const int count = cupsGetJobs(&jobs, nullptr, 0, CUPS_WHICHJOBS_ACTIVE);
  cupsFreeJobs(count, jobs);
  return count;
}

void useServer(const QString& address) {
  qputenv("CUPS_SERVER", address.toLatin1());
  cupsSetServer(nullptr);  // looks again
}

}  // namespace sanovia::test
