#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

/// Shows one of its children at a time, in full size.
///
/// A stacked layout would not do: it holds back all painting while it shows a page, and pages ask their
/// questions, and paint that they are busy, just then. Nor would any other layout, as pages have titles that
/// wrap: in a scroll area they would get the height that is best for these, not the height that there is.
class Stage : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    void showPage(QWidget *page);

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QPointer<QWidget> m_page;
};
