#include <TalvixWidgets/ZrComboBoxWithTree.h>

#include "LanguageTexts.h"
#include "OrganisationTreeModel.h"

#include <QtCore/QAbstractListModel>
#include <QtCore/QSet>
#include <QtGui/QKeyEvent>
#include <QtGui/QScreen>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFrame>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QStyleOptionComboBox>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <functional>

namespace {

/// What the closed box shows: one row with the chosen node, none when there is no tree.
class ChosenNodeModel : public QAbstractListModel
{
public:
    ChosenNodeModel(QObject *parent, std::function<void()> emptied)
        : QAbstractListModel(parent)
        , m_emptied(std::move(emptied))
    { }

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return m_filled && !parent.isValid() ? 1 : 0;
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (!index.isValid())
            return {};
        if (role == Qt::DisplayRole || role == Qt::EditRole)
            return m_text;
        if (role == Qt::DecorationRole && !m_icon.isNull())
            return m_icon;
        return {};
    }

    /// `QComboBox::clear()` empties its model by this; the tree goes with it.
    bool removeRows(int row, int count, const QModelIndex &parent = {}) override
    {
        if (!m_filled || row != 0 || count != 1 || parent.isValid())
            return false;
        beginRemoveRows(parent, 0, 0);
        m_filled = false;
        m_text.clear();
        m_icon = {};
        m_emptied();
        endRemoveRows();
        return true;
    }

    void fill()
    {
        if (m_filled)
            return;
        beginInsertRows({}, 0, 0);
        m_filled = true;
        endInsertRows();
    }

    void show(const QString &text, const QIcon &icon)
    {
        m_text = text;
        m_icon = icon;
        if (m_filled)
            Q_EMIT dataChanged(index(0), index(0));
    }

private:
    std::function<void()> m_emptied;
    QString m_text;
    QIcon m_icon;
    bool m_filled = false;
};

} // namespace

class ZrComboBoxWithTree::Private
{
public:
    explicit Private(ZrComboBoxWithTree *combo)
        : q(combo)
        , nodes(new OrganisationTreeModel(combo))
        , box(new ChosenNodeModel(combo, [this] { empty(); }))
        , tree(new ZrTreeView(combo))
    { }
    Q_DISABLE_COPY_MOVE(Private)

    void build();
    void empty();
    void showChosen();
    void restoreExpansion();
    void search(const QString &text);
    void showCursorAtChosen();
    void commit(const QModelIndex &index);
    void closed();
    bool isOpen() const { return popup && popup->isVisible(); }

    ZrComboBoxWithTree *q;
    OrganisationTreeModel *nodes;
    ChosenNodeModel *box;
    ZrTreeView *tree;
    QFrame *popup = nullptr;
    QLineEdit *line = nullptr;
    QLabel *nothingFound = nullptr;
    QSet<int> expanded;
    bool announced = false;
    bool settled = true;
};

void ZrComboBoxWithTree::Private::build()
{
    if (popup)
        return;
    popup = new QFrame(q, Qt::Popup | Qt::FramelessWindowHint);
    popup->setObjectName(QStringLiteral("treePopup"));
    popup->setFrameShape(QFrame::StyledPanel);
    popup->installEventFilter(q);

    line = new QLineEdit(popup);
    line->setObjectName(QStringLiteral("lineEditSearch"));
    line->setClearButtonEnabled(true);
    line->installEventFilter(q);
    nothingFound = new QLabel(popup);
    nothingFound->setObjectName(QStringLiteral("labelNothingFound"));
    nothingFound->setAlignment(Qt::AlignCenter);
    nothingFound->hide();

    auto *layout = new QVBoxLayout(popup);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(6);
    layout->addWidget(line);
    layout->addWidget(nothingFound);
    layout->addWidget(tree, 1);
    tree->show();
    tree->installEventFilter(q);
    tree->setFrameShape(QFrame::NoFrame);

    QObject::connect(line, &QLineEdit::textChanged, q, [this](const QString &text) { search(text); });
}

void ZrComboBoxWithTree::Private::empty()
{
    q->hidePopup();
    settled = false;
    expanded.clear();
    nodes->setNodes({});
    settled = true;
}

void ZrComboBoxWithTree::Private::showChosen()
{
    const NODE *chosen = nodes->chosenNode();
    announced = false;
    box->show(chosen ? chosen->name : QString(),
        chosen && !chosen->iconPath.isEmpty() ? QIcon(chosen->iconPath) : QIcon());
    if (chosen && q->currentIndex() != 0)
        q->setCurrentIndex(0);
    q->setToolTip(nodes->chosenPath().join(QStringLiteral(" / ")).toHtmlEscaped());
}

