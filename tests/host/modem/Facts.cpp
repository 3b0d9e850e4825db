#include "DeviceFacts.h"
#include "StoreChanges.h"
#include "aplog.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <iostream>

namespace {

void print()
{
    for (const char* name : {"imsi", "msisdn", "home_network", "current_network", "roaming", "friendly"})
        std::cout << DeviceFacts::find(name).value << (name[0] == 'f' ? '\n' : '|');
    std::cout.flush();
}

} // namespace

// A program that runs as long as a life does. It prints what the modem tells for each line that it reads, or, with an
// argument, at first and after each change.
int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    _aplog_init_orig("facts", 0); // not between the answers
    QSocketNotifier input(0, QSocketNotifier::Read);
    if (argc > 1) {
        input.setEnabled(false);
        QObject::connect(StoreChanges::instance(), &StoreChanges::changed, print);
        print();
    }
    QObject::connect(&input, &QSocketNotifier::activated, [] {
        if (std::string line; std::getline(std::cin, line))
            print();
        else
            QCoreApplication::quit();
    });
    return QCoreApplication::exec();
}
