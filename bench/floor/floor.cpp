// The floor that the menu is measured against: what any Qt Widgets program costs that shows these rows in a window of
// this size.

#include <QApplication>
#include <QListWidget>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QListWidget list;
    list.addItems({"Home screen headlines\nOn", "How to use headlines", "Add a channel", "Manage my channels",
                   "Settings", "Details"});
    list.setFixedSize(240, 320);
    list.show();
    return application.exec();
}
