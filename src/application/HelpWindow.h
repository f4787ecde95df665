// The window of the help: pages of our own, in the language in force, with links between them.
#pragma once

#include <QUrl>
#include <QWidget>

class QPushButton;
class QTextBrowser;

namespace sanovia {

class HelpWindow : public QWidget {
  Q_OBJECT

 public:
  HelpWindow();

  // The page "main.html" of the language, or the English one where the language has none; empty when there is
  // no such page at all.
  static QString mainPage();

  // Opens the page and brings the window to the front.
  void openPage(const QString& path);
  QTextBrowser* browser() const { return _browser; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QTextBrowser* _browser;
  QPushButton* _back;
  QPushButton* _contents;
};

}  // namespace sanovia
