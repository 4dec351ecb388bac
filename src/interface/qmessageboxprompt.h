#pragma once

#include "util/qprompt.h"

class QWidget;

/// Shows the models' questions and faults as message boxes over the window.
class QMessageBoxPrompt : public QPrompt
{
public:
    explicit QMessageBoxPrompt(QWidget* parent = nullptr);

    /// The window the boxes are modal to; null before the window exists.
    void setParent(QWidget* parent) { m_parent = parent; }

    void information(const QString& title, const QString& text) override;
    void warning(const QString& title, const QString& text) override;
    void critical(const QString& title, const QString& text) override;
    Button question(const QString& title, const QString& text, Buttons buttons,
                    Button defaultButton) override;

private:
    QWidget* m_parent;
};
