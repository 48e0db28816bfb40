// A canvas: a frame that shows an image. Its mouse and key handlers raise canvas events.
#pragma once

#include <QElapsedTimer>
#include <QFrame>
#include <QRegion>
#include <QTimer>

#include "ui/drawing/PaintRecord.h"

struct CanvasEventData;

class PBCanvasWidget : public QFrame {
    Q_OBJECT
  public:
    PBCanvasWidget(QWidget* parent, int number, bool takesKeyboard);
    ~PBCanvasWidget() override;

    PaintRecord record;  // of the picture that it shows

    // Gives the picture the widget's size and the scale of its screen.
    void FitImage();
    // Has a part of the image shown soon: at once when the last showing is a while ago,
    // else together with what changes until the next one is due.
    void ShowSoon(const QRect& area);
    // Hands to the toolkit what waits for its showing.
    void ShowPending();
    // The same for every canvas there is.
    static void ShowAllPending();
    // Makes the missing pixels of every canvas, for a change that recorded calls must not see.
    static void MakeAllPictures();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    friend PBCanvasWidget* FindCanvas(int gadget);
    void RaiseInput(const QString& text, CanvasEventData carried);

    const int number;
    const bool takesKeyboard;
    bool pressed = false;  // the left button went down on this canvas
    int wheelRest = 0;     // what is not a whole wheel step yet, -119 to 119
    QRegion pending;
    QTimer showTimer;
    QElapsedTimer sinceShown;
};

// The canvas of a number; null for none, or for a gadget of another kind.
PBCanvasWidget* FindCanvas(int gadget);
