#include "OrganisationTreeModel.h"

#include <QtCore/QHash>
#include <QtGui/QIcon>
#include <QtGui/QStandardItem>

namespace {

/// Views walk a tree by recursion. Deeper nodes than this stand at the deepest level.
constexpr int deepestLevel = 100;
constexpr int numberRole = Qt::UserRole;

using Icons = QHash<QString, QIcon>;

QString onOneLine(QString text)
{
    for (QChar &c : text) {
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator
            || c == QChar::ParagraphSeparator)
            c = u' ';
    }
    return text;
}

QList<int> parentsAsWritten(const QList<NODE> &nodes)
{
    QHash<int, int> numbers;
    numbers.reserve(nodes.size());
    for (int number = 0; number < nodes.size(); ++number) {
        if (!numbers.contains(nodes.at(number).id))
            numbers.insert(nodes.at(number).id, number);
    }
    QList<int> parents;
    parents.reserve(nodes.size());
    for (const NODE &node : nodes) {
        bool isNumber = false;
        const int id = node.parentId.toInt(&isNumber);
        parents.append(isNumber ? numbers.value(id, -1) : -1);
    }
    return parents;
}

/// The number of each node's parent, -1 for roots. Nothing of it closes a circle or is deeper than allowed.
QList<int> parentsOf(const QList<NODE> &nodes)
{
    QList<int> parents = parentsAsWritten(nodes);
    // Each walk upwards ends at a node of known level or closes a circle, which is cut where it was met.
    QList<int> levels(nodes.size(), -1);
    QList<int> walked(nodes.size(), -1);
    for (int start = 0; start < nodes.size(); ++start) {
        QList<int> path;
        int number = start;
        while (number >= 0 && levels.at(number) < 0 && walked.at(number) != start) {
            walked[number] = start;
            path.append(number);
            number = parents.at(number);
        }
        if (number >= 0 && levels.at(number) < 0) {
            parents[number] = -1;
            levels[number] = 0;
        }
        while (!path.isEmpty()) {
            const int below = path.takeLast();
            if (levels.at(below) >= 0)
                continue;
            if (const int above = parents.at(below); above >= 0 && levels.at(above) >= deepestLevel)
                parents[below] = parents.at(above);
            const int above = parents.at(below);
            levels[below] = above < 0 ? 0 : levels.at(above) + 1;
        }
    }
    return parents;
}

QIcon iconOf(const NODE &node, Icons &icons)
{
    if (node.iconPath.isEmpty())
        return {};
    const auto known = icons.constFind(node.iconPath);
    return known != icons.cend() ? *known : *icons.insert(node.iconPath, QIcon(node.iconPath));
}

void show(const NODE &node, QStandardItem &item, Icons &icons)
{
    item.setText(onOneLine(node.name));
    // A name is no markup, whatever it looks like.
    item.setToolTip((node.toolTip.isNull() ? node.name : node.toolTip).toHtmlEscaped());
    item.setIcon(iconOf(node, icons));
}

} // namespace

OrganisationTreeModel::OrganisationTreeModel(QObject *parent)
    : QSortFilterProxyModel(parent)
{
    setRecursiveFilteringEnabled(true);
    setFilterCaseSensitivity(Qt::CaseInsensitive);
    setSourceModel(&m_tree);
}

void OrganisationTreeModel::setNodes(const QList<NODE> &nodes)
{
    setFilter({});
    m_tree.clear();
    m_nodes = nodes;
    m_items.clear();
    m_items.reserve(nodes.size());
    m_chosen = -1;

    Icons icons;
    for (const NODE &node : nodes) {
        auto *item = new QStandardItem;
        show(node, *item, icons);
        item->setData(static_cast<int>(m_items.size()), numberRole);
        item->setFlags(node.enabled ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags);
        m_items.append(item);
    }
    const QList<int> parents = parentsOf(nodes);
    for (int number = 0; number < parents.size(); ++number) {
        if (parents.at(number) >= 0)
            m_items.at(parents.at(number))->appendRow(m_items.at(number));
    }
    // Last, so that each tree comes as a whole.
    for (int number = 0; number < parents.size(); ++number) {
        if (parents.at(number) < 0)
            m_tree.appendRow(m_items.at(number));
    }
}

void OrganisationTreeModel::renewNodes(const QList<NODE> &nodes)
{
    QHash<int, const NODE *> news;
    for (const NODE &node : nodes)
        news.insert(node.id, &node);
    Icons icons;
    bool chosenIsRenewed = false;
    for (int number = 0; number < m_nodes.size(); ++number) {
        NODE &node = m_nodes[number];
        const NODE *renewed = news.value(node.id);
        if (!renewed
            || (renewed->name == node.name && renewed->iconPath == node.iconPath
                && renewed->toolTip == node.toolTip))
            continue;
        node.name = renewed->name;
        node.iconPath = renewed->iconPath;
        node.toolTip = renewed->toolTip;
        show(node, *m_items.at(number), icons);
        chosenIsRenewed = chosenIsRenewed || number == m_chosen;
    }
    if (chosenIsRenewed)
        Q_EMIT chosenChanged();
}

void OrganisationTreeModel::setFilter(const QString &text)
{
    if (text == m_filter)
        return;
    m_filter = text;
    setFilterFixedString(text);
}

QModelIndex OrganisationTreeModel::firstMatch() const
{
    QModelIndex place = index(0, 0);
    while (place.isValid() && !place.data().toString().contains(m_filter, Qt::CaseInsensitive))
        place = index(0, 0, place);
    return place;
}

const NODE *OrganisationTreeModel::rootNode() const
{
    const QStandardItem *root = m_tree.item(0);
    return root ? &m_nodes.at(numberOf(root->index())) : nullptr;
}

const NODE *OrganisationTreeModel::chosenNode() const
{
    return m_chosen < 0 ? nullptr : &m_nodes.at(m_chosen);
}

QStringList OrganisationTreeModel::chosenPath() const
{
    QStringList names;
    for (const QStandardItem *item = m_items.value(m_chosen); item; item = item->parent())
        names.prepend(m_nodes.at(numberOf(item->index())).name);
    return names;
}

void OrganisationTreeModel::choose(int number)
{
    if (number < 0 || number >= m_nodes.size() || number == m_chosen)
        return;
    m_chosen = number;
    Q_EMIT chosenChanged();
}

void OrganisationTreeModel::chooseRoot()
{
    if (const QStandardItem *root = m_tree.item(0))
        choose(numberOf(root->index()));
}

int OrganisationTreeModel::numberOf(const QModelIndex &index)
{
    return index.isValid() ? index.data(numberRole).toInt() : -1;
}

QModelIndex OrganisationTreeModel::indexOf(int number) const
{
    const QStandardItem *item = m_items.value(number);
    return item ? mapFromSource(item->index()) : QModelIndex();
}
