// The sheet that restores, in the real window: what it says, what it does, and that Cancel does nothing.
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>

#include "application/RestoreSheet.h"
#include "core/backup/Copies.h"
#include "core/foundation/Paths.h"
#include "core/localisation/Language.h"
#include "support/LaunchedHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class Restoring : public LaunchedHome {
 protected:
  Restoring() {
    setLocale(u"de_DE"_s);
    launch();
  }
  RestoreSheet& sheet() { return *delegate->restoreSheet(); }
  QTreeWidget& copies() { return *sheet().findChild<QTreeWidget*>(); }
  void click(const char* key) {
    for (auto* button : sheet().findChildren<QAbstractButton*>())
      if (button->text() == word(key)) button->click();
  }
  bool says(const QString& text) {
    return std::ranges::any_of(sheet().findChildren<QLabel*>(),
                               [&](QLabel* label) { return label->text().contains(text); });
  }
};

TEST_F(Restoring, TheSheetShowsTheCopiesAndBringsOneBack) {
  execute(u"INSERT INTO general (gdate, temperature) VALUES ('2026-11-15', 37.5)"_s);
  delegate->lookAfterCopies();
  EXPECT_EQ(diaryCopies().size(), 1);
  answeredPath = file(u"mine.db"_s);
  delegate->backUp();
  execute(u"UPDATE general SET temperature = 39.5, gdate = '2026-11-14'"_s);
  delegate->restore();
  ASSERT_EQ(copies().topLevelItemCount(), 1);
  EXPECT_EQ(copies().topLevelItem(0)->text(1) + copies().topLevelItem(0)->text(2), u"115/11/2026"_s);
  EXPECT_TRUE(says(u"fehlen: 1"_s));
  click("Cancel");
  EXPECT_EQ(query(u"SELECT gdate FROM general"_s), texts({"2026-11-14"}));
  // The other file's day is taken over; then the copy is back whole, and the views show it.
  delegate->restore();
  click("restore_other");
  click("restore_missing");
  click("restore_do");
  EXPECT_EQ(query(u"SELECT gdate FROM general ORDER BY gdate"_s), texts({"2026-11-14", "2026-11-15"}));
  delegate->restore();
  copies().setCurrentItem(copies().topLevelItem(0));
  click("restore_do");
  EXPECT_EQ(cell(0, 2) + cell(1, 2), u"37.5"_s);
  // What is no diary is refused in its place.
  delegate->restore();
  writeBytes(answeredPath, noise(1, 5000));
  click("restore_other");
  EXPECT_TRUE(says(u"mine.db ist kein"_s));
}

TEST_F(Restoring, ADamagedDiaryOpensTheSheetByItselfAndIsLeftAlone) {
  execute(u"INSERT INTO general (gdate, temperature) VALUES ('2026-11-15', 37.5)"_s);
  delegate->lookAfterCopies();
  const QByteArray harm = noise(7, 9000);
  quit();
  writeBytes(Paths::databaseFile(), harm);
  launch();
  delegate->lookAfterCopies();
  EXPECT_TRUE(sheet().isVisible() && says(u"beschädigt"_s));
  EXPECT_EQ(bytesOf(Paths::databaseFile()), harm);
  click("restore_do");
  EXPECT_EQ(cell(0, 2), u"37.5"_s);
}

}  // namespace
}  // namespace sanovia::test