void ZrComboBoxWithTree::Private::restoreExpansion()
{
    {
        // What a search has opened is no wish of the user's.
        const QSignalBlocker quiet(tree);
        tree->collapseAll();
    }
    for (const int number : std::as_const(expanded))
        tree->expand(nodes->indexOf(number));
}

void ZrComboBoxWithTree::Private::search(const QString &text)
{
    settled = false;
    nodes->setFilter(text.trimmed());
    if (nodes->filter().isEmpty()) {
        restoreExpansion();
        showCursorAtChosen();
    } else {
        tree->expandAll();
        const QModelIndex first = nodes->firstMatch();
        tree->setCurrentIndex(first);
        tree->scrollTo(first);
    }
    const bool found = nodes->rowCount() > 0;
    nothingFound->setVisible(!found);
    settled = true;
}

void ZrComboBoxWithTree::Private::showCursorAtChosen()
{
    const QModelIndex place = nodes->indexOf(nodes->chosen());
    tree->setCurrentIndex(place);
    if (place.isValid())
        tree->scrollTo(place, QAbstractItemView::EnsureVisible);
}

void ZrComboBoxWithTree::Private::commit(const QModelIndex &index)
{
    if (!index.isValid() || !(index.flags() & Qt::ItemIsEnabled))
        return;
    // Closed first: what a choice sets off blocks the thread.
    const int number = OrganisationTreeModel::numberOf(index);
    q->hidePopup();
    nodes->choose(number);
}

void ZrComboBoxWithTree::Private::closed()
{
    settled = false;
    {
        const QSignalBlocker blocker(line);
        line->clear();
    }
    nothingFound->hide();
    if (!nodes->filter().isEmpty()) {
        nodes->setFilter({});
        restoreExpansion();
    }
    showCursorAtChosen();
    settled = true;
    q->update();
}

ZrComboBoxWithTree::ZrComboBoxWithTree(QWidget *parent)
    : QComboBox(parent)
    , d(new Private(this))
{
    m_pTreeView = d->tree;
    d->tree->hide();
    d->tree->setModel(d->nodes);
    setModel(d->box);
    // The box keeps its width whatever the chosen name is; a long one is cut and stands in the tool tip.
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);

    connect(this, &QComboBox::currentTextChanged, this, [this] { d->announced = true; });
    connect(d->nodes, &OrganisationTreeModel::chosenChanged, this, [this] {
        const bool wasSettled = d->settled;
        d->settled = false;
        d->showCursorAtChosen();
        d->settled = wasSettled;
        d->showChosen();
        // The base tells of another text; another node of the same name is news as well.
        if (!d->announced)
            Q_EMIT currentTextChanged(currentText());
    });
    connect(d->tree, &QTreeView::expanded, this, [this](const QModelIndex &index) {
        if (d->nodes->filter().isEmpty())
            d->expanded.insert(OrganisationTreeModel::numberOf(index));
    });
    connect(d->tree, &QTreeView::collapsed, this, [this](const QModelIndex &index) {
        if (d->nodes->filter().isEmpty())
            d->expanded.remove(OrganisationTreeModel::numberOf(index));
    });
    connect(d->tree, &QTreeView::clicked, this, [this](const QModelIndex &index) { d->commit(index); });
    connect(d->tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
        [this](const QModelIndex &index) {
            // In the open popup the cursor moves about; only Enter or a click chooses.
            if (d->settled && !d->isOpen())
                d->nodes->choose(OrganisationTreeModel::numberOf(index));
        });
}

ZrComboBoxWithTree::~ZrComboBoxWithTree()
{
    // An open popup closes as it dies, which is nothing to answer any more.
    d->settled = false;
    d->tree->removeEventFilter(this);
    if (d->popup)
        d->popup->removeEventFilter(this);
    delete d->tree;
    delete d->popup;
    delete d;
}

void ZrComboBoxWithTree::initForm()
{ }

void ZrComboBoxWithTree::addNode(QList<NODE> &nodes, bool expandRoot)
{
    hidePopup();
    d->settled = false;
    d->expanded.clear();
    d->nodes->setNodes(nodes);
    if (nodes.isEmpty()) {
        d->settled = true;
        clear();
        return;
    }
    d->showChosen();
    {
        // The base makes the first row current; there is no current node yet.
        const QSignalBlocker blocker(this);
        d->box->fill();
    }
    for (int row = 0; expandRoot && row < d->nodes->rowCount(); ++row)
        d->tree->expand(d->nodes->index(row, 0));
    d->settled = true;
}

