// A window from which files can be dragged: a press on it, and the pointer's first move,
// start a drag of the files named on the command line. usage: drag_source FILE...
#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

namespace {

class DragSource : public QLabel {
    void mouseMoveEvent(QMouseEvent* event) override {
        if (!(event->buttons() & Qt::LeftButton)) return;
        QList<QUrl> urls;
        for (const QString& file : QApplication::arguments().mid(1))
            urls += QUrl::fromLocalFile(file);
        auto* drag = new QDrag(this);
        drag->setMimeData(new QMimeData);
        drag->mimeData()->setUrls(urls);
        drag->exec(Qt::CopyAction);
    }
};

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    DragSource source;
    source.setWindowTitle("drag source");
    source.resize(100, 60);
    source.show();
    return QApplication::exec();
}
