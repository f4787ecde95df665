// Relabelling of each kind of control, and what holds in English.
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include "controls/BaseColoredButton.h"
#include "controls/Relabelling.h"
#include "controls/SegmentedControl.h"
#include "localisation/Language.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

// A layout with one control of each kind.
struct Layout : QWidget {
  Layout() {
    tabs.addTab(new QWidget, u"Table"_s);
    tabs.addTab(new QWidget, u"Charts"_s);
    choices.addItems({u"Metric"_s, u"no such key"_s});
    segments.addTab(u"Blood"_s);
    segments.addTab({});
    segments.addTab(u"no such key"_s);
    segments.addTab(u"Report"_s);
    field.setPlaceholderText(u"Name"_s);
    item = menu.addAction(u"Quit"_s);
    menu.addSeparator();
    nested.setTitle(u"Charts"_s);
    nestedItem = nested.addAction(u"Print…"_s);
    menu.addMenu(&nested);
    setWindowTitle(u"Preferences"_s);
    keepLanguageKeys(this);
  }
  // Everything that shows, in one list.
  QStringList shown() const {
    QStringList texts{windowTitle(),   label.text(),   field.text(),        field.placeholderText(),
                      button.text(),   box.title(),    choices.itemText(0), choices.itemText(1),
                      menu.title(),    item->text(),   nested.title(),      nestedItem->text(),
                      tabs.tabText(0), tabs.tabText(1)};
    for (int i = 0; i < segments.segmentCount(); ++i) texts.append(segments.labelForSegment(i));
    return texts;
  }

  QLabel label{u"Date of birth"_s, this};
  QLineEdit field{this};
  BaseColoredButton button{this};
  QGroupBox box{u"Units"_s, this};
  QComboBox choices{this};
  QMenu menu{u"&File"_s, this};
  QMenu nested{&menu};
  QTabWidget tabs{this};
  SegmentedControl segments{this};
  QAction* item;
  QAction* nestedItem;
};

class Relabelling : public TestHome {
 protected:
  void speak(const char* locale) {
    setLocale(QString::fromLatin1(locale));
    Language::restart();
  }
};

const QStringList kEnglish =
    texts({"Preferences", "Date of birth", "", "Name", "", "Units", "Metric", "no such key", "&File", "Quit",
           "Charts", "Print…", "Table", "Charts", "Blood", "", "no such key", "Report"});

TEST_F(Relabelling, KnowsEveryKindOfControl) {
  speak("de_DE");
  Layout layout;
  EXPECT_EQ(layout.shown(), kEnglish) << "until the next posting";
  Language::setLanguage(Language::language());
  const QStringList german = texts({"Einstellungen", "Geburtsdatum", "", "Name", "", "Maßsystem", "Metrisch",
                                    "no such key", "&Datei", "Beenden", "Diagramme", "Drucken…", "Tabelle",
                                    "Diagramme", "Blutwerte", "", "no such key", "Bericht"});
  EXPECT_EQ(layout.shown(), german);
  Language::setLanguage(Language::language());
  EXPECT_EQ(layout.shown(), german);
  // Menus alone have no key, so that their titles stay with the first language.
  Language::setLanguage(Language::spanish());
  EXPECT_EQ(layout.shown(),
            texts({"Preferencias", "Fecha de nacimiento", "", "Nombre", "", "Sistema de medidas", "Métrico",
                   "no such key", "&Datei", "Salir", "Diagramme", "Imprimir…", "Tabla", "Gráficos", "Sangre",
                   "", "no such key", "Informe"}));
  EXPECT_EQ(layout.segments.labelForSegment1(3), u"Report"_s);
  EXPECT_TRUE(layout.segments.labelForSegment1(4).isNull() && layout.segments.labelForSegment1(-1).isNull());
  EXPECT_EQ(layout.item->toolTip(), u"Quit"_s);
  EXPECT_EQ(layout.choices.itemData(0, languageKeyRole).toString(), u"Metric"_s);
}

TEST_F(Relabelling, LeavesALayoutThatWasLoadedInEnglishButForItsTabs) {
  Layout layout;
  Language::setLanguage(Language::german());
  QStringList expected = kEnglish;
  expected[12] = u"Tabelle"_s;
  expected[13] = u"Diagramme"_s;
  EXPECT_EQ(layout.shown(), expected);
  // Items keep their keys in English, too, for whoever relabels their menu.
  walkMenu(&layout.menu);
  EXPECT_EQ(layout.item->text() + layout.nestedItem->text(), u"BeendenDrucken…"_s);
}

TEST_F(Relabelling, RelabelsALateLayoutOnDemand) {
  speak("es_ES");
  Layout layout;
  refreshLanguageInView(&layout);
  EXPECT_EQ(layout.label.text(), u"Fecha de nacimiento"_s);
  EXPECT_EQ(layout.windowTitle(), u"Preferencias"_s);
  EXPECT_EQ(layout.menu.title(), u"&Archivo"_s);
  EXPECT_EQ(layout.tabs.tabText(0), u"Tabla"_s);
}

}  // namespace
}  // namespace sanovia::test
