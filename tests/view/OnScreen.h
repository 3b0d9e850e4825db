#pragma once

#include "PhoneScreen.h"
#include "UListBox.h"
#include "UListItem.h"

#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

// The layer of this kind that has the keys, or null.
template <class Layer>
Layer* onTop()
{
    for (auto* layer : PhoneScreen::instance()->findChildren<Layer*>())
        if (PhoneScreen::instance()->isOnTop(layer))
            return layer;
    return nullptr;
}

// Runs `action` as soon as a layer of this kind comes up; that it does is expected while this lives.
template <class Layer>
class Await
{
public:
    explicit Await(std::function<void()> action)
    {
        QObject::connect(&mTimer, &QTimer::timeout, &mTimer, [this, action = std::move(action)] {
            if (!onTop<Layer>())
                return;
            mTimer.stop();
            mSeen = true;
            action();
        });
        mTimer.start(1);
    }
    ~Await() { EXPECT_TRUE(mSeen) << Layer::staticMetaObject.className() << " did not come up"; }

private:
    QTimer mTimer;
    bool mSeen = false;
};

inline UListBox* listOf(const QWidget* layer)
{
    return layer->findChild<UListBox*>();
}

// The rows as "label|value", a greyed one in brackets.
inline std::vector<std::string> rowsOf(const QWidget* layer)
{
    std::vector<std::string> rows;
    const UListBox* list = listOf(layer);
    for (int row = 0; row < list->count(); ++row) {
        const UListItem* item = list->item(row);
        std::string text = item->lines().join(u'|').toStdString();
        if (item->isEnabled() != item->isSelectable())
            text += " (half greyed)";
        rows.push_back(item->isEnabled() ? text : '[' + text + ']');
    }
    return rows;
}
