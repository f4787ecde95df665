#include "SampleDiary.h"

#include <span>
#include <vector>

#include "core/exchange/Columns.h"
#include "core/exchange/DiaryTable.h"

namespace sanovia {
namespace {

// All values are whole numbers of their smallest step, so that no rounding of a machine shows. A day is known
// by how many days before the last one it lies.
constexpr int kFirst = kSampleDays - 1;
constexpr int kHolidayBegins = 196;
constexpr int kHolidayEnds = 183;
constexpr int kLivelyDays = 14;
constexpr int kBloodEvery = 28;
constexpr int kBloodPhase = 14;
constexpr int kBloodAfterFever = 29;

struct FeverDay {
  int ago;
  int temperature;  // tenths of a degree
  int wellbeing;
  int appetite;
};

constexpr FeverDay kFever[] = {
    {38, 372, 2, 1}, {37, 381, 1, 0}, {36, 389, 0, 0}, {35, 394, 0, 0},
    {34, 388, 0, 0}, {33, 380, 1, 0}, {32, 374, 1, 1}, {31, 370, 2, 1},
};

// What the noise is for, so that the values of a day do not move together.
enum Channel : quint32 {
  Missing,
  Parts,
  Temperature,
  Wellbeing,
  Appetite,
  Weight,
  Systolic,
  Diastolic,
  Pulse,
  Blood0
};

quint32 noise(Channel channel, int ago) {
  quint32 hash = static_cast<quint32>(ago) * 0x9E3779B1U + static_cast<quint32>(channel) * 0x85EBCA77U;
  hash = (hash ^ (hash >> 15U)) * 0x2C1B3C6DU;
  hash = (hash ^ (hash >> 12U)) * 0x297A2D39U;
  return hash ^ (hash >> 15U);
}

// Between -spread and spread, both included.
int swing(Channel channel, int ago, int spread) {
  return static_cast<int>(noise(channel, ago) % static_cast<quint32>(2 * spread + 1)) - spread;
}

bool happens(Channel channel, int ago, quint32 onceIn) { return noise(channel, ago) % onceIn == 0; }

// On the straight line from the first day's value to the last day's.
int trend(int first, int last, int ago) { return last + (first - last) * ago / kFirst; }

const FeverDay* feverOn(int ago) {
  for (const FeverDay& day : kFever)
    if (day.ago == ago) return &day;
  return nullptr;
}

bool hasBloodTest(int ago) { return ago % kBloodEvery == kBloodPhase || ago == kBloodAfterFever; }

bool hasEntries(int ago) {
  if (ago <= kHolidayBegins && ago >= kHolidayEnds) return false;
  const bool isKept = ago == kFirst || ago < kLivelyDays || feverOn(ago) != nullptr || hasBloodTest(ago);
  return isKept || !happens(Missing, ago, 17);
}

class SampleDay {
 public:
  SampleDay(QDate lastDay, int ago) : _ago(ago), _day(lastDay.addDays(-ago).toString(Qt::ISODate)) {
    // Days in the middle are not always filled in whole.
    const bool isWhole = ago == kFirst || ago < kLivelyDays || feverOn(ago) != nullptr;
    setGeneral(isWhole || !happens(Parts, ago, 4));
    if (isWhole || !happens(Parts, ago, 7)) setPressure();
    if (hasBloodTest(ago)) setBlood();
  }

  const ExchangeDay& day() const { return _day; }

 private:
  void set(const char* column, int value, int steps = 1) {
    if (const auto place = exchangePlace(QString::fromLatin1(column)))
      _day.values[*place] = static_cast<double>(value) / steps;
  }

  void setGeneral(bool withWeight) {
    const FeverDay* fever = feverOn(_ago);
    const bool isLively = _ago < kLivelyDays;
    const int usual = _ago > kFirst * 2 / 3 ? 1 : 2;
    const int mood =
        usual + (happens(Wellbeing, _ago, isLively ? 2 : 4) ? swing(Wellbeing, _ago + 1000, 1) : 0);
    set("temperature", fever != nullptr ? fever->temperature : 366 + swing(Temperature, _ago, 3), 10);
    set("wellbeing", fever != nullptr ? fever->wellbeing : mood);
    set("appetite", fever != nullptr ? fever->appetite : happens(Appetite, _ago, isLively ? 4 : 7) ? 0 : 1);
    if (!withWeight) return;
    const int lost = fever != nullptr ? 9 : 0;
    set("weight", trend(840, 780, _ago) - lost + swing(Weight, _ago, 3), 10);
  }

  void setPressure() {
    const FeverDay* fever = feverOn(_ago);
    const int spread = _ago < kLivelyDays ? 6 : 4;
    const int systolic = trend(148, 124, _ago) + swing(Systolic, _ago, spread);
    const int diastolic = trend(94, 81, _ago) + swing(Diastolic, _ago, spread - 1);
    const int raised = fever != nullptr ? fever->temperature - 366 : 0;
    set("systolic", systolic);
    set("diastolic", diastolic);
    set("pulse", trend(76, 68, _ago) + raised + swing(Pulse, _ago, spread));
    set("ppressure", systolic - diastolic);
  }

  void setBlood() {
    // The fever still shows a week later and a little after three.
    const int fever = _ago == kBloodAfterFever ? 8 : _ago == kBloodPhase ? 1 : 0;
    set("hemoglobin", trend(118, 143, _ago) + swing(Blood0, _ago, 2), 10);
    set("crp", 4 + fever * 5 + swing(Blood0, _ago + 1000, 2), 10);
    set("esr", 13 + fever * 4 + swing(Blood0, _ago + 2000, 3));
    set("albumin", trend(40, 44, _ago) - fever + swing(Blood0, _ago + 3000, 1), 10);
    set("wbc", 65 + fever * 6 + swing(Blood0, _ago + 4000, 6), 10);
  }

  int _ago;
  ExchangeDay _day;
};

}  // namespace

QByteArray sampleDiary(QDate lastDay) {
  std::vector<ExchangeDay> days;
  for (int ago = kFirst; ago >= 0; --ago)
    if (hasEntries(ago)) days.push_back(SampleDay(lastDay, ago).day());
  return csvOf(days);
}

}  // namespace sanovia
