#include "throwdlg.h"

#include "model/qanimation.h"
#include "model/qanimations.h"
#include "model/qcommands.h"
#include "model/qproject.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTextBlock>
#include <QTextDocument>

namespace {

// The keys of the fields that name actions of the AIR, with what each is for.
struct ActionField
{
    const char* key;
    const char* role;
    int fallback; ///< the action the field starts at
};
const ActionField actionFields[] = {
    {"P1AnimStart", QT_TRANSLATE_NOOP("ThrowDlg", "the reach"), 800},
    {"P1Anim", QT_TRANSLATE_NOOP("ThrowDlg", "the throw"), 810},
    {"P2Anim", QT_TRANSLATE_NOOP("ThrowDlg", "the opponent held"), 820},
    {"P2AirAnim", QT_TRANSLATE_NOOP("ThrowDlg", "the opponent flying"), 821},
};

QFormLayout* group(QGridLayout* grid, const QString& title, int row, int column)
{
    auto* box = new QGroupBox(title, grid->parentWidget());
    grid->addWidget(box, row, column);
    return new QFormLayout(box);
}

} // namespace

int ThrowDlg::firstFreeThrow(const QSet<int>& used, int from)
{
    for (int first = from;; first += 10) {
        if (!used.contains(first) && !used.contains(first + holdOffset) && !used.contains(first + heldOffset)
            && !used.contains(first + flyingOffset))
            return first;
    }
}

