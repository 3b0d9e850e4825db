#include "UApplication.h"

#include "FailureNotice.h"
#include "Fonts.h"
#include "HostBus.h"
#include "Log.h"
#include "Look.h"
#include "PhoneScreen.h"
#include "Text.h"

#include <QAbstractEventDispatcher>
#include <QFontDatabase>
#include <QLocale>
#include <QTranslator>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <sys/resource.h>

namespace {

const Log logger("UApplication");

// Qt believes any number, and shows a black window, or none, at some of them.
void checkScale()
{
    constexpr char variable[] = "QT_SCALE_FACTOR";
    constexpr double largest = 16;
    bool isNumber = false;
    const QByteArray given = qgetenv(variable);
    const double scale = given.toDouble(&isNumber);
    if (given.isEmpty() || (isNumber && scale > 0 && scale <= largest))
        return;
    logger(3, "%s is %s, but a number above 0 and up to 16 is wanted: taking 1", variable,
           Text::withoutControls(given.left(100).toStdString()).c_str());
    qputenv(variable, "1");
}

// With fewer files Qt fails in ways that tell nobody why, and the store cannot be read.
void checkOpenFiles()
{
    constexpr rlim_t wanted = 64;
    constexpr rlim_t fewest = 24;
    rlimit files = {};
    if (getrlimit(RLIMIT_NOFILE, &files) != 0 || files.rlim_cur >= wanted)
        return;
    files.rlim_cur = std::min(wanted, files.rlim_max);
    setrlimit(RLIMIT_NOFILE, &files);
    if (files.rlim_cur >= fewest)
        return;
    logger(3, "only %llu files may be open at a time, and at least %llu are needed (ulimit -n)",
           static_cast<unsigned long long>(files.rlim_cur), static_cast<unsigned long long>(fewest));
    std::exit(1);
}

// The phone looks the same everywhere: no desktop's theme, no colours or fonts but its own. Qt asks for the bus, too.
int& beforeQtStarts(int& argc)
{
    QApplication::setDesktopSettingsAware(false);
    // The desktop entry has the bus name; a compositor finds the name and the icon of the window there.
    QApplication::setDesktopFileName(BusSignals::menu);
    // A reader of the log that goes away ends nothing. Qt gives what it starts the default action back.
    std::signal(SIGPIPE, SIG_IGN);
    checkOpenFiles();
    checkScale();
    HostBus::avoidSilentBus();
    Fonts::configure();
    return argc;
}

} // namespace

UApplication::UApplication(int& argc, char** argv, Type /*type*/) : QApplication(beforeQtStarts(argc), argv)
{
    const auto raise = [this](const QByteArray& token) {
        logger(7, "somebody wants the menu in front");
        mScreen->bringToFront(token);
    };
    if (!HostBus::beOnlyMenu(this, raise)) {
        logger(3, "the menu is running already and comes to the front");
        std::_Exit(0); // nothing is open yet that wants closing
    }
    setStyle(QStringLiteral("fusion"));
    setPalette(Look::palette());
    setFont(Look::font(Look::Text::Body));
    // The program ends when the root menu says so, not when some window goes.
    setQuitOnLastWindowClosed(false);
    if (QFontDatabase::families().isEmpty())
        logger(3, "no fonts are installed, so no text can be shown; install a font package such as "
                  "fonts-dejavu-core");
    loadFixedTexts();
    mScreen = std::make_unique<PhoneScreen>();
    mFailures = std::make_unique<FailureNotice>();
    connect(mScreen.get(), &PhoneScreen::redKeyPressed, this, [this] { emit askReturnToIdle(0); });
    connect(mScreen.get(), &PhoneScreen::closedByPerson, this, [this] { returnToIdleLater(0); });
    HostBus::subscribe(BusSignals::returnToIdle, this, [this](const HostBus::Message& message) {
        if (mScreen->isEmpty())
            logger(3, "a return to idle is dropped: nothing is shown yet");
        else
            emit askReturnToIdle(message.arguments[0].toInt());
    });
}

UApplication::~UApplication() = default;

UApplication* UApplication::instance()
{
    return static_cast<UApplication*>(QCoreApplication::instance());
}

void UApplication::setMainWidget(QWidget* /*widget*/)
{
    HostBus::deliverPending(this);
}

void UApplication::wakeUpGuiThread()
{
    eventDispatcher()->wakeUp();
}

void UApplication::repaintScreen()
{
    mScreen->repaint();
}

void UApplication::dropEarlyInput()
{
    mScreen->keys().dropEarlyInput();
}

void UApplication::returnToIdleLater(int reason)
{
    QMetaObject::invokeMethod(
        this, [this, reason] { emit askReturnToIdle(reason); }, Qt::QueuedConnection);
}

// English first: the language of the user fills in over it, and what it lacks stays English.
void UApplication::loadFixedTexts()
{
    Q_INIT_RESOURCE(translations);
    const QString folder = QStringLiteral(":/vistane/translations");
    auto* english = new QTranslator(this);
    if (english->load(QStringLiteral("vistane_en"), folder))
        installTranslator(english);
    auto* translator = new QTranslator(this);
    if (translator->load(QLocale(), QStringLiteral("vistane"), QStringLiteral("_"), folder))
        installTranslator(translator);
}
