#pragma once

#include "LinkAnswer.h"

#include <QObject>
#include <QString>

class QDBusMessage;

// One link given to the desktop portal, org.freedesktop.portal.Desktop. Who that is, is asked first: from there on only
// he is listened to, and up to there the link has been given to nobody.
class PortalRequest : public QObject
{
public:
    // Calls `answered` once, from the event loop, and then deletes itself. A portal that took the
    // link has the given milliseconds to say what became of it, for a person may be choosing an application.
    PortalRequest(QString link, LinkAnswered answered, int patience = 120'000);

private:
    void open(const QString& portal);
    void listen(const QString& portal);
    void handleReply(const QDBusMessage& reply);
    void handleResponse(uint response);
    void settle(LinkAnswer::What what, const std::string& reason = {});

    const QString mLink;
    LinkAnswered mAnswered; // empty afterwards
    const int mPatience;
    // Where the response comes to. Known before, for it may come before the reply.
    const QString mToken, mHandle;
};
