// What can be done to a gadget, one object for each. A kind overrides what it has; the
// rest does nothing and gives 0 or an empty text.
#pragma once

#include <QObject>
#include <QString>
#include <QWidget>
#include <cstdint>

class PBGadgetFunctions : public QObject {
    Q_OBJECT
  public:
    // Marks the widget with the gadget's number, in the property PB_GadgetID.
    PBGadgetFunctions(int gadget, QWidget* widget);

    int Gadget() const { return ownNumber; }
    QWidget* Widget() const { return ownWidget; }
    // Gaining and losing the focus are events of this gadget.
    virtual bool ReportsFocus() const { return false; }

    // The widget has a new size. The toolkit tells a hidden one only when it is shown.
    virtual void Resized() {}

    virtual void SetText(const QString&) {}
    virtual QString Text() const { return {}; }
    virtual void SetState(int) {}
    virtual int State() const { return 0; }

    virtual void AddItem(const QString&) {}
    virtual void ClearItems() {}
    virtual int ItemCount() const { return 0; }
    virtual QString ItemText(int) const { return {}; }
    virtual bool ItemSelected(int) const { return false; }
    virtual void SetItemSelected(int, bool) {}
    virtual bool ItemIsFile(int) const { return false; }
    virtual int ColumnWidth(int) const { return 0; }
    virtual void SetColumnWidth(int, int) {}

  public Q_SLOTS:
    // Each raises event 3 of the gadget whose widget or helper sent the signal.
    void LeftClicked();
    void LeftDoubleClicked();
    void ValueChanged();
    void PathChanged();
    void PathChosen();

  private:
    const int ownNumber;
    QWidget* const ownWidget;
};

// Raises event 3 of a gadget in the window that it lies in; nothing for one that is gone.
void RaiseGadgetEvent(int gadget, int64_t type);
