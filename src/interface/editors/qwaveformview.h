#pragma once

#include "model/qwavpeaks.h"

#include <QWidget>

/**
 * The waveform of one sound, drawn from its PCM samples: a bar of the
 * extremes for each column, with the centre line and a caption saying what
 * the sound is. The peaks are worked out again only when the sound or the
 * width changes.
 */
class QWaveformView : public QWidget
{
    Q_OBJECT
public:
    explicit QWaveformView(QWidget* parent = nullptr);

    /// The WAV bytes to show and the line under them; empty bytes show the caption alone.
    void setSound(const QByteArray& data, const QString& caption);
    const QList<QWAVPeak>& peaks() const { return m_peaks; }

    QSize sizeHint() const override { return QSize(480, 200); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void updatePeaks();

    QByteArray m_data;
    QString m_caption;
    QList<QWAVPeak> m_peaks;
};
