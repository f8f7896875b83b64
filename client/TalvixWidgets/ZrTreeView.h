#pragma once

#include "NODE.h"
#include "TalvixWidgetsGlobal.h"

#include <QtCore/QList>
#include <QtWidgets/QTreeView>

/// The tree inside a `ZrComboBoxWithTree`.
class TALVIXWIDGETS_EXPORT ZrTreeView : public QTreeView
{
    Q_OBJECT

public:
    explicit ZrTreeView(QWidget *parent = nullptr);
    ~ZrTreeView() override;

    /// Copies the current item's record into \a node; false, with \a node untouched, when there is none.
    bool getCurrentItemData(NODE &node);
    /// Copies the first root's record into \a node; false, with \a node untouched, when the tree is empty.
    bool getRootItemData(NODE &node);
    /// Makes the first root current; false when the tree is empty.
    bool setRootAsCurrentItem();
};
