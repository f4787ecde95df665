// The report as a document: its pages, its texts in every language, what it says of itself, and how it comes
// into its file. Other programs read it here, and each of them must be there.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>

#include "dates/Utils.h"
#include "licensing/Licensing.h"
#include "preferences/Preferences.h"
#include "report/PdfFinish.h"
#include "report/PrintSettings.h"
#include "report/ReportDocument.h"
#include "report/ReportSection.h"
#include "report/SanoviaReport.h"
#include "support/ReportHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class ReportDocuments : public ReportHome {
 protected:
  ReportDocuments() {
    DBManager::sharedInstance();
    set("userName", "Ann Marlow");
    set("userBirthday", "1967-03-05 12:00:00 +0000");
  }
  ~ReportDocuments() override { PrintSettings::setPaperSize({}); }

  static SanoviaReport report(int days, SeriesMode mode = SeriesModeDay) {
    const QDateTime end = Utils::dayEnd(at("2026-11-15T00:00:00"));
    return {Utils::dayStart(end.addDays(1 - days)), end, mode};
  }

  void addGeneral(const char* day) {
    execute(u"INSERT INTO general VALUES (NULL, 0, '%1', 36.5, 2, 1, 71.5)"_s.arg(QLatin1String(day)));
  }
  void addPressure(const char* day) {
    execute(u"INSERT INTO pressure VALUES (NULL, -1, '%1', 121, 82, 67, 39)"_s.arg(QLatin1String(day)));
  }
  void addBlood(const char* day) {
    execute(
        u"INSERT INTO blood VALUES (NULL, -1, '%1', 13.1, 0.7, 18.3, 4.4, 6.9)"_s.arg(QLatin1String(day)));
  }
  void addAll(const char* day) {
    addGeneral(day);
    addPressure(day);
    addBlood(day);
  }

  QString saved(int days) {
    const QString path = file(u"report.pdf"_s);
    QFile::remove(path);
    EXPECT_FALSE(report(days).createReport(path));
    return path;
  }

  static QString outputOf(const QString& tool, const QStringList& arguments) {
    QProcess process;
    process.start(tool, arguments);
    EXPECT_TRUE(process.waitForStarted()) << qPrintable(tool) << " is missing";
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
    return QString::fromUtf8(process.readAllStandardOutput());
  }
  static QString textOf(const QString& pdf, int page = 0) {
    QStringList arguments{pdf, u"-"_s};
    if (page > 0) arguments << u"-f"_s << QString::number(page) << u"-l"_s << QString::number(page);
    return outputOf(u"pdftotext"_s, arguments);
  }
  // "Pages", "Title" and the like.
  static QString infoOf(const QString& pdf, const QString& key) {
    const QRegularExpression line(u'^' + key + u":\\s+(.*)$"_s, QRegularExpression::MultilineOption);
    return line.match(outputOf(u"pdfinfo"_s, {u"-rawdates"_s, u"-l"_s, u"99"_s, pdf})).captured(1);
  }
};

TEST_F(ReportDocuments, EachKindWithRowsHasItsSection) {
  EXPECT_TRUE(report(15).isEmpty());
  EXPECT_EQ(report(15).createReportData(), QByteArray());
  EXPECT_FALSE(report(15).createReport(file(u"none.pdf"_s)));
  EXPECT_FALSE(QFile::exists(file(u"none.pdf"_s)));
  addPressure("2026-11-16");
  EXPECT_TRUE(report(15).isEmpty()) << "a row outside the interval";

  addPressure("2026-11-14");
  const QString alone = textOf(saved(12));
  EXPECT_TRUE(alone.contains(u"Blood pressure"_s));
  EXPECT_FALSE(alone.contains(u"General condition"_s) || alone.contains(u"Blood tests"_s));
  EXPECT_EQ(alone.count(u"- page"_s), 1);

  addAll("2026-11-15");
  set("userHeight", "1.75");
  // Of 15 rows, 7, 12 and 5 stand below the graphs.
  const QString all = saved(15);
  EXPECT_EQ(infoOf(all, u"Pages"_s), u"6"_s);
  const char* const titles[] = {"General condition", "", "Blood pressure", "", "Blood tests", ""};
  for (int page = 1; page <= 6; ++page) {
    const QString text = textOf(all, page);
    EXPECT_TRUE(text.contains(u"- page %1 -"_s.arg(page))) << page;
    EXPECT_EQ(text.contains(u"Ann Marlow"_s), *titles[page - 1] != '\0') << "continuations have no head";
    EXPECT_TRUE(text.contains(QLatin1String(titles[page - 1])));
  }
  EXPECT_EQ(infoOf(saved(5), u"Pages"_s), u"3"_s);
  EXPECT_EQ(infoOf(saved(365), u"Pages"_s), u"24"_s);
}

