#include "ui/WebGadget.h"

#include <QCoreApplication>
#include <QLabel>
#include <QLibrary>

#include "ui/GadgetTable.h"
#include "ui/PBGadgetFunctions.h"
#include "ui/web/WebView.h"

namespace {

constexpr char kModuleName[] = "kewlink_web";

// A module of another build may lack a name.
template <typename Procedure>
bool Resolve(QLibrary& library, const char* name, Procedure* procedure) {
    *procedure = reinterpret_cast<Procedure>(library.resolve(name));
    return *procedure != nullptr;
}

// Null, with the reason in `why`, when the module is missing or of another build. The
// library stays loaded until the program ends.
const WebViewModule* LoadModule(QString* why) {
    static WebViewModule module;
    QLibrary library(QCoreApplication::applicationDirPath() + "/" + kModuleName);
    const bool loaded = Resolve(library, "KewlinkWebCreate", &module.create) &&
                        Resolve(library, "KewlinkWebLoad", &module.load) &&
                        Resolve(library, "KewlinkWebBack", &module.back) &&
                        Resolve(library, "KewlinkWebForward", &module.forward);
    *why = library.errorString();
    return loaded ? &module : nullptr;
}

class WebFunctions : public PBGadgetFunctions {
  public:
    WebFunctions(int gadget, QWidget* shown, const WebViewModule* loaded)
        : PBGadgetFunctions(gadget, shown), module(loaded) {}

    void Load(const QString& address) { module->load(Widget(), address); }
    void Back() { module->back(Widget()); }
    void Forward() { module->forward(Widget()); }

  private:
    const WebViewModule* const module;
};

WebFunctions* FindWebGadget(int gadget) {
    return dynamic_cast<WebFunctions*>(FindGadget(gadget));
}

// What stands in place of a view that cannot be had.
QWidget* MissingView(QWidget* parent, const QString& why) {
    auto* label = new QLabel("The help pages cannot be shown.\n" + why, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

}  // namespace

void WebGadget(int gadget, int x, int y, int width, int height) {
    QWidget* const parent = BeginGadget(gadget);
    if (!parent) return;
    QString why;
    const WebViewModule* module = LoadModule(&why);
    PBGadgetFunctions* functions = nullptr;
    if (module) {
        functions = new WebFunctions(gadget, module->create(parent), module);
    } else {
        functions = new PBGadgetFunctions(gadget, MissingView(parent, why));
    }
    EnterGadget(functions, QRect(x, y, width, height));
}

void LoadWebPage(int gadget, const QString& address) {
    if (WebFunctions* web = FindWebGadget(gadget)) web->Load(address);
}

void WebGadgetBack(int gadget) {
    if (WebFunctions* web = FindWebGadget(gadget)) web->Back();
}

void WebGadgetForward(int gadget) {
    if (WebFunctions* web = FindWebGadget(gadget)) web->Forward();
}
