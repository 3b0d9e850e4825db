#include "ApiProvider.h"
#include "EntryRegistry.h"
#include "LivePages.h"
#include "Log.h"
#include "MenuChannel.h"
#include "MenuNode.h"
#include "MenuViewer.h"
#include "QCopChannel.h"
#include "UApplication.h"
#include "aplog.h"
#include "probeIdentity.h"
#include "qvxtapi.h"

#include <new>

#include <unistd.h>

namespace {

const Log logger("Vt_Menu");

// Log filters match on this source line, so it stays what it is wherever the call moves.
constexpr int channelLogLine = 116;

// Every message on the menu channel, whatever it says, ends the program.
void openMenuChannel(vtmenu::MenuViewer* rootViewer)
{
    auto* channel = new (std::nothrow) QCopChannel(menuChannel, rootViewer, nullptr);
    if (channel)
        QObject::connect(channel, SIGNAL(received(QCString, QByteArray)), rootViewer, SLOT(hideAndDelete()));
    else
        logger({3, channelLogLine}, "pMenuChannel is NULL ");
}

// The order of the steps is fixed: the action table before the registry, whose entries read settings as they
// are built, and both before anything is shown. While the identity is awaited, signals keep their default
// action, so that Ctrl-C ends the program there, too.
int run(int& argc, char** argv)
{
    UApplication application(argc, argv, UApplication::GuiClient);
    TAPI_CLIENT_Init(0, 0);
    while (!probeIdentity())
        sleep(1);

    ApiProvider::instance();
    Entry* rootEntry = EntryRegistry::instance()->find("SetupHeadlines");
    if (!rootEntry)
        return -1;
    MenuNode* rootNode = static_cast<NodeAdapter*>(rootEntry)->node();
    // Static, because it ends with the process and nobody else may hold it by then.
    static auto* rootViewer = new vtmenu::MenuViewer(rootNode, true, nullptr, nullptr);
    openMenuChannel(rootViewer);
    application.setMainWidget(rootViewer);
    vtmenu::LivePages::instance()->start();
    if (rootViewer->showView() == 0)
        application.exec();

    TAPI_CLIENT_Fini();
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    _aplog_init_orig("vistane", 0);
    const int status = run(argc, argv);
    ApiProvider::tearDown(); // last of all: the memory texts are those of the whole run
    return status;
}
