#pragma once

#include "TalvixWidgetsGlobal.h"

#include <QtWidgets/QWidget>

/// Busy overlay over a widget, for the length of a scope.
///
/// \code
/// ZrLoaddingWidget loading(page, Qt::NonModal);
/// loading.start(0);
/// // blocking calls
/// \endcode
class TALVIXWIDGETS_EXPORT ZrLoaddingWidget : public QWidget
{
    Q_OBJECT

public:
    /// Makes the overlay of \a parent, still hidden.
    ZrLoaddingWidget(QWidget *parent, Qt::WindowModality modality);
    /// Removes the overlay.
    ~ZrLoaddingWidget() override;

    /// Covers the parent and paints the overlay before it returns, so that it is seen while the thread
    /// blocks. \a value is the progress in percent; 0 means unknown.
    void start(int value);

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void paintNow();

    class Private;
    Private *d;
};
