// The sheet in which a person says name, birthday, measure and height. The values themselves are those of
// Preferences: the sheet reads them when it opens and stores them when it is left with OK.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class Preferences;
}

namespace sanovia {

class PreferencesSheet : public QDialog {
  Q_OBJECT

 public:
  explicit PreferencesSheet(QWidget* window);
  ~PreferencesSheet() override;

  Ui::Preferences& outlets() { return *_ui; }

  // Loads the controls from the settings; to be called before the sheet shows. A birthday that was never
  // stored is stored as the picker shows it.
  void checkUserDefaultData();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  // Whether "Metric" is chosen, which need not be what is stored.
  bool isMetric() const;
  QString measure() const;
  void changeMetrics();
  void updateFormatters();
  void showWhyRefused();
  // The sender's tag is 1 for OK, which a height that is not taken holds up.
  void buttonPressed(const QObject* sender);
  void setUpBirthday();

  std::unique_ptr<Ui::Preferences> _ui;
};

}  // namespace sanovia
