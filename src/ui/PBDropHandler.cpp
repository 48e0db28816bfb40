#include "ui/PBDropHandler.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include "base/Numbers.h"
#include "ui/DropData.h"
#include "ui/InterfaceEvent.h"
#include "ui/NumberedWidgets.h"

namespace {

// Paths, one a line. One that holds a line break itself cannot be told that way.
QString PathsOf(const QMimeData& data) {
    QStringList paths;
    for (const QUrl& url : data.urls()) {
        const QString path = url.isLocalFile() ? url.toLocalFile() : QString();
        if (path.isEmpty() || path.contains('\n')) continue;
        paths += path;
        if (paths.size() == kMaxDropFiles) break;
    }
    return paths.join('\n');
}

// The data is copied here: it is gone when the toolkit's drop event ends.
void RaiseDrop(const QWidget* target, DropFormat format, const QString& content) {
    InterfaceEvent event;
    event.object = GadgetOf(target);
    event.number = event.object < 0 ? kEventWindowDrop : kEventGadgetDrop;
    event.flags = kEventUnmerged;  // no drop is lost for another
    event.window = WindowOf(target);
    event.data = new DropData{format, content};
    event.dataFree = FreeDropData;
    RaiseInterfaceEvent(event);
}

}  // namespace

PBDropHandler::PBDropHandler(QWidget* target) : QObject(target) {
    target->setAcceptDrops(true);
    target->installEventFilter(this);
}

void PBDropHandler::Enable(DropFormat format) {
    (format == DropFormat::kText ? takesText : takesFiles) = true;
}

// File managers offer their files as text as well; files come first.
bool PBDropHandler::Fits(const QMimeData& data, DropFormat* format) const {
    const bool files = takesFiles && !PathsOf(data).isEmpty();
    *format = files ? DropFormat::kFiles : DropFormat::kText;
    return files || (takesText && data.hasText());
}

// Whatever the other program proposes, the drop is a copy: nothing is moved away from it.
bool PBDropHandler::Offer(QDropEvent& event) const {
    DropFormat format;
    const bool fits = Fits(*event.mimeData(), &format);
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(fits);
    return true;
}

bool PBDropHandler::Take(QDropEvent& event) const {
    DropFormat format;
    Offer(event);
    if (!Fits(*event.mimeData(), &format)) return true;
    const bool files = format == DropFormat::kFiles;
    const QString content =
        files ? PathsOf(*event.mimeData()) : event.mimeData()->text().left(kMaxDropText);
    RaiseDrop(static_cast<QWidget*>(parent()), format, content);
    return true;
}

bool PBDropHandler::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove:
            return Offer(static_cast<QDropEvent&>(*event));
        case QEvent::Drop:
            return Take(static_cast<QDropEvent&>(*event));
        default:
            return false;
    }
}
