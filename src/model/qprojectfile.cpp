#include "qprojectfile.h"

#include "qproject.h"

QProjectFile::QProjectFile(QProject* project, QProjectFileType type)
    : m_project(project)
    , m_messages(type)
{
    if (m_project)
        m_project->messages()->add(&m_messages);
}

QProjectFile::~QProjectFile()
{
    if (m_project)
        m_project->messages()->remove(&m_messages);
}

bool QProjectFile::canSave(unsigned int) const
{
    return true;
}
