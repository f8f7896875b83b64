#include "page/BasicChart.h"
#include "page/Codes.h"
#include "page/Texts.h"

#include <TalvixWidgets/AppTranslationHelper.h>

#include <algorithm>

namespace {

constexpr int noCause = -1;

struct ClassText
{
    int code;
    const char *key;
};

constexpr ClassText temperatureClasses[] = {
    {Codes::NormalTemperature, "TK_NormalTemperature"},
    {Codes::HighTemperature, "TK_OvertemperatureOfHighTemperature"},
    {Codes::LowTemperature, "TK_LowTemp"},
    {Codes::AbnormalTemperature, "TK_AbnormalTemperature"},
};

constexpr ClassText maskClasses[] = {
    {Codes::MaskUndetected, "TK_MaskUndetected"},
    {Codes::MaskWorn, "TK_MaskWeared"},
    {Codes::MaskUncovered, "TK_MaskUncovered"},
};

// One slice for each record of a known class, also for a count of 0; equal classes stay apart.
template <std::size_t size>
LabelledValues slicesOf(const std::vector<TempDistributionItem> &items, const ClassText (&classes)[size])
{
    LabelledValues slices;
    for (const TempDistributionItem &item : items) {
        for (const ClassText &known : classes) {
            if (known.code == item.code)
                slices.append({Texts::sentence(known.key), item.count});
        }
    }
    return slices;
}

} // namespace

void BasicChart::setTemperaturePieList(const std::vector<TempDistributionItem> &items)
{
    pieDataList = slicesOf(items, temperatureClasses);
}

void BasicChart::setMaskPieList(const std::vector<TempDistributionItem> &items)
{
    pieDataList = slicesOf(items, maskClasses);
}

// A cause is labelled by its count, not by its code.
void BasicChart::setEtiologyPieList(const std::vector<TempDistributionItem> &items)
{
    clearPieChartData();
    for (const TempDistributionItem &item : items) {
        const QString label = item.code == noCause ? QString() : QString::number(item.count);
        m_pieIndex.fold(pieDataList, label, item.count);
    }
}

void BasicChart::setNumberPieList(const std::vector<TempDistributionItem> &items)
{
    clearPieChartData();
    int abnormal = 0;
    int total = 0;
    for (const TempDistributionItem &item : items) {
        abnormal = wrappingSum(abnormal, item.code);
        total = wrappingSum(total, item.count);
    }
    pieDataList.append({Texts::sentence("TK_Abnormal"), abnormal});
    pieDataList.append({Texts::sentence("TK_Normal"), wrappingDifference(total, abnormal)});
}

void BasicChart::setSnapMinorPieList(const std::vector<SnapDetailMajorItem> &items, int majorType)
{
    pieDataList.clear();
    const auto major = std::find_if(items.cbegin(), items.cend(),
        [majorType](const SnapDetailMajorItem &item) { return item.majorType == majorType; });
    if (major == items.cend())
        return;
    int others = 0;
    for (const SnapDetailMinorCount &minor : major->minors) {
        const QString name =
            AppTranslationHelper::instance()->getSnapDetailMinorTypeName(majorType, minor.minorType);
        if (name.isEmpty())
            others = wrappingSum(others, minor.count);
        else
            pieDataList.append({name, minor.count});
    }
    if (others >= 1)
        pieDataList.append({Texts::sentence("TK_Other"), others});
}
