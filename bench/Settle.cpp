#include "Settle.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QThread>

void settle()
{
    QAbstractEventDispatcher *events = QThread::currentThread()->eventDispatcher();
    do {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    } while (events->processEvents(QEventLoop::AllEvents));
}

void FinishedAnimations::advance()
{
    constexpr qint64 longerThanAnyAnimation = 60000;
    m_elapsed += longerThanAnyAnimation;
    advanceAnimation();
}

void FinishedAnimations::start()
{
    QAnimationDriver::start();
    QMetaObject::invokeMethod(this, &FinishedAnimations::advance, Qt::QueuedConnection);
}
