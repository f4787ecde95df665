// The days as clinics exchange them: a FHIR R4 Bundle of Observations in JSON, with the codes and units of
// the catalogue's rows.
#pragma once

#include <QByteArray>

#include <vector>

#include "core/exchange/DiaryTable.h"

namespace sanovia {

// One Observation for each value of each day; the two pressures of a day are one, with two components, and
// the body mass index is there where a height is set. Whose they are is said only with the person.
QByteArray fhirOf(const std::vector<ExchangeDay>& days, bool withPerson);

}  // namespace sanovia
