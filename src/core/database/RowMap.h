// A generic row: a map from column title to value. It keeps the three kinds of value apart and tells an
// absent key from any value. Rows are short, so that a flat list beats a tree or a hash.
#pragma once

#include <QString>

#include <variant>
#include <vector>

namespace sanovia {

// A whole number, a fraction or a text.
using FieldValue = std::variant<qint32, double, QString>;

// The value as a number of the wanted kind: fractions are truncated toward zero and held within the kind's
// range, a text counts as the number it begins with, or 0.
qint32 intValue(const FieldValue& value);
qint64 integerValue(const FieldValue& value);
double doubleValue(const FieldValue& value);
float floatValue(const FieldValue& value);
// The value as a text; a text as it stands.
QString textValue(const FieldValue& value);

class RowMap {
 public:
  struct Entry {
    QString title;
    FieldValue value;
  };

  // Null when the row has no such key. Valid until the next insert(). The place is where the key is likely to
  // be, as in a row read by the column list that now looks into it.
  const FieldValue* find(const QString& title, size_t likelyPlace = 0) const;
  bool contains(const QString& title) const { return find(title) != nullptr; }

  // Adds the key or replaces its value.
  void insert(const QString& title, FieldValue value);

  // Adds a key that is known to be new.
  void append(const QString& title, FieldValue value) { _entries.push_back({title, std::move(value)}); }
  void clear() { _entries.clear(); }
  void reserve(qsizetype count) { _entries.reserve(static_cast<size_t>(count)); }

  bool isEmpty() const { return _entries.empty(); }
  qsizetype size() const { return static_cast<qsizetype>(_entries.size()); }
  auto begin() const { return _entries.begin(); }
  auto end() const { return _entries.end(); }

 private:
  std::vector<Entry> _entries;
};

}  // namespace sanovia
