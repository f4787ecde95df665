#include "core/localisation/StringsFile.h"

#include <QFile>

#include <cstdlib>
#include <memory>
#include <plist/plist.h>

namespace sanovia {
namespace {

struct FreeNode {
  void operator()(void* node) const { plist_free(node); }
};
struct FreeMemory {
  void operator()(void* memory) const { std::free(memory); }
};
using Text = std::unique_ptr<char, FreeMemory>;

QString textOf(plist_t node) {
  char* raw = nullptr;
  plist_get_string_val(node, &raw);
  const Text text(raw);
  return QString::fromUtf8(text.get());
}

QStringList textsOf(plist_t array) {
  QStringList texts;
  for (uint32_t i = 0; i < plist_array_get_size(array); ++i) {
    plist_t item = plist_array_get_item(array, i);
    if (plist_get_node_type(item) == PLIST_STRING) texts.append(textOf(item));
  }
  return texts;
}

// The node in the bytes, null when they hold none. The call that tells the two forms apart by itself does not
// take the same parameters in every version of the library; these do, and the node alone says whether they
// went well.
plist_t parse(const QByteArray& bytes) {
  constexpr qsizetype kShortest = 8;  // the mark at the head of the binary form
  if (bytes.size() < kShortest) return nullptr;
  const auto size = static_cast<uint32_t>(bytes.size());
  plist_t node = nullptr;
  if (plist_is_binary(bytes.constData(), size) != 0)
    plist_from_bin(bytes.constData(), size, &node);
  else
    plist_from_xml(bytes.constData(), size, &node);
  return node;
}

}  // namespace

std::optional<StringsFile> StringsFile::read(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  const std::unique_ptr<void, FreeNode> root(parse(file.readAll()));
  if (plist_get_node_type(root.get()) != PLIST_DICT) return std::nullopt;

  StringsFile table;
  plist_dict_iter rawIterator = nullptr;
  plist_dict_new_iter(root.get(), &rawIterator);
  const std::unique_ptr<void, FreeMemory> iterator(rawIterator);
  while (true) {
    char* rawKey = nullptr;
    plist_t value = nullptr;
    plist_dict_next_item(root.get(), iterator.get(), &rawKey, &value);
    if (value == nullptr) break;
    const Text keyText(rawKey);
    const QString key = QString::fromUtf8(keyText.get());
    if (plist_get_node_type(value) == PLIST_STRING) table._strings.insert(key, textOf(value));
    if (plist_get_node_type(value) == PLIST_ARRAY) table._arrays.insert(key, textsOf(value));
  }
  return table;
}

}  // namespace sanovia
