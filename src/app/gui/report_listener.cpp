#include "app/gui/report_listener.h"

#include <QLocalSocket>

#include "platform/report_socket.h"

namespace lumacfg::gui {
namespace {

// A message longer than this is no report; its connection is dropped.
constexpr qint64 kLongestMessage = 4096;

}  // namespace

ReportListener::ReportListener(QObject* parent) : QObject(parent) {
    // Only this user reaches the window.
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, &ReportListener::Accept);
}

bool ReportListener::Listen() {
    const QString path = QString::fromStdString(platform::ReportSocketPath());
    QLocalServer::removeServer(path);
    return server_.listen(path);
}

void ReportListener::Accept() {
    while (QLocalSocket* socket = server_.nextPendingConnection()) {
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { Read(socket); });
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        Read(socket);
    }
}

void ReportListener::Read(QLocalSocket* socket) {
    if (!socket->canReadLine() && socket->bytesAvailable() < kLongestMessage) return;
    const QByteArray line = socket->readLine(kLongestMessage);
    const std::optional<SiblingReport> report =
        DecodeReport(std::string_view(line.constData(), static_cast<std::size_t>(line.size())));
    if (report) emit Reported(*report);
    socket->disconnectFromServer();
}

}  // namespace lumacfg::gui
