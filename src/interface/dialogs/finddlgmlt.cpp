#include "finddlgmlt.h"

#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "text/qtextsearch.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextDocument>
#include <QTreeWidget>
#include <QVBoxLayout>

FindDlgMlt::FindDlgMlt(QWidget* parent)
    : QDialog(parent)
    , m_find(new QLineEdit(this))
    , m_replace(new QLineEdit(this))
    , m_regex(new QCheckBox(tr("Regular expression"), this))
    , m_case(new QCheckBox(tr("Match case"), this))
    , m_word(new QCheckBox(tr("Whole words"), this))
    , m_results(new QTreeWidget(this))
    , m_status(new QLabel(this))
{
    setObjectName(QStringLiteral("findDlgMlt"));
    setWindowTitle(tr("Find and replace in all files"));
    auto* fields = new QFormLayout;
    fields->addRow(tr("Find:"), m_find);
    fields->addRow(tr("Replace with:"), m_replace);
    auto* options = new QHBoxLayout;
    options->addWidget(m_regex);
    options->addWidget(m_case);
    options->addWidget(m_word);
    options->addStretch();
    m_results->setObjectName(QStringLiteral("findResults"));
    m_results->setHeaderLabels({tr("File"), tr("Line"), tr("Text")});
    m_results->setRootIsDecorated(false);
    m_results->header()->setSectionResizeMode(2, QHeaderView::Stretch);
    auto* buttons = new QDialogButtonBox(this);
    connect(buttons->addButton(tr("Find all"), QDialogButtonBox::ActionRole), &QPushButton::clicked, this,
            &FindDlgMlt::findAll);
    connect(buttons->addButton(tr("Replace all"), QDialogButtonBox::ActionRole), &QPushButton::clicked, this,
            &FindDlgMlt::replaceAll);
    connect(buttons->addButton(tr("Undo replace"), QDialogButtonBox::ActionRole), &QPushButton::clicked, this,
            &FindDlgMlt::undoReplace);
    connect(buttons->addButton(QDialogButtonBox::Close), &QPushButton::clicked, this, &QDialog::hide);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addLayout(options);
    layout->addWidget(m_results, 1);
    layout->addWidget(m_status);
    layout->addWidget(buttons);
    resize(640, 420);
    connect(m_find, &QLineEdit::returnPressed, this, &FindDlgMlt::findAll);
    connect(m_results, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) {
        emit navigate(item->data(0, Qt::UserRole).toInt(), item->data(1, Qt::UserRole).toInt(),
                      item->data(2, Qt::UserRole).toInt(), item->text(1).toInt() - 1);
    });
}

void FindDlgMlt::setProject(QProject* project)
{
    m_project = project;
    m_results->clear();
    m_replaced.clear();
}

QList<FindDlgMlt::File> FindDlgMlt::files() const
{
    QList<File> list;
    if (!m_project)
        return list;
    list.append(File{pftDefinitions, 0, m_project->definitions()});
    for (int i = 0; i < m_project->statesCount(); ++i)
        list.append(File{pftStates, i, m_project->states(i)});
    return list;
}

int FindDlgMlt::findAll()
{
    m_results->clear();
    const QTextSearch search(m_find->text(), m_regex->isChecked(), m_case->isChecked(), m_word->isChecked());
    if (!search.isValid()) {
        m_status->setText(search.errorString());
        return 0;
    }
    int count = 0;
    QList<QTreeWidgetItem*> items;
    for (const File& file : files()) {
        const QString name = QFileInfo(file.text->fileName()).fileName();
        for (const QTextSearch::Match& match : search.findAll(file.text->document())) {
            auto* item = new QTreeWidgetItem({name, QString::number(match.line + 1), match.lineText.trimmed()});
            item->setData(0, Qt::UserRole, file.type);
            item->setData(1, Qt::UserRole, file.index);
            item->setData(2, Qt::UserRole, match.column);
            items.append(item);
            ++count;
        }
    }
    m_results->addTopLevelItems(items);
    m_status->setText(tr("%n match(es)", nullptr, count));
    return count;
}

int FindDlgMlt::replaceAll()
{
    const QTextSearch search(m_find->text(), m_regex->isChecked(), m_case->isChecked(), m_word->isChecked());
    if (!search.isValid())
        return 0;
    m_replaced.clear();
    int count = 0;
    int changed = 0;
    for (const File& file : files()) {
        const int here = search.replaceAll(file.text->document(), m_replace->text());
        if (here > 0) {
            m_replaced.append(file.text->document());
            count += here;
            ++changed;
        }
    }
    m_results->clear();
    m_status->setText(tr("%1 replaced in %2 file(s)").arg(count).arg(changed));
    return count;
}

void FindDlgMlt::undoReplace()
{
    for (const QPointer<QTextDocument>& document : std::as_const(m_replaced)) {
        if (document)
            document->undo();
    }
    m_status->setText(m_replaced.isEmpty() ? QString() : tr("Replace undone"));
    m_replaced.clear();
}