TEST_F(ReportDocuments, SectionsStandUnderTheirHeads) {
  struct Case {
    qint64 recordType;
    qsizetype days;
    float height;
    double title;
    std::vector<double> graphs;
    double table;
  };
  const Case cases[] = {
      {RecordType::general, 60, 1.75F, 86, {174, 284, 364, 424, 514}, 614},
      {RecordType::general, 61, 1.75F, 86, {134, 244, 324, 384, 474}, 574},
      {RecordType::general, 60, -1, 86, {174, 284, 364, 424}, 524},
      {RecordType::pressure, 60, 1.75F, 86, {174, 264, 354, 444}, 544},
      {RecordType::blood, 60, 1.75F, 100, {188, 278, 368, 458, 548}, 648},
      {RecordType::blood, 61, 1.75F, 100, {148, 238, 328, 418, 508}, 608},
  };
  for (const Case& entry : cases) {
    const QDateTime end = Utils::dayEnd(at("2026-11-15T00:00:00"));
    const DateSeries series(Utils::dayStart(end.addDays(1 - entry.days)), end, SeriesModeDay);
    const ReportSubject subject{series, u"-"_s, tableDates(series.days()), u"Ann"_s, {}, entry.height, false};
    const ReportSection section =
        reportSection(entry.recordType, subject, context(static_cast<size_t>(entry.days)));
    const QList<double> lines{30, 30, 44, 58, 58, entry.title};
    ASSERT_EQ(std::ssize(section.head), lines.size());
    for (size_t i = 0; i < section.head.size(); ++i)
      EXPECT_EQ(section.head[i].at.y(), lines[static_cast<qsizetype>(i)]) << i;
    ASSERT_EQ(section.graphs.size(), entry.graphs.size());
    for (size_t i = 0; i < entry.graphs.size(); ++i)
      EXPECT_EQ(section.graphs[i].title.at, QPointF(30, entry.graphs[i]));
    EXPECT_EQ(section.table[0].rules[0].y1(), entry.table);
  }
  EXPECT_EQ(pageFooter(7, _text).at.y(), 750);
}

TEST_F(ReportDocuments, ContinuationsHaveTheSizeOfThePaper) {
  addGeneral("2026-11-15");
  const QString letter = u"612 x 792 pts"_s;
  const QString a4 = u"595 x 842 pts"_s;
  const auto sizes = [this](const QByteArray& bytes) {
    const QString path = file(u"sizes.pdf"_s);
    writeBytes(path, bytes);
    return infoOf(path, u"Page +1 size"_s).left(13) + u", "_s + infoOf(path, u"Page +2 size"_s).left(13);
  };
  const auto savedBytes = [this] { return bytesOf(saved(30)); };
  EXPECT_EQ(sizes(savedBytes()), letter + u", "_s + letter) << "the usual paper of the locale";
  setLocale(u"de_DE"_s);
  EXPECT_EQ(sizes(savedBytes()), letter + u", "_s + a4);
  EXPECT_EQ(sizes(report(30).createReportData()), a4 + u", "_s + a4);
  PrintSettings::setPaperSize(QPageSize(QPageSize::Letter));
  EXPECT_EQ(sizes(report(30).createReportData()), letter + u", "_s + letter);
}

