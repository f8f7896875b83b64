#pragma once

#include <TalvixWidgets/ZrDialog.h>

namespace Ui {
class TempResultExportWidget;
}

/// Asks how temperature results are to be exported.
class TempResultExportWidget : public ZrDialog
{
    Q_OBJECT

public:
    explicit TempResultExportWidget(QWidget *parent);
    ~TempResultExportWidget() override;

    void initForm() override;
    void retranslateUi() override;

    using ZrDialog::showZrDialog;

    /// 0 for PDF, 1 for Excel.
    int getExportMode() const;

Q_SIGNALS:
    /// The dialog was closed: 1 confirmed, 0 dismissed.
    void signalConfirm(int p_nDialogCode = 1);

public Q_SLOTS:
    void on_pushButtonOK_clicked();
    void on_pushButtonClose_clicked();
    void on_pushButtonCancel_clicked();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void dismiss();

    Ui::TempResultExportWidget *ui;
};
