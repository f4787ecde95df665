// What `--help` says, with the columns as they stand in the catalogue.
#pragma once

#include <QString>

namespace sanovia {

QString helpText();

}  // namespace sanovia
