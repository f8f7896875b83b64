#pragma once

#include <TalvixWidgets/NODE.h>

#include <QtCore/QAbstractItemModel>
#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtGui/QIcon>

/// The organisation tree with one chosen node, and what a search leaves of it.
///
/// The chosen node stays chosen while a search hides it. Nodes are known by their number, which is their
/// place in the list that filled the tree and holds until it is filled anew.
class OrganisationTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    using QAbstractItemModel::QAbstractItemModel;

    /// Replaces the tree. A node whose parent is unknown becomes a root, and so does one of a circle of
    /// parents.
    void setNodes(const QList<NODE> &nodes);
    /// Renews names, icons and tool tips by id; ids that the tree does not have are passed over.
    void renewNodes(const QList<NODE> &nodes);
    qsizetype size() const { return m_entries.size(); }

    /// Leaves the nodes whose name contains \a text, and what is above them; an empty text leaves all.
    void setFilter(const QString &text);
    QString filter() const { return m_filter; }
    /// The first node, in the order of the tree, that the search was for.
    QModelIndex firstMatch() const;

    const NODE *rootNode() const;
    const NODE *chosenNode() const;
    int chosen() const { return m_chosen; }
    /// Names from the root to the chosen node.
    QStringList chosenPath() const;
    void choose(int number);
    void chooseRoot();

    static int numberOf(const QModelIndex &index)
    {
        return index.isValid() ? static_cast<int>(index.internalId()) : -1;
    }
    /// Invalid when the search hides the node.
    QModelIndex indexOf(int number) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    /// Another node is chosen, or the chosen one has a new name.
    void chosenChanged();

private:
    struct Entry
    {
        NODE node;
        int parent = -1;
        int row = -1;
        QList<int> children;
        QList<int> shown;
    };

    void linkParents();
    void applyFilter();
    bool matches(const Entry &entry) const;
    const QList<int> &shownBelow(int number) const;
    QIcon iconOf(const NODE &node) const;

    QList<Entry> m_entries;
    QList<int> m_roots;
    QList<int> m_shownRoots;
    /// All numbers, each behind its parent.
    QList<int> m_order;
    QString m_filter;
    int m_chosen = -1;
    mutable QHash<QString, QIcon> m_icons;
};
