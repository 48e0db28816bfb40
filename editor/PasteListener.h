// The editor's own port on this machine: the console puts a listing on the clipboard and
// sends "/paste".
#pragma once

#include <QTcpServer>
#include <QTimer>
#include <functional>

class PasteListener {
  public:
    // `onPaste` is called for each "/paste". While another program has the port it is tried
    // again every second.
    PasteListener(quint16 port, std::function<void()> onPaste);

    bool Listens() const { return server.isListening(); }
    quint16 Port() const { return server.serverPort(); }

  private:
    void Listen();
    void TakeClient();
    void TakeBytes(QTcpSocket* client);

    quint16 port;
    std::function<void()> onPaste;
    QTcpServer server;
    QTimer retry;
};
