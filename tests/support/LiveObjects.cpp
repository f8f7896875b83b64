#include "LiveObjects.h"

#include <QtCore/QMutex>
#include <QtCore/QMutexLocker>
#include <QtCore/QObject>
#include <QtCore/QSet>
#include <QtCore/QStringList>
#include <QtCore/QThread>
#include <QtWidgets/QGesture>

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__)
#define TALVIX_ADDRESS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TALVIX_ADDRESS_SANITIZER
#endif
#endif
#if defined(TALVIX_ADDRESS_SANITIZER)
// Its header does not come with every compiler.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#elif defined(__GLIBC__)
#include <malloc.h>
#endif

QT_BEGIN_NAMESPACE
extern quintptr Q_DECL_IMPORT qtHookData[];
QT_END_NAMESPACE

namespace {

enum Hook : int { Size = 1, ObjectAdded = 3, ObjectRemoved = 4 };

QMutex mutex;
QSet<const QObject *> *alive = nullptr;

void added(QObject *object)
{
    const QMutexLocker lock(&mutex);
    alive->insert(object);
}

void removed(QObject *object)
{
    const QMutexLocker lock(&mutex);
    alive->remove(object);
}

} // namespace

bool LiveObjects::watch()
{
    if (alive)
        return true;
    if (qtHookData[Size] <= ObjectRemoved)
        return false;
    // It outlives the last object, which may be a static one.
    alive = new QSet<const QObject *>;
    qtHookData[ObjectAdded] = reinterpret_cast<quintptr>(&added);
    qtHookData[ObjectRemoved] = reinterpret_cast<quintptr>(&removed);
    return true;
}

QMap<QString, int> LiveObjects::byClass()
{
    QMap<QString, int> counts;
    const QMutexLocker lock(&mutex);
    for (const QObject *object : *alive) {
        // Objects of other threads may be on their way out, and gestures come and go as their recogniser
        // likes.
        const bool counted =
            object->thread() == QThread::currentThread() && !qobject_cast<const QGesture *>(object);
        if (counted)
            ++counts[QString::fromLatin1(object->metaObject()->className())];
    }
    return counts;
}

QString LiveObjects::difference(const QMap<QString, int> &before, const QMap<QString, int> &after)
{
    QMap<QString, int> changes = after;
    for (auto known = before.cbegin(); known != before.cend(); ++known)
        changes[known.key()] -= known.value();
    QStringList words;
    for (auto change = changes.cbegin(); change != changes.cend(); ++change) {
        if (change.value() != 0)
            words.append(QStringLiteral("%1 %2%3")
                             .arg(change.key(), change.value() > 0 ? QStringLiteral("+") : QString())
                             .arg(change.value()));
    }
    return words.join(QStringLiteral(", "));
}

qint64 LiveObjects::allocatedBytes()
{
#if defined(TALVIX_ADDRESS_SANITIZER)
    return static_cast<qint64>(__sanitizer_get_current_allocated_bytes());
#elif defined(__GLIBC__)
    const auto state = mallinfo2();
    return static_cast<qint64>(state.uordblks + state.hblkhd);
#else
    return -1;
#endif
}
