#pragma once

#include "TalvixWidgetsGlobal.h"

#include <QtCore/QList>
#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtWidgets/QWidget>

#include <utility>

class QLineEdit;
class QTextEdit;
struct PREVIEWCONFIGPARAM;

/// Lowest base of every widget of the client: theme, language and the "hidden" mark.
///
/// Lives on the GUI thread. A widget that is given no parent belongs to whoever made it.
///
/// What an implementation owes its pages:
/// - A change of the application's language (`QEvent::LanguageChange`) calls `retranslateUi()`.
/// - A hide calls `doAfterWidgetHide()`. An override may do no more than set `m_bAfterHide`; the base must
///   cope with that, and the next show reaches `doAfterWidgetShow()` all the same.
/// - The operations are called in virtual order by the host's own libraries; their order is part of the
/// contract.
class TALVIXWIDGETS_EXPORT BaseStyleWidget : public QWidget
{
    Q_OBJECT

public:
    explicit BaseStyleWidget(QWidget *parent = nullptr, Qt::WindowFlags flags = {});
    ~BaseStyleWidget() override;

    /// Builds what the widget needs before its first use. Who calls it, and when, is the page's own affair.
    virtual void initForm();
    /// Renews every text in the application's current language.
    virtual void retranslateUi();
    /// Runs after each show of the widget, inside its show event.
    virtual void doAfterWidgetShow();
    /// Runs after each hide of the widget. The base sets `m_bAfterHide`.
    virtual void doAfterWidgetHide();

    // The operations below serve the host's own pages.
    virtual void releaseResource();
    virtual void processSpecialParam(QMap<QString, QString> &param);
    virtual bool lineEditFocusIn(QLineEdit *lineEdit);
    virtual bool textEditFocusIn(QTextEdit *textEdit);
    virtual bool doVerifyLineEditText(QLineEdit *lineEdit, QString &text);
    virtual bool doVeriryTextEditText(QTextEdit *textEdit, QString &text);
    virtual void shortcutEnter();
    virtual void shortcutClose();
    virtual void setPreviewConfigParam(const PREVIEWCONFIGPARAM &param);
    virtual int getSelectLayoutId();
    virtual QList<std::pair<int, int>> getCurrLayoutList();
    virtual int getCurLayoutMode();
    virtual int getPicInPicModel();
    virtual QList<QString> getPicInPicPos();
    virtual bool getShowAllDevEnabled();
    virtual void appQuitProcess();

    /// Shows \a text as a tip on this widget and returns at once.
    /// \a kind: 1 statement, 2 warning, 3 failure. The tip takes no focus and goes by itself.
    virtual void setTips(const QString &text, const int &kind);
    /// Shows the last tip again, if there was one.
    virtual void showTips();

protected:
    /// True from a hide to the next show.
    bool m_bAfterHide = false;

    void paintEvent(QPaintEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    class Private;
    Private *d;
};
