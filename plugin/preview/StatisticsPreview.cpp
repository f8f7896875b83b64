#include "StatisticsPreview.h"

#include "page/BasicChart.h"
#include "page/ServiceTypes.h"

#include <TalvixWidgets/ZrLoaddingWidget.h>

namespace {

constexpr int kindWithTree = 1;

/// A page of a kind that loads no organisation tree by itself. It takes the tree in as a kind that has one
/// and goes on as its own.
class TreelessPage : public BasicChart
{
public:
    explicit TreelessPage(QWidget *parent)
        : BasicChart(parent, kindWithTree)
    { }

    void doAfterWidgetShow() override
    {
        if (m_bFirstShow) {
            startAtFirstShow();
            m_bFirstShow = false;
        }
        ZrLoaddingWidget loading(this, Qt::NonModal);
        loading.start(0);
        loadTreeAndSearch();
    }

    void retranslateUi() override
    {
        m_tipsMuted = true;
        BasicChart::retranslateUi();
        m_tipsMuted = false;
        if (isVisible())
            loadTreeAndSearch();
    }

    void setTips(const QString &text, const int &kind) override
    {
        if (!m_tipsMuted)
            BasicChart::setTips(text, kind);
    }

private:
    void loadTreeAndSearch()
    {
        const int kind = m_serviceType;
        setServiceType(kindWithTree);
        const bool loaded = slotOrgaInfoLoad();
        setServiceType(kind);
        if (!loaded)
            return;
        slotSearch();
        updateChartOverlays();
        on_pushButtonDesc_clicked();
    }

    bool m_tipsMuted = false;
};

} // namespace

BaseWidget *createStatisticsPage(int serviceType, QWidget *parent)
{
    const bool treeLoaded =
        BasicChart::ServiceTypeRow::of(serviceType).has(BasicChart::ServiceTypeRow::HasTree);
    BasicChart *page = treeLoaded ? new BasicChart(parent, kindWithTree) : new TreelessPage(parent);
    page->setServiceType(serviceType);
    return page;
}
