#pragma once

#include <QtCore/QEvent>
#include <QtCore/QObject>

/// Counts events of one type on their way to an object.
class EventCount : public QObject
{
public:
    EventCount(QObject *watched, QEvent::Type type)
        : m_type(type)
    {
        watched->installEventFilter(this);
    }

    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == m_type;
        return false;
    }

private:
    QEvent::Type m_type;
};
