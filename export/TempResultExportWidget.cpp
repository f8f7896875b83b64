#include "TempResultExportWidget.h"

#include "page/Codes.h"
#include "page/Texts.h"
#include "ui_TempResultExportWidget.h"

#include <TalvixWidgets/AppStyleHelper.h>

#include <QtGui/QCloseEvent>

TempResultExportWidget::TempResultExportWidget(QWidget *parent)
    : ZrDialog(parent, Qt::Dialog)
    , ui(new Ui::TempResultExportWidget)
{
    ui->setupUi(this);
    TempResultExportWidget::initForm();
}

TempResultExportWidget::~TempResultExportWidget()
{
    delete ui;
}

void TempResultExportWidget::initForm()
{
    ui->radioButtonPDF->setChecked(true);
    AppStyleHelper::updateWidgetStyle(ui->pushButtonOK, AppStyleHelper::ConfirmButton);
    AppStyleHelper::updateWidgetStyle(ui->pushButtonCancel, AppStyleHelper::CancelButton);
    retranslateUi();
}

void TempResultExportWidget::retranslateUi()
{
    ui->labelTitle->setText(Texts::sentence("TK_Export"));
    ui->labelMode->setText(Texts::sentence("TK_ExportMode"));
    ui->radioButtonExcel->setText(Texts::sentence("Excel"));
    ui->radioButtonPDF->setText(Texts::sentence("PDF"));
    ui->pushButtonOK->setText(Texts::sentence("TK_OK"));
    ui->pushButtonCancel->setText(Texts::button("TK_Cancel"));
    ui->pushButtonClose->setToolTip(Texts::sentence("TK_Close"));
}

int TempResultExportWidget::getExportMode() const
{
    return ui->radioButtonPDF->isChecked() ? Codes::Pdf : Codes::Excel;
}

void TempResultExportWidget::on_pushButtonOK_clicked()
{
    closeZrDialog();
    Q_EMIT signalConfirm(Codes::Confirmed);
}

void TempResultExportWidget::on_pushButtonClose_clicked()
{
    dismiss();
}

void TempResultExportWidget::on_pushButtonCancel_clicked()
{
    dismiss();
}

void TempResultExportWidget::dismiss()
{
    closeZrDialog();
    Q_EMIT signalConfirm(Codes::Dismissed);
}

// The window manager's close must answer as the close button does: somebody is waiting for it.
void TempResultExportWidget::closeEvent(QCloseEvent *event)
{
    ZrDialog::closeEvent(event);
    if (event->spontaneous() && isVisible())
        dismiss();
}
