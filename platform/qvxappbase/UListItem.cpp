#include "UListItem.h"

#include "Look.h"

UListItem::UListItem(const QString& text) : QListWidgetItem(nullptr, UserType)
{
    setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren);
    if (!text.isEmpty())
        appendSubItem(0, text, false);
}

void UListItem::appendSubItem(int /*column*/, const QString& text, bool /*wrap*/, const QPixmap& /*icon*/)
{
    mLines += Look::oneLine(text);
    setData(Qt::AccessibleTextRole, mLines.join(QStringLiteral(", ")));
}

void UListItem::setFlag(Qt::ItemFlag flag, bool on)
{
    setFlags(flags().setFlag(flag, on));
}
