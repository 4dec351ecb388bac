#include "qinstanceclaim.h"

#include <QDeadlineTimer>
#include <QLocalSocket>

QInstanceClaim::QInstanceClaim(const QString& key, QObject* parent)
    : QObject(parent)
    , m_key(key)
{
    connect(&m_server, &QLocalServer::newConnection, this, &QInstanceClaim::answer);
}

QInstanceClaim::Role QInstanceClaim::claim(int timeout)
{
    const QDeadlineTimer deadline(timeout);
    // Twice at most: two starts at the same moment may both find no master,
    // and the one that loses the race to listen asks the winner.
    for (int attempt = 0; attempt < 2; ++attempt) {
        QLocalSocket master;
        master.connectToServer(m_key);
        if (master.waitForConnected(int(deadline.remainingTime()))) {
            while (master.bytesAvailable() == 0 && master.waitForReadyRead(int(deadline.remainingTime()))) {
            }
            return master.bytesAvailable() > 0 ? Messenger : Independent;
        }
        if (master.error() != QLocalSocket::ServerNotFoundError
            && master.error() != QLocalSocket::ConnectionRefusedError)
            return Independent;
        // Nobody listens: whatever socket file is there was left by a master that died.
        QLocalServer::removeServer(m_key);
        m_server.setSocketOptions(QLocalServer::UserAccessOption);
        if (m_server.listen(m_key))
            return Master;
    }
    return Independent;
}

void QInstanceClaim::answer()
{
    while (QLocalSocket* messenger = m_server.nextPendingConnection()) {
        connect(messenger, &QLocalSocket::disconnected, messenger, &QObject::deleteLater);
        messenger->write("1", 1);
        messenger->flush();
    }
}
