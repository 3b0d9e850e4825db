#include "PhoneScreen.h"

#include "Log.h"
#include "Look.h"
#include "PhoneKeys.h"
#include "Text.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <optional>

namespace {

const Log logger("PhoneScreen");

constexpr QSize defaultSize(240, 320);
constexpr int smallestSide = 160;
constexpr int largestSide = 4096;

PhoneScreen* theScreen = nullptr;

// The size named by VISTANE_SCREEN, as in "240x320"; none when nobody says so.
std::optional<QSize> wantedSize()
{
    const QString wanted = qEnvironmentVariable("VISTANE_SCREEN");
    if (wanted.isEmpty())
        return std::nullopt;
    const QStringList sides = wanted.split(QLatin1Char('x'));
    const QSize size = sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize();
    const auto isUsable = [](int side) { return side >= smallestSide && side <= largestSide; };
    if (isUsable(size.width()) && isUsable(size.height()))
        return size;
    logger(3, "VISTANE_SCREEN is %s, but a size such as 240x320 is wanted; taking that",
           Text::withoutControls(wanted.left(100).toStdString()).c_str());
    return defaultSize;
}

// Whether there is nothing beside this window: on a phone, which has a small display, where there are no windows, or
// where a compositor runs that is no desktop.
bool isAlone()
{
    constexpr int widestPhone = 600; // the shorter side, in logical pixels
    const QString platform = QGuiApplication::platformName();
    const QSize display = QGuiApplication::primaryScreen()->size();
    return platform == QLatin1String("linuxfb") || platform == QLatin1String("eglfs") ||
           (platform.startsWith(QLatin1String("wayland")) &&
            qEnvironmentVariableIsEmpty("XDG_CURRENT_DESKTOP")) ||
           std::min(display.width(), display.height()) <= widestPhone;
}

} // namespace

PhoneScreen* PhoneScreen::instance()
{
    return theScreen;
}

PhoneScreen::PhoneScreen()
{
    theScreen = this;
    setObjectName(QStringLiteral("PhoneScreen"));
    setWindowTitle(QStringLiteral("Vistane"));
    setAccessibleName(windowTitle());
    setMinimumSize(smallestSide, smallestSide);
    resize(defaultSize);
    if (const std::optional<QSize> wanted = wantedSize()) {
        setFixedSize(*wanted);
    } else if (isAlone()) {
        setWindowFlag(Qt::FramelessWindowHint); // some compositors ask for a frame around what fills the screen
        setWindowState(Qt::WindowFullScreen);
        resize(screen()->size()); // some want to see a picture before they say how large it is to be
    }
    Look::setScreen(size());
}

PhoneScreen::~PhoneScreen()
{
    while (!mLayers.isEmpty())
        take(mLayers.last().widget);
    // What was taken off stays a child until its owner deletes it.
    const QList<QWidget*> left = findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    for (QWidget* layer : left)
        layer->setParent(nullptr);
    theScreen = nullptr;
}

void PhoneScreen::put(QWidget* layer, Layer kind)
{
    mLayers.removeIf([layer](const Entry& entry) { return entry.widget == layer; });
    mLayers.append({layer, kind});
    if (layer->parentWidget() != this)
        layer->setParent(this);
    layer->setGeometry(rect());
    layer->raise();
    arrange();
    if (!isVisible()) {
        show();
        windowHandle()->installEventFilter(&mKeys);
        // Without a window manager nobody else gives the window the keys.
        activateWindow();
    }
}

void PhoneScreen::take(QWidget* layer)
{
    if (mLayers.removeIf([layer](const Entry& entry) { return entry.widget == layer; }) == 0)
        return;
    arrange();
    layer->hide();
}

void PhoneScreen::bringToFront(const QByteArray& token)
{
    if (isEmpty())
        return;
    if (!token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token);
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

bool PhoneScreen::isOnTop(const QWidget* widget) const
{
    if (mLayers.isEmpty())
        return false;
    const QWidget* top = mLayers.last().widget;
    return top == widget || top->isAncestorOf(widget);
}

// Shows the topmost page and everything above it, nothing below, and gives the keys to the topmost layer. What
// is to be seen is shown before anything is hidden, so that the screen never flashes empty.
void PhoneScreen::arrange()
{
    const auto page = std::find_if(mLayers.crbegin(), mLayers.crend(),
                                   [](const Entry& entry) { return entry.kind == Layer::Page; });
    const qsizetype bottom = page == mLayers.crend() ? 0 : mLayers.crend() - page - 1;
    for (qsizetype i = bottom; i < mLayers.size(); ++i)
        mLayers[i].widget->setVisible(true);
    QWidget* top = mLayers.isEmpty() ? this : mLayers.last().widget;
    top->setFocus();
    // The pop-up that was on top until now, or is again, looks otherwise.
    update();
    for (qsizetype i = bottom; i < mLayers.size(); ++i)
        mLayers[i].widget->update();
    for (qsizetype i = 0; i < bottom; ++i)
        mLayers[i].widget->setVisible(false);
}

// The Tab key must not carry the keys to a layer below.
bool PhoneScreen::focusNextPrevChild(bool /*next*/)
{
    return false;
}

void PhoneScreen::keyPressEvent(QKeyEvent* event)
{
    if (PhoneKeys::meaning(*event) == Qt::Key_End && !PhoneKeys::isHeld(*event))
        emit redKeyPressed();
}

// A person, or the compositor, gives the window another size. With another unit, whoever keeps what a font decided is to
// ask anew first.
void PhoneScreen::resizeEvent(QResizeEvent* /*event*/)
{
    if (Look::setScreen(size())) {
        for (QWidget* widget : findChildren<QWidget*>()) {
            QEvent change(QEvent::FontChange);
            QCoreApplication::sendEvent(widget, &change);
        }
    }
    for (const Entry& layer : std::as_const(mLayers))
        layer.widget->setGeometry(rect());
}

// A window that refuses to close would refuse UApplication::quit() too, so it always goes; when a person closes
// it, that is the way to the idle screen.
void PhoneScreen::closeEvent(QCloseEvent* event)
{
    event->accept();
    if (event->spontaneous())
        emit closedByPerson();
}
