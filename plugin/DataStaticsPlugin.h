#pragma once

#include "TalvixDataStaticsGlobal.h"

#include <QtCore/QMap>
#include <QtCore/QObject>

#include <utility>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

class BaseWidget;

/// Front door of the statistics library: hands out tab widgets by number.
///
/// \code
/// DataStaticsPlugin plugin;
/// const int id = plugin.init(frame);        // builds the widget, asks the server nothing
/// layout->addWidget(plugin.getWidget(id));  // its first show fetches and draws
/// plugin.uninit(id);                        // when the place is given up
/// \endcode
///
/// All operations belong to the GUI thread. None of them reports a failure anywhere but in its answer; the
/// pages write debug lines of their own as they get their kinds. Keep the library loaded for as long as a
/// widget of it lives: the widget's code is in it.
class TALVIXDATASTATICS_EXPORT DataStaticsPlugin : public QObject
{
    Q_OBJECT

public:
    explicit DataStaticsPlugin(QObject *parent = nullptr);
    /// Forgets all numbers. Widgets that are still registered stay alive, with a parent or without.
    ~DataStaticsPlugin() override;

    /// Builds a tab widget below \a parent and answers its number, from 1 upwards; -1 when there is no memory
    /// for it.
    ///
    /// A number is never given out twice in a process, not even by another plug-in object. The widget is not
    /// shown: its host lays it out and shows it, and with that its first page fetches the organisations and
    /// the figures. With a null parent only `uninit` deletes the widget.
    int init(QWidget *parent);

    /// The widget of a number, or null when the number is not (or no longer) known here.
    /// The registry does not notice when somebody else deletes the widget.
    BaseWidget *getWidget(const int &id);

    /// Forgets a number; true when it was known.
    ///
    /// A widget that was built without a parent is deleted when control returns to the event loop, so one of
    /// its own slots may call this. A widget with a parent is left exactly as it is: its parent owns it.
    bool uninit(const int &id);

private:
    QMap<int, std::pair<QWidget *, BaseWidget *>> m_mapWidgets;
    static int m_nWndId;
};
