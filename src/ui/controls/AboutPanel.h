// The about panel: a frameless card with rounded corners that can take the keyboard. What closes it is the
// business of whoever shows it.
#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class AboutPanel;
}

namespace sanovia {

class AboutPanel : public QWidget {
  Q_OBJECT

 public:
  explicit AboutPanel(QWidget* window = nullptr);
  ~AboutPanel() override;

  // The one strip that takes clicks.
  QRect clickStrip() const;

 signals:
  // The strip's wish to see the folder in which the diary lies.
  void folderWanted();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  std::unique_ptr<Ui::AboutPanel> _ui;
};

}  // namespace sanovia
