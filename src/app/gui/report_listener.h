// The window's end of the report socket: a QLocalServer on the session's report socket path
// (the same path lumacfg-cli notify connects to), listening while the main window is open. Each
// connection carries one message; the connection is closed once the message is taken, which
// tells the sender it was heard.
#pragma once

#include <QLocalServer>
#include <QObject>
#include <QString>

#include "integration/report_back.h"

class QLocalSocket;

namespace lumacfg::gui {

class ReportListener final : public QObject {
    Q_OBJECT

  public:
    explicit ReportListener(QObject* parent = nullptr);

    // Starts listening (a socket file left by an earlier run is replaced); false with the
    // reason in Problem() when it cannot.
    bool Listen();
    QString Problem() const { return server_.errorString(); }

  signals:
    void Reported(const lumacfg::SiblingReport& report);

  private:
    void Accept();
    void Read(QLocalSocket* socket);

    QLocalServer server_;
};

}  // namespace lumacfg::gui
