// A folder of a test's own, which is the working folder while the test runs.
#pragma once

#include <unistd.h>

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

class ScratchFolder {
  public:
    ScratchFolder() { (void)!chdir(folder.path().toUtf8().constData()); }
    ~ScratchFolder() { (void)!chdir("/"); }

    static QString Put(const QString& name, const QByteArray& bytes) {
        QFile file(name);
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
        return name;
    }
    // Nothing of a file that is not there.
    static QByteArray Get(const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder;
};
