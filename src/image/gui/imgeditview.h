#pragma once

#include <QWidget>

class QImageRender;

/// The widget that hosts an image renderer: it paints through it and hands it the mouse, wheel and keys.
class ImgEditView : public QWidget
{
    Q_OBJECT
public:
    explicit ImgEditView(QImageRender* render, QWidget* parent = nullptr);

    QImageRender* render() const { return m_render; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    QImageRender* m_render;
};
