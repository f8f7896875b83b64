#pragma once

#include <string>

/// A kind of alarm that the platform knows by a code. A plain value with UTF-8 texts.
class TalvixAlarmType
{
public:
    /// Name as the server stores it; pages pass it through `AppTranslationHelper::getStringAfterTranslation`.
    std::string get_alarm_type_name() const { return m_alarmTypeName; }
    void set_alarm_type_name(const std::string &name) { m_alarmTypeName = name; }

private:
    std::string m_alarmTypeName;
};
