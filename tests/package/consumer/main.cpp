#include <DataStaticsPlugin.h>
#include <DataStaticsWidget.h>

#include <QtWidgets/QApplication>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    DataStaticsPlugin plugin;
    const int id = plugin.init(nullptr);
    return qobject_cast<DataStaticsWidget *>(plugin.getWidget(id)) && plugin.uninit(id) ? 0 : 1;
}
