// Relabelling of each kind of control, and what holds in English.
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>

#include "core/localisation/Language.h"
#include "support/TestHome.h"
#include "ui/controls/Relabelling.h"
#include "ui/controls/SegmentedControl.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

// A layout with one control of each kind.
struct Layout : QWidget {
  Layout() {
    for (const QString& title : {u"Table"_s, u"Charts"_s}) tabs.addTab(new QWidget, title);
    choices.addItems({u"Metric"_s, u"no such key"_s});
    for (const QString& title : {u"Blood"_s, QString(), u"no such key"_s, u"Report"_s})
      segments.addTab(title);
    field.setPlaceholderText(u"Name"_s);
    button.setToolTip(u"no such key"_s);
    button.setAccessibleName(u"Start date"_s);
    menu.addSeparator();
    menu.addMenu(&nested);
    setWindowTitle(u"Preferences"_s);
    keepLanguageKeys(this);
  }
  // Everything that shows.
  std::string shown() const {
    QStringList texts{windowTitle(),       label.text(),     field.text() + field.placeholderText(),
                      button.text(),       button.toolTip(), button.accessibleName(),
                      box.title(),         menu.title(),     item->text(),
                      nested.title(),      deep->text(),     choices.itemText(0),
                      choices.itemText(1), tabs.tabText(0),  tabs.tabText(1)};
    for (int i = 0; i < segments.segmentCount(); ++i) texts.append(segments.labelForSegment(i));
    return texts.join(u'|').toStdString();
  }

  QLabel label{u"Date of birth"_s, this};
  QLineEdit field{this};
  QPushButton button{u"Blood"_s, this};
  QGroupBox box{u"Units"_s, this};
  QComboBox choices{this};
  QMenu menu{u"&File"_s, this};
  QMenu nested{u"Charts"_s, &menu};
  QTabWidget tabs{this};
  SegmentedControl segments{this};
  QAction* item = menu.addAction(u"Quit"_s);
  QAction* deep = nested.addAction(u"Print…"_s);
};

class Relabelling : public TestHome {};

const std::string kEnglish =
    "Preferences|Date of birth|Name|Blood|no such key|Start date|Units|&File|Quit|Charts|Print…|Metric|"
    "no such key|Table|Charts|Blood||no such key|Report";
const std::string kGerman =
    "Einstellungen|Geburtsdatum|Name|Blutwerte|no such key|Startdatum|Maßsystem|&Datei|Beenden|Diagramme|"
    "Drucken…|Metrisch|no such key|Tabelle|Diagramme|Blutwerte||no such key|Bericht";
// Menus alone have no key, so that their titles stay with the first language.
const std::string kSpanishAfterGerman =
    "Preferencias|Fecha de nacimiento|Nombre|Sangre|no such key|Fecha de inicio|Sistema de "
    "medidas|&Datei|Salir|"
    "Diagramme|Imprimir…|Métrico|no such key|Tabla|Gráficos|Sangre||no such key|Informe";

TEST_F(Relabelling, KnowsEveryKindOfControlAgainAndAgain) {
  setLocale(u"de_DE"_s);
  Language::restart();
  Layout layout;
  EXPECT_EQ(layout.shown(), kEnglish) << "until the next posting";
  for (int i = 0; i < 2; ++i) {
    Language::setLanguage(Language::german());
    EXPECT_EQ(layout.shown(), kGerman);
  }
  Language::setLanguage(Language::spanish());
  EXPECT_EQ(layout.shown(), kSpanishAfterGerman);
}

}  // namespace
}  // namespace sanovia::test
