#include "application/ExportSheet.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "core/localisation/Language.h"
#include "drawing/Fonts.h"
#include "ui/controls/HouseStyle.h"

namespace sanovia {
namespace {

constexpr int kExportMargin = 24;
constexpr int kExportGap = 14;
constexpr int kExportPixels = 14;
constexpr int kExportHeadingPixels = 20;
constexpr int kExportWidth = 480;

}  // namespace

ExportSheet::ExportSheet(QWidget* window)
    : QDialog(window, Qt::Sheet),
      _format(new QComboBox(this)),
      _days(new QComboBox(this)),
      _person(new QCheckBox(word("export_person"), this)) {
  setWindowModality(Qt::WindowModal);
  setAttribute(Qt::WA_DeleteOnClose);
  setMinimumWidth(kExportWidth);
  setWindowTitle(word("export_heading"));
  auto* heading = new QLabel(word("export_heading"), this);
  auto* form = new QFormLayout(this);
  form->setContentsMargins(kExportMargin, kExportMargin, kExportMargin, kExportMargin);
  form->setSpacing(kExportGap);
  form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  form->addRow(heading);
  _format->addItems({word("export_csv"), word("export_fhir")});
  _format->setAccessibleName(word("export_format"));
  form->addRow(new QLabel(word("export_format"), this), _format);
  _days->addItems({word("export_everything"), word("export_interval")});
  _days->setAccessibleName(word("export_days"));
  form->addRow(new QLabel(word("export_days"), this), _days);
  form->addRow(_person);
  auto* buttons = new QHBoxLayout;
  auto* cancel = new QPushButton(word("Cancel"), this);
  auto* go = new QPushButton(word("Export…"), this);
  buttons->addStretch();
  buttons->addWidget(cancel);
  buttons->addWidget(go);
  form->addRow(buttons);
  dressInHouseStyle(this, kExportPixels);
  heading->setFont(fonts::system(kExportHeadingPixels));
  cancel->setAutoDefault(false);
  go->setDefault(true);
  _person->setEnabled(false);
  connect(_format, &QComboBox::currentIndexChanged, this, [this] { _person->setEnabled(isFhir()); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(go, &QPushButton::clicked, this, &QDialog::accept);
}

bool ExportSheet::isFhir() const { return _format->currentIndex() == 1; }

bool ExportSheet::isIntervalOnly() const { return _days->currentIndex() == 1; }

bool ExportSheet::hasPerson() const { return isFhir() && _person->isChecked(); }

}  // namespace sanovia
