#include "OpeningStage.h"

#include "ui_BasicChart.h"

#include <plugin/DataStaticsWidget.h>

#include <TalvixWidgets/BaseWidget.h>

#include <QtWidgets/QTabWidget>
#include <QtWidgets/QVBoxLayout>

namespace {

class BareForm : public BaseWidget
{
public:
    BareForm() { m_ui.setupUi(this); }

private:
    Ui::BasicChart m_ui;
};

} // namespace

std::unique_ptr<QWidget> tabHost()
{
    return std::make_unique<DataStaticsWidget>();
}

std::unique_ptr<QWidget> bareForm()
{
    return std::make_unique<BareForm>();
}

std::unique_ptr<QWidget> bareForms()
{
    constexpr int pages = 4;
    auto host = std::make_unique<BaseWidget>();
    auto *column = new QVBoxLayout(host.get());
    auto *tabs = new QTabWidget(host.get());
    column->addWidget(tabs);
    for (int page = 0; page < pages; ++page)
        tabs->addTab(new BareForm, QStringLiteral("Page %1").arg(page + 1));
    // The tab host's form opens on the last tab before the first is chosen, which lays out one page more.
    tabs->setCurrentIndex(pages - 1);
    tabs->setCurrentIndex(0);
    return host;
}
