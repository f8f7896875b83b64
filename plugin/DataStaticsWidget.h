#pragma once

#include "TalvixDataStaticsGlobal.h"

#include <TalvixWidgets/BaseWidget.h>

namespace Ui {
class DataStaticsWidget;
}

/// Tab widget with four statistics pages: alarms and online state, each by organisation and by device.
///
/// The pages run themselves: each asks the client when it is shown, and again whenever its tab is chosen.
/// Hosts get it from `DataStaticsPlugin::init`.
class TALVIXDATASTATICS_EXPORT DataStaticsWidget : public BaseWidget
{
    Q_OBJECT

public:
    /// What a host may ask for. The widget always shows all its tabs.
    enum DataStaticType : int { Organization = 1, Device = 2, OrganizationOnline = 3, DeviceOnline = 4 };

    explicit DataStaticsWidget(QWidget *parent = nullptr);
    ~DataStaticsWidget() override;

    /// Gives the pages their kinds of statistics and selects the first tab. The constructor does so itself.
    void initForm() override;
    /// Renews the texts of the tabs in the application's language.
    void retranslateUi() override;

    /// Fits the tab bar again. \a type is not looked at: neither tabs nor pages change.
    void setDataStaticType(DataStaticType type);

private:
    void initCustomStyle();

    Ui::DataStaticsWidget *ui;
};
