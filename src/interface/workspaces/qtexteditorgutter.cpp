#include "qtexteditorgutter.h"

#include "qtexteditor.h"
#include "text/qtexteditorblockdata.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QTextBlock>
#include <QToolTip>

QTextEditorGutter::QTextEditorGutter(QTextEditor* editor)
    : QWidget(editor)
    , m_editor(editor)
{
    setObjectName(QStringLiteral("textGutter"));
    setMouseTracking(true);
}

QSize QTextEditorGutter::sizeHint() const
{
    return QSize(m_editor->gutterWidth(), 0);
}

void QTextEditorGutter::paintEvent(QPaintEvent* event)
{
    m_editor->paintGutter(event);
}

void QTextEditorGutter::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_editor->gutterClicked(event->position().toPoint());
}

bool QTextEditorGutter::event(QEvent* event)
{
    // A mark in the margin tells its line's findings.
    if (event->type() == QEvent::ToolTip) {
        auto* help = static_cast<QHelpEvent*>(event);
        const QTextBlock block = m_editor->cursorForPosition(QPoint(0, help->pos().y())).block();
        const auto* data = static_cast<const QTextEditorBlockData*>(block.userData());
        QStringList texts;
        if (data) {
            for (const QSynMsg& msg : data->messages)
                texts.append(msg.text);
        }
        if (texts.isEmpty())
            QToolTip::hideText();
        else
            QToolTip::showText(help->globalPos(), texts.join(QLatin1Char('\n')), this);
        return true;
    }
    return QWidget::event(event);
}
