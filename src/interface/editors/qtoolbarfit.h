#pragma once

#include <QObject>

class QToolBar;

/**
 * Keeps every command of an editor's tool bar in view. While the bar is too
 * narrow for all the names beside the icons (a small window, a language with
 * long words), its named buttons show their icons alone from the right end on,
 * named in their tool tips, rather than the last commands going behind the
 * bar's extension arrow; the names come back as the room does. Buttons shown
 * as icons alone on purpose stay so. The fit belongs to the bar and goes with it.
 */
class QToolBarFit : public QObject
{
    Q_OBJECT
public:
    /// Fits `bar` from now on, at each change of its width or its commands.
    static void apply(QToolBar* bar);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit QToolBarFit(QToolBar* bar);
    void fit();

    QToolBar* m_bar;
    bool m_fitting = false;
};
