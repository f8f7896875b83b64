#pragma once

#include "NODE.h"
#include "TalvixWidgetsGlobal.h"
#include "ZrTreeView.h"

#include <QtCore/QList>
#include <QtWidgets/QComboBox>

/// Combo box whose drop-down is a tree with a search line.
///
/// `currentTextChanged` tells that another node became current, also when both nodes have one name.
class TALVIXWIDGETS_EXPORT ZrComboBoxWithTree : public QComboBox
{
    Q_OBJECT

public:
    explicit ZrComboBoxWithTree(QWidget *parent = nullptr);
    ~ZrComboBoxWithTree() override;

    virtual void initForm();

    /// Replaces the tree by \a nodes, parents before their children. Afterwards `count()` is above 0
    /// unless \a nodes is empty. \a expandRoot opens the first level.
    void addNode(QList<NODE> &nodes, bool expandRoot);
    /// Renews the names of the nodes by their ids, keeping what is expanded and current.
    void updateNode(const QList<NODE> &nodes);

    void showPopup() override;
    void hidePopup() override;

    /// The tree; owned by the combo box, null when the combo box has none.
    ZrTreeView *m_pTreeView = nullptr;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void initStyleOption(QStyleOptionComboBox *option) const override;

private:
    class Private;
    Private *d;
};
