#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;

/**
 * A small calculator beside the editors ("view_calculator"), for offsets,
 * frame times and scaled sizes: + - * / % and parentheses over decimal
 * numbers, evaluated as the author types.
 */
class Calculator : public QDialog
{
    Q_OBJECT
public:
    explicit Calculator(QWidget* parent = nullptr);

    /// Evaluates `expression`; false for a malformed one or a division by zero.
    static bool evaluate(const QString& expression, double& result);

    QLineEdit* input() const { return m_input; }
    QString resultText() const;

private:
    void update();

    QLineEdit* m_input;
    QLabel* m_result;
};
