// The report as a document: its pages, its texts in every language, what it says of itself, and how it comes
// into its file. Other programs read it here, and each of them must be there.
#include <QFile>
#include <QProcess>
#include <QRegularExpression>

#include "core/dates/Utils.h"
#include "core/preferences/Preferences.h"
#include "paper/PrintSettings.h"
#include "report/ReportSection.h"
#include "report/SanoviaReport.h"
#include "support/ReportHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class PaperDocuments : public ReportHome {
 protected:
  PaperDocuments() {
    DBManager::sharedInstance();
    set(settings.userName, "Ann Marlow");
    set(settings.userBirthday, "1967-03-05 12:00:00 +0000");
  }
  ~PaperDocuments() override { PrintSettings::setPaperSize({}); }

  static SanoviaReport report(int days) {
    const QDateTime end = Utils::dayEnd(at("2026-11-15T00:00:00"));
    return {Utils::dayStart(end.addDays(1 - days)), end, SeriesModeDay};
  }

  void add(const char* values) { execute(u"INSERT INTO "_s + QLatin1String(values)); }
  void addGeneral() { add("general VALUES (NULL, 0, '2026-11-15', 36.5, 2, 1, 71.5)"); }
  void addPressure(const char* day = "2026-11-15") {
    execute(u"INSERT INTO pressure VALUES (NULL, -1, '%1', 121, 82, 67, 39)"_s.arg(QLatin1String(day)));
  }
  void addAll() {
    addGeneral();
    addPressure();
    add("blood VALUES (NULL, -1, '2026-11-15', 13.1, 0.7, 18.3, 4.4, 6.9)");
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
  // Of one page, or of all.
  static QString textOf(const QString& pdf, int page = 0) {
    const QString last = QString::number(page > 0 ? page : 99);
    return outputOf(u"pdftotext"_s,
                    {u"-nopgbrk"_s, u"-f"_s, QString::number(page), u"-l"_s, last, pdf, u"-"_s});
  }
  // "Pages", "Title" and the like.
  static QString infoOf(const QString& pdf, const QString& key) {
    const QRegularExpression line(u'^' + key + u":\\s+(.*)$"_s, QRegularExpression::MultilineOption);
    return line.match(outputOf(u"pdfinfo"_s, {u"-rawdates"_s, u"-l"_s, u"99"_s, pdf})).captured(1);
  }
};

