#include "qquickfind.h"

#include "text/qtextsearch.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QToolButton>

QQuickFind::QQuickFind(QPlainTextEdit* editor, QWidget* parent)
    : QWidget(parent)
    , m_editor(editor)
    , m_find(new QLineEdit(this))
    , m_replace(new QLineEdit(this))
    , m_regex(new QCheckBox(tr("Regex"), this))
    , m_case(new QCheckBox(tr("Case"), this))
    , m_word(new QCheckBox(tr("Word"), this))
    , m_status(new QLabel(this))
{
    setObjectName(QStringLiteral("quickFind"));
    m_find->setObjectName(QStringLiteral("quickFindText"));
    m_find->setPlaceholderText(tr("Find"));
    m_find->setClearButtonEnabled(true);
    m_replace->setObjectName(QStringLiteral("quickFindReplace"));
    m_replace->setPlaceholderText(tr("Replace with"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->addWidget(m_find, 2);
    const auto button = [this, layout](const QString& text, auto slot) {
        auto* b = new QToolButton(this);
        b->setText(text);
        b->setAutoRaise(true);
        connect(b, &QToolButton::clicked, this, slot);
        layout->addWidget(b);
    };
    button(tr("Previous"), [this] { findNext(true); });
    button(tr("Next"), [this] { findNext(false); });
    layout->addWidget(m_regex);
    layout->addWidget(m_case);
    layout->addWidget(m_word);
    layout->addWidget(m_replace, 1);
    button(tr("Replace"), [this] { replaceCurrent(); });
    button(tr("All"), [this] { replaceAll(); });
    layout->addWidget(m_status);
    connect(m_find, &QLineEdit::textEdited, this, &QQuickFind::incremental);
    connect(m_find, &QLineEdit::returnPressed, this, [this] { findNext(false); });
    for (QCheckBox* box : {m_regex, m_case, m_word})
        connect(box, &QCheckBox::toggled, this, &QQuickFind::incremental);
}

void QQuickFind::start()
{
    const QString selected = m_editor->textCursor().selectedText();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator))
        m_find->setText(selected);
    m_start = m_editor->textCursor().selectionStart();
    show();
    m_find->setFocus();
    m_find->selectAll();
}

void QQuickFind::incremental()
{
    // Each letter searches again from where the search began, not from the last match.
    QTextCursor cursor = m_editor->textCursor();
    cursor.setPosition(qMin(m_start, m_editor->document()->characterCount() - 1));
    m_editor->setTextCursor(cursor);
    findNext(false);
}

bool QQuickFind::findNext(bool backward)
{
    const QTextSearch search(m_find->text(), m_regex->isChecked(), m_case->isChecked(), m_word->isChecked());
    if (!search.isValid()) {
        m_status->setText(search.errorString());
        return false;
    }
    QTextDocument::FindFlags flags;
    if (backward)
        flags |= QTextDocument::FindBackward;
    if (m_case->isChecked())
        flags |= QTextDocument::FindCaseSensitively;
    QTextDocument* document = m_editor->document();
    QTextCursor found = document->find(search.expression(), m_editor->textCursor(), flags);
    if (found.isNull()) { // wrap around
        QTextCursor from(document);
        if (backward)
            from.movePosition(QTextCursor::End);
        found = document->find(search.expression(), from, flags);
    }
    if (!found.isNull())
        m_editor->setTextCursor(found);
    showResult(!found.isNull());
    return !found.isNull();
}

void QQuickFind::showResult(bool found)
{
    m_status->setText(found ? QString() : tr("Not found"));
    QPalette palette = m_find->palette();
    palette.setColor(QPalette::Base, found || m_find->text().isEmpty() ? QColor(Qt::white) : QColor(255, 200, 200));
    m_find->setPalette(palette);
}

void QQuickFind::replaceCurrent()
{
    const QTextSearch search(m_find->text(), m_regex->isChecked(), m_case->isChecked(), m_word->isChecked());
    QTextCursor cursor = m_editor->textCursor();
    if (search.isValid() && cursor.hasSelection()
        && search.expression().match(cursor.selectedText()).capturedLength() == cursor.selectedText().size())
        cursor.insertText(m_replace->text());
    findNext(false);
}

int QQuickFind::replaceAll()
{
    const QTextSearch search(m_find->text(), m_regex->isChecked(), m_case->isChecked(), m_word->isChecked());
    const int count = search.replaceAll(m_editor->document(), m_replace->text());
    m_status->setText(tr("%n replaced", nullptr, count));
    return count;
}

void QQuickFind::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        hide();
        m_editor->setFocus();
        return;
    }
    QWidget::keyPressEvent(event);
}
