// What must not be overwritten, what others must not read, and what lies in the place of a file and is none.
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/database/DBManager.h"
#include "core/foundation/OwnFiles.h"
#include "core/foundation/Paths.h"
#include "core/foundation/Settings.h"
#include "core/foundation/WholeFile.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class OwnFilesTest : public TestHome {
 protected:
  static mode_t modeOf(const QString& path) {
    struct stat status {};
    EXPECT_EQ(stat(QFile::encodeName(path), &status), 0) << qPrintable(path);
    return status.st_mode & 07777;
  }
};

TEST_F(OwnFilesTest, AreRefusedAsTargetsUnderEveryName) {
  DBManager::sharedInstance();
  const QString diary = Paths::databaseFile();
  const QString copy = Paths::backupFolder() + u"/Sanovia-2026-11-14.db"_s;
  writeBytes(copy, "copy");
  writeBytes(Paths::settingsFile(), "[General]\n");
  ASSERT_TRUE(QFile::link(diary, file(u"link"_s)) && QFile::link(file(u"link"_s), file(u"link to link"_s)));
  ASSERT_TRUE(QFile::link(diary + u"-journal"_s, file(u"dangling"_s)));
  ASSERT_TRUE(QFile::link(dataFolder(), file(u"folder"_s)));
  ASSERT_EQ(::link(QFile::encodeName(copy), QFile::encodeName(file(u"hard"_s))), 0);
  const QStringList refused{diary,
                            diary + u"-journal"_s,
                            diary + u"-wal"_s,
                            copy,
                            Paths::settingsFile(),
                            Paths::settingsFile() + u".lock"_s,
                            Paths::backupFolder() + u"/new.db"_s,
                            file(u"link to link"_s),
                            file(u"dangling"_s),
                            file(u"hard"_s),
                            file(u"folder/Quillmere/../Quillmere/Sanovia/Sanovia.db-shm"_s)};
  const QByteArray before = bytesOf(diary);
  for (const QString& name : refused)
    EXPECT_TRUE(OwnFiles::refusal(name) && writeWhole(name, "x")) << qPrintable(name);
  EXPECT_EQ(bytesOf(diary), before);
  EXPECT_EQ(bytesOf(copy), "copy");
  for (const QString& name : {file(u"a.pdf"_s), dataFolder() + u"/Sanovia.db"_s, diary + u".csv"_s})
    EXPECT_EQ(OwnFiles::refusal(name), std::nullopt) << qPrintable(name);
}

TEST_F(OwnFilesTest, AStreamIsWrittenToAndKept) {
  const QString pipe = file(u"pipe"_s);
  ASSERT_EQ(mkfifo(QFile::encodeName(pipe), 0600), 0);
  EXPECT_TRUE(writeWhole(pipe, "x", 10)) << "nobody reads";
  const int reader = open(QFile::encodeName(pipe), O_RDONLY | O_NONBLOCK);
  EXPECT_FALSE(writeWhole(pipe, "words", 10));
  char read[8] = {};
  EXPECT_EQ(::read(reader, read, sizeof read), 5);
  EXPECT_TRUE(writeWhole(pipe, noise(1, 1 << 20), 10)) << "a reader that stops reading";
  close(reader);
  struct stat status {};
  EXPECT_TRUE(stat(QFile::encodeName(pipe), &status) == 0 && S_ISFIFO(status.st_mode));

  writeBytes(file(u"large"_s), noise(2, 3'000'000));
  for (const qint64 limit : {2'999'999, 3'000'000})
    EXPECT_EQ(std::holds_alternative<QByteArray>(readWhole(file(u"large"_s), limit)), limit == 3'000'000);
}

TEST_F(OwnFilesTest, AreOpenToTheirOwnerAlone) {
  const mode_t usual = umask(0);
  DBManager::sharedInstance();
  settings.userName.store(u"Anna"_s);
  SettingsStore::standard().synchronize();
  umask(usual);
  const QString folder = QFileInfo(Paths::settingsFile()).path();
  EXPECT_EQ(std::pair(modeOf(folder), modeOf(Paths::settingsFile())), std::pair(mode_t(0700), mode_t(0600)));
  for (const QString& path : {folder, Paths::dataFolder()}) chmod(QFile::encodeName(path), 0755);
  chmod(QFile::encodeName(Paths::settingsFile()), 0444);
  chmod(QFile::encodeName(Paths::databaseFile()), 0666);
  OwnFiles::keepPrivate();
  EXPECT_EQ(std::pair(modeOf(folder), modeOf(Paths::dataFolder())), std::pair(mode_t(0700), mode_t(0700)));
  EXPECT_EQ(modeOf(Paths::databaseFile()), 0600U);
  EXPECT_EQ(modeOf(Paths::settingsFile()), 0400U) << "nothing is given";
}

TEST_F(OwnFilesTest, NothingInTheSettingsPlaceHoldsUpTheStart) {
  const QString place = Paths::settingsFile();
  writeBytes(place, "[General]\nuserName=Anna\n");
  for (const char* lock : {"", "999999999\nsanovia\nnowhere\n"}) {
    writeBytes(place + u".lock"_s, lock);
    restart();
    QDeadlineTimer soon(5000);
    settings.userHeight.store(1.6F);
    SettingsStore::standard().synchronize();
    EXPECT_FALSE(soon.hasExpired());
  }
  EXPECT_TRUE(bytesOf(place).contains("1.6"));
  QFile::remove(place);
  ASSERT_EQ(mkfifo(QFile::encodeName(place), 0600), 0);
  restart();
  settings.userName.store(u"Berta"_s);
  SettingsStore::standard().synchronize();
  EXPECT_EQ(settings.userName.value(), u"Berta"_s);
}

TEST_F(OwnFilesTest, ARelativeFolderOfTheEnvironmentCountsAsNotSet) {
  qputenv("XDG_DATA_HOME", "here/data");
  Paths::ignoreRelativeVariables();
  EXPECT_TRUE(Paths::dataFolder().startsWith(QDir::homePath())) << qPrintable(Paths::dataFolder());
  EXPECT_TRUE(Paths::settingsFile().startsWith(configFolder())) << "an absolute one stays";
}

}  // namespace
}  // namespace sanovia::test