ThrowDlg::ThrowDlg(QWidget* parent, QProject* project)
    : QDialog(parent)
    , m_project(project)
{
    setWindowTitle(tr("New throw"));
    // What the project has already: state numbers, actions, commands.
    static const QRegularExpression statedef(QStringLiteral("^\\s*\\[\\s*statedef\\s+(-?\\d+)"), QRegularExpression::CaseInsensitiveOption);
    for (int i = 0; project && i < project->statesCount(); ++i) {
        const QString file = QFileInfo(project->states(i)->fileName()).fileName();
        for (QTextBlock block = project->states(i)->document()->begin(); block.isValid(); block = block.next()) {
            const QRegularExpressionMatch match = statedef.match(block.text());
            if (match.hasMatch())
                m_states.insert(match.captured(1).toInt(), tr("%1, line %2").arg(file).arg(block.blockNumber() + 1));
        }
    }
    for (int i = 0; project && i < project->animations()->count(); ++i) {
        m_actions.insert(project->animations()->at(i)->number());
        m_frames.insert(project->animations()->at(i)->number(), project->animations()->at(i)->frameCount());
    }
    if (project) {
        static const QRegularExpression pair(QStringLiteral("^\\s*(name|command)\\s*=\\s*\"?([^\";]*)"), QRegularExpression::CaseInsensitiveOption);
        QString name;
        for (QTextBlock block = project->commands()->document()->begin(); block.isValid(); block = block.next()) {
            const QString line = block.text().trimmed();
            if (line.startsWith(QLatin1Char('[')))
                name.clear();
            const QRegularExpressionMatch match = pair.match(line);
            if (!match.hasMatch())
                continue;
            if (match.captured(1).compare(QLatin1String("name"), Qt::CaseInsensitive) == 0)
                m_commands.insert(name = match.captured(2).trimmed().toLower(), QString());
            else if (!name.isEmpty())
                m_commands[name] = match.captured(2).trimmed();
        }
    }

    auto* page = new QWidget(this);
    auto* grid = new QGridLayout(page);
    grid->setContentsMargins(0, 0, 0, 0);

    QFormLayout* states = group(grid, tr("States"), 0, 0);
    const QSet<int> used(m_states.keyBegin(), m_states.keyEnd());
    states->addRow(tr("First state:"), addNumber(page, QStringLiteral("StateNo"), 0, 999999, firstFreeThrow(used, 800),
                                                 tr("The thrower's attempt; the hold is 10 more, the opponent's states 20 and 21 more.")));
    m_statesNote = new QLabel(page);
    m_statesNote->setWordWrap(true);
    states->addRow(m_statesNote);

    QFormLayout* actions = group(grid, tr("Animations"), 1, 0);
    for (const ActionField& each : actionFields) {
        int start = each.fallback;
        // The opponent flies in the held animation when the AIR has no other.
        if (!m_actions.contains(start) && QLatin1String(each.key) == QLatin1String("P2AirAnim") && m_actions.contains(820))
            start = 820;
        const QString label = tr(each.role);
        actions->addRow(label.at(0).toUpper() + label.mid(1) + QLatin1Char(':'),
                        addNumber(page, QLatin1String(each.key), 0, 999999, start, tr("An action of the AIR: %1.").arg(label)));
    }

    QFormLayout* hold = group(grid, tr("Hold and release"), 0, 1);
    hold->addRow(tr("Ticks held:"), addNumber(page, QStringLiteral("BindCount"), 1, 600, 16, tr("Ticks the opponent stays bound before the release.")));
    hold->addRow(tr("Bind offset X:"), addNumber(page, QStringLiteral("BindX"), -999, 999, 28, tr("Where the opponent is held, from the thrower's axis (forward).")));
    hold->addRow(tr("Bind offset Y:"), addNumber(page, QStringLiteral("BindY"), -999, 999, 0, tr("Where the opponent is held, from the thrower's axis (down).")));
    hold->addRow(tr("Sprite priority:"), addNumber(page, QStringLiteral("SprPriority"), -10, 10, 2, tr("The thrower's sprite priority: above the opponent while throwing.")));
    auto* facing = new QComboBox(page);
    facing->setObjectName(QStringLiteral("Facing"));
    facing->addItem(tr("Forward"), 1);
    facing->addItem(tr("Behind"), -1);
    facing->setToolTip(tr("Which way the opponent is thrown."));
    hold->addRow(tr("Throw:"), facing);

    QFormLayout* flight = group(grid, tr("Flight and damage"), 1, 1);
    flight->addRow(tr("Velocity X:"), addDecimal(page, QStringLiteral("XVelocity"), -4.5, tr("The opponent's speed when let go; negative is away from the thrower's back.")));
    flight->addRow(tr("Velocity Y:"), addDecimal(page, QStringLiteral("YVelocity"), -7, tr("Negative goes up.")));
    flight->addRow(tr("Gravity:"), addDecimal(page, QStringLiteral("Gravity"), 0.45, tr("Added to the opponent's Y velocity each tick in the air.")));
    flight->addRow(tr("Damage:"), addNumber(page, QStringLiteral("Damage"), 0, 9999, 70, tr("Life the opponent loses on the release.")));
    flight->addRow(tr("Power:"), addNumber(page, QStringLiteral("PowerAdd"), 0, 9999, 40, tr("Power the thrower gains.")));

    QFormLayout* command = group(grid, tr("Command"), 2, 0);
    m_command = new QComboBox(page);
    m_command->setObjectName(QStringLiteral("Command"));
    m_command->setEditable(true);
    QStringList names = m_commands.keys();
    m_command->addItems(names);
    const QString fresh = m_commands.contains(QStringLiteral("throw")) ? QStringLiteral("throw_fwd") : QStringLiteral("throw");
    m_command->setEditText(fresh);
    m_command->setToolTip(tr("The command of the CMD that starts the throw: one it has, or a new one with its keys."));
    command->addRow(tr("Command:"), m_command);
    auto* keys = new QLineEdit(QStringLiteral("/F, y"), page);
    keys->setObjectName(QStringLiteral("Keys"));
    keys->setToolTip(tr("The keys of a new command (\"/F, y\": hold forward and press y); empty for a command the CMD has."));
    command->addRow(tr("Keys:"), keys);
    command->addRow(tr("Reach:"), addNumber(page, QStringLiteral("Reach"), 0, 999, 5, tr("How close the opponent's body must be for the throw to start.")));
    connect(m_command, &QComboBox::currentTextChanged, this, [this, keys](const QString& name) {
        // A command the CMD has needs no keys; a new one starts from the usual throw input.
        const bool known = m_commands.contains(name.trimmed().toLower());
        if (known)
            keys->clear();
        else if (keys->text().isEmpty())
            keys->setText(QStringLiteral("/F, y"));
        refresh();
    });
    connect(keys, &QLineEdit::textChanged, this, &ThrowDlg::refresh);
    connect(facing, &QComboBox::currentIndexChanged, this, &ThrowDlg::refresh);

    m_message = new QLabel(page);
    m_message->setObjectName(QStringLiteral("throwMessage"));
    m_message->setWordWrap(true);
    grid->addWidget(m_message, 2, 1);

    m_buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_buttons->button(QDialogButtonBox::Ok)->setText(tr("Write throw"));
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    auto* intro = new QLabel(tr("The throw's states go at the end of the shown state file, its command and "
                                "its state -1 entry into the CMD. Each file takes it as one step to undo."), this);
    intro->setWordWrap(true);
    layout->addWidget(intro);
    layout->addWidget(page);
    layout->addWidget(m_buttons);
    refresh();
}

