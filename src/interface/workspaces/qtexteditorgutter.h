#pragma once

#include <QWidget>

class QTextEditor;

/// The margin of a QTextEditor: line numbers, finding marks and fold boxes,
/// all painted and clicked through the editor, which knows the layout.
class QTextEditorGutter : public QWidget
{
    Q_OBJECT
public:
    explicit QTextEditorGutter(QTextEditor* editor);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;

private:
    QTextEditor* m_editor;
};
