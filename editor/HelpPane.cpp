#include "editor/HelpPane.h"

#include <QKeyEvent>

#include "companion/Colours.h"

namespace {

// The pages bring a style sheet for a white ground; here they take the colours of the desktop.
class IndexPage : public QTextBrowser {
  public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int type, const QUrl& name) override {
        if (type != QTextDocument::StyleSheetResource)
            return QTextBrowser::loadResource(type, name);
        const QColor ink = palette().text().color();
        return QString(
                   "code, pre { font-family: monospace; } dt code { font-weight: bold; }"
                   "h1 { font-size: large; } h2 { font-size: medium; }"
                   ".nav, .on { color: %1; }")
            .arg(Between(palette().base().color(), ink, 60).name());
    }

  protected:
    void changeEvent(QEvent* event) override {
        QTextBrowser::changeEvent(event);
        if (event->type() == QEvent::PaletteChange && !source().isEmpty()) reload();
    }
};

}  // namespace

HelpPane::HelpPane(const QString& pages, QWidget* window)
    : QDockWidget("Help", window), folder(pages), page(new IndexPage(this)) {
    setWidget(page);
    setObjectName("Help");
    page->setAccessibleName("Help page");
    connect(page, &QTextBrowser::historyChanged, this,
            [this] { setWindowTitle("Help - " + page->documentTitle().section(" - ", 0, 0)); });
}

void HelpPane::ShowPlace(const QString& place) {
    QUrl address = QUrl::fromLocalFile(folder + '/' + place.section('#', 0, 0));
    if (place.isEmpty()) address = QUrl::fromLocalFile(folder + "/index.htm");
    if (place.contains('#')) address.setFragment(place.section('#', 1));
    page->setSource(address);
    show();
    raise();
}
