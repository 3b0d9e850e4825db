#include "BusActivation.h"

void BusActivation::Activate(const QVariantMap& platform)
{
    constexpr int longestToken = 256;
    mRaise(platform.value(QStringLiteral("activation-token")).toString().left(longestToken).toUtf8());
}

void BusActivation::Open(const QStringList& /*uris*/, const QVariantMap& platform)
{
    Activate(platform);
}

void BusActivation::ActivateAction(const QString& /*action*/, const QVariantList& /*parameter*/,
                                   const QVariantMap& platform)
{
    Activate(platform);
}
