#pragma once

#include <QDialog>

class QButtonGroup;

/// Asks which engine's sprite format to write, offering the present one.
class SaveSpr : public QDialog
{
    Q_OBJECT
public:
    explicit SaveSpr(quint32 currentVersion, QWidget* parent = nullptr);

    /// The SFF version chosen.
    quint32 version() const;

private:
    QButtonGroup* m_choices;
};
