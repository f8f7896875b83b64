#include <TalvixWidgets/VuKRXClientManager.h>

VuKRXClientManager::VuKRXClientManager() = default;
VuKRXClientManager::~VuKRXClientManager() = default;

QString VuKRXClientManager::getLastErrorString()
{
    return m_lastErrorString;
}

void VuKRXClientManager::setLastErrorString(const QString &text)
{
    m_lastErrorString = text;
}
