#pragma once

#include "util/qmessages.h"
#include "util/qpaths.h"

#include <QObject>

/**
 * One open character, stage, storyboard, motif, font or fight-effects set:
 * a DEF file and the files it names. It owns the file models and collects
 * the messages of all of them; it holds no user interface, so it runs the
 * same under scripts and the command-line tool.
 */
class QProject : public QObject
{
    Q_OBJECT
public:
    explicit QProject(QObject* parent = nullptr);

    QMessageList* messages() { return &m_messages; }
    QPaths& paths() { return m_paths; }

private:
    QPaths m_paths;
    QMessageList m_messages;
};
