#pragma once

#include <string>

/// An organisation of the platform: a node of the tree that scopes every statistic.
///
/// A plain value. Texts are UTF-8, but nobody promises that they are valid; whoever shows them decodes
/// leniently.
class TalvixGroup
{
public:
    /// Number of the organisation, unique on the platform, above 0.
    int get_group_id() const { return m_groupId; }
    void set_group_id(int id) { m_groupId = id; }

    /// Number of the organisation above this one; 0 for a root.
    int get_parent_id() const { return m_parentId; }
    void set_parent_id(int id) { m_parentId = id; }

    /// Name as the server stores it. Pages pass it through `AppTranslationHelper::getStringAfterTranslation`
    /// before they show it. Two organisations may share a name.
    std::string get_group_name() const { return m_groupName; }
    void set_group_name(const std::string &name) { m_groupName = name; }

private:
    int m_groupId = 0;
    int m_parentId = 0;
    std::string m_groupName;
};
