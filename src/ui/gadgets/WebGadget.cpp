#include "ui/gadgets/WebGadget.h"

#include <QCoreApplication>
#include <QLabel>
#include <QLibrary>

#include "ui/gadgets/GadgetTableInternal.h"
#include "ui/gadgets/PBGadgetFunctionsInternal.h"
#include "ui/gadgets/web/WebView.h"

namespace {

constexpr char kModuleName[] = "kewlink_web";
constexpr char kEnginePackage[] = "libqt5webkit5";

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

// What a web gadget can do, with the engine or without.
class WebFunctions : public PBGadgetFunctions {
  public:
    using PBGadgetFunctions::PBGadgetFunctions;
    virtual void Load(const QString& address) = 0;
    virtual void Back() {}
    virtual void Forward() {}
};

class EngineFunctions : public WebFunctions {
  public:
    EngineFunctions(int gadget, QWidget* shown, const WebViewModule* loaded)
        : WebFunctions(gadget, shown), module(loaded) {}

    void Load(const QString& address) override { module->load(Widget(), address); }
    void Back() override { module->back(Widget()); }
    void Forward() override { module->forward(Widget()); }

  private:
    const WebViewModule* const module;
};

// What stands in place of a view that cannot be had: why, and the page as a link that the
// desktop's browser opens.
class LabelFunctions : public WebFunctions {
  public:
    LabelFunctions(int gadget, QLabel* shown, const QString& reason)
        : WebFunctions(gadget, shown), label(shown), why(reason) {
        label->setTextFormat(Qt::RichText);
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignTop);
        label->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
        label->setOpenExternalLinks(true);
    }

    void Load(const QString& address) override {
        label->setText(QString("<p>The help pages cannot be shown here. Is the package %1 "
                               "installed?</p><p><a href=\"%2\">Open them in the browser</a></p>"
                               "<p>%3</p>")
                           .arg(kEnginePackage, address.toHtmlEscaped(), why.toHtmlEscaped()));
    }

  private:
    QLabel* const label;
    const QString why;
};

WebFunctions* FindWebGadget(int gadget) {
    return dynamic_cast<WebFunctions*>(FindGadget(gadget));
}

WebFunctions* CreateView(int gadget, QWidget* parent) {
    QString why;
    const WebViewModule* module = LoadModule(&why);
    if (module) return new EngineFunctions(gadget, module->create(parent), module);
    return new LabelFunctions(gadget, new QLabel(parent), why);
}

}  // namespace

void WebGadget(int gadget, int x, int y, int width, int height) {
    QWidget* const parent = BeginGadget(gadget);
    if (!parent) return;
    EnterGadget(CreateView(gadget, parent), QRect(x, y, width, height));
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
