#include "application/ExportSheet.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "core/localisation/Language.h"

namespace sanovia {
namespace {

constexpr int kExportWidth = 480;

}  // namespace

ExportSheet::ExportSheet(QWidget* window)
    : HouseSheet(window),
      _format(new QComboBox(this)),
      _days(new QComboBox(this)),
      _person(new QCheckBox(word("export_person"), this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setMinimumWidth(kExportWidth);
  setHeading(word("export_heading"));
  auto* form = new QFormLayout;
  form->setSpacing(kGap);
  form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  _format->addItems({word("export_csv"), word("export_fhir")});
  _format->setAccessibleName(word("export_format"));
  form->addRow(makeTitle(word("export_format"), _format), _format);
  _days->addItems({word("export_everything"), word("export_interval")});
  _days->setAccessibleName(word("export_days"));
  form->addRow(makeTitle(word("export_days"), _days), _days);
  form->addRow(_person);
  fields()->addLayout(form);
  auto* cancel = new QPushButton(word("Cancel"), this);
  auto* go = new QPushButton(word("Export…"), this);
  finish({cancel, go});
  _person->setEnabled(false);
  connect(_format, &QComboBox::currentIndexChanged, this, [this] { _person->setEnabled(isFhir()); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(go, &QPushButton::clicked, this, &QDialog::accept);
}

bool ExportSheet::isFhir() const { return _format->currentIndex() == 1; }

bool ExportSheet::isIntervalOnly() const { return _days->currentIndex() == 1; }

bool ExportSheet::hasPerson() const { return isFhir() && _person->isChecked(); }

}  // namespace sanovia
