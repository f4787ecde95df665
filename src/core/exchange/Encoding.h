// The texts of other programs as UTF-8: UTF-8 and UTF-16, each with and without a mark, and what machines of
// Western Europe have written, Windows-1252.
#pragma once

#include <QByteArray>

#include <optional>

namespace sanovia {

// The text without its mark, which may be the very bytes: they must outlive it. Nothing when it is none in
// any of these. UTF-16 and Windows-1252 are taken up to 64 MiB.
std::optional<QByteArray> utf8Of(const QByteArray& bytes);

}  // namespace sanovia
