#pragma once

#include <string>

/// A device of the platform (camera, recorder). A plain value with UTF-8 texts.
class TalvixDevice
{
public:
    /// Name that the operator gave the device. Names need not be unique.
    std::string get_device_name() const { return m_deviceName; }
    void set_device_name(const std::string &name) { m_deviceName = name; }

    /// Network address; it tells devices of one name apart. May be empty.
    std::string get_device_ip() const { return m_deviceIp; }
    void set_device_ip(const std::string &ip) { m_deviceIp = ip; }

    /// Type code of the device: 1 is an IPC; `KrxClient::isNVROrDVRDevice` tells recorders.
    int get_device_type_id() const { return m_deviceTypeId; }
    void set_device_type_id(int type) { m_deviceTypeId = type; }

private:
    std::string m_deviceName;
    std::string m_deviceIp;
    int m_deviceTypeId = 0;
};
