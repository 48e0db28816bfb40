// A numbered window. It forwards what happens to it as events.
#pragma once

#include <QMainWindow>

class PBQMainWindow : public QMainWindow {
    Q_OBJECT
  public:
    PBQMainWindow(int window, QWidget* parent, Qt::WindowFlags flags, bool fixedSize);

    int Number() const { return number; }
    QSize InnerSize() const;
    // Sizes the window so that the inner area has that size below the menu bar.
    void SetInnerSize(const QSize& inner);
    // The same with the size set last, after the menu bar has changed.
    void FitMenuBar();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    int MenuBarHeight(int width) const;

    const int number;
    const bool fixedSize;
    bool doubleClicked = false;  // the next release of the left button ends a double click
    QSize wantedInner;
};
