#pragma once

#include <QByteArray>

// A narrow string of the phone's Qt.
class QCString : public QByteArray
{
public:
    using QByteArray::QByteArray;
    QCString(const QByteArray& bytes) : QByteArray(bytes) {}
};
