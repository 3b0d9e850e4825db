#pragma once

#include <QByteArray>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>

#include <string>

// Runs the built program on a store of its own.
class Vistanectl
{
public:
    struct Result
    {
        int exit;
        std::string out, err;
    };

    // The store starts from this pack and holds nothing else.
    explicit Vistanectl(const QByteArray& pack = "{}");

    Result run(const QStringList& arguments) const;

    QString file(const char* name) const { return mDir.filePath(name); }

    static const QString program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();

private:
    QTemporaryDir mDir;
};
