#include <TalvixWidgets/ZrTreeView.h>

#include "OrganisationTreeModel.h"

ZrTreeView::ZrTreeView(QWidget *parent)
    : QTreeView(parent)
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setAllColumnsShowFocus(true);
}

ZrTreeView::~ZrTreeView() = default;

bool ZrTreeView::getCurrentItemData(NODE &node)
{
    const auto *organisations = qobject_cast<OrganisationTreeModel *>(model());
    const NODE *chosen = organisations ? organisations->chosenNode() : nullptr;
    if (!chosen)
        return false;
    node = *chosen;
    return true;
}

bool ZrTreeView::getRootItemData(NODE &node)
{
    const auto *organisations = qobject_cast<OrganisationTreeModel *>(model());
    const NODE *root = organisations ? organisations->rootNode() : nullptr;
    if (!root)
        return false;
    node = *root;
    return true;
}

bool ZrTreeView::setRootAsCurrentItem()
{
    auto *organisations = qobject_cast<OrganisationTreeModel *>(model());
    if (!organisations || !organisations->rootNode())
        return false;
    organisations->chooseRoot();
    return true;
}
