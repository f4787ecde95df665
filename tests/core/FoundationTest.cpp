// The lowest floor: settings and their file, broadcasts, and the filling of formats.
#include <QFile>

#include <random>

#include "foundation/NotificationCenter.h"
#include "foundation/Paths.h"
#include "foundation/SettingsStore.h"
#include "foundation/TextFormat.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class Foundation : public TestHome {
 protected:
  static QByteArray bytesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
  }

  // A store that knows nothing but the bytes, since no store has opened its file before.
  SettingsStore storeOf(const QByteArray& bytes) {
    _copy = file(u"copy%1.conf"_s.arg(++_copies));
    QFile copy(_copy);
    EXPECT_TRUE(copy.open(QIODevice::WriteOnly));
    EXPECT_EQ(copy.write(bytes), bytes.size());
    copy.close();
    return SettingsStore(_copy);
  }

  SettingsStore storeAfterRestart() {
    SettingsStore::standard().synchronize();
    return storeOf(bytesOf(Paths::settingsFile()));
  }

  QString _copy;

 private:
  int _copies = 0;
};

TEST_F(Foundation, EveryKindOfSettingIsReadBackFromTheFile) {
  SettingsStore& written = SettingsStore::standard();
  written.setInteger(u"type"_s, -9'000'000'000);
  written.setReal(u"height"_s, 1.7F);
  written.setDate(u"summer"_s, localTime(u"2026-07-01T00:15:00"_s));
  written.setDate(u"winter"_s, localTime(u"2026-11-01T10:30:00"_s));
  written.setIntegers(u"many"_s, {101, -2, 103});
  written.setIntegers(u"none"_s, {});
  written.setDate(u"gone"_s, localTime(u"2026-11-01T10:30:00"_s));
  written.setDate(u"gone"_s, QDateTime());

  const SettingsStore read = storeAfterRestart();
  const QList<QByteArray> lines = bytesOf(_copy).split('\n');
  for (const char* line :
       {"[General]", "height=1.7", "summer=2026-06-30T22:15:00Z", "winter=2026-11-01T09:30:00Z"})
    EXPECT_TRUE(lines.contains(line)) << line;
  EXPECT_EQ(read.integer(u"type"_s), -9'000'000'000);
  EXPECT_EQ(read.real(u"height"_s), 1.7F);
  EXPECT_EQ(read.date(u"summer"_s), localTime(u"2026-07-01T00:15:00"_s));
  EXPECT_EQ(read.date(u"summer"_s).timeSpec(), Qt::LocalTime);
  EXPECT_EQ(read.integers(u"many"_s), QList<qint64>({101, -2, 103}));
  EXPECT_TRUE(read.contains(u"none"_s) && read.integers(u"none"_s).isEmpty());
  EXPECT_FALSE(read.contains(u"gone"_s));
  EXPECT_TRUE(read.string(u"gone"_s).isNull());
}

TEST_F(Foundation, AnyNameIsReadBackFromTheFile) {
  for (const QString& name : {u""_s, u"Meier, Anna"_s, u",,"_s, u" Anna "_s, u"Anna \"Ann\" O'Neil"_s,
                              u"Jürgen Groß"_s, u"李小龍 😀"_s, u"@Variant(x)"_s, u"@"_s, u"a=b;c#d [x]"_s,
                              u"two\nlines\tand \\x41 \\"_s, u"100% %2F"_s}) {
    SettingsStore::standard().setString(u"userName"_s, name);
    const QString read = storeAfterRestart().string(u"userName"_s);
    EXPECT_EQ(read.toStdString(), name.toStdString());
    EXPECT_FALSE(read.isNull());
  }
}

TEST_F(Foundation, ValuesOfAWrongKindReadAsNothing) {
  const SettingsStore store = storeOf(
      "[General]\nname=Meier, Anna\nlist=101, 102,x,,1.5, 103\nword=abc\nnan=nan\ninf=inf\nhuge=1e99\n"
      "spaced=\" 12 \"\ninvalid=@Invalid()\nvariant=@Variant(\\0\\0\\0\\x7f)\n");
  EXPECT_EQ(store.string(u"name"_s), u"Meier, Anna"_s);
  EXPECT_EQ(store.integers(u"list"_s), QList<qint64>({101, 102, 103}));
  EXPECT_EQ(store.integer(u"spaced"_s), 12);
  for (const char* key : {"word", "nan", "inf", "huge", "invalid", "variant", "list", "absent"}) {
    EXPECT_EQ(store.integer(QLatin1StringView(key)), 0) << key;
    EXPECT_EQ(store.real(QLatin1StringView(key)), 0.0F) << key;
    EXPECT_FALSE(store.date(QLatin1StringView(key)).isValid()) << key;
  }
}

TEST_F(Foundation, AFileOfNonsenseIsReadAndThenWritten) {
  std::mt19937 random(20261115);
  QList<QByteArray> files{"", QByteArray(4, '\0'), "[General", "=\n==\n[]\n[[\n\\",
                          "[General]\nx=@Variant(\\xff"};
  for (int i = 0; i < 40; ++i) {
    QByteArray noise(static_cast<qsizetype>(random() % 2000), '\0');
    for (char& byte : noise) byte = static_cast<char>(random());
    files.append(i % 2 == 0 ? noise : "[General]\nuserHeight=" + noise);
  }
  for (const QByteArray& bytes : files) {
    SettingsStore store = storeOf(bytes);
    EXPECT_EQ(store.integer(u"userHeight"_s), 0);
    store.setReal(u"userHeight"_s, 1.83F);
    store.synchronize();
    EXPECT_TRUE(bytesOf(_copy).contains("userHeight=1.83")) << bytes.toHex().toStdString();
  }
}

TEST_F(Foundation, ASettingsFolderThatCannotBeMadeKeepsTheValuesInMemory) {
  QFile obstacle(configFolder());
  ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
  SettingsStore::standard().setString(u"userName"_s, u"Anna"_s);
  SettingsStore::standard().synchronize();
  EXPECT_EQ(SettingsStore::standard().string(u"userName"_s), u"Anna"_s);
  EXPECT_EQ(takeLog(), QStringList(u"Failed to synchronize the settings, status = 1"_s));
}

TEST_F(Foundation, ObserversMayAddPostAndDieDuringAPosting) {
  NotificationCenter center;
  QString calls;
  QObject owner;
  auto victim = std::make_unique<QObject>();
  center.addObserver(&owner, u"a"_s, [&] {
    calls += u'1';
    if (!victim) return;
    victim.reset();
    for (int i = 0; i < 100; ++i) center.addObserver(&owner, u"a"_s, [&] { calls += u'+'; });
    center.post(u"b"_s);
  });
  center.addObserver(victim.get(), u"a"_s, [&] { calls += u'x'; });
  center.addObserver(&owner, u"b"_s, [&] { calls += u'b'; });
  center.addObserver(&owner, u"a"_s, [&] { calls += u'2'; });
  center.post(u"a"_s);
  EXPECT_EQ(calls, u"1b2"_s);
  center.post(u"a"_s);
  EXPECT_EQ(calls, u"1b212"_s + QString(100, u'+'));
}

TEST_F(Foundation, AFormatIsFilledOnceAndNeverTrusted) {
  // clang-format off
  const struct { QString format, value, result; } cases[] = {
      {u"%d days"_s, u"15"_s, u"15 days"_s}, {u"From %@"_s, u"%d %@"_s, u"From %d %@"_s}, {u"%s%s%n"_s, u"x"_s, u"x%s%n"_s},
      {u"%ld|%lld"_s, u"1"_s, u"1|%lld"_s}, {u"[%-08.3f]"_s, u"\\1"_s, u"[\\1]"_s}, {u"100%"_s, u"x"_s, u"100%"_s},
      {u"%n%p%x%*d"_s, u"x"_s, u"%n%p%x%*d"_s}, {u""_s, u"x"_s, u""_s}, {u"第 %@ 天"_s, u"三"_s, u"第 三 天"_s}};
  // clang-format on
  for (const auto& [format, value, result] : cases)
    EXPECT_EQ(filled(format, value), result) << qPrintable(format);
  EXPECT_TRUE(filled(QString(), u"x"_s).isNull());
}

TEST_F(Foundation, OneDecimalIsRoundedAsPrintfRoundsIt) {
  setLocale(u"de_DE"_s);
  // Exact halves go to the even neighbour.
  for (const auto& [value, text] : {std::pair(36.6, "36.6"),
                                    {99.95, "100.0"},
                                    {-1.26, "-1.3"},
                                    {12.75, "12.8"},
                                    {36.25, "36.2"},
                                    {0.25, "0.2"},
                                    {-12.25, "-12.2"}})
    EXPECT_EQ(oneDecimal(value).toStdString(), text);
}

}  // namespace
}  // namespace sanovia::test
