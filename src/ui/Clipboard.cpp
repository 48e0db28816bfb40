// The clipboard.
#include <QClipboard>
#include <QGuiApplication>

#include "ui/DragDrop.h"

QString ClipboardText() {
    return QGuiApplication::clipboard()->text().left(kMaxClipboardText);
}

void SetClipboardText(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
}
