// Receives the drops of one window or gadget and raises event 10 or 11.
#pragma once

#include <QObject>

#include "ui/DragDrop.h"

class QDropEvent;
class QMimeData;

// A longer text is cut, and paths beyond are left out: both come from other programs.
constexpr int kMaxDropText = 16 * 1024 * 1024;  // characters
constexpr int kMaxDropFiles = 10000;

class PBDropHandler : public QObject {
    Q_OBJECT
  public:
    explicit PBDropHandler(QWidget* target);

    void Enable(DropFormat format);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool Offer(QDropEvent& event) const;
    bool Take(QDropEvent& event) const;
    bool Fits(const QMimeData& data, DropFormat* format) const;

    bool takesText = false;
    bool takesFiles = false;
};
