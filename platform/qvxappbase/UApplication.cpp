#include "UApplication.h"

#include "Fonts.h"
#include "HostBus.h"
#include "Log.h"
#include "Look.h"
#include "PhoneScreen.h"
#include "PlatformSignals.h"

#include <QAbstractEventDispatcher>
#include <QFontDatabase>
#include <QLocale>
#include <QTranslator>

namespace {

const Log logger("UApplication");

// The phone looks the same everywhere: no desktop's theme, no colours or fonts but its own.
int& withoutDesktopTheme(int& argc)
{
    QApplication::setDesktopSettingsAware(false);
    Fonts::configure();
    return argc;
}

} // namespace

UApplication::UApplication(int& argc, char** argv, Type /*type*/)
    : QApplication(withoutDesktopTheme(argc), argv)
{
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
    HostBus::subscribe(PlatformSignals::path, PlatformSignals::busInterface, PlatformSignals::returnToIdle,
                       this, SLOT(receiveReturnToIdle(int)));
}

UApplication::~UApplication() = default;

UApplication* UApplication::instance()
{
    return static_cast<UApplication*>(QCoreApplication::instance());
}

void UApplication::wakeUpGuiThread()
{
    eventDispatcher()->wakeUp();
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
