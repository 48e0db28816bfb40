#include "companion/ProgramStart.h"

#include <QApplication>
#include <QFileInfo>
#include <QStandardPaths>

void PrepareApplication() {
    if (!qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION")) {
        qputenv("QT_XCB_GL_INTEGRATION", "none");
    }
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

QStringList WordsOf(int argc, char** argv) {
    QStringList words;
    for (int i = 1; i < argc; ++i) words += QString::fromLocal8Bit(argv[i]);
    return words;
}

QString DataFolder() {
    return QApplication::applicationDirPath() + "/data";
}

QString SettingsFolder() {
    if (QFileInfo(DataFolder()).isWritable()) return DataFolder();
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
}
