#include <TalvixWidgets/BaseStyleWidget.h>

#include "Toast.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QTextEdit>

class BaseStyleWidget::Private
{
public:
    QString tipText;
    int tipKind = 0;
};

BaseStyleWidget::BaseStyleWidget(QWidget *parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
    , d(new Private)
{ }

BaseStyleWidget::~BaseStyleWidget()
{
    delete d;
}

void BaseStyleWidget::initForm()
{ }

void BaseStyleWidget::retranslateUi()
{ }

void BaseStyleWidget::doAfterWidgetShow()
{ }

void BaseStyleWidget::doAfterWidgetHide()
{
    m_bAfterHide = true;
}

void BaseStyleWidget::releaseResource()
{ }

void BaseStyleWidget::processSpecialParam(QMap<QString, QString> &)
{ }

bool BaseStyleWidget::lineEditFocusIn(QLineEdit *)
{
    return false;
}

bool BaseStyleWidget::textEditFocusIn(QTextEdit *)
{
    return false;
}

bool BaseStyleWidget::doVerifyLineEditText(QLineEdit *, QString &)
{
    return true;
}

bool BaseStyleWidget::doVeriryTextEditText(QTextEdit *, QString &)
{
    return true;
}

void BaseStyleWidget::shortcutEnter()
{ }

void BaseStyleWidget::shortcutClose()
{ }

void BaseStyleWidget::setPreviewConfigParam(const PREVIEWCONFIGPARAM &)
{ }

int BaseStyleWidget::getSelectLayoutId()
{
    return 0;
}

QList<std::pair<int, int>> BaseStyleWidget::getCurrLayoutList()
{
    return {};
}

int BaseStyleWidget::getCurLayoutMode()
{
    return 0;
}

int BaseStyleWidget::getPicInPicModel()
{
    return 0;
}

QList<QString> BaseStyleWidget::getPicInPicPos()
{
    return {};
}

bool BaseStyleWidget::getShowAllDevEnabled()
{
    return false;
}

void BaseStyleWidget::appQuitProcess()
{ }

void BaseStyleWidget::setTips(const QString &text, const int &kind)
{
    d->tipText = text;
    d->tipKind = kind;
    showTips();
}

void BaseStyleWidget::showTips()
{
    Toast::showTip(this, d->tipText, d->tipKind);
}

void BaseStyleWidget::paintEvent(QPaintEvent *)
{
    // A plain QWidget that was derived from paints no style sheet background by itself.
    QStyleOption option;
    option.initFrom(this);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
}

void BaseStyleWidget::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    // Minimising the window is no hide of the page: nobody has left it.
    if (!event->spontaneous())
        doAfterWidgetHide();
}

void BaseStyleWidget::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslateUi();
}
