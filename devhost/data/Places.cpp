#include "Places.h"

namespace devdata {

namespace {

QHash<int, int> pairs(Connection &connection, const char *sql)
{
    Query rows(connection, QString::fromLatin1(sql));
    rows.run();
    QHash<int, int> result;
    while (rows.next())
        result.insert(rows.integer("id"), rows.integer("owner"));
    return result;
}

} // namespace

Places::Places(Connection &connection)
    : m_organisationOfSource(pairs(connection, "SELECT id, orga_id AS owner FROM source"))
    , m_groupOfPerson(pairs(connection, "SELECT id, group_id AS owner FROM person"))
    , m_organisationOfGroup(pairs(connection, "SELECT id, orga_id AS owner FROM person_group"))
{
    Query rows(connection,
        QStringLiteral(
            "SELECT ancestor, descendant FROM organisation_path WHERE distance > 0 ORDER BY distance"));
    rows.run();
    while (rows.next())
        m_above[rows.integer("descendant")].push_back(rows.integer("ancestor"));
}

void Places::addOrganisation(int organisation, int parent)
{
    std::vector<int> ancestors = {parent};
    const std::vector<int> &further = above(parent);
    ancestors.insert(ancestors.end(), further.begin(), further.end());
    m_above.insert(organisation, ancestors);
}

const std::vector<int> &Places::above(int organisation) const
{
    const auto found = m_above.constFind(organisation);
    return found == m_above.constEnd() ? m_nothingAbove : *found;
}

} // namespace devdata
