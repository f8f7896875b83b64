#include "Hierarchy.h"

namespace devdata {

namespace {

QHash<int, int> pairs(Connection &connection, const char *sql)
{
    Statement rows(connection, QString::fromLatin1(sql));
    rows.execute();
    QHash<int, int> result;
    while (rows.next())
        result.insert(rows.integer("id"), rows.integer("owner"));
    return result;
}

} // namespace

Hierarchy::Hierarchy(Connection &connection)
    : m_organisationOfSource(pairs(connection, "SELECT id, orga_id AS owner FROM source"))
    , m_groupOfPerson(pairs(connection, "SELECT id, group_id AS owner FROM person"))
    , m_organisationOfGroup(pairs(connection, "SELECT id, orga_id AS owner FROM person_group"))
{
    Statement rows(connection,
        QStringLiteral(
            "SELECT ancestor, descendant FROM organisation_path WHERE distance > 0 ORDER BY distance"));
    rows.execute();
    while (rows.next())
        m_above[rows.integer("descendant")].push_back(rows.integer("ancestor"));
}

void Hierarchy::addOrganisation(int organisation, int parent)
{
    std::vector<int> ancestors = {parent};
    const std::vector<int> &further = above(parent);
    ancestors.insert(ancestors.end(), further.begin(), further.end());
    m_above.insert(organisation, ancestors);
}

const std::vector<int> &Hierarchy::above(int organisation) const
{
    const auto found = m_above.constFind(organisation);
    return found == m_above.constEnd() ? m_nothingAbove : *found;
}

} // namespace devdata
