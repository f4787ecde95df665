// The commands of AppDelegate that hand on what is seen: the table's rows and the charts' picture.
#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>

#include "application/AppDelegate.h"
#include "application/FileWriting.h"
#include "application/MainWindow.h"
#include "core/dates/Utils.h"
#include "core/localisation/Language.h"
#include "core/preferences/Preferences.h"
#include "ui/charts/ChartsPicture.h"
#include "ui/entry/DayTableModel.h"
#include "ui/entry/MyTableView.h"
#include "ui/entry/TableText.h"
#include "ui_MainWindow.h"

namespace sanovia {
namespace {

// By the numbers of the kinds.
constexpr const char* kKindWords[] = {"General", "Pressure", "Blood"};

}  // namespace

void AppDelegate::copy() {
  const Ui::MainWindow& ui = _window->outlets();
  auto content = std::make_unique<QMimeData>();
  if (ui.chartsScrollView->isHidden()) {
    const MyTableView* table = ui.dataView->getTable();
    const auto lines = tableLines(*table->dayModel(), table->selectedRow());
    content->setText(tabbedText(lines));
    content->setHtml(htmlTable(lines));
  } else {
    content->setImageData(columnImage(*ui.chartsView));
  }
  QGuiApplication::clipboard()->setMimeData(content.release());
}

bool AppDelegate::showsOpenCharts() const {
  const Ui::MainWindow& ui = _window->outlets();
  return !ui.chartsScrollView->isHidden() && hasOpenChart(ui.chartsView->columnPlan());
}

void AppDelegate::saveCharts() {
  ChartsView* charts = _window->outlets().chartsView;
  const QString format = Utils::dateFormatForMetric(Preferences::isMetric());
  const QString kind = word(kKindWords[charts->type()]);
  const QString name = Preferences::name();
  const PictureHeading heading{
      name.isEmpty() ? QGuiApplication::applicationName() : name,
      QStringLiteral("%1, %2 – %3")
          .arg(kind, Utils::convertDate(getStartDate(), format), Utils::convertDate(getEndDate(), format))};
  writeWhereAsked(_window.get(),
                  {.question = {.title = word("Save Charts As…"),
                                .proposedName = kind,
                                .ending = pictureEndings().front(),
                                .furtherEndings = pictureEndings().mid(1)},
                   .write = [charts, heading](const QString& path) -> std::optional<FileError> {
                     const QString ending = QFileInfo(path).suffix().toLower();
                     const QByteArray bytes = pictureBytes(*charts, heading, ending);
                     if (bytes.isEmpty()) return std::nullopt;
                     return writeWhole(path, bytes, kPipePatience);
                   },
                   .failedWord = "charts_not_saved"});
}

}  // namespace sanovia
