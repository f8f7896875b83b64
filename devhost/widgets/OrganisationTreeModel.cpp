#include "OrganisationTreeModel.h"

#include <algorithm>

namespace {

/// Views walk a tree by recursion. Deeper nodes than this stand at the deepest level.
constexpr int deepestLevel = 100;

QString onOneLine(QString text)
{
    for (QChar &c : text) {
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator
            || c == QChar::ParagraphSeparator)
            c = u' ';
    }
    return text;
}

} // namespace

void OrganisationTreeModel::setNodes(const QList<NODE> &nodes)
{
    beginResetModel();
    m_entries.clear();
    m_entries.reserve(nodes.size());
    for (const NODE &node : nodes) {
        Entry entry;
        entry.node = node;
        m_entries.append(entry);
    }
    m_filter.clear();
    m_chosen = -1;
    linkParents();
    applyFilter();
    endResetModel();
}

void OrganisationTreeModel::linkParents()
{
    QHash<int, int> numbers;
    numbers.reserve(m_entries.size());
    for (int number = 0; number < m_entries.size(); ++number) {
        if (!numbers.contains(m_entries.at(number).node.id))
            numbers.insert(m_entries.at(number).node.id, number);
    }
    for (Entry &entry : m_entries) {
        bool isNumber = false;
        const int id = entry.node.parentId.toInt(&isNumber);
        entry.parent = isNumber ? numbers.value(id, -1) : -1;
    }

    // Each walk upwards ends at a node of known level or closes a circle, which is cut where it was met.
    QList<int> levels(m_entries.size(), -1);
    QList<int> walked(m_entries.size(), -1);
    for (int start = 0; start < m_entries.size(); ++start) {
        QList<int> path;
        int number = start;
        while (number >= 0 && levels.at(number) < 0 && walked.at(number) != start) {
            walked[number] = start;
            path.append(number);
            number = m_entries.at(number).parent;
        }
        if (number >= 0 && levels.at(number) < 0) {
            m_entries[number].parent = -1;
            levels[number] = 0;
        }
        while (!path.isEmpty()) {
            const int below = path.takeLast();
            if (levels.at(below) >= 0)
                continue;
            int above = m_entries.at(below).parent;
            if (above >= 0 && levels.at(above) >= deepestLevel) {
                above = m_entries.at(above).parent;
                m_entries[below].parent = above;
            }
            levels[below] = above < 0 ? 0 : levels.at(above) + 1;
        }
    }

    m_roots.clear();
    for (int number = 0; number < m_entries.size(); ++number) {
        const int above = m_entries.at(number).parent;
        (above < 0 ? m_roots : m_entries[above].children).append(number);
    }
    m_order = m_roots;
    for (qsizetype i = 0; i < m_order.size(); ++i)
        m_order.append(m_entries.at(m_order.at(i)).children);
}

void OrganisationTreeModel::renewNodes(const QList<NODE> &nodes)
{
    QHash<int, const NODE *> news;
    for (const NODE &node : nodes)
        news.insert(node.id, &node);
    bool chosenIsRenewed = false;
    for (int number = 0; number < m_entries.size(); ++number) {
        NODE &node = m_entries[number].node;
        const NODE *renewed = news.value(node.id);
        if (!renewed
            || (renewed->name == node.name && renewed->iconPath == node.iconPath
                && renewed->toolTip == node.toolTip))
            continue;
        node.name = renewed->name;
        node.iconPath = renewed->iconPath;
        node.toolTip = renewed->toolTip;
        chosenIsRenewed = chosenIsRenewed || number == m_chosen;
        if (const QModelIndex place = indexOf(number); place.isValid())
            Q_EMIT dataChanged(place, place);
    }
    if (chosenIsRenewed)
        Q_EMIT chosenChanged();
}

void OrganisationTreeModel::setFilter(const QString &text)
{
    if (text == m_filter)
        return;
    beginResetModel();
    m_filter = text;
    applyFilter();
    endResetModel();
}

bool OrganisationTreeModel::matches(const Entry &entry) const
{
    return m_filter.isEmpty() || entry.node.name.contains(m_filter, Qt::CaseInsensitive);
}

