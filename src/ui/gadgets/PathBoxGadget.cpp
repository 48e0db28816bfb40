#include "ui/gadgets/PathBoxGadget.h"

#include <QCompleter>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QSignalBlocker>

#include "base/Numbers.h"
#include "ui/events/NumberedWidgets.h"
#include "ui/gadgets/GadgetTableInternal.h"
#include "ui/gadgets/PBGadgetFunctionsInternal.h"

namespace {

// Folder names from the file system, read as far as the user has typed.
QCompleter* FolderCompleter(QObject* owner) {
    auto* completer = new QCompleter(owner);
    auto* model = new QFileSystemModel(completer);
    model->setFilter(QDir::Dirs | QDir::Drives | QDir::NoDotAndDotDot);
    model->setRootPath(QString());
    completer->setModel(model);
    return completer;
}

// The completer is a helper of the gadget and carries its number as well.
class PathBoxFunctions : public PBGadgetFunctions {
  public:
    PathBoxFunctions(int gadget, QLineEdit* shown) : PBGadgetFunctions(gadget, shown), box(shown) {
        QCompleter* const completer = FolderCompleter(box);
        completer->setProperty(kGadgetProperty, gadget);
        box->setCompleter(completer);
        connect(box, &QLineEdit::textChanged, this, &PBGadgetFunctions::PathChanged);
        connect(box, &QLineEdit::returnPressed, this, &PBGadgetFunctions::PathChosen);
        connect(completer, QOverload<const QString&>::of(&QCompleter::activated), this,
                &PBGadgetFunctions::PathChosen);
        // Names that are read only after Return must not open a list over what is clicked next.
        connect(box, &QLineEdit::returnPressed, completer, [=] { completer->setWidget(nullptr); });
        connect(box, &QLineEdit::textEdited, completer, [=] { completer->setWidget(box); });
    }
    // The change is told even when the text is the same: who sets it counts on the echo.
    void SetText(const QString& text) override {
        {
            const QSignalBlocker quiet(box);
            box->setText(text);
        }
        RaiseGadgetEvent(Gadget(), kTypePathChanged);
    }
    QString Text() const override { return box->text(); }

  private:
    QLineEdit* const box;
};

}  // namespace

void PathBoxGadget(int gadget, int x, int y, int width, int height, const QString& path) {
    QWidget* const parent = BeginGadget(gadget);
    if (!parent) return;
    auto* box = new QLineEdit(path, parent);
    EnterGadget(new PathBoxFunctions(gadget, box), QRect(x, y, width, height));
}
