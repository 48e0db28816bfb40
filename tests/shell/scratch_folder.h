// A folder of a test's own, which is the working folder while the test runs, so that the
// settings file lies in it.
#pragma once

#include <unistd.h>

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

class ScratchFolder {
  public:
    ScratchFolder() { (void)!chdir(folder.path().toUtf8().constData()); }
    ~ScratchFolder() { (void)!chdir("/"); }

    static void Put(const QString& name, const QByteArray& bytes) {
        QFile file(name);
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
    }
    static QByteArray Get(const QString& name) {
        QFile file(name);
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }

    QTemporaryDir folder;
};
