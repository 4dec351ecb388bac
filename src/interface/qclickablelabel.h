#pragma once

#include <QLabel>
#include <QMouseEvent>

/// A status-bar label that reacts to a click (the error icon, the project label).
class QClickableLabel : public QLabel
{
    Q_OBJECT
public:
    using QLabel::QLabel;

signals:
    void clicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
            emit clicked();
        QLabel::mouseReleaseEvent(event);
    }
};
