#include "Screen.h"

#include "PhoneScreen.h"

#include <QCoreApplication>
#include <QTest>
#include <QTimer>

void Screen::press(const std::vector<Qt::Key>& keys)
{
    for (Qt::Key key : keys)
        QTest::keyClick(PhoneScreen::instance()->windowHandle(), key);
}

void Screen::pressAtOnce(Qt::Key key)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(PhoneScreen::instance()->windowHandle(), &press);
}

void Screen::repeat(Qt::Key key, int repetitions)
{
    for (int i = 0; i < repetitions; ++i) {
        QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(PhoneScreen::instance()->windowHandle(), &repeated);
    }
}

void Screen::hold(Qt::Key key, int repetitions)
{
    QTest::keyPress(PhoneScreen::instance()->windowHandle(), key);
    repeat(key, repetitions);
    QTest::keyRelease(PhoneScreen::instance()->windowHandle(), key);
}

void Screen::later(std::function<void()> action)
{
    QTimer::singleShot(0, PhoneScreen::instance(), std::move(action));
}

void Screen::settle()
{
    for (int i = 0; i < 20; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

void Screen::picture(const QString& name)
{
    const QString folder = qEnvironmentVariable("VISTANE_PICTURES");
    if (folder.isEmpty())
        return;
    settle();
    PhoneScreen::instance()->grab().save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
}
