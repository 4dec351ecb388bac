#include "qwaveformview.h"

#include <QPainter>

namespace {

constexpr int margin = 6;

} // namespace

QWaveformView::QWaveformView(QWidget* parent)
    : QWidget(parent)
{
    setMinimumHeight(160);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void QWaveformView::setSound(const QByteArray& data, const QString& caption)
{
    m_data = data;
    m_caption = caption;
    updatePeaks();
    update();
}

void QWaveformView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    updatePeaks();
}

void QWaveformView::updatePeaks()
{
    m_peaks = wavPeaks(m_data, qMax(1, width() - 2 * margin));
}

void QWaveformView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QPalette colours = palette();
    painter.fillRect(rect(), colours.color(QPalette::Base));
    const QFontMetrics metrics(font());
    const QRect wave = rect().adjusted(margin, margin, -margin, -margin - metrics.height());
    const int middle = wave.center().y();
    const float half = wave.height() / 2.0f;
    painter.setPen(colours.color(QPalette::Mid));
    painter.drawLine(wave.left(), middle, wave.right(), middle);
    painter.setPen(colours.color(QPalette::Highlight));
    for (int column = 0; column < m_peaks.size(); ++column) {
        const QWAVPeak& peak = m_peaks.at(column);
        const int x = wave.left() + column;
        painter.drawLine(x, middle - qRound(peak.high * half), x, middle - qRound(peak.low * half));
    }
    painter.setPen(colours.color(QPalette::Text));
    painter.drawText(rect().adjusted(margin, 0, -margin, -2), Qt::AlignBottom | Qt::AlignLeft, m_caption);
}
