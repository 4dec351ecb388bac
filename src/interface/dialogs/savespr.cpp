#include "savespr.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

constexpr quint32 versions[] = {0x01000100, 0x02000000, 0x02000100};

} // namespace

SaveSpr::SaveSpr(quint32 currentVersion, QWidget* parent)
    : QDialog(parent)
    , m_choices(new QButtonGroup(this))
{
    setObjectName(QStringLiteral("SaveSpr"));
    setWindowTitle(tr("Save sprites"));
    const QString texts[][2] = {
        {QStringLiteral("M.U.G.E.N. Beta"), tr("8 bits only, other formats will be converted to 8 bits")},
        {QStringLiteral("M.U.G.E.N. 1.0"), tr("5 / 8 bits, other formats will be converted to 8 bits")},
        {QStringLiteral("M.U.G.E.N. 1.1"), tr("5 / 8 / 24 / 32 bits, other formats will be converted to 24 bits")},
    };
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("Write the sprites for:"), this));
    for (int i = 0; i < 3; ++i) {
        auto* choice = new QRadioButton(texts[i][0], this);
        auto* note = new QLabel(texts[i][1], this);
        note->setIndent(24);
        note->setEnabled(false);
        m_choices->addButton(choice, i);
        layout->addWidget(choice);
        layout->addWidget(note);
        choice->setChecked(versions[i] == currentVersion || (i == 2 && !m_choices->checkedButton()));
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

quint32 SaveSpr::version() const
{
    return versions[qBound(0, m_choices->checkedId(), 2)];
}
