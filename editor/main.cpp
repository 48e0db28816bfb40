// KWEdit, the console's companion editor. Each argument is the path of a source.
#include <QApplication>

#include "editor/Editor.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("KWEdit");
    QApplication::setDesktopFileName("kwedit");
    Editor editor(ReadConsolePorts(QApplication::applicationDirPath() + "/data/KWCC.inf"));
    editor.OpenAll(QApplication::arguments().mid(1));
    return QApplication::exec();
}
