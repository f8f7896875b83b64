#pragma once

#include "TalvixMessage.h"

/// Temperature figure of one group, person or period.
struct TemperatureStatisticsItem
{
    int id = 0;       ///< group or person; in the periods of a person the class, -1 for none
    std::string name; ///< group or person name; in answers over time the period
    int count = 0;    ///< the figure
};

/// Size of one class of a distribution.
struct TempDistributionItem
{
    int code = 0;  ///< class code; in `byNumberList` the abnormal count
    int count = 0; ///< number in the class; in `byNumberList` the total count
};

/// Temperature alarms of one period in one handling state.
struct TempAlarmHandleItem
{
    int handleState = 0; ///< 2 accepted, 0 not accepted
    int count = 0;       ///< alarms in this state
    std::string time;    ///< the period
};

/// Condition of the two queries of device groups, handed over whole.
struct StatisticsQueryOfOrga
{
    int queryType = 1;          ///< 1 temperature classes, 2 mask classes; 1 for alarm handling
    int userId = unsetValue;    ///< the signed-in user
    int timeType = unsetValue;  ///< unit of time
    int reserved1 = unsetValue; ///< not used
    int reserved2 = unsetValue; ///< not used
    std::string startTime;      ///< start of the span; a month is given as its first day
    std::string endTime;        ///< end of the span
    std::vector<int> listOrg;   ///< the organisations
};

/// The person groups that a request asks about. The names are the service's own.
class TalvixPersonGroupListField
{
public:
    void setPersonGorupIDList(const std::vector<int> &ids) { m_personGorupIDList = ids; }
    const std::vector<int> &personGorupIDList() const { return m_personGorupIDList; }

private:
    std::vector<int> m_personGorupIDList;
};

/// The condition that the requests of device groups consist of.
class TalvixQueryOfOrgaField
{
public:
    void setQueryStatisticsOfOrga(const StatisticsQueryOfOrga &query) { m_queryStatisticsOfOrga = query; }
    const StatisticsQueryOfOrga &queryStatisticsOfOrga() const { return m_queryStatisticsOfOrga; }

private:
    StatisticsQueryOfOrga m_queryStatisticsOfOrga;
};

/// A list of temperature figures, in the server's order.
class TalvixTemperatureListResponse : public TalvixMessage
{
public:
    std::vector<TemperatureStatisticsItem> statisticsList;
};

/// Asks for the figure of every person group below the organisations of the list.
class TalvixGetTemperatureStatisticsOfGroupsRequestMessage : public TalvixMessage,
                                                             public TalvixTimeSpanFields,
                                                             public TalvixPersonGroupListField
{
public:
    int userId = 0;   ///< the signed-in user
    int timeType = 0; ///< unit of time
    int sortType = 0; ///< order of the values
    int orgType = 0;  ///< levels that are counted
};

class TalvixGetTemperatureStatisticsOfGroupsResponseMessage : public TalvixTemperatureListResponse
{ };

/// Asks for the figure of one person group, by period.
class TalvixGetTemperatureStatisticsOfGroupRequestMessage : public TalvixMessage, public TalvixTimeSpanFields
{
public:
    int userId = 0;   ///< the signed-in user
    int timeType = 0; ///< unit of time
    int orgType = 0;  ///< levels that are counted
    int groupId = 0;  ///< the person group
};

class TalvixGetTemperatureStatisticsOfGroupResponseMessage : public TalvixTemperatureListResponse
{ };

/// Asks for one page of the figures of an organisation's persons.
class TalvixGetTemperatureStatisticsOfPersonsRequestMessage : public TalvixMessage,
                                                              public TalvixTimeSpanFields
{
public:
    int pageIndex = 0; ///< page asked for, from 1
    int pageSize = 0;  ///< rows of a page
    int userId = 0;    ///< the signed-in user
    int timeType = 0;  ///< unit of time
    int sortType = 0;  ///< order of the values
    int orgaId = 0;    ///< the organisation; 0 when none is chosen
};

class TalvixGetTemperatureStatisticsOfPersonsResponseMessage : public TalvixMessage
{
public:
    int curPage = 0;   ///< the page that was answered, from 1
    int totalPage = 0; ///< pages that the whole result fills
    std::vector<TemperatureStatisticsItem> statisticsList;
};

/// Asks for the figure of one person, by period and class. It names no user.
class TalvixGetTemperatureStatisticsOfPersonRequestMessage : public TalvixMessage, public TalvixTimeSpanFields
{
public:
    int timeType = 0; ///< unit of time
    int personId = 0; ///< the person
};

class TalvixGetTemperatureStatisticsOfPersonResponseMessage : public TalvixTemperatureListResponse
{ };

/// Asks how the readings of person groups are distributed.
class TalvixGetTempStatisticsDistributionOfGroupsRequestMessage : public TalvixMessage,
                                                                  public TalvixTimeSpanFields,
                                                                  public TalvixPersonGroupListField
{
public:
    int userId = 0;    ///< the signed-in user
    int timeType = 0;  ///< unit of time
    int orgType = 0;   ///< levels that are counted
    int queryType = 0; ///< 1 asks for `byNumberList`, 2 for `byEtiologyList`
};

class TalvixGetTempStatisticsDistributionOfGroupsResponseMessage : public TalvixMessage
{
public:
    std::vector<TempDistributionItem> byNumberList;
    std::vector<TempDistributionItem> byEtiologyList;
};

/// Asks how the readings of device groups are distributed; `queryType` of the condition chooses the list.
class TalvixGetTempStatisticsDistributionOfOrgasRequestMessage : public TalvixMessage,
                                                                 public TalvixQueryOfOrgaField
{ };

class TalvixGetTempStatisticsDistributionOfOrgasResponseMessage : public TalvixMessage
{
public:
    std::vector<TempDistributionItem> byTemperatureList;
    std::vector<TempDistributionItem> byMaskList;
};

/// Asks how many temperature alarms of device groups were accepted, by period.
class TalvixGetTempAlarmHandleStatisticsOfOrgaRequestMessage : public TalvixMessage,
                                                               public TalvixQueryOfOrgaField
{ };

class TalvixGetTempAlarmHandleStatisticsOfOrgaResponseMessage : public TalvixMessage
{
public:
    std::vector<TempAlarmHandleItem> handleList;
};
