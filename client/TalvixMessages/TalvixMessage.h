#pragma once

#include <string>
#include <vector>

/// Base of every request and response that crosses to the statistics service.
///
/// A message is a local object of one query: it is built, filled, handed over by reference and dropped.
/// All integers are signed 32-bit, all strings UTF-8. A field that is not set keeps its default.
/// Setters take their value by const reference and copy it.
///
/// Numbers that many requests share:
///
/// | Field      | Meaning                 | Values                                                      |
/// |------------|-------------------------|-------------------------------------------------------------|
/// | `timeType` | unit of time            | 1 month, 2 day, 3 hour, as in `ZrCalendarWidget::QueryType` |
/// | `sortType` | order of the values     | 1 descending, 2 ascending                                   |
/// | `orgType`  | levels that are counted | 1 lower levels, 2 all levels, 3 the organisation alone      |
class TalvixMessage
{
public:
    TalvixMessage() = default;
    TalvixMessage(const TalvixMessage &) = default;
    TalvixMessage &operator=(const TalvixMessage &) = default;
    virtual ~TalvixMessage() = default;

    /// Command word of the message; empty for messages that are known by their type alone.
    void setCmd(const std::string &cmd) { m_cmd = cmd; }
    const std::string &cmd() const { return m_cmd; }

private:
    std::string m_cmd;
};

/// Value of an integer request field that is not given.
constexpr int unsetValue = -99999;

/// The span of time that a request asks about; both ends belong to it.
///
/// The form follows the request's unit of time: "yyyy-MM" for months, "yyyy-MM-dd" for days and "yyyy-MM-dd
/// hh" for hours, always in local time.
class TalvixTimeSpanFields
{
public:
    void setStartTime(const std::string &startTime) { m_startTime = startTime; }
    const std::string &startTime() const { return m_startTime; }

    void setEndTime(const std::string &endTime) { m_endTime = endTime; }
    const std::string &endTime() const { return m_endTime; }

private:
    std::string m_startTime;
    std::string m_endTime;
};

/// The organisations that a whole-level request asks about.
class TalvixListOrgField
{
public:
    void setListOrg(const std::vector<int> &listOrg) { m_listOrg = listOrg; }
    const std::vector<int> &listOrg() const { return m_listOrg; }

private:
    std::vector<int> m_listOrg;
};

/// Figures of every organisation of a level.
class TalvixStatisticsOfOrgasRequest : public TalvixMessage,
                                       public TalvixTimeSpanFields,
                                       public TalvixListOrgField
{
public:
    int userId = 0;   ///< the signed-in user
    int timeType = 0; ///< unit of time
    int sortType = 0; ///< order of the values
    int orgType = 0;  ///< levels that are counted
};

/// Figures of one organisation over time.
class TalvixStatisticsOfOrgaRequest : public TalvixMessage, public TalvixTimeSpanFields
{
public:
    int userId = 0;   ///< the signed-in user
    int orgaId = 0;   ///< the organisation
    int timeType = 0; ///< unit of time
    int orgType = 0;  ///< levels that are counted
};

/// One page of figures of the devices of an organisation.
class TalvixStatisticsOfDevicesRequest : public TalvixMessage, public TalvixTimeSpanFields
{
public:
    int timeType = 0;  ///< unit of time
    int sortType = 0;  ///< order of the values
    int orgaId = 0;    ///< the organisation; 0 when none is chosen
    int userId = 0;    ///< the signed-in user
    int pageIndex = 0; ///< page asked for, from 1
    int pageSize = 0;  ///< rows of a page
};

/// Figures of one device or channel over time. It names no user.
class TalvixStatisticsOfDeviceRequest : public TalvixMessage, public TalvixTimeSpanFields
{
public:
    int timeType = 0; ///< unit of time

    /// The device or channel.
    void setUID(const std::string &uid) { m_uid = uid; }
    const std::string &uid() const { return m_uid; }

private:
    std::string m_uid;
};

/// Rows without paging, in the server's order.
template <typename Record>
class TalvixRecordsResponse : public TalvixMessage
{
public:
    std::vector<Record> records;
};

/// Rows of one page, in the server's order.
template <typename Record>
class TalvixPagedRecordsResponse : public TalvixRecordsResponse<Record>
{
public:
    int curPage = 0;   ///< the page that was answered, from 1
    int totalPage = 0; ///< pages that the whole result fills
};
