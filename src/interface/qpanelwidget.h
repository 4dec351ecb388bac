#pragma once

#include <QFrame>

class QLabel;
class QStackedLayout;

/**
 * A side panel: a title bar over a stack of pages, one page per editor
 * (left) or extra editor (right). The title's height comes from the preset.
 */
class QPanelWidget : public QFrame
{
    Q_OBJECT
public:
    explicit QPanelWidget(QWidget* parent = nullptr);

    QStackedLayout* stack() const { return m_stack; }
    /// A new empty page, added to the stack.
    QWidget* addPage(const QString& name);
    void setTitle(const QString& title);
    QString title() const;
    void setTitleMetric(int height);

private:
    QLabel* m_title;
    QStackedLayout* m_stack;
};
