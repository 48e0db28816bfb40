#include "ui/gadgets/TightStyleInternal.h"

#include <QProxyStyle>
#include <QStyleOption>
#include <QWidget>

namespace {

constexpr int kArrowWidth = 12;  // of a combo box; a style's own takes a quarter of a narrow one

// Texts stand in the whole of a gadget, but for its frame.
class TightStyle : public QProxyStyle {
  public:
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override {
        if (element == SE_LineEditContents) return option->rect.adjusted(2, 1, -2, -1);
        return QProxyStyle::subElementRect(element, option, widget);
    }

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override {
        const QRect box = option->rect;
        if (control == CC_ComboBox && part == SC_ComboBoxArrow)
            return box.adjusted(box.width() - kArrowWidth, 0, 0, 0);
        if (control == CC_ComboBox && part == SC_ComboBoxEditField)
            return box.adjusted(2, 1, -kArrowWidth, -1);
        return QProxyStyle::subControlRect(control, option, part, widget);
    }

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
        if (element != CE_ComboBoxLabel || !box)
            return QProxyStyle::drawControl(element, option, painter, widget);
        const QRect place = subControlRect(CC_ComboBox, box, SC_ComboBoxEditField, widget);
        drawItemText(painter, place, Qt::AlignLeft | Qt::AlignVCenter, box->palette,
                     box->state & State_Enabled, box->currentText, QPalette::ButtonText);
    }
};

}  // namespace

void UseTightStyle(QWidget* widget) {
    auto* style = new TightStyle;
    style->setParent(widget);
    widget->setStyle(style);
}