TEST_F(ReportDocuments, ValuesAreWrittenBelow100Days) {
  const std::pair<const char*, const char*> ends[] = {{"2026-11-15", "in winter"},
                                                      {"2026-04-15", "across a day of 23 hours"},
                                                      {"2026-10-28", "across a day of 25 hours"}};
  for (const auto& [end, when] : ends) {
    const QDateTime last = Utils::dayEnd(QDate::fromString(QLatin1String(end), Qt::ISODate).startOfDay());
    const auto with = [&](int days) {
      return SanoviaReport(Utils::dayStart(last.addDays(1 - days)), last, SeriesModeDay).drawText();
    };
    EXPECT_TRUE(with(99)) << when;
    EXPECT_FALSE(with(100)) << when;
  }
}

TEST_F(ReportDocuments, EveryWordAndValueIsFoundInEveryLanguage) {
  addAll("2026-11-15");
  set("userHeight", "1.75");
  for (const QString& locale : {u"en_US"_s, u"ru_RU"_s, u"de_DE"_s, u"es_ES"_s, u"zh_CN"_s}) {
    SCOPED_TRACE(qPrintable(locale));
    setLanguage(locale);
    set("userName", locale == u"zh_CN"_s ? "金龙飞" : "Jörg Affeltranger");
    const QString pdf = saved(100);
    const QString text = textOf(pdf);
    QStringList words =
        texts({"reportGl",   "reportPr",   "reportBd", "nameR",   "yearR",       "timeframeR", "temperature",
               "well-being", "appetite",   "weight",   "bmi",     "systolic",    "diastolic",  "pulse",
               "ppulse",     "hemoglobin", "cprText",  "espText", "albuminText", "wbcText"});
    for (QString& word : words) word = Language::stringForKey(word);
    words += Language::arrayForKey(u"general_array1"_s) + Language::arrayForKey(u"fistula_array"_s);
    words += texts({"15/11/2026", "36.5", "71.5", "23.3", "121.0", "82.0", "67.0", "39.0", "13.1", "0.7",
                    "18.3", "4.4", "6.9", "05/03/1967"});
    words.append(Preferences::name());
    words.append(u"08/08/2026 - 15/11/2026"_s);
    for (const QString& word : words) EXPECT_TRUE(text.contains(word)) << qPrintable(word);
    EXPECT_EQ(text.contains(u"月"_s), locale == u"zh_CN"_s) << "the months of the strip";
    EXPECT_FALSE(bytesOf(pdf).contains("<0009>")) << "a space is no tab";
    EXPECT_FALSE(text.contains(QRegularExpression(u"[\\t\\x{2E80}-\\x{2FDF}\\x{FB00}-\\x{FB06}]"_s)));

    EXPECT_EQ(infoOf(pdf, u"Title"_s), Language::stringForKey(u"Report"_s) + u" 08/08/2026 - 15/11/2026"_s);
    EXPECT_EQ(infoOf(pdf, u"Subject"_s), words.mid(0, 3).join(u", "_s));
    outputOf(u"qpdf"_s, {u"--check"_s, pdf});
    const QStringList fonts = outputOf(u"pdffonts"_s, {pdf}).split(u'\n', Qt::SkipEmptyParts).mid(2);
    EXPECT_GE(fonts.size(), 2);
    for (const QString& font : fonts)
      EXPECT_TRUE(font.contains(u"yes yes yes"_s)) << "embedded, subset, with signs: " << qPrintable(font);
    EXPECT_EQ(outputOf(u"pdfimages"_s, {u"-list"_s, pdf}).count(u'\n'), 2) << "no images";
  }
}

TEST_F(ReportDocuments, TheSameDiaryGivesTheSameBytesButForTheDate) {
  addAll("2026-11-15");
  const QByteArray first = report(31).createReportData();
  EXPECT_TRUE(first.contains("/CreationDate (D:20261115120000+01'00')"));
  EXPECT_EQ(report(31).createReportData(), first);
  setNow(u"2026-07-01T09:30:05"_s);
  QByteArray later = report(31).createReportData();
  EXPECT_EQ(later.replace("D:20260701093005+02'00'", "D:20261115120000+01'00'"), first);
}

