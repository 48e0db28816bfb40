#include "ui/gadgets/web/WebView.h"

#include <QUrl>
#include <QWebPage>
#include <QWebView>

namespace {

// The program knows the view as a plain widget.
QWebView* ViewOf(QWidget* widget) {
    return qobject_cast<QWebView*>(widget);
}

}  // namespace

// Links go through the gadget, which loads them; a view left to itself would do the same,
// but open some of them in windows of its own.
extern "C" Q_DECL_EXPORT QWidget* KewlinkWebCreate(QWidget* parent) {
    auto* view = new QWebView(parent);
    view->page()->setLinkDelegationPolicy(QWebPage::DelegateAllLinks);
    QObject::connect(view, &QWebView::linkClicked, view, &QWebView::setUrl);
    return view;
}

extern "C" Q_DECL_EXPORT void KewlinkWebLoad(QWidget* widget, const QString& address) {
    if (QWebView* view = ViewOf(widget)) view->setUrl(QUrl::fromEncoded(address.toUtf8()));
}

extern "C" Q_DECL_EXPORT void KewlinkWebBack(QWidget* widget) {
    if (QWebView* view = ViewOf(widget)) view->back();
}

extern "C" Q_DECL_EXPORT void KewlinkWebForward(QWidget* widget) {
    if (QWebView* view = ViewOf(widget)) view->forward();
}
