#include "qtexteditorblockdata.h"

#include "qtextelement.h"

QTextEditorBlockData::~QTextEditorBlockData()
{
    if (m_element)
        m_element->lineDeleted();
}
