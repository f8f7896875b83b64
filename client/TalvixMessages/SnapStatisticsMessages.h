#pragma once

#include "TalvixMessage.h"

/// Snapshots of one class.
struct SnapTypeCount
{
    int snapType = 0; ///< 4 vehicle, 2 pedestrian
    int count = 0;    ///< snapshots of that class
    int reserved = 0; ///< carried along; nobody reads it
};

/// What one channel saw in one period.
struct SnapChannelSample
{
    std::string channelUid;
    std::vector<SnapTypeCount> typeCounts;
};

/// What all channels saw in one period.
struct SnapTimeSample
{
    std::string time; ///< the period, in the form of the request's span
    std::vector<SnapChannelSample> channels;
};

/// Snapshots of one minor type.
struct SnapDetailMinorCount
{
    int minorType = 0; ///< second argument of `AppTranslationHelper::getSnapDetailMinorTypeName`
    int count = 0;     ///< snapshots of that minor type
};

/// A major type (colour, kind, direction …) with its minor types.
struct SnapDetailMajorItem
{
    int majorType = 0; ///< argument of `AppTranslationHelper::getSnapDetailMajorTypeName`
    std::vector<SnapDetailMinorCount> minors;
};

/// Snapshots of one organisation or of one period of an organisation.
struct SnapOrgaItem
{
    int id = 0;       ///< the organisation, in the list of organisations
    std::string name; ///< its name; in the list of one organisation the period
    std::vector<SnapTypeCount> typeCounts;
};

/// Asks for the snapshots of all channels, by period. Its command word is "get_snap_samples".
class TalvixGetSnapSamplesRequestMessage : public TalvixMessage, public TalvixTimeSpanFields
{
public:
    int timeType = 0; ///< unit of time
};

class TalvixGetSnapSamplesResponseMessage : public TalvixMessage
{
public:
    std::vector<SnapTimeSample> snapSampleList;
};

/// Asks for the minor types behind one bar. Its command word is "get_snap_detail_samples".
///
/// By channel, `channelUid` is set and `orgaId` is `unsetValue`; by organisation it is the other way round.
/// The setter names are the service's own.
class TalvixGetSnapDetailSamplesRequestMessage : public TalvixMessage
{
public:
    void setChannelUid(const std::string &uid) { m_channelUid = uid; }
    const std::string &channelUid() const { return m_channelUid; }

    void setBeginTime(const std::string &time) { m_beginTime = time; }
    const std::string &beginTime() const { return m_beginTime; }

    void setEndTIme(const std::string &time) { m_endTime = time; }
    const std::string &endTime() const { return m_endTime; }

    int timeType = 0;  ///< unit of time
    int majorType = 0; ///< 4 vehicle class, 2 pedestrian class
    int orgaId = 0;    ///< the organisation, or `unsetValue`
    int orgType = 0;   ///< levels that are counted

private:
    std::string m_channelUid;
    std::string m_beginTime;
    std::string m_endTime;
};

class TalvixGetSnapDetailSamplesResponseMessage : public TalvixMessage
{
public:
    std::vector<SnapDetailMajorItem> snapDetailList;
};

/// Organisations or periods with their snapshots, in the server's order.
class TalvixSnapOrgaListResponse : public TalvixMessage
{
public:
    std::vector<SnapOrgaItem> snapOrgaList;
};

/// Asks for the snapshots of every organisation of a level. It names no user.
class TalvixGetSnapDetailSamplesOfOrgasRequestMessage : public TalvixMessage,
                                                        public TalvixTimeSpanFields,
                                                        public TalvixListOrgField
{
public:
    int timeType = 0; ///< unit of time
    int sortType = 0; ///< order of the values
    int orgType = 0;  ///< levels that are counted
};

class TalvixGetSnapDetailSamplesOfOrgasResponseMessage : public TalvixSnapOrgaListResponse
{ };

/// Asks for the snapshots of one organisation, by period.
class TalvixGetSnapDetailSamplesOfOrgaRequestMessage : public TalvixStatisticsOfOrgaRequest
{ };

class TalvixGetSnapDetailSamplesOfOrgaResponseMessage : public TalvixSnapOrgaListResponse
{ };
