#include "ui/drawing/PBCanvasWidget.h"

#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <set>

#include "base/Numbers.h"
#include "ui/drawing/CanvasEventData.h"
#include "ui/drawing/PaintPixelsInternal.h"
#include "ui/events/EventQueue.h"
#include "ui/events/NumberedWidgets.h"

namespace {

// The least time between two showings. A stream of text changes the picture far more
// often than anybody can see, and each showing copies it twice. A change after a pause is
// shown at once.
constexpr int kShowEveryMs = 30;
constexpr int kMaxPendingRects = 16;  // beyond them their bounding box is simpler
constexpr int kEdge = 2;              // a pixel may reach beyond the edge that was rounded to it
constexpr int kWheelStep = 120;       // the toolkit's units of one wheel step

// Input of the user is never merged: none of it may be lost while a handler keeps the
// loop from taking events.
constexpr uint32_t kUserInput = kEventUnmerged;

std::set<PBCanvasWidget*> canvases;

// The toolkit's masks as the program's attributes have them.
uint32_t ButtonBits(Qt::MouseButtons buttons) {
    return (buttons & Qt::LeftButton ? kButtonLeft : 0) |
           (buttons & Qt::RightButton ? kButtonRight : 0) |
           (buttons & Qt::MiddleButton ? kButtonMiddle : 0);
}

uint32_t ModifierBits(Qt::KeyboardModifiers modifiers) {
    return (modifiers & Qt::ShiftModifier ? kModifierShift : 0) |
           (modifiers & Qt::AltModifier ? kModifierAlt : 0) |
           (modifiers & Qt::ControlModifier ? kModifierControl : 0);
}

CanvasEventData DataAt(const QPoint& pointer, Qt::MouseButtons buttons,
                       Qt::KeyboardModifiers modifiers) {
    CanvasEventData data;
    data.x = pointer.x();
    data.y = pointer.y();
    data.buttons = ButtonBits(buttons);
    data.modifiers = ModifierBits(modifiers);
    return data;
}

CanvasEventData DataOf(const QMouseEvent& event) {
    return DataAt(event.pos(), event.buttons(), event.modifiers());
}

// For an event that carries no position.
CanvasEventData DataWithoutPlace(const QWidget* canvas, Qt::KeyboardModifiers modifiers) {
    return DataAt(canvas->mapFromGlobal(QCursor::pos()), QApplication::mouseButtons(), modifiers);
}

}  // namespace

// A canvas that was freed, and waits to be deleted, lies in no window. Asked for by each
// drawing, so the number is not read from the widget's properties.
PBCanvasWidget* FindCanvas(int gadget) {
    const auto found = std::find_if(canvases.begin(), canvases.end(), [=](PBCanvasWidget* canvas) {
        return canvas->number == gadget && canvas->parentWidget();
    });
    return found == canvases.end() ? nullptr : *found;
}

PBCanvasWidget::PBCanvasWidget(QWidget* parent, int gadget, bool keyboard)
    : QFrame(parent), number(gadget), takesKeyboard(keyboard) {
    FitPicture(&record, 1, 1, devicePixelRatioF());
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    if (keyboard) {
        setFocusPolicy(static_cast<Qt::FocusPolicy>(Qt::StrongFocus | Qt::WheelFocus));
        setAttribute(Qt::WA_InputMethodEnabled);  // dead keys and composed characters
    }
    showTimer.setSingleShot(true);
    showTimer.setTimerType(Qt::PreciseTimer);
    connect(&showTimer, &QTimer::timeout, this, &PBCanvasWidget::ShowPending);
    sinceShown.start();
    canvases.insert(this);
}

PBCanvasWidget::~PBCanvasWidget() {
    canvases.erase(this);
}

void PBCanvasWidget::ShowSoon(const QRect& area) {
    pending += area.adjusted(-kEdge, -kEdge, kEdge, kEdge) & rect();
    if (pending.rectCount() > kMaxPendingRects) pending = pending.boundingRect();
    if (showTimer.isActive()) return;
    const qint64 since = sinceShown.elapsed();
    if (since >= kShowEveryMs) {
        ShowPending();
    } else {
        showTimer.start(kShowEveryMs - static_cast<int>(since));
    }
}

// update() collects what the toolkit then paints in one go.
void PBCanvasWidget::ShowPending() {
    showTimer.stop();
    if (pending.isEmpty()) return;
    update(pending);
    pending = QRegion();
}

void PBCanvasWidget::ShowAllPending() {
    for (PBCanvasWidget* canvas : canvases) canvas->ShowPending();
}

