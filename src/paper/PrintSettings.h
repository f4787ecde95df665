// The paper that is printed on, shared by saving and printing.
#pragma once

#include <QPageSize>

namespace sanovia {

class PrintSettings {
 public:
  // What setPaperSize() said last, else the paper that is usual where LC_PAPER says, or else the user's
  // locale: letter in the Americas and on the Philippines as far as they use it, A4 elsewhere.
  static QPageSize paperSize();
  // An invalid size brings the usual paper back.
  static void setPaperSize(const QPageSize& size);
  // Whether a paper of that size in points, whichever way it lies, has room for documents: the report's days
  // take the width of A4 and the height of Letter.
  static bool hasRoom(const QSizeF& points);
  // The paper of a printer's choice, upright; an empty size, and a paper without room, chooses nothing.
  static void choosePaper(const QSizeF& points);

  PrintSettings() = delete;
};

}  // namespace sanovia
