#include "qtextworkspace.h"

#include "managers/qcolorsetmanager.h"
#include "managers/qconfigmanager.h"
#include "qtextview.h"

#include <QFont>

QTextWorkspace::QTextWorkspace(QObject* parent)
    : QInterfaceWorkspace(parent)
    , m_view(new QTextView)
{
    reconfig();
}

QTextWorkspace::~QTextWorkspace()
{
    // The view belongs to the window's workspace stack once shown there.
    if (!m_view->parent())
        delete m_view;
}

QWidget* QTextWorkspace::widget() const
{
    return m_view;
}

void QTextWorkspace::reconfig()
{
    QFont font((*configMan)[QStringLiteral("font_name")].toString());
    font.setStyleHint(QFont::Monospace);
    font.setPointSize(qMax(6, (*configMan)[QStringLiteral("font_size")].toInt()));
    m_view->setFont(font);
    if (colorMan)
        m_view->setColors(colorMan->color(QStringLiteral("line")), colorMan->color(QStringLiteral("paren")),
                          colorMan->color(QStringLiteral("paren_range")));
}
