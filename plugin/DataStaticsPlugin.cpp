#include "DataStaticsPlugin.h"

#include "DataStaticsWidget.h"

#include <new>

int DataStaticsPlugin::m_nWndId = 0;

DataStaticsPlugin::DataStaticsPlugin(QObject *parent)
    : QObject(parent)
{ }

DataStaticsPlugin::~DataStaticsPlugin() = default;

int DataStaticsPlugin::init(QWidget *parent)
{
    BaseWidget *widget = new (std::nothrow) DataStaticsWidget(parent);
    if (!widget)
        return -1;
    ++m_nWndId;
    m_mapWidgets[m_nWndId] = {parent, widget};
    return m_nWndId;
}

BaseWidget *DataStaticsPlugin::getWidget(const int &id)
{
    if (id < 1)
        return nullptr;
    return m_mapWidgets.value(id, {nullptr, nullptr}).second;
}

bool DataStaticsPlugin::uninit(const int &id)
{
    if (id < 1)
        return false;
    const auto entry = m_mapWidgets.constFind(id);
    if (entry == m_mapWidgets.cend())
        return false;
    const auto [parent, widget] = *entry;
    if (!parent && widget)
        widget->deleteLater();
    m_mapWidgets.erase(entry);
    return true;
}
