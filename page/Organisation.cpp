#include "BasicChart.h"

#include "Codes.h"
#include "ServiceTypes.h"
#include "Texts.h"
#include "ui_BasicChart.h"

#include <TalvixWidgets/KrxClient.h>

#include <QtCore/QDebug>
#include <QtWidgets/QComboBox>

namespace {

constexpr int visibleTreeItems = 25;

} // namespace

void BasicChart::organizeNodes(QList<NODE> &nodes)
{
    if (!serviceType().has(ServiceTypeRow::HasTree)) {
        qDebug() << "ServiceType is default";
        return;
    }
    m_orgaList.clear();
    std::list<TalvixGroup> groups = KrxClient::instance()->getOrgaList();
    m_orgaList = groups;
    KrxClient::instance()->organizeOrgaNodes(nodes, groups);
}

bool BasicChart::slotOrgaInfoLoad()
{
    qDebug() << "BasicChart::slotOrgaInfoLoad";
    if (!isVisible())
        return false;
    disconnectTree();
    ui->comboBox->clear();
    QList<NODE> nodes;
    organizeNodes(nodes);
    if (!fillTree(nodes)) {
        qDebug() << "BasicChart::slotOrgaInfoLoad  addTreeView fail";
        return false;
    }
    ui->comboBox->setEditable(false);
    ui->comboBox->setMaxVisibleItems(visibleTreeItems);
    connectTree();
    return true;
}

bool BasicChart::fillTree(QList<NODE> &nodes)
{
    if (nodes.isEmpty()) {
        setTips(Texts::sentence("TK_orgNotExist"), Codes::Warning);
        return false;
    }
    ui->comboBox->addNode(nodes, true);
    ZrTreeView *tree = ui->comboBox->m_pTreeView;
    NODE root;
    if (!tree || !tree->getRootItemData(root)) {
        qCritical() << "get current orga failed!";
        return false;
    }
    tree->setRootAsCurrentItem();
    return true;
}

void BasicChart::renewTreeTexts()
{
    if (!ui->comboBox->m_pTreeView)
        return;
    disconnectTree();
    QList<NODE> nodes;
    organizeNodes(nodes);
    ui->comboBox->updateNode(nodes);
    connectTree();
}

void BasicChart::connectTree()
{
    connect(
        ui->comboBox, &QComboBox::currentTextChanged, this, &BasicChart::slotSearch, Qt::UniqueConnection);
}

void BasicChart::disconnectTree()
{
    disconnect(ui->comboBox, &QComboBox::currentTextChanged, this, &BasicChart::slotSearch);
}

bool BasicChart::currentNode(NODE &node) const
{
    ZrTreeView *tree = ui->comboBox->m_pTreeView;
    return tree && tree->getCurrentItemData(node);
}

int BasicChart::getOrgaID() const
{
    NODE node;
    const int id = currentNode(node) ? node.id : 0;
    qDebug() << "BasicChart::getOrgaID " << id;
    return id;
}

std::vector<int> BasicChart::getOrgaIDList()
{
    idlist.clear();
    NODE node;
    if (currentNode(node))
        idlist.push_back(node.id);
    qDebug() << "BasicChart::getOrgaIDList"
             << "idlist" << idlist;
    return idlist;
}

int BasicChart::selectedOrgType() const
{
    return ui->comboBoxOrgType->currentData(Qt::UserRole).toInt();
}
