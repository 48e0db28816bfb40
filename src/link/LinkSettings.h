// What the settings file and the window say about the device's line.
#pragma once

#include <QString>

constexpr int kSmallestCommsBuffer = 2048;
constexpr int kLargestCommsBuffer = 65536;
constexpr int kShortestPolling = 10;     // milliseconds
constexpr int kLongestPolling = 100;     // milliseconds
constexpr int kShortestLineDelay = 100;  // milliseconds

struct LinkSettings {
    QString comPort = "not set";       // name under /dev/, "TCPIP", or "NOT SET" once picked
    QString serialSpeed = "38400";     // baud, as text
    QString tcpAddress = "localhost";  // host name or IPv4 address
    QString tcpPort = "3001";          // as text
    int deviceOnTcpip = 0;             // as stored; linkStatus holds what is in force
    int lineDelay = 120;               // milliseconds
    int maximumComPort = 32;           // read and written only
    int maximumIpLength = 25;          // read and written only
    int pollingInterval = 50;          // milliseconds
    int commsBufferSize = 16384;       // bytes
    int controlPort = 50899;
    int dataPort = 50900;
    int editorPort = 6832;
    QString welcomeMessage = "Welcome to KWCC";
    int debugMode = 0;
};

extern const LinkSettings& linkSettings;

// For the settings table alone, which fills the record at start and reads it at the end.
LinkSettings& LinkSettingsForTable();

void SetComPort(const QString& name);
void SetSerialSpeed(const QString& baud);
void SetTcpEndpoint(const QString& address, const QString& port);
// What the settings file is to hold; SetDeviceOnTcpip calls it.
void StoreDeviceOnTcpip(bool on);
