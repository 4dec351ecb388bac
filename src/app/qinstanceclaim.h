#pragma once

#include <QLocalServer>
#include <QObject>

/**
 * Who is the master instance, the one that opens the files later starts of
 * the program hand over. The master listens on a local socket named by the
 * key (in the temporary folder); a later start connects and waits for the
 * master's one-byte answer.
 *
 * A master that crashed or was killed leaves only a socket file nobody
 * listens on: the next start finds the connection refused, removes the file
 * and becomes the master itself. A master that is alive but does not answer
 * within the timeout (busy loading, or hung) is left alone: the new start
 * opens its own window instead of waiting.
 */
class QInstanceClaim : public QObject
{
    Q_OBJECT
public:
    enum Role {
        Master,      ///< this process listens and owns the hand-over file
        Messenger,   ///< a live master answered: hand the file over and end
        Independent, ///< a master exists but didn't answer: open a window of our own
    };

    explicit QInstanceClaim(const QString& key, QObject* parent = nullptr);

    /// Decides the role; waits at most `timeout` milliseconds for a master's answer.
    Role claim(int timeout = 1000);

private:
    void answer();

    QString m_key;
    QLocalServer m_server;
};