void ZrComboBoxWithTree::updateNode(const QList<NODE> &nodes)
{
    d->nodes->renewNodes(nodes);
}

void ZrComboBoxWithTree::showPopup()
{
    if (count() == 0 || d->isOpen())
        return;
    d->build();
    d->line->setPlaceholderText(LanguageTexts::find(QStringLiteral("TK_SearchOrganization")));
    d->line->setAccessibleName(d->line->placeholderText());
    d->tree->setAccessibleName(LanguageTexts::find(QStringLiteral("TK_Organization")));
    d->nothingFound->setText(LanguageTexts::find(QStringLiteral("TK_NothingFound")));

    d->popup->ensurePolished();
    const int rowHeight = std::max(d->tree->sizeHintForRow(0), fontMetrics().height());
    const int rows = std::clamp(static_cast<int>(std::min<qsizetype>(d->nodes->size(), 1000)), 6,
        std::max(6, std::min(maxVisibleItems(), 16)));
    QSize size(std::max(width(), 280), rowHeight * rows + d->line->sizeHint().height() + 24);
    const QRect room = screen()->availableGeometry();
    size = size.boundedTo(room.size());
    QPoint place = mapToGlobal(QPoint(isRightToLeft() ? width() - size.width() : 0, height() + 2));
    if (place.y() + size.height() > room.bottom() + 1) {
        const int above = mapToGlobal(QPoint()).y() - 2 - size.height();
        place.setY(above >= room.top() ? above : std::max(room.top(), room.bottom() + 1 - size.height()));
    }
    place.setX(std::max(room.left(), std::min(place.x(), room.right() + 1 - size.width())));
    d->popup->setGeometry(QRect(place, size));
    d->popup->show();
    d->line->setFocus(Qt::PopupFocusReason);
    d->settled = false;
    d->showCursorAtChosen();
    d->settled = true;
}

void ZrComboBoxWithTree::hidePopup()
{
    if (d->isOpen())
        d->popup->hide();
    QComboBox::hidePopup();
}

bool ZrComboBoxWithTree::eventFilter(QObject *watched, QEvent *event)
{
    if (!d->popup)
        return QComboBox::eventFilter(watched, event);
    if (watched == d->popup && event->type() == QEvent::Hide) {
        d->closed();
    } else if (watched == d->popup && event->type() == QEvent::MouseButtonPress) {
        // A press on the box closes the popup; sent on to the box it would open it again.
        const QPoint place = static_cast<QMouseEvent *>(event)->globalPosition().toPoint();
        d->popup->setAttribute(Qt::WA_NoMouseReplay, rect().contains(mapFromGlobal(place)));
    } else if ((watched == d->line || watched == d->tree) && event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        switch (key->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            d->commit(d->tree->currentIndex());
            return true;
        case Qt::Key_Escape:
        case Qt::Key_F4:
            hidePopup();
            return true;
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            if (watched == d->line)
                QApplication::sendEvent(d->tree, event);
            return watched == d->line;
        case Qt::Key_Left:
        case Qt::Key_Right:
            if (watched != d->line || !d->line->text().isEmpty())
                return false;
            QApplication::sendEvent(d->tree, event);
            return true;
        default:
            // Typing in the tree is searching too.
            if (watched == d->tree && !key->text().isEmpty() && key->text().at(0).isPrint()) {
                d->line->setFocus();
                QApplication::sendEvent(d->line, event);
                return true;
            }
        }
    }
    return QComboBox::eventFilter(watched, event);
}

void ZrComboBoxWithTree::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F4:
        showPopup();
        return;
    default:
        break;
    }
    const QString typed = event->text();
    if (typed.isEmpty() || !typed.at(0).isPrint()
        || event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) {
        event->ignore();
        return;
    }
    showPopup();
    if (d->isOpen())
        d->line->setText(typed);
}

void ZrComboBoxWithTree::wheelEvent(QWheelEvent *event)
{
    // Each node is a query; scrolling past the box must not ask for them all.
    event->ignore();
}

void ZrComboBoxWithTree::initStyleOption(QStyleOptionComboBox *option) const
{
    QComboBox::initStyleOption(option);
    constexpr int gap = 4;
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, option, QStyle::SC_ComboBoxEditField, this);
    const int icon = option->currentIcon.isNull() ? 0 : option->iconSize.width() + gap;
    option->currentText =
        option->fontMetrics.elidedText(option->currentText, Qt::ElideRight, field.width() - icon - gap);
}
