#include <TalvixWidgets/BaseHelper.h>

#include "HostSettings.h"

#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>

#include <algorithm>

BaseHelper *BaseHelper::getInstance()
{
    static BaseHelper helper;
    return &helper;
}

QString BaseHelper::dateTimeFormatConversion(QString format)
{
    if (HostSettings::dateOrder() == HostSettings::DateOrder::YearFirst)
        return format;
    // The longer one first: the shorter one is a part of it.
    if (format.contains(QStringLiteral("yyyy-MM-dd")))
        return format.replace(QStringLiteral("yyyy-MM-dd"), QStringLiteral("dd/MM/yyyy"));
    return format.replace(QStringLiteral("yyyy-MM"), QStringLiteral("MM/yyyy"));
}

void BaseHelper::adjustTabWidgetViewWidth(QTabWidget *tabs, int width)
{
    constexpr const char *ownWidth = "tabContentWidth";
    constexpr int widestTab = 4096;

    if (!tabs)
        return;
    QTabBar *bar = tabs->tabBar();
    bar->ensurePolished();
    // A style sheet's width is that of the content: what the theme puts around it is measured on a tab
    // without any.
    QStyleOptionTab option;
    option.initFrom(bar);
    const int before = bar->property(ownWidth).toInt();
    const int around =
        bar->style()->sizeFromContents(QStyle::CT_TabBarTab, &option, QSize(0, 0), bar).width() - before;
    const int content = std::max(0, std::clamp(width, 0, widestTab) - std::max(0, around));
    if (content == before && !bar->styleSheet().isEmpty())
        return;
    bar->setProperty(ownWidth, content);
    bar->setStyleSheet(QStringLiteral("QTabBar::tab { min-width: %1px; }").arg(content));
}
