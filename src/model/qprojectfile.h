#pragma once

#include "util/qprojecttypes.h"
#include "util/qmessages.h"

class QProject;

/**
 * Base of every file a project saves. It holds the project (which may be
 * null for a file opened on its own, as the command-line tool does) and the
 * file's own messages, registered in the project's message list so the
 * project's totals include them.
 */
class QProjectFile
{
public:
    QProjectFile(QProject* project, QProjectFileType type);
    virtual ~QProjectFile();

    QProject* project() const { return m_project; }
    QProjectFileType fileType() const { return m_messages.fileType(); }
    QMessages* messages() { return &m_messages; }
    const QMessages* messages() const { return &m_messages; }

    /// Whether the file can be written for the given engine or file version;
    /// files with no version rules always can.
    virtual bool canSave(unsigned int version) const;
    /// Asks the author about unsaved changes; false keeps the file open.
    virtual bool canDiscard() = 0;
    virtual bool isModified() const = 0;
    virtual bool isEmpty() const = 0;
    /// Refills messages() with the faults of the file.
    virtual void checkErrors() = 0;

private:
    QProject* m_project;
    QMessages m_messages;
};