TEST_F(ReportDocuments, BytesOfAnotherMakeAreLeftAlone) {
  addGeneral("2026-11-15");
  const QByteArray pdf = report(1).createReportData();
  const DocumentInfo info{u"title"_s, u"subject"_s, u"en"_s, at("2026-11-15T12:00:00")};
  QByteArray wrongTable = pdf;
  wrongTable.replace(pdf.lastIndexOf("startxref\n") + 10, 2, "99");
  QByteArray wrongPlace = pdf;
  wrongPlace.replace(pdf.lastIndexOf("\nxref\n") + 34, 10, "9999999999");
  for (const QByteArray& bytes : {QByteArray(), QByteArray("%PDF-1.4\nstartxref\n0\n%%EOF\n"), noise(5, 9999),
                                  pdf.chopped(20), wrongTable, wrongPlace})
    EXPECT_EQ(finishedPdf(bytes, info, {}), bytes);
}

TEST_F(ReportDocuments, TheHeadLeavesOutWhatIsNotKnown) {
  addGeneral("2026-11-15");
  EXPECT_TRUE(
      textOf(saved(1)).contains(u"Name: Ann Marlow\nDate of birth: 05/03/1967\nPeriod: 15/11/2026"_s));
  setMeasure("US");
  EXPECT_TRUE(textOf(saved(1)).contains(u"Date of birth: 03/05/1967\nPeriod: 15/11/2026"_s));
  SettingsStore::standard().remove(u"userName"_s);
  set("userBirthday", "never");
  EXPECT_TRUE(textOf(saved(1)).contains(u"Name:\nDate of birth:\nPeriod: 15/11/2026"_s));
}

TEST_F(ReportDocuments, ATrialCopySaysSoOnEveryPage) {
  addGeneral("2026-11-15");
  const QString mark = Language::stringForKey(u"trialversion"_s);
  const QString title = Language::stringForKey(u"reportGl"_s) + Language::stringForKey(u"trial"_s);
  // Letter by letter, since it lies aslant; after everything else of its page.
  const auto ends = [](const QString& pdf, int page) {
    QString text = outputOf(u"pdftotext"_s, {u"-raw"_s, u"-f"_s, QString::number(page), u"-l"_s,
                                             QString::number(page), pdf, u"-"_s});
    return text.remove(QRegularExpression(u"\\s"_s)).section(u'-', -1);
  };
  EXPECT_EQ(ends(saved(30), 1), QString());
  Licensing::setTrial(true);
  const QString pdf = saved(30);
  EXPECT_TRUE(textOf(pdf, 1).contains(title));
  for (const int page : {1, 2}) EXPECT_EQ(ends(pdf, page), mark) << page;
}

TEST_F(ReportDocuments, WeeksAndMonthsShowMeans) {
  execute(u"INSERT INTO blood VALUES (NULL, -1, '2026-11-02', 12, 1, 20, 4, 6)"_s);
  execute(u"INSERT INTO blood VALUES (NULL, -1, '2026-11-04', 13, 2, 30, 5, 7)"_s);
  writeBytes(file(u"month.pdf"_s), report(15, SeriesModeMonth).createReportData());
  const QString text = textOf(file(u"month.pdf"_s));
  for (const char* mean : {"12.5", "1.5", "25.0", "4.5", "6.5", "01/11/2026"})
    EXPECT_TRUE(text.contains(QLatin1String(mean))) << mean;
}

TEST_F(ReportDocuments, AFailureLeavesTheOldFile) {
  addGeneral("2026-11-15");
  const QString folder = file(u"folder"_s);
  QDir().mkpath(folder);
  for (const QString& path : {folder, file(u"missing/report.pdf"_s)}) {
    const auto error = report(1).createReport(path);
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->text.startsWith(path));
    EXPECT_EQ(takeLog().size(), 1);
  }
  EXPECT_TRUE(QDir(folder).isEmpty());
  const QString path = saved(1);
  const QByteArray before = bytesOf(path);
  EXPECT_FALSE(report(2).createReport(path));
  EXPECT_NE(bytesOf(path), before);
  EXPECT_TRUE(bytesOf(path).startsWith("%PDF-"));
}

}  // namespace
}  // namespace sanovia::test
