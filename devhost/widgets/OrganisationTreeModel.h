#pragma once

#include <TalvixWidgets/NODE.h>

#include <QtCore/QList>
#include <QtCore/QSortFilterProxyModel>
#include <QtGui/QStandardItemModel>

/// The organisation tree with one chosen node, and what a search leaves of it.
///
/// The chosen node stays chosen while a search hides it. Nodes are known by their number, which is their
/// place in the list that filled the tree and holds until it is filled anew.
class OrganisationTreeModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit OrganisationTreeModel(QObject *parent = nullptr);

    /// Replaces the tree. A node whose parent is unknown becomes a root, and so does one of a circle of
    /// parents.
    void setNodes(const QList<NODE> &nodes);
    /// Renews names, icons and tool tips by id; ids that the tree does not have are passed over.
    void renewNodes(const QList<NODE> &nodes);
    qsizetype size() const { return m_nodes.size(); }

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

    static int numberOf(const QModelIndex &index);
    /// Invalid when the search hides the node.
    QModelIndex indexOf(int number) const;

Q_SIGNALS:
    /// Another node is chosen, or the chosen one has a new name.
    void chosenChanged();

private:
    QStandardItemModel m_tree;
    QList<NODE> m_nodes;
    QList<QStandardItem *> m_items; ///< by number
    QString m_filter;
    int m_chosen = -1;
};
