// One "strings.plist": a dictionary of texts and of lists of texts, held as plain maps. Values of any other
// kind are left out.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

namespace sanovia {

class StringsFile {
 public:
  // Nothing when the file cannot be read or is no property list with a dictionary at its root.
  static std::optional<StringsFile> read(const QString& path);

  QString string(const QString& key) const { return _strings.value(key); }
  QStringList array(const QString& key) const { return _arrays.value(key); }

  const QHash<QString, QString>& strings() const { return _strings; }
  const QHash<QString, QStringList>& arrays() const { return _arrays; }

 private:
  QHash<QString, QString> _strings;
  QHash<QString, QStringList> _arrays;
};

}  // namespace sanovia
