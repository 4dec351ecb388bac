#include "qprogress.h"

#include <QCoreApplication>

QProgress::QProgress(const QString& label, QWidget* parent)
    : QProgressDialog(label, tr("Cancel"), 0, 0, parent)
{
    setWindowModality(Qt::WindowModal);
    // Short work should not flash a dialog.
    setMinimumDuration(400);
}

void QProgress::onProgress(uint position, uint maximum, bool& allow)
{
    if (maximum != uint(this->maximum()))
        setMaximum(int(maximum));
    setValue(int(qMin(position, maximum)));
    QCoreApplication::processEvents();
    if (wasCanceled())
        allow = false;
}
