#include "qmessageboxprompt.h"

#include <QMessageBox>

namespace {

// Our buttons and the message box's, side by side.
const struct {
    QPrompt::Button ours;
    QMessageBox::StandardButton theirs;
} buttonPairs[] = {
    {QPrompt::Ok, QMessageBox::Ok},
    {QPrompt::Yes, QMessageBox::Yes},
    {QPrompt::No, QMessageBox::No},
    {QPrompt::Cancel, QMessageBox::Cancel},
    {QPrompt::Save, QMessageBox::Save},
    {QPrompt::Discard, QMessageBox::Discard},
};

QMessageBox::StandardButtons toMessageBox(QPrompt::Buttons buttons)
{
    QMessageBox::StandardButtons result;
    for (const auto& pair : buttonPairs) {
        if (buttons & pair.ours)
            result |= pair.theirs;
    }
    return result;
}

QPrompt::Button fromMessageBox(QMessageBox::StandardButton button, QPrompt::Button fallback)
{
    for (const auto& pair : buttonPairs) {
        if (pair.theirs == button)
            return pair.ours;
    }
    return fallback;
}

} // namespace

QMessageBoxPrompt::QMessageBoxPrompt(QWidget* parent)
    : m_parent(parent)
{
}

void QMessageBoxPrompt::information(const QString& title, const QString& text)
{
    QMessageBox::information(m_parent, title, text);
}

void QMessageBoxPrompt::warning(const QString& title, const QString& text)
{
    QMessageBox::warning(m_parent, title, text);
}

void QMessageBoxPrompt::critical(const QString& title, const QString& text)
{
    QMessageBox::critical(m_parent, title, text);
}

QPrompt::Button QMessageBoxPrompt::question(const QString& title, const QString& text,
                                            Buttons buttons, Button defaultButton)
{
    const auto defaultChoice = QMessageBox::StandardButton(int(toMessageBox(defaultButton)));
    const auto chosen = QMessageBox::question(m_parent, title, text, toMessageBox(buttons), defaultChoice);
    // Closing the box with Escape answers as the default would.
    return fromMessageBox(chosen, defaultButton);
}
