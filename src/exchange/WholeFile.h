// Files that are read and written as a whole, with every failure told.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <variant>

#include "exchange/Exchange.h"

namespace sanovia {

std::variant<QByteArray, ExchangeError> readWhole(const QString& file);

// Replaces the file only when all is written. A new file is open to its owner alone, as the diary is; an
// existing one keeps its permissions.
std::optional<ExchangeError> writeWhole(const QString& file, const QByteArray& bytes);

// Whether both names are of one file that exists.
bool isSameFile(const QString& one, const QString& other);

}  // namespace sanovia
