// The lowest floor: settings and their file, broadcasts, and the filling of formats.
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
  // A store that knows nothing but the bytes, since no store has opened its file before.
  SettingsStore storeOf(const QByteArray& bytes) {
    _copy = file(u"copy%1.conf"_s.arg(++_copies));
    writeBytes(_copy, bytes);
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
  written.setDate(u"summer"_s, at("2026-07-01T00:15:00"));
  written.setIntegers(u"many"_s, {101, -2, 103});
  written.setIntegers(u"none"_s, {});
  written.setDate(u"gone"_s, at("2026-11-01T10:30:00"));
  written.setDate(u"gone"_s, QDateTime());

  const SettingsStore read = storeAfterRestart();
  const QList<QByteArray> lines = bytesOf(_copy).split('\n');
  EXPECT_TRUE(lines.contains("height=1.7") && lines.contains("summer=2026-06-30T22:15:00Z"));
  EXPECT_EQ(read.integer(u"type"_s), -9'000'000'000);
  EXPECT_EQ(read.real(u"height"_s), 1.7F);
  EXPECT_EQ(read.date(u"summer"_s), at("2026-07-01T00:15:00"));
  EXPECT_EQ(read.date(u"summer"_s).timeSpec(), Qt::LocalTime);
  EXPECT_EQ(read.integers(u"many"_s), QList<qint64>({101, -2, 103}));
  EXPECT_TRUE(read.contains(u"none"_s) && read.integers(u"none"_s).isEmpty());
  EXPECT_FALSE(read.contains(u"gone"_s));

  for (const QString& name : {u""_s, u"Meier, Anna"_s, u",,"_s, u" Anna \"Ann\" O'Neil "_s, u"李小龍 😀"_s,
                              u"@Variant(x)"_s, u"a=b;c#d [x]"_s, u"two\nlines\tand \\x41 \\"_s, u"%2F"_s}) {
    written.setString(u"userName"_s, name);
    const QString again = storeAfterRestart().string(u"userName"_s);
    EXPECT_TRUE(again == name && !again.isNull()) << qPrintable(name);
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
  QList<QByteArray> files{"", QByteArray(4, '\0'), "[General", "=\n==\n[]\n[[\n\\",
                          "[General]\nx=@Variant(\\xff"};
  for (int i = 0; i < 40; ++i) files.append((i % 2 == 0 ? "" : "[General]\nuserHeight=") + noise(i, i * 50));
  for (const QByteArray& bytes : files) {
    SettingsStore store = storeOf(bytes);
    EXPECT_EQ(store.integer(u"userHeight"_s), 0);
    store.setReal(u"userHeight"_s, 1.83F);
    store.synchronize();
    EXPECT_TRUE(bytesOf(_copy).contains("userHeight=1.83")) << bytes.toHex().toStdString();
  }
}

TEST_F(Foundation, ASettingsFolderThatCannotBeMadeKeepsTheValuesInMemory) {
  writeBytes(configFolder(), "a file where the folder should be");
  SettingsStore::standard().setString(u"userName"_s, u"Anna"_s);
  SettingsStore::standard().synchronize();
  EXPECT_EQ(SettingsStore::standard().string(u"userName"_s), u"Anna"_s);
  EXPECT_EQ(takeLog(), texts({"Failed to synchronize the settings, status = 1"}));
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
  center.post(u"a"_s);
  EXPECT_EQ(calls, u"1b"_s);
  center.post(u"a"_s);
  EXPECT_EQ(calls, u"1b1"_s + QString(100, u'+'));
}

TEST_F(Foundation, AFormatIsFilledOnceAndNeverTrusted) {
  const char* const cases[][3] = {
      {"From %@", "%d %@", "From %d %@"}, {"%s%s%n", "x", "x%s%n"},
      {"%ld|%lld", "1", "1|%lld"},        {"[%-08.3f]", "\\1", "[\\1]"},
      {"%n%p%x%*d", "x", "%n%p%x%*d"},    {"第 %@ 天 100%", "三", "第 三 天 100%"}};
  for (const auto& [format, value, result] : cases)
    EXPECT_EQ(filled(QString::fromUtf8(format), QString::fromUtf8(value)).toStdString(), result);
  EXPECT_TRUE(filled(QString(), u"x"_s).isNull());

  // One decimal is rounded as printf rounds it: exact halves go to the even neighbour.
  setLocale(u"de_DE"_s);
  for (const auto& [value, text] :
       {std::pair(99.95, "100.0"), {12.75, "12.8"}, {36.25, "36.2"}, {-1.26, "-1.3"}})
    EXPECT_EQ(oneDecimal(value).toStdString(), text);
}

}  // namespace
}  // namespace sanovia::test