void PBCanvasWidget::MakeAllPictures() {
    for (PBCanvasWidget* canvas : canvases) MakePixels(&canvas->record);
}

// The pixels go to the screen as they are: the picture's first one takes the pixel nearest
// to the widget's corner, which may lie inside one. A widget larger than a picture can be
// stays blank beyond it.
void PBCanvasWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QTransform toPixels = painter.deviceTransform();
    FitPicture(&record, record.width, record.height, toPixels.m11());
    const QImage& picture = PictureOf(&record);
    for (const QRect& part : event->region() - QRect(0, 0, record.width, record.height)) {
        painter.fillRect(part, palette().window());
    }
    painter.save();
    const QTransform corner =
        QTransform::fromTranslate(qRound(toPixels.dx()), qRound(toPixels.dy()));
    painter.setTransform(corner * toPixels.inverted(), true);
    for (const QRect& part : event->region()) {
        const QRect pixels = QRectF(part.x() * toPixels.m11(), part.y() * toPixels.m11(),
                                    part.width() * toPixels.m11(), part.height() * toPixels.m11())
                                 .toAlignedRect()
                                 .adjusted(-1, -1, 1, 1) &
                             picture.rect();
        painter.drawImage(pixels.topLeft(), picture, pixels);
    }
    painter.restore();
    if (frameShape() != QFrame::NoFrame) drawFrame(&painter);
    sinceShown.restart();
}

void PBCanvasWidget::FitImage() {
    FitPicture(&record, width(), height(), devicePixelRatioF());
}

void PBCanvasWidget::resizeEvent(QResizeEvent*) {
    FitImage();
}

void PBCanvasWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) pressed = true;
}

// The second press of a double click is a press like any other.
void PBCanvasWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

// A click is a press and a release inside. A release of the left button is told wherever
// the pointer went meanwhile, and before the click that it completes.
void PBCanvasWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    RaiseCanvasEvent(this, kTypeLeftButtonUp, kUserInput, DataOf(*event));
    const bool clicked = pressed && rect().contains(event->pos());
    pressed = false;
    if (clicked) RaiseCanvasEvent(this, kTypeLeftClick, kUserInput, DataOf(*event));
}

// A selection follows each move of a held button. Of moves with no button down the last
// one counts.
void PBCanvasWidget::mouseMoveEvent(QMouseEvent* event) {
    const uint32_t flags = event->buttons() == Qt::NoButton ? 0 : kUserInput;
    RaiseCanvasEvent(this, kTypeMouseMove, flags, DataOf(*event));
}

// A wheel may report parts of a step; they are added up until they make whole ones. The
// event can merge, since what is bound to it runs for each that is raised.
void PBCanvasWidget::wheelEvent(QWheelEvent* event) {
    event->accept();  // else the canvas around this one would get it as well
    wheelRest += event->angleDelta().y();
    const int steps = wheelRest / kWheelStep;
    wheelRest %= kWheelStep;
    if (steps == 0) return;
    CanvasEventData carried =
        DataAt(event->position().toPoint(), event->buttons(), event->modifiers());
    carried.wheel = steps;
    RaiseCanvasEvent(this, kTypeMouseWheel, 0, carried);
}

// Two events that are handled apart from each other: the key, then its text. Keys whose
// shortcut stands in the window do not come here.
void PBCanvasWidget::keyPressEvent(QKeyEvent* event) {
    CanvasEventData carried = DataWithoutPlace(this, event->modifiers());
    carried.key = static_cast<uint32_t>(event->key());
    RaiseCanvasEvent(this, kTypeKeyDown, kUserInput, carried);
    carried.keyOfText = carried.key;
    carried.key = 0;
    RaiseInput(event->text(), carried);
}

// Characters that were composed from several keys have no key of their own.
void PBCanvasWidget::inputMethodEvent(QInputMethodEvent* event) {
    RaiseInput(event->commitString(), DataWithoutPlace(this, QApplication::keyboardModifiers()));
}

// A character beyond U+FFFF gives two events, one for each unit.
void PBCanvasWidget::RaiseInput(const QString& text, CanvasEventData carried) {
    for (const QChar unit : text) {
        carried.input = unit.unicode();
        RaiseCanvasEvent(this, kTypeInput, kUserInput, carried);
    }
}

// Tab and Shift+Tab are keys of a terminal; they do not move the focus away from it.
bool PBCanvasWidget::focusNextPrevChild(bool next) {
    return !takesKeyboard && QFrame::focusNextPrevChild(next);
}
