// The hand-run session of the about panel. While it runs, any key and any click outside the panel's one strip
// close the panel; left alone it closes by itself after four to five seconds. A click in the strip is the
// panel's and does not put that moment off.
#pragma once

#include <QDateTime>
#include <QEventLoop>
#include <QObject>
#include <QTimer>

namespace sanovia {

class AboutPanel;

class AboutSession : public QObject {
  Q_OBJECT

 public:
  explicit AboutSession(AboutPanel* panel);
  ~AboutSession() override;

  // Shows the panel in the middle of the window's screen and returns when it is gone.
  void run();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void wait();
  void waitedInVain();
  bool isInStrip(const QWidget* widget, const QPoint& point) const;
  bool clicked(const QWidget* widget, const QPoint& point);

  AboutPanel* _panel;
  QEventLoop _loop;
  QTimer _quiet;
  QDateTime _firstQuiet;  // invalid before the first wait that ended without an event
};

}  // namespace sanovia
