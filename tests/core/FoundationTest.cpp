// The lowest floor: settings and their file, the person's own values as the settings keep them, broadcasts,
// and the filling of formats.
#include <QFile>

#include <cerrno>
#include <csignal>
#include <sys/resource.h>

#include "core/foundation/NotificationCenter.h"
#include "core/foundation/Paths.h"
#include "core/foundation/Settings.h"
#include "core/foundation/TextFormat.h"
#include "core/foundation/WholeFile.h"
#include "core/preferences/Preferences.h"
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
  static QByteArray written() {
    SettingsStore::standard().synchronize();
    return bytesOf(Paths::settingsFile());
  }

  QString _copy;
  int _copies = 0;
};

TEST_F(Foundation, EachSettingLiesInTheFileUnderItsKeyAndIsReadBackAsItWas) {
  settings.userName.store(u"Anna"_s);
  settings.userHeight.store(0.1234567F);
  settings.userMeasure.store(Preferences::metric());
  settings.userBirthday.store(u"1980-01-01 00:00:00 +0000"_s);
  settings.dateFrom.store(at("2026-07-01T00:15:00"));
  settings.dateTo.store(at("2026-11-02T10:30:00"));
  settings.openGeneral.store({104, -101});
  settings.openPressure.store({});
  settings.openBlood.store({102});
  settings.recordType.store(-9'000'000'000);
  settings.viewMode.store(1);
  settings.windowFrame.store(u"1 2 800 900"_s);
  QList<QByteArray> lines = written().trimmed().split('\n');
  std::sort(lines.begin(), lines.end());
  EXPECT_EQ(
      lines.join('\n').toStdString(),
      "SanoviaWindow=1 2 800 900\n[General]\ndateFrom=2026-06-30T22:15:00Z\ndateTo=2026-11-02T09:30:00Z\n"
      "healthInfoMode=1\nhealthInfoType=-9000000000\nprefBlood=102\nprefPressure=\n"
      "propertiesGeneral=\"104,-101\"\nuserBirthday=1980-01-01 00:00:00 +0000\nuserHeight=0.1234567\n"
      "userMeasure=Metric\nuserName=Anna");
  settings.dateTo.store(QDateTime());
  const QStringList names{u""_s,         u"Meier, Anna"_s, u" Anna \"Ann\" O'Neil "_s,
                          u"李小龙 😀"_s, u"@Variant(x)"_s, u"a=b;c#d [x]\n\\x41 %2F"_s};
  for (const QString& name : names)
    SettingsStore::standard().setString(u"name%1"_s.arg(names.indexOf(name)), name);
  const SettingsStore read = storeOf(written());
  EXPECT_EQ(read.integer(u"healthInfoType"_s), -9'000'000'000);
  EXPECT_EQ(read.real(u"userHeight"_s), 0.1234567F);
  EXPECT_EQ(read.date(u"dateFrom"_s), at("2026-07-01T00:15:00"));
  EXPECT_EQ(read.date(u"dateFrom"_s).timeSpec(), Qt::LocalTime);
  EXPECT_FALSE(read.contains(u"dateTo"_s)) << "no date is none";
  EXPECT_EQ(read.integers(u"propertiesGeneral"_s), QList<qint64>({104, -101}));
  EXPECT_TRUE(read.contains(u"prefPressure"_s) && read.integers(u"prefPressure"_s).isEmpty());
  for (const QString& name : names) {
    const QString again = read.string(u"name%1"_s.arg(names.indexOf(name)));
    EXPECT_TRUE(again == name && !again.isNull()) << qPrintable(name);
  }
}

TEST_F(Foundation, WhatAPersonOrNonsenseWroteIsReadAndThenWritten) {
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
  SettingsStore nonsense = storeOf("=\n==\n[]\n[[\n\\[General]\nheight=" + noise(2, 900));
  EXPECT_EQ(nonsense.integer(u"height"_s), 0);
  nonsense.setReal(u"height"_s, 1.83F);
  nonsense.synchronize();
  EXPECT_TRUE(bytesOf(_copy).contains("height=1.83"));
}

TEST_F(Foundation, AFirstRunFillsInWhatIsMissingAndLeavesTheRestAlone) {
  for (const auto& [locale, measure] :
       {std::pair(u"en_GB"_s, u"US"_s), {u"fr_FR"_s, u"Metric"_s}, {u"C"_s, u"US"_s}}) {
    settings.userMeasure.remove();
    setLocale(locale);
    Preferences::fillInMissingDefaults();
    restart();
    EXPECT_EQ(Preferences::measure(), measure);
    EXPECT_EQ(Preferences::height(), 1.7F);
  }
  EXPECT_FALSE(settings.userName.isStored() || settings.userBirthday.isStored());
  settings.userMeasure.store(Preferences::metric());
  settings.userHeight.store(1.8F);
  setLocale(u"en_GB"_s);
  Preferences::fillInMissingDefaults();
  EXPECT_EQ(std::pair(Preferences::measure(), Preferences::height()), std::pair(Preferences::metric(), 1.8F));
}

TEST_F(Foundation, ABirthdayIsReadWithAnyOffsetAndWrittenInUtc) {
  const char* const cases[][2] = {{"1980-01-01 00:00:00 +0530", "1979-12-31 18:30:00 +0000"},
                                  {"1979-12-31 16:15:30 -0800", "1980-01-01 00:15:30 +0000"},
                                  // The hour that Berlin's clocks skip is an hour like any other in UTC.
                                  {"2026-03-29 02:30:00 +0000", "2026-03-29 02:30:00 +0000"}};
  for (const auto& [text, written] : cases)
    EXPECT_EQ(Preferences::description(Preferences::dateWithString(QLatin1StringView(text))).toStdString(),
              written);
  settings.userBirthday.store(u"1980-05-05 22:30:00 +0000"_s);
  EXPECT_EQ(Preferences::birthday(), at("1980-05-06T00:30:00"));
  EXPECT_EQ(Preferences::birthday().timeSpec(), Qt::LocalTime);
  for (const char* nonsense : {"", "1980-01-01", "1981-02-29 00:00:00 +0000"})
    EXPECT_FALSE(Preferences::dateWithString(QLatin1StringView(nonsense)).isValid()) << nonsense;
}

TEST_F(Foundation, AFormatIsFilledOnceAndNeverTrusted) {
  const char* const cases[][3] = {
      {"From %@", "%d %@", "From %d %@"}, {"%s%s%n", "x", "x%s%n"}, {"第 %@ 天 100%", "三", "第 三 天 100%"}};
  for (const auto& [format, value, result] : cases)
    EXPECT_EQ(filled(QString::fromUtf8(format), QString::fromUtf8(value)).toStdString(), result);
  EXPECT_EQ(filled(u"%@: %d."_s, {u"%@"_s, u"x"_s, u"y"_s}), u"%@: x."_s);

  // One decimal is rounded as printf rounds it: exact halves go to the even neighbour.
  setLocale(u"de_DE"_s);
  for (const auto& [value, text] :
       {std::pair(99.95, "100.0"), {12.75, "12.8"}, {36.25, "36.2"}, {-1.26, "-1.3"}})
    EXPECT_EQ(oneDecimal(value).toStdString(), text);
}

TEST_F(Foundation, AFileThatFindsNoRoomSaysSo) {
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto usual = signal(SIGXFSZ, SIG_IGN);
  // More than the toolkit holds back, and less.
  for (const auto& [room, size] : {std::pair(rlim_t(40'000), 100'000), {4'000, 10'000}}) {
    const rlimit little{.rlim_cur = room, .rlim_max = before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &little);
    const std::optional<FileError> error = writeWhole(file(u"large"_s), QByteArray(size, 'x'));
    setrlimit(RLIMIT_FSIZE, &before);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->text, file(u"large: "_s) + qt_error_string(EFBIG));
    EXPECT_FALSE(QFile::exists(file(u"large"_s)));
  }
  signal(SIGXFSZ, usual);
}

}  // namespace
}  // namespace sanovia::test
