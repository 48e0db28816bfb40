#include "ui/windows/DragDrop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include "base/Numbers.h"
#include "ui/events/CurrentEvent.h"
#include "ui/events/EventQueue.h"
#include "ui/events/NumberedWidgets.h"
#include "ui/gadgets/GadgetTable.h"

namespace {

// A longer text is cut, and paths beyond are left out: both come from other programs.
constexpr int kMaxDropText = 16 * 1024 * 1024;  // characters
constexpr int kMaxDropFiles = 10000;

// What a drop event carries.
struct DropData {
    DropFormat format;
    QString content;  // the text, or paths with LF between them
};

// Receives the drops of one window or gadget and raises event 10 or 11.
class PBDropHandler : public QObject {
    Q_OBJECT
  public:
    explicit PBDropHandler(QWidget* target);

    void Enable(DropFormat format);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool Offer(QDropEvent& event) const;
    bool Take(QDropEvent& event) const;
    bool Fits(const QMimeData& data, DropFormat* format) const;

    bool takesText = false;
    bool takesFiles = false;
};

// It is also the mark by which a drop's data is known.
void FreeDropData(void* data) {
    delete static_cast<DropData*>(data);
}

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

// One handler for a widget, which takes the formats of all calls.
void EnableDrop(QWidget* target, DropFormat format) {
    auto* handler = target->findChild<PBDropHandler*>(QString(), Qt::FindDirectChildrenOnly);
    if (!handler) handler = new PBDropHandler(target);
    handler->Enable(format);
}

// The current event's drop; null when it is none.
const DropData* CurrentDrop() {
    const InterfaceEvent& event = CurrentEvent();
    const bool isDrop = event.dataFree == FreeDropData;
    return isDrop ? static_cast<const DropData*>(event.data) : nullptr;
}

// Files are never given as text, nor text as files.
QString ContentOf(DropFormat format) {
    const DropData* drop = CurrentDrop();
    return drop && drop->format == format ? drop->content : QString();
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

void EnableWindowDrop(int window, DropFormat format) {
    if (QWidget* found = WindowWidget(window)) EnableDrop(found, format);
}

void EnableGadgetDrop(int gadget, DropFormat format) {
    if (QWidget* found = GadgetWidget(gadget)) EnableDrop(found, format);
}

// An event that is no drop reads as a text, of which there is none.
DropFormat EventDropFormat() {
    const DropData* drop = CurrentDrop();
    return drop ? drop->format : DropFormat::kText;
}

QString EventDropFiles() {
    return ContentOf(DropFormat::kFiles);
}

QString EventDropText() {
    return ContentOf(DropFormat::kText);
}

#include "DragDrop.moc"
