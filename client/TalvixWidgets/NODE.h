#pragma once

#include <QtCore/QString>
#include <QtCore/QtGlobal>

/// Node of the organisation tree, passed by value between `KrxClient` and the tree controls.
///
/// The statistics pages read `id` alone; the other fields belong to the client and the tree.
struct NODE
{
    int id = 0;                             ///< number of the organisation
    QString name = QStringLiteral("");      ///< display name
    QString parentId = QStringLiteral("");  ///< decimal number of the node above; empty for a root
    QString iconPath = QStringLiteral("");  ///< resource path of the icon
    QString toolTip;                        ///< null: the name serves
    QString uid = QStringLiteral("");       ///< uid of a device node
    qint32 level = 0;                       ///< depth, 0 for a root
    qint16 kind = 0;                        ///< 0 organisation
    quint8 enabled = 1;                     ///< whether the node can be chosen
    quint64 context = 0;                    ///< free for the client
    qint32 childCount = 0;                  ///< nodes directly below
    qint32 checkState = 1;                  ///< used by trees with check boxes
    QString remark = QStringLiteral("");    ///< free text
    QString extension = QStringLiteral(""); ///< free text
};
