// The console's data port, of which this program only reads.
#pragma once

#include <QElapsedTimer>
#include <QTcpSocket>
#include <QTimer>
#include <functional>

class DataPort {
  public:
    // `onBytes` gets what the board prints; `onBreak` is called when the line that is being
    // received will not be ended, and tells whether the next bytes may begin in mid-line.
    using BytesHook = std::function<void(const QByteArray& bytes)>;
    using BreakHook = std::function<void(bool inMidLine)>;
    DataPort(QString host, quint16 port, BytesHook onBytes, BreakHook onBreak);

    // Connects, and connects again each second while nobody answers.
    void Open();
    void Close();
    bool IsOpen() const { return watch.isActive(); }
    // How it stands, for the user.
    QString Sentence() const;

  private:
    void TakeBytes();
    void Watch();

    QString host;
    quint16 port;
    BytesHook onBytes;
    BreakHook onBreak;
    QTcpSocket socket;
    QTimer watch;
    QElapsedTimer sinceChange;  // of the connection
    QElapsedTimer sinceBytes;
    bool failed = false;   // nobody answered, the last time
    bool cameAny = false;  // bytes, since it is connected
    qint64 patience = 0;   // milliseconds of silence behind bytes, before it connects anew
};
