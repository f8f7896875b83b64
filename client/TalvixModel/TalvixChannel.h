#pragma once

#include <string>

/// A video channel of a device. A plain value with UTF-8 texts.
class TalvixChannel
{
public:
    /// Name of the channel itself, without its device.
    std::string get_channel_name() const { return m_channelName; }
    void set_channel_name(const std::string &name) { m_channelName = name; }

    /// Network address of the channel; empty where it has none of its own.
    std::string get_channel_ip() const { return m_channelIp; }
    void set_channel_ip(const std::string &ip) { m_channelIp = ip; }

    /// Type code, from the same table as `TalvixDevice::get_device_type_id`.
    int get_channel_type_id() const { return m_channelTypeId; }
    void set_channel_type_id(int type) { m_channelTypeId = type; }

private:
    std::string m_channelName;
    std::string m_channelIp;
    int m_channelTypeId = 0;
};