TEST_F(PaperDocuments, EachKindWithRowsHasItsSection) {
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

  addAll();
  settings.userHeight.store(1.75F);
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

TEST_F(PaperDocuments, SectionsStandUnderTheirHeads) {
  const struct {
    qint64 recordType, days;
    float height;
    std::vector<double> ys;  // of the title, the graphs and the table
  } cases[] = {
      {RecordType::general, 60, 1.75F, {86, 174, 284, 364, 424, 514, 614}},
      {RecordType::general, 61, 1.75F, {86, 134, 244, 324, 384, 474, 574}},
      {RecordType::general, 60, -1, {86, 174, 284, 364, 424, 524}},
      {RecordType::pressure, 60, 1.75F, {86, 174, 264, 354, 444, 544}},
      {RecordType::blood, 60, 1.75F, {100, 188, 278, 368, 458, 548, 648}},
  };
  for (const auto& [recordType, days, height, ys] : cases) {
    const QDateTime end = Utils::dayEnd(at("2026-11-15T00:00:00"));
    const DateSeries series(Utils::dayStart(end.addDays(1 - days)), end, SeriesModeDay);
    const ReportSubject subject{series, u"-"_s, tableDates(series.days()), u"Ann"_s, {}, {-1, height}, false};
    const ReportSection section = reportSection(recordType, subject, context(static_cast<size_t>(days)));
    std::vector<double> found;
    for (const TextMark& line : section.head) found.push_back(line.at.y());
    for (const Graph& graph : section.graphs) found.push_back(graph.title.at.y());
    found.push_back(section.table[0].rules[0].y1());
    std::vector<double> expected{30, 30, 44, 58, 58};
    expected.insert(expected.end(), ys.begin(), ys.end());
    EXPECT_EQ(found, expected);
  }
  EXPECT_EQ(pageFooter(7, _text).at.y(), 750);
}

TEST_F(PaperDocuments, ContinuationsHaveTheSizeOfThePaper) {
  addGeneral();
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

TEST_F(PaperDocuments, ValuesAreWrittenBelow100Days) {
  // In winter, across a day of 23 hours and across one of 25.
  for (const char* end : {"2026-11-15T00:00:00", "2026-04-15T00:00:00", "2026-10-28T00:00:00"}) {
    const QDateTime last = Utils::dayEnd(at(end));
    const auto hasValues = [&](int days) {
      return SanoviaReport(Utils::dayStart(last.addDays(1 - days)), last, SeriesModeDay).drawText();
    };
    EXPECT_TRUE(hasValues(99) && !hasValues(100)) << end;
  }
}

TEST_F(PaperDocuments, EveryWordAndValueIsFoundInEveryLanguage) {
  addAll();
  settings.userHeight.store(1.75F);
  for (const QString& locale : {u"en_US"_s, u"ru_RU"_s, u"de_DE"_s, u"es_ES"_s, u"zh_CN"_s}) {
    SCOPED_TRACE(qPrintable(locale));
    setLanguage(locale);
    set(settings.userName, locale == u"zh_CN"_s ? "金龙飞" : "Jörg Affeltranger");
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
    EXPECT_FALSE(
        text.contains(QRegularExpression(u"[\\t\\x{FFFD}\\x{2E80}-\\x{2FDF}\\x{FB00}-\\x{FB06}]"_s)));

    EXPECT_EQ(infoOf(pdf, u"Title"_s), Language::stringForKey(u"Report"_s) + u" 08/08/2026 - 15/11/2026"_s);
    EXPECT_EQ(infoOf(pdf, u"Subject"_s), words.mid(0, 3).join(u", "_s));
    const QString fonts = outputOf(u"pdffonts"_s, {pdf});
    EXPECT_EQ(fonts.count(u"yes yes yes"_s), fonts.count(u'\n') - 2) << "embedded, subset, with signs";
  }
}

TEST_F(PaperDocuments, SaysOfItselfTheSameTwiceAndInTheSameBytes) {
  addAll();
  set(settings.userName, "Ann & <Bob>");
  for (const auto& [place, pdfOffset, isoOffset] :
       {std::tuple("Asia/Kolkata", "+05'30'", "+05:30"), {"America/St_Johns", "-03'30'", "-03:30"}}) {
    const ScopedZone zone(place);
    setNow(u"2026-11-15T12:00:00"_s);
    const QString pdf = saved(15);
    EXPECT_EQ(infoOf(pdf, u"CreationDate"_s), u"D:20261115120000"_s + QLatin1String(pdfOffset));
    const QString xmp = outputOf(u"pdfinfo"_s, {u"-meta"_s, pdf});
    EXPECT_TRUE(xmp.contains(u"<xmp:CreateDate>2026-11-15T12:00:00%1<"_s.arg(QLatin1String(isoOffset))));
    for (const QString& key : {u"Title"_s, u"Subject"_s, u"Creator"_s, u"Producer"_s})
      EXPECT_TRUE(xmp.contains(u'>' + infoOf(pdf, key) + u'<')) << qPrintable(key);
    const QByteArray bytes = bytesOf(pdf);
    EXPECT_EQ(bytesOf(saved(15)), bytes);
    // Readers mend a document whose table of objects lies elsewhere without a word.
    const QByteArray end = bytes.mid(bytes.lastIndexOf("startxref\n") + 10);
    EXPECT_EQ(bytes.mid(end.first(end.indexOf('\n')).toLongLong(), 5), "xref\n");
  }
}

TEST_F(PaperDocuments, TheHeadLeavesOutWhatIsNotKnown) {
  addGeneral();
  EXPECT_TRUE(
      textOf(saved(1)).contains(u"Name: Ann Marlow\nDate of birth: 05/03/1967\nPeriod: 15/11/2026"_s));
  setMeasure("US");
  EXPECT_TRUE(textOf(saved(1)).contains(u"Date of birth: 03/05/1967\nPeriod: 15/11/2026"_s));
  settings.userName.remove();
  set(settings.userBirthday, "never");
  EXPECT_TRUE(textOf(saved(1)).contains(u"Name:\nDate of birth:\nPeriod: 15/11/2026"_s));
}

TEST_F(PaperDocuments, AFailureLeavesTheOldFile) {
  addGeneral();
  const QString path = saved(1);
  const QByteArray before = bytesOf(path);
  const QString missing = file(u"missing/report.pdf"_s);
  const auto error = report(1).createReport(missing);
  ASSERT_TRUE(error);
  EXPECT_TRUE(error->text.startsWith(missing));
  EXPECT_EQ(takeLog().size(), 1);
  EXPECT_FALSE(report(2).createReport(path));
  EXPECT_NE(bytesOf(path), before);
}

}  // namespace
}  // namespace sanovia::test
