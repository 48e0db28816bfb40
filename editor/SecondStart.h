// One editor for a user, a folder of settings and a display: a later start hands its files over.
#pragma once

#include <QLocalServer>
#include <QStringList>
#include <functional>

// The name by which the starts of one user meet.
QString MeetingPlace(const QString& settingsFolder);

// Hands over the files, or the wish for an empty window. False when no editor takes them.
bool HandOver(const QString& meetingPlace, const QStringList& paths);

// Takes what later starts hand over.
class SecondStart {
  public:
    SecondStart(const QString& meetingPlace, std::function<void(const QStringList& paths)> open);

  private:
    void TakeClient();

    std::function<void(const QStringList& paths)> open;
    QLocalServer server;
};
