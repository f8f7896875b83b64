#pragma once

#include <QtCore/QPointer>
#include <QtCore/QSize>
#include <QtWidgets/QWidget>

#include <memory>

/// How the labels below the charts of one view stand. Replaced charts keep to it while their page has the
/// size, as far as their texts fit that way.
struct LabelStance
{
    QPointer<const QWidget> page;
    QSize pageSize;
    int angle = 0; ///< degrees

    /// Forgets the angle when the page has another size by now.
    void follow()
    {
        if (page && page->size() != pageSize) {
            pageSize = page->size();
            angle = 0;
        }
    }

    /// What \a stance holds; for \a page it is made where there is none.
    static const std::shared_ptr<LabelStance> &of(const QWidget &page, std::shared_ptr<LabelStance> &stance)
    {
        if (!stance)
            stance = std::make_shared<LabelStance>(LabelStance{&page, page.size(), 0});
        return stance;
    }
};
