#include "qsctrlmanager.h"

#include <QFile>
#include <QRegularExpression>
#include <QTextStream>

QSCtrlManager* sctrlsMan = nullptr;

namespace {

/// The fields of the data lines of a file, comment lines left out.
QList<QStringList> readRows(const QString& fileName)
{
    QList<QStringList> rows;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return rows;
    QTextStream in(&file);
    in.setEncoding(QStringConverter::Utf8);
    while (!in.atEnd()) {
        const QString line = in.readLine().trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char(';')))
            continue;
        QStringList fields = line.split(QLatin1Char('|'));
        for (QString& field : fields)
            field = field.trimmed();
        rows.append(fields);
    }
    return rows;
}

} // namespace

QSCtrlManager::QSCtrlManager(const QString& dir)
{
    load(dir);
}

bool QSCtrlManager::load(const QString& dir)
{
    m_controllers.clear();
    m_descriptions.clear();
    m_params.clear();
    m_spellings.clear();
    for (const QStringList& row : readRows(dir + QStringLiteral("/controllers.txt"))) {
        const QString key = row.at(0).toLower();
        m_controllers.append(row.at(0));
        m_descriptions.insert(key, row.value(1));
        QStringList params;
        for (const QString& param : row.value(2).split(QLatin1Char(','), Qt::SkipEmptyParts))
            params.append(param.trimmed());
        m_params.insert(key, params);
    }
    for (const QStringList& row : readRows(dir + QStringLiteral("/triggers.txt"))) {
        const QString key = row.at(0).toLower();
        m_spellings.insert(key, row.at(0));
        if (!row.value(1).isEmpty() && !m_descriptions.contains(key))
            m_descriptions.insert(key, row.value(1));
    }
    return !m_controllers.isEmpty();
}

QString QSCtrlManager::description(const QString& word) const
{
    return m_descriptions.value(word.trimmed().toLower());
}

QString QSCtrlManager::templateFor(const QString& controller, const QString& state) const
{
    const QString key = controller.toLower();
    if (!m_params.contains(key))
        return QString();
    const QString name = m_controllers.at(int(m_controllers.indexOf(QRegularExpression(
        QStringLiteral("^%1$").arg(QRegularExpression::escape(controller)), QRegularExpression::CaseInsensitiveOption))));
    QString text = QStringLiteral("[State %1, %2]\ntype = %2\ntrigger1 = \n").arg(state, name);
    for (const QString& param : m_params.value(key))
        text += param + QStringLiteral(" = \n");
    return text;
}
