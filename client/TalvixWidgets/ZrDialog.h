#pragma once

#include "BaseWidget.h"

/// Frameless dialog over its parent, which the user can move by dragging it.
///
/// Derived dialogs decide who may show and close them: both operations are protected.
class TALVIXWIDGETS_EXPORT ZrDialog : public BaseWidget
{
    Q_OBJECT

public:
    explicit ZrDialog(QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::Dialog);
    ~ZrDialog() override;

    void doAfterWidgetShow() override;
    /// Enter: presses the dialog's default button, if it has one.
    void shortcutEnter() override;
    /// Escape: closes the dialog as its close button does.
    void shortcutClose() override;

protected:
    /// Shows the dialog centred over its parent and returns at once. The parent's window takes no input
    /// until the dialog is closed.
    void showZrDialog();
    /// Closes the dialog. It is hidden, not deleted, and can be shown again.
    void closeZrDialog();

    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool nativeEvent(const QByteArray &eventType, void *message, qintptr *result) override;

private:
    class Private;
    Private *d;
};
