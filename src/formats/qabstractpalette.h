#pragma once

#include "qrgba.h"

#include <QByteArray>
#include <QString>

#include <memory>

class QIODevice;

/**
 * A reader of one palette file format into a table of 256 entries. Readers
 * fill what they can read in place and never clear the table themselves:
 * QRGBPalette::fromFile clears it first, so a file that fails half way leaves
 * what was read. Adobe formats are big-endian, the others little-endian or text.
 */
class QAbstractPalette
{
public:
    virtual ~QAbstractPalette() = default;

    /// Reads the file from the device into the table; true when it parsed.
    virtual bool fromFile(QIODevice* device, QRGBA (*palette)[256]) = 0;
    /// The format's short name, as the command-line tool reports it ("ACT", "JASC", ...).
    virtual QString name() const = 0;
    /// After a failed read, what was wrong, when the reader can say more than
    /// that the file is not of its format; empty otherwise.
    QString fault() const { return m_fault; }

    /// The reader of a file: by suffix "aco", else by its first four bytes
    /// ("RIFF", "JASC", "ASEF", "ROWS"), and ACT for anything else.
    static std::unique_ptr<QAbstractPalette> forFile(const QString& suffix, const QByteArray& head);

protected:
    QString m_fault;
};
