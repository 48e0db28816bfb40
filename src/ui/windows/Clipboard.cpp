#include "ui/windows/Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

// The selection of the mouse, which X11 keeps beside it, is left alone.
QString ClipboardText() {
    return QGuiApplication::clipboard()->text().left(kMaxClipboardText);
}

void SetClipboardText(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
}
