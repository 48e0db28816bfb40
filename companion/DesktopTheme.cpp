#include "companion/DesktopTheme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QStyleFactory>

#include "companion/Colours.h"

namespace {

constexpr uint kPrefersDark = 1;  // org.freedesktop.appearance, color-scheme

struct ColourRow {
    QPalette::ColorRole role;
    QRgb colour;
};

const ColourRow kDark[] = {
    {QPalette::Window, 0xFF2D2F31},
    {QPalette::WindowText, 0xFFE4E4E4},
    {QPalette::Base, 0xFF1E1F21},
    {QPalette::AlternateBase, 0xFF26282A},
    {QPalette::Text, 0xFFE4E4E4},
    {QPalette::Button, 0xFF36393B},
    {QPalette::ButtonText, 0xFFE4E4E4},
    {QPalette::ToolTipBase, 0xFF36393B},
    {QPalette::ToolTipText, 0xFFE4E4E4},
    {QPalette::Highlight, 0xFF2A5F9E},
    {QPalette::HighlightedText, 0xFFFFFFFF},
    {QPalette::Link, 0xFF7FB4FF},
    {QPalette::PlaceholderText, 0xFF8A8A8A},
};

QPalette DarkPalette() {
    QPalette dark;
    for (const ColourRow& row : kDark) dark.setColor(row.role, QColor::fromRgb(row.colour));
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        dark.setColor(QPalette::Disabled, role, QColor::fromRgb(0xFF7C7F82));
    }
    return dark;
}

void ShowScheme(bool dark) {
    static const QPalette given = QApplication::palette();
    if (IsDark(given) || dark == IsDark(QApplication::palette())) return;
    if (dark)
        QApplication::setStyle(
            QStyleFactory::create("Fusion"));  // others draw in their own colours
    QApplication::setPalette(dark ? DarkPalette() : given);
}

// The answer is a variant in a variant.
uint SchemeOf(const QDBusPendingReply<QDBusVariant>& reply) {
    if (reply.isError()) return 0;
    const QVariant value = reply.value().variant();
    return value.canConvert<QDBusVariant>() ? value.value<QDBusVariant>().variant().toUInt()
                                            : value.toUInt();
}

void AskPortal(QObject* owner) {
    QDBusMessage question = QDBusMessage::createMethodCall(
        "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
        "org.freedesktop.portal.Settings", "Read");
    question << "org.freedesktop.appearance"
             << "color-scheme";
    auto* watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), owner);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, owner, [watcher] {
        watcher->deleteLater();
        ShowScheme(SchemeOf(*watcher) == kPrefersDark);
    });
}

}  // namespace

// Without an address the library would start a bus of its own.
void FollowDesktopTheme(QApplication& application) {
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) return;
    AskPortal(&application);
    QObject::connect(&application, &QGuiApplication::applicationStateChanged, &application,
                     [&application](Qt::ApplicationState state) {
                         if (state == Qt::ApplicationActive) AskPortal(&application);
                     });
}
