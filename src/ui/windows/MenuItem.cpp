#include "ui/windows/MenuItem.h"

#include <QAction>
#include <QCursor>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QProxyStyle>
#include <QWindow>
#include <map>
#include <vector>

#include "base/Choices.h"
#include "ui/events/PBMenuEvents.h"
#include "ui/gadgets/Caption.h"
#include "ui/windows/PBQMainWindowInternal.h"
#include "ui/windows/WindowsInternal.h"

namespace {

// One number, in whatever menus it stands. An action goes with its menu.
struct ItemRecord {
    QString text;
    bool ticked = false;  // as the program set it
    std::vector<QPointer<QAction>> actions;
};

std::map<int, ItemRecord> items;
std::map<int, QMenu*> popups;
QPointer<PBQMainWindow> openBar;  // takes the next titles
QPointer<QMenu> openMenu;         // takes the next items

// For people without a mouse; otherwise every key with Alt is the board's.
bool KeysOpenMenus() {
    return choices.altOpensMenus != 0;
}

// The desktop's style, but for the Alt key, which by itself would move the keyboard to the bar.
class BarStyle : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override {
        if (hint == SH_MenuBar_AltKeyNavigation && !KeysOpenMenus()) return 0;
        return QProxyStyle::styleHint(hint, option, widget, result);
    }
};

// An item becomes checkable with its first tick, so that the others have no room for one.
void ShowTick(const ItemRecord& record) {
    for (const QPointer<QAction>& action : record.actions) {
        if (!action) continue;
        if (record.ticked) action->setCheckable(true);
        action->setChecked(record.ticked);
    }
}

// A pop-up has no parent window until it is shown; some platforms need one to place it.
void TieToWindow(QMenu* menu, PBQMainWindow* window) {
    menu->setProperty(kMenuWindowProperty, window->Number());
    menu->winId();
    menu->windowHandle()->setTransientParent(window->windowHandle());
}

}  // namespace

// The bar takes no number of its own: the toolkit keeps one for each window. It is put
// into the window, never into a desktop's own bar.
void CreateMenuBar(int, int window) {
    PBQMainWindow* const found = FindWindow(window);
    openBar = found;
    openMenu = nullptr;
    if (!found) return;
    auto* bar = new QMenuBar;
    auto* style = new BarStyle;
    style->setParent(bar);
    bar->setStyle(style);
    bar->setNativeMenuBar(false);
    found->setMenuBar(bar);
    bar->show();
    found->FitMenuBar();
}

// One of the same number is replaced. It may be on show, so it is deleted later.
void CreatePopupMenu(int menu) {
    QMenu*& popup = popups[menu];
    if (popup) popup->deleteLater();
    popup = new QMenu;
    openBar = nullptr;
    openMenu = popup;
}

// Each title may make the bar higher; the inner area keeps its size.
void MenuTitle(const QString& title) {
    if (!openBar) return;
    const QString mnemonic = KeysOpenMenus() ? "&" : "";
    openMenu = openBar->menuBar()->addMenu(mnemonic + ToCaption(title));
    openMenu->setProperty(kMenuWindowProperty, openBar->Number());
    openBar->FitMenuBar();
}

void MenuItem(int item, const QString& text) {
    if (!openMenu) return;
    auto* action = new QAction(ToCaption(text), openMenu);
    action->setProperty(kMenuItemProperty, item);
    // The toolkit has flipped the tick of a checkable item by then; what the program set stands.
    QObject::connect(action, &QAction::triggered, action, [item] { ShowTick(items[item]); });
    QObject::connect(action, &QAction::triggered, MenuEvents(), &PBMenuEvents::ItemChosen);
    openMenu->addAction(action);
    ItemRecord& record = items[item];
    record.text = text;
    record.actions.push_back(action);
    ShowTick(record);
}

void SetMenuItemTick(int item, bool ticked) {
    const auto found = items.find(item);
    if (found == items.end()) return;
    found->second.ticked = ticked;
    ShowTick(found->second);
}

bool MenuItemTick(int item) {
    const auto found = items.find(item);
    return found != items.end() && found->second.ticked;
}

QString MenuItemText(int item) {
    const auto found = items.find(item);
    return found == items.end() ? QString() : found->second.text;
}

void TickOneOf(int first, int last, int ticked) {
    for (int item = first; item <= last; ++item) SetMenuItemTick(item, item == ticked);
}

// popup() returns at once; the choice comes as an event like any other.
void ShowPopupMenu(int menu, int window) {
    const auto found = popups.find(menu);
    PBQMainWindow* const over = FindWindow(window);
    if (found == popups.end() || !over) return;
    TieToWindow(found->second, over);
    found->second->popup(QCursor::pos());
}

void DropMenus() {
    for (const auto& [number, popup] : popups) delete popup;
    popups.clear();
    items.clear();
}
