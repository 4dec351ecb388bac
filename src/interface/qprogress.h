#pragma once

#include <QProgressDialog>

/**
 * The progress dialog of long work on the one thread. Connected to a model's
 * progress(uint, uint, bool&) signal, it shows the position, lets the event
 * loop run so the window stays alive, and clears the flag when the author
 * presses Cancel.
 */
class QProgress : public QProgressDialog
{
    Q_OBJECT
public:
    explicit QProgress(const QString& label, QWidget* parent = nullptr);

public slots:
    void onProgress(uint position, uint maximum, bool& allow);
};