QWidget* ThrowDlg::addNumber(QWidget* page, const QString& key, int minimum, int maximum, int value, const QString& tip)
{
    auto* box = new QSpinBox(page);
    box->setObjectName(key);
    box->setRange(minimum, maximum);
    box->setValue(value);
    box->setToolTip(tip);
    connect(box, &QSpinBox::valueChanged, this, &ThrowDlg::refresh);
    return box;
}

QWidget* ThrowDlg::addDecimal(QWidget* page, const QString& key, double value, const QString& tip)
{
    auto* box = new QDoubleSpinBox(page);
    box->setObjectName(key);
    box->setRange(-99, 99);
    box->setDecimals(2);
    box->setSingleStep(0.05);
    box->setValue(value);
    box->setToolTip(tip);
    connect(box, &QDoubleSpinBox::valueChanged, this, &ThrowDlg::refresh);
    return box;
}

QWidget* ThrowDlg::field(const QString& key) const
{
    return findChild<QWidget*>(key);
}

int ThrowDlg::number(const QString& key) const
{
    if (auto* box = qobject_cast<QSpinBox*>(field(key)))
        return box->value();
    auto* combo = qobject_cast<QComboBox*>(field(key));
    return combo ? combo->currentData().toInt() : 0;
}

QString ThrowDlg::text(const QString& key) const
{
    if (auto* line = qobject_cast<QLineEdit*>(field(key)))
        return line->text().trimmed();
    auto* combo = qobject_cast<QComboBox*>(field(key));
    return combo ? combo->currentText().trimmed() : QString();
}

QVariantMap ThrowDlg::options() const
{
    QVariantMap map;
    for (QWidget* each : findChildren<QWidget*>()) {
        const QString key = each->objectName();
        if (key.isEmpty() || !key.at(0).isUpper())
            continue;
        if (auto* decimal = qobject_cast<QDoubleSpinBox*>(each))
            map.insert(key, decimal->value());
        else if (qobject_cast<QSpinBox*>(each) || key == QLatin1String("Facing"))
            map.insert(key, number(key));
        else if (qobject_cast<QLineEdit*>(each) || qobject_cast<QComboBox*>(each))
            map.insert(key, text(key));
    }
    return map;
}

QString ThrowDlg::problem() const
{
    const int first = number(QStringLiteral("StateNo"));
    for (const int state : {first, first + holdOffset, first + heldOffset, first + flyingOffset}) {
        if (m_states.contains(state))
            return tr("State %1 exists already (%2): the throw takes %3, %4, %5 and %6.")
                .arg(state).arg(m_states.value(state)).arg(first).arg(first + holdOffset).arg(first + heldOffset).arg(first + flyingOffset);
    }
    for (const ActionField& each : actionFields) {
        const int action = number(QLatin1String(each.key));
        if (!m_actions.contains(action))
            return tr("The AIR has no action %1 for %2.").arg(action).arg(tr(each.role));
    }
    const int reach = number(QStringLiteral("P1AnimStart"));
    if (m_frames.value(reach) < 2)
        return tr("Action %1 (the reach) needs two frames at least: the throw's hit starts at its second.").arg(reach);
    const QString command = text(QStringLiteral("Command"));
    const QString keys = text(QStringLiteral("Keys"));
    if (command.isEmpty() || command.contains(QLatin1Char('"')))
        return tr("The command needs a name, without quotes.");
    const bool known = m_commands.contains(command.toLower());
    if (known && !keys.isEmpty())
        return tr("The CMD has a command \"%1\" already: leave Keys empty to use it, or name a new one.").arg(command);
    if (!known && keys.isEmpty())
        return tr("The CMD has no command \"%1\": give its keys, as /F, y.").arg(command);
    return QString();
}

void ThrowDlg::refresh()
{
    const int first = number(QStringLiteral("StateNo"));
    m_statesNote->setText(tr("Takes states %1, %2 (the hold), %3 and %4 (the opponent).")
                              .arg(first).arg(first + holdOffset).arg(first + heldOffset).arg(first + flyingOffset));
    const QString wrong = problem();
    m_message->setText(wrong.isEmpty() ? tr("Ready to write.") : wrong);
    m_message->setStyleSheet(wrong.isEmpty() ? QString() : QStringLiteral("color: #b00020;"));
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(wrong.isEmpty());
}