void OrganisationTreeModel::applyFilter()
{
    QList<bool> kept(m_entries.size(), false);
    for (auto number = m_order.crbegin(); number != m_order.crend(); ++number) {
        const Entry &entry = m_entries.at(*number);
        kept[*number] = kept.at(*number) || matches(entry);
        if (kept.at(*number) && entry.parent >= 0)
            kept[entry.parent] = true;
    }
    const auto keep = [&](const QList<int> &all, QList<int> &shown) {
        shown.clear();
        for (const int number : all) {
            m_entries[number].row = kept.at(number) ? static_cast<int>(shown.size()) : -1;
            if (kept.at(number))
                shown.append(number);
        }
    };
    keep(m_roots, m_shownRoots);
    for (Entry &entry : m_entries)
        keep(entry.children, entry.shown);
}

QModelIndex OrganisationTreeModel::firstMatch() const
{
    QModelIndex place = index(0, 0);
    while (place.isValid() && !matches(m_entries.at(numberOf(place))))
        place = index(0, 0, place);
    return place;
}

const NODE *OrganisationTreeModel::rootNode() const
{
    return m_roots.isEmpty() ? nullptr : &m_entries.at(m_roots.first()).node;
}

const NODE *OrganisationTreeModel::chosenNode() const
{
    return m_chosen < 0 ? nullptr : &m_entries.at(m_chosen).node;
}

QStringList OrganisationTreeModel::chosenPath() const
{
    QStringList names;
    for (int number = m_chosen; number >= 0; number = m_entries.at(number).parent)
        names.prepend(m_entries.at(number).node.name);
    return names;
}

void OrganisationTreeModel::choose(int number)
{
    if (number < 0 || number >= m_entries.size() || number == m_chosen)
        return;
    m_chosen = number;
    Q_EMIT chosenChanged();
}

void OrganisationTreeModel::chooseRoot()
{
    if (!m_roots.isEmpty())
        choose(m_roots.first());
}

const QList<int> &OrganisationTreeModel::shownBelow(int number) const
{
    return number < 0 ? m_shownRoots : m_entries.at(number).shown;
}

QModelIndex OrganisationTreeModel::indexOf(int number) const
{
    if (number < 0 || number >= m_entries.size() || m_entries.at(number).row < 0)
        return {};
    return createIndex(m_entries.at(number).row, 0, static_cast<quintptr>(number));
}

QModelIndex OrganisationTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    const QList<int> &rows = shownBelow(numberOf(parent));
    if (column != 0 || row < 0 || row >= rows.size())
        return {};
    return createIndex(row, 0, static_cast<quintptr>(rows.at(row)));
}

QModelIndex OrganisationTreeModel::parent(const QModelIndex &index) const
{
    return index.isValid() ? indexOf(m_entries.at(numberOf(index)).parent) : QModelIndex();
}

int OrganisationTreeModel::rowCount(const QModelIndex &parent) const
{
    return parent.column() > 0 ? 0 : static_cast<int>(shownBelow(numberOf(parent)).size());
}

int OrganisationTreeModel::columnCount(const QModelIndex &) const
{
    return 1;
}

QVariant OrganisationTreeModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const NODE &node = m_entries.at(numberOf(index)).node;
    switch (role) {
    case Qt::DisplayRole:
        return onOneLine(node.name);
    case Qt::ToolTipRole:
        // A name is no markup, whatever it looks like.
        return (node.toolTip.isNull() ? node.name : node.toolTip).toHtmlEscaped();
    case Qt::DecorationRole:
        return node.iconPath.isEmpty() ? QVariant() : QVariant(iconOf(node));
    default:
        return {};
    }
}

Qt::ItemFlags OrganisationTreeModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return m_entries.at(numberOf(index)).node.enabled ? Qt::ItemIsEnabled | Qt::ItemIsSelectable
                                                      : Qt::NoItemFlags;
}

QIcon OrganisationTreeModel::iconOf(const NODE &node) const
{
    const auto known = m_icons.constFind(node.iconPath);
    return known != m_icons.cend() ? *known : *m_icons.insert(node.iconPath, QIcon(node.iconPath));
}
