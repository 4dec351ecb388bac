#include "calculator.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <cmath>

namespace {

/// Recursive descent over: sum = product (("+" | "-") product)*,
/// product = unary (("*" | "/" | "%") unary)*, unary = "-" unary | "(" sum ")" | number.
class Parser
{
public:
    explicit Parser(const QString& text)
        : m_text(text)
    {
    }

    bool parse(double& result)
    {
        return sum(result) && (skipBlanks(), m_pos == m_text.size());
    }

private:
    void skipBlanks()
    {
        while (m_pos < m_text.size() && m_text.at(m_pos).isSpace())
            ++m_pos;
    }

    bool take(QChar c)
    {
        skipBlanks();
        if (m_pos < m_text.size() && m_text.at(m_pos) == c) {
            ++m_pos;
            return true;
        }
        return false;
    }

    bool sum(double& value)
    {
        if (!product(value))
            return false;
        for (;;) {
            double right = 0;
            if (take(QLatin1Char('+'))) {
                if (!product(right))
                    return fail();
                value += right;
            } else if (take(QLatin1Char('-'))) {
                if (!product(right))
                    return fail();
                value -= right;
            } else {
                return true;
            }
        }
    }

    bool product(double& value)
    {
        if (!unary(value))
            return false;
        for (;;) {
            double right = 0;
            if (take(QLatin1Char('*'))) {
                if (!unary(right))
                    return fail();
                value *= right;
            } else if (take(QLatin1Char('/')) || take(QLatin1Char('%'))) {
                const bool modulo = m_text.at(m_pos - 1) == QLatin1Char('%');
                if (!unary(right) || right == 0)
                    return fail();
                value = modulo ? std::fmod(value, right) : value / right;
            } else {
                return true;
            }
        }
    }

    bool unary(double& value)
    {
        if (take(QLatin1Char('-'))) {
            if (!unary(value))
                return fail();
            value = -value;
            return true;
        }
        if (take(QLatin1Char('(')))
            return (sum(value) && take(QLatin1Char(')'))) || fail();
        skipBlanks();
        const qsizetype start = m_pos;
        while (m_pos < m_text.size() && (m_text.at(m_pos).isDigit() || m_text.at(m_pos) == QLatin1Char('.')))
            ++m_pos;
        bool ok = false;
        value = QStringView(m_text).mid(start, m_pos - start).toDouble(&ok);
        return ok || fail();
    }

    static bool fail() { return false; }

    const QString& m_text;
    qsizetype m_pos = 0;
};

} // namespace

Calculator::Calculator(QWidget* parent)
    : QDialog(parent)
    , m_input(new QLineEdit(this))
    , m_result(new QLabel(this))
{
    setObjectName(QStringLiteral("Calculator"));
    setWindowTitle(tr("Calculator"));
    m_input->setPlaceholderText(tr("e.g. (320 - 48) / 2"));
    m_result->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_result->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QFont big = m_result->font();
    big.setPointSizeF(big.pointSizeF() * 1.6);
    m_result->setFont(big);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_input);
    layout->addWidget(m_result);
    resize(300, 0);
    connect(m_input, &QLineEdit::textChanged, this, &Calculator::update);
    update();
}

bool Calculator::evaluate(const QString& expression, double& result)
{
    result = 0;
    return Parser(expression).parse(result) && std::isfinite(result);
}

QString Calculator::resultText() const
{
    return m_result->text();
}

void Calculator::update()
{
    double value = 0;
    if (m_input->text().trimmed().isEmpty())
        m_result->setText(QStringLiteral("0"));
    else if (evaluate(m_input->text(), value))
        m_result->setText(QString::number(value, 'g', 12));
    else
        m_result->setText(tr("—"));
}
